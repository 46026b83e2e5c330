#include "brindle/table/et_cell.h"

#include <gtest/gtest.h>

#include <climits>

#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

struct Cell : CETCell {
  Cell(int kind, void* variable, const wchar_t* format = L"%d") {
    m_nType = kind;
    m_pValue = variable;
    m_strFormat = format;
    m_bCString = 1;
  }
};

void give_list(CETCell& cell, CETControl& control, std::initializer_list<const wchar_t*> texts,
               std::initializer_list<const wchar_t*> values = {}, int editable = 0) {
  for (const wchar_t* text : texts) control.m_arText.Add(text);
  for (const wchar_t* value : values) control.m_arValue.Add(value);
  control.m_bEditable = editable;
  cell.m_pControl = &control;
}

TEST(Rules, ChooseAState) {
  struct Case {
    int kind;
    const wchar_t* value;
    const wchar_t* rule;
    int state;
  };
  const Case cases[] = {
      {ETCK_INT, L"1", L"V,==,1,?,ED,:,GR", 1},
      {ETCK_INT, L"2", L"V,==,1,?,ED,:,GR", 2},
      {ETCK_INT, L"2", L"v == 1 ? edit : none", 0},
      {ETCK_INT, L"2", L"V,<>,1,?,ED,:,GR", -1},
      {ETCK_INT, L"2", L"V,>=,2.9,?,7,:,-5", 2},  // whole numbers, states clamped
      {ETCK_INT, L"1", L"V,>=,2,?,7,:,-5", -1},
      {ETCK_INT, L"2", L"V,<=,2,?,ETCS_GRAY,!,E", 2},
      {ETCK_SHORT, L"3", L"V,!=,3,?,N,:,G", 2},
      {ETCK_FLOAT, L"2", L"V,>,2.5,?,NO", -1},
      {ETCK_FLOAT, L"3", L"V,>,2.5,?,NO", 0},
      {ETCK_DOUBLE, L"-1e300", L"V,<,0,?,G,:,E", 2},
      {ETCK_STRING, L"C30", L"V,==,c30,?,G,:,E", 2},
      {ETCK_STRING, L"c30", L"V,==,c30,?,G,:,E", 1},  // small letters are never equal
      {ETCK_CHECK, L"1", L"V,==,1,?,G,:,E", -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << to_path(c.rule) << " of " << to_path(c.value));
    int integer = 0;
    short small = 0;
    float real = 0;
    double big = 0;
    CString text;
    void* const variables[] = {&integer, &real, &text, nullptr, &integer, &big, &small};
    Cell cell(c.kind, variables[c.kind]);
    cell.SetLimit(-1e308, 1e308);
    cell.DealChangeData(c.value);
    EXPECT_EQ(cell.GetResponseReact(CString(c.rule)), c.state);
  }
  float half = 0.5f;
  Cell scaled(ETCK_FLOAT, &half);
  scaled.SetScale(1000);
  EXPECT_EQ(scaled.GetResponseReact(L"V,==,500,?,G,:,E"), 2);
}

TEST(Rules, TellWhatIsIllFormedEachTime) {
  RecordedMessages told;
  int value = 1;
  Cell cell(ETCK_INT, &value);
  for (const wchar_t* rule : {L"V==1", L"V==1", L"W,==,1,?,E,:,G", L""}) {
    EXPECT_EQ(cell.GetResponseReact(CString(rule)), -1);
  }
  ASSERT_EQ(told.messages.size(), 4u);
  EXPECT_EQ(told.messages[1].code, 201);
  EXPECT_EQ(told.messages[1].text, L"表达式错误 V==1!\n");
}

TEST(Cells, ParseClampAndScale) {
  struct Case {
    const wchar_t* typed;
    double integer, small, real;  // real: shown with %.3f, scale 1000
  };
  const Case cases[] = {
      {L"12.9", 12, 12, 0.0129},
      {L"-7", -7, -7, -0.007},
      {L"", 0, 0, 0},
      {L"#REF!", 0, 0, 0},
      {L"nan", 0, 0, 0},
      {L"1e40", INT_MAX, 32767, 1e27},
      {L"-1E400", INT_MIN, -32768, -1e27},
      {L"１２．５", 12, 12, 0.0125},
      {L"\u2212３", -3, -3, -0.003},
      {L" 8 mm", 8, 8, 0.008},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(to_path(c.typed));
    int integer = 99;
    short small = 99;
    double real = 99;
    int changed = 0;
    Cell cell(ETCK_INT, &integer);
    cell.SetModFlag(&changed);
    EXPECT_EQ(cell.GetDispString(), L"");
    EXPECT_EQ(cell.DealChangeData(c.typed), 1);
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(cell.GetDispString(), CString(wformat(L"%d", integer)));
    Cell(ETCK_SHORT, &small).DealChangeData(c.typed);
    Cell scaled(ETCK_DOUBLE, &real, L"%.3f");
    scaled.SetScale(1000);
    scaled.DealChangeData(c.typed);
    EXPECT_EQ(integer, c.integer);
    EXPECT_EQ(small, c.small);
    EXPECT_DOUBLE_EQ(real, c.real);
    scaled.SetLimit(2, 5);
    scaled.DealChangeData(c.typed);
    EXPECT_DOUBLE_EQ(real, c.real * 1000 > 5 ? 0.005 : 0.002);
    cell.SetState(ETCS_NONE);
    EXPECT_EQ(cell.GetDispString(), L"---");
  }
}

TEST(Cells, TextNeverOverrunsItsArray) {
  wchar_t buffer[] = L"abcd!";
  Cell cell(ETCK_STRING, buffer);
  cell.m_bCString = 0;
  cell.m_nTextSize = 4;
  cell.DealChangeData(L"12345");
  EXPECT_STREQ(buffer, L"123");
  EXPECT_EQ(buffer[4], L'!');
  buffer[3] = L'd';  // the tool's text fills its array
  EXPECT_EQ(cell.GetDispString(), L"123d");
}

TEST(Cells, CheckShowsItsTexts) {
  int on = 2;
  Cell cell(ETCK_CHECK, &on);
  EXPECT_EQ(cell.GetDispString(), L"√");
  cell.DealChangeData(L"ㄨ");
  EXPECT_EQ(on, 0);
  EXPECT_EQ(cell.GetDispString(), L"ㄨ");
}

TEST(Lists, ShowTheTextOfTheValueAndPutTheVariableRight) {
  CETControl plain, valued, open;
  int number = 7;
  Cell cell(ETCK_INT, &number);
  give_list(cell, plain, {L"一", L"二", L"三"});
  EXPECT_EQ(cell.GetDispString(), L"三");
  EXPECT_EQ(number, 7);  // only clamped for the display
  cell.DealChangeData(L"二");
  EXPECT_EQ(number, 1);
  cell.DealChangeData(L"四");
  EXPECT_EQ(number, 1);

  give_list(cell, valued, {L"C20", L"C30"}, {L"20", L"30"});
  number = 30;
  EXPECT_EQ(cell.GetDispString(), L"C30");
  number = 31;
  EXPECT_EQ(cell.GetDispString(), L"C20");
  EXPECT_EQ(number, 20);
  cell.DealChangeData(L"C30");
  EXPECT_EQ(number, 30);

  // Where other texts are welcome they are kept.
  give_list(cell, open, {L"a", L"b"}, {L"100", L"200"}, 1);
  for (auto [typed, stored, shown] : {std::tuple(L"b", 200, L"b"), {L"150", 150, L"150"}}) {
    cell.DealChangeData(typed);
    EXPECT_EQ(number, stored);
    EXPECT_EQ(cell.GetDispString(), shown);
  }
  // Without values an open list of texts stores their indexes, one of numbers proposes these.
  CETControl words, numbers;
  number = 1;
  give_list(cell, words, {L"left", L"right"}, {}, 1);
  EXPECT_EQ(cell.GetDispString(), L"right");
  cell.DealChangeData(L"left");
  EXPECT_EQ(number, 0);
  give_list(cell, numbers, {L"10", L"20"}, {}, 1);
  for (auto [typed, stored] : {std::pair(L"20", 20), {L"15", 15}}) {
    cell.DealChangeData(typed);
    EXPECT_EQ(number, stored);
    EXPECT_EQ(cell.GetDispString(), typed);
  }
}

TEST(Lists, CompareRealNumbersAsTheyAreShown) {
  CETControl list;
  float value = 1.504f;
  Cell cell(ETCK_FLOAT, &value);
  cell.m_strFormat = L"%.2f";
  give_list(cell, list, {L"1", L"1.5", L"2.000"});
  EXPECT_EQ(cell.GetDispString(), L"1.5");
  EXPECT_EQ(value, 1.504f);
  value = 3;
  EXPECT_EQ(cell.GetDispString(), L"1");
  EXPECT_EQ(value, 1);
  CETControl fine;  // to more digits than a float has
  cell.m_strFormat = L"%.9f";
  cell.SetScale(1000);
  give_list(cell, fine, {L"0.1", L"0.3", L"0.7"});
  for (const wchar_t* chosen : {L"0.3", L"0.7"}) {
    cell.DealChangeData(chosen);
    EXPECT_EQ(cell.GetDispString(), chosen);
  }

  CETControl names;
  CString text = L"nobody";
  cell.m_nType = ETCK_STRING;
  cell.m_bCString = 1;
  cell.m_pValue = &text;
  give_list(cell, names, {L"First", L"Second"}, {L"1st", L"2nd"});
  EXPECT_EQ(cell.GetDispString(), L"First");
  EXPECT_EQ(text, L"1st");
  cell.DealChangeData(L"Second");
  EXPECT_EQ(text, L"2nd");
}

// Reads "4D20" and "4D20+2D18"; without the family, also "4*20".
class Bars : public CGangJinBase {
 public:
  int FindZhiJin(int diameter, int param) override { return diameter == 20 && param == 5; }
  int FromString_KnowReinID(CString& text) override {
    if (m_nValue1 != 0 || m_nGangJinType != 3 || text.Find(L'D') < 0) return -1;
    m_nValue1 = _wtoi(text);
    m_nValue2 = _wtoi(text.Mid(text.Find(L'D') + 1));
    m_bSingle = 1;
    return text.Find(L'+') < 0 ? 1 : 2;
  }
  CString ToString(int) override {
    return CString(wformat(L"%dD%d%s", m_nValue1, m_nValue2, m_bSingle ? L"" : L" single"));
  }
  int FromString(CString& text) override {
    text.Replace(L'*', L'D');
    m_nParam = 0;
    const int groups = FromString_KnowReinID(text);
    m_nValue3 = m_nParam;
    return groups;
  }
};

TEST(RebarCells, AskTheToolsObject) {
  CString text = L"4 * 20";
  Cell cell(ETCK_STRING, &text);
  cell.m_nGangJinKind = 1;
  cell.m_nGangJinType = GANGJIN_TYPE(3);
  EXPECT_EQ(cell.GetDispString(), L"4 * 20");  // nobody to ask
  Bars bars;
  SetGangJinObj(&bars);
  EXPECT_EQ(cell.GetDispString(), L"4D20");
  EXPECT_EQ(text, L"4D20");
  EXPECT_EQ(bars.m_nParam, 2);
  for (auto [typed, stored] :
       {std::pair(L"6D18 ", L"6D18"), {L"many", L"6D18"}, {L"2D25+2D22", L"2D25"}}) {
    cell.DealChangeData(typed);
    EXPECT_EQ(text, stored);
  }
  cell.m_nGangJinMax = 1;
  cell.DealChangeData(L"1D8+1D8");
  EXPECT_EQ(text, L"2D25");
  EXPECT_EQ(cell.GetDispString(), L"2D25 single");
  text = L"unreadable";
  EXPECT_EQ(cell.GetDispString(), L"unreadable");
  EXPECT_EQ(text, L"unreadable");

  int diameter = 20;
  Cell number(ETCK_INT, &diameter);
  number.m_nGangJinKind = 2;
  number.m_nGangJinParam = 5;
  number.DealChangeData(L"19");
  EXPECT_EQ(diameter, 20);
  CETControl sizes;
  give_list(number, sizes, {L"D20", L"D19"}, {L"20", L"19"});
  number.DealChangeData(L"D19");
  EXPECT_EQ(number.GetDispString(), L"D20");
  number.m_pControl = nullptr;
  SetGangJinObj(nullptr);
  number.DealChangeData(L"19");
  EXPECT_EQ(diameter, 19);
}

}  // namespace
}  // namespace brindle
