// The project file: a good one is read whole, and every fault is told with its line.
#include "examples/beam/section_input.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "brindle/platform/base/code_page.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/temporary_folder.h"

namespace brindle::beam {
namespace {

std::string gbk(const std::wstring& text) {
  return CodePage::find(936)->encode(text);
}

const std::wstring kTag = L"BRINDLE-BEAM 1\n";
const std::wstring kName = L"L-1(楼面梁)\n";
const std::wstring kSizes = L"250, 600, 25\n";
const std::wstring kMaterials = L"C30, HRB400, HPB300\n";
const std::wstring kForces = L"180, 150\n";

TEST(SectionInput, ReadsAWholeFile) {
  struct Case {
    const char* name;
    std::string bytes;
  };
  std::string with_cr =
      gbk(L"// 注释\r\nBRINDLE-BEAM 1\r\n##\r\n\r\nL-1(楼面梁)\r\n250 600\t25 \r\n"
          L"  C30 HRB400 HPB300\r\n// 内力\r\n180,150\r\n// 完\r\n");
  std::string no_last_end = gbk(kTag + kName + kSizes + kMaterials + L"1.8e2, 150.0");
  const Case cases[] = {
      {"plain", gbk(kTag + kName + kSizes + kMaterials + kForces)},
      {"comments, blank lines, CR LF, blanks for commas", with_cr},
      {"no end of the last line", no_last_end},
      {"words for the title block",
       gbk(kTag + kName + kSizes + kMaterials + kForces + L"综合楼,结施-1\n一,二,三,四,五,六\n")},
      {"a comment longer than any line", gbk(kTag + L"//" + std::wstring(2000, L'长') + L"\n" +
                                             kName + kSizes + kMaterials + kForces)},
  };
  const TemporaryFolder folder;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RecordedMessages recorded;
    put_bytes(folder / "L-1.dat", c.bytes);
    SectionInput input;
    ASSERT_TRUE(read_section_input(folder.wide("L-1.dat").c_str(), &input));
    EXPECT_TRUE(recorded.messages.empty());
    EXPECT_EQ(input.name, L"L-1(楼面梁)");
    EXPECT_TRUE(input.width == 250 && input.height == 600 && input.cover == 25);
    EXPECT_EQ(input.concrete.grade, 30);
    EXPECT_STREQ(input.main_steel->name, L"HRB400");
    EXPECT_STREQ(input.stirrup_steel->name, L"HPB300");
    EXPECT_TRUE(input.moment() == 180 && input.shear() == 150);
  }
}

// What one faulty file must be told: for each message the line and some words.
struct Fault {
  int line;
  std::vector<std::wstring> words;
};

void expect_faults(const char* name, const std::string& bytes, const std::vector<Fault>& faults) {
  SCOPED_TRACE(name);
  RecordedMessages recorded;
  const TemporaryFolder folder;
  put_bytes(folder / "L-1.dat", bytes);
  SectionInput input;
  EXPECT_FALSE(read_section_input(folder.wide("L-1.dat").c_str(), &input));
  ASSERT_EQ(recorded.messages.size(), faults.size());
  for (size_t i = 0; i < faults.size(); ++i) {
    const RecordedMessage& message = recorded.messages[i];
    const std::string shown = CodePage::find(65001)->encode(message.text);
    EXPECT_EQ(message.code, 301);
    EXPECT_EQ(message.text.find(folder.wide("L-1.dat")), 0u) << shown;
    const std::wstring line = L" 第 " + std::to_wstring(faults[i].line) + L" 行: ";
    EXPECT_NE(message.text.find(line), std::wstring::npos) << shown;
    for (const std::wstring& word : faults[i].words) {
      EXPECT_NE(message.text.find(word), std::wstring::npos) << shown;
    }
  }
}

TEST(SectionInput, NamesTheLineOfEveryFault) {
  struct Case {
    const char* name;
    std::wstring text;
    std::vector<Fault> faults;
  };
  const std::wstring c = L"// 说明\n";
  const Case cases[] = {
      {"empty file", L"", {{1, {L"缺少标识"}}}},
      {"only comments", L"// 一\n## 二\n", {{3, {L"缺少标识"}}}},
      {"foreign tag", L"BEAM 1\n" + kName, {{1, {L"BRINDLE-BEAM 2"}}}},
      {"later version", L"BRINDLE-BEAM 3\n" + kName, {{1, {L"版本", L"3"}}}},
      {"ends behind the tag", kTag, {{2, {L"缺少构件名"}}}},
      {"no forces", kTag + kName + kSizes + kMaterials, {{5, {L"缺少内力"}}}},
      {"height too large",
       kTag + c + c + kName + c + L"250,3001,25\n" + kMaterials + kForces,
       {{6, {L"截面高 h", L"150～3000 mm", L"3001"}}}},
      {"two faults in a line and one later",
       kTag + kName + L"x,600\n" + kMaterials + L"-1,5\n",
       {{3, {L"截面宽 b", L"x"}}, {3, {L"缺少保护层厚 c"}}, {5, {L"弯矩设计值 M", L"-1"}}}},
      {"an empty field is no zero",
       kTag + kName + kSizes + kMaterials + L",150\n",
       {{5, {L"缺少弯矩设计值 M", L"kN·m"}}}},
      {"not a number",
       kTag + kName + kSizes + kMaterials + L"nan, inf\n",
       {{5, {L"弯矩设计值 M", L"nan"}}, {5, {L"剪力设计值 V", L"inf"}}}},
      {"surplus field",
       kTag + kName + L"250,600,25,7\n" + kMaterials + kForces,
       {{3, {L"多余", L"7"}}}},
      {"surplus line",
       kTag + kName + kSizes + kMaterials + kForces + L"a,b\nc\nd\n1,2\n",
       {{9, {L"多余", L"1,2"}}}},
      {"surplus word for the title block",
       kTag + kName + kSizes + kMaterials + kForces + L"a,b,c,d,e\n",
       {{6, {L"多余", L"e"}}}},
      {"full-width comma",
       kTag + kName + L"250，600，25\n" + kMaterials + kForces,
       {{3, {L"截面宽 b"}}, {3, {L"缺少截面高 h"}}, {3, {L"缺少保护层厚 c"}}}},
      {"unknown grades",
       kTag + kName + kSizes + L"C32,HRB600,Q235\n" + kForces,
       {{4, {L"C20", L"C80", L"C32"}},
        {4, {L"纵筋牌号", L"HRB400", L"HRB600"}},
        {4, {L"箍筋牌号", L"Q235"}}}},
      {"concrete too weak for its bars",
       kTag + kName + kSizes + L"C20,HRB400,HPB300\n" + kForces,
       {{4, {L"HRB400", L"C25"}}}},
      {"long name",
       kTag + std::wstring(31, L'梁') + L"\n" + kSizes + kMaterials + kForces,
       {{2, {L"30"}}}},
  };
  for (const Case& one : cases) expect_faults(one.name, gbk(one.text), one.faults);
  expect_faults("name with bytes that are no GBK",
                gbk(kTag) + "L-1\xff\n" + gbk(kSizes + kMaterials + kForces), {{2, {L"GBK"}}});
}

const std::wstring kHead = L"BRINDLE-BEAM 2\n" + kName + kSizes + kMaterials;

TEST(SectionInput, SecondFormNamesTheLineOfEveryFault) {
  const std::wstring cases = L"2\n620 380 恒, 活\n480,410\n";
  const std::wstring choices = L"-\n-\n-\n-\n";
  struct Case {
    const char* name;
    std::wstring text;
    std::vector<Fault> faults;
  };
  const Case faulty[] = {
      {"no case", kHead + L"0\n" + choices, {{5, {L"工况数", L"1～100"}}}},
      {"too few cases", kHead + L"3\n1 2\n", {{7, {L"缺少工况"}}}},
      {"force missing", kHead + L"1\n620\n" + choices, {{6, {L"缺少剪力设计值 V"}}}},
      {"no bars", kHead + cases, {{8, {L"缺少下部纵筋"}}}},
      {"bar that isn't made",
       kHead + cases + L"4C21\n-\nA8@200\n-\n",
       {{8, {L"下部纵筋", L"6C28 2/4", L"4C21"}}}},
      {"grade of other bars, odd legs",
       kHead + cases + L"-\n2A12\nA8@200(3)\nG3C12\n",
       {{9, {L"上部纵筋", L"HRB400"}}, {10, {L"箍筋", L"HPB300"}}, {11, {L"腰筋"}}}},
  };
  for (const Case& one : faulty) expect_faults(one.name, gbk(one.text), one.faults);
}

SectionInput whole_section() {
  SectionInput input;
  input.name = L"KL-3 (框架梁)";
  input.width = 300.5;
  input.height = 700;
  input.cover = 25;
  find_concrete(35, &input.concrete);
  input.main_steel = find_steel(L"HRB400");
  input.stirrup_steel = find_steel(L"HPB300");
  input.cases = {{L"恒, 活  载", 620.125, 380}, {L"", 0, 1e5}, {L"## 风", 1, 2}};
  input.chosen.bottom = BarRows{28, 4, 2};
  input.chosen.top = BarRows{25, 4, 3};
  input.chosen.stirrups = Stirrups{10, 150, 4};
  input.sheet.number = L"结施-12";
  input.sheet.services = L"吴海";
  return input;
}

TEST(SectionInput, ReadsBackWhatItWrites) {
  const TemporaryFolder folder;
  const std::wstring path = folder.wide("KL-3.txt");
  const SectionInput input = whole_section();
  RecordedMessages recorded;
  ASSERT_TRUE(write_section_input(path.c_str(), input));
  SectionInput read;
  ASSERT_TRUE(read_section_input(path.c_str(), &read));
  EXPECT_TRUE(recorded.messages.empty());
  EXPECT_EQ(read.name, input.name);
  EXPECT_TRUE(read.width == 300.5 && read.height == 700 && read.cover == 25);
  EXPECT_TRUE(read.concrete.grade == 35 && read.main_steel == input.main_steel &&
              read.stirrup_steel == input.stirrup_steel);
  ASSERT_EQ(read.cases.size(), 3u);
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(read.cases[i].name, input.cases[i].name);
    EXPECT_EQ(read.cases[i].moment, input.cases[i].moment);
    EXPECT_EQ(read.cases[i].shear, input.cases[i].shear);
  }
  for (const BarPlace place : kBarPlaces) {
    const Steel& steel = place == BarPlace::kStirrup ? *input.stirrup_steel : *input.main_steel;
    EXPECT_EQ(chosen_mark(read.chosen, place, steel), chosen_mark(input.chosen, place, steel));
  }
  EXPECT_FALSE(read.chosen.side);
  EXPECT_EQ(read.chosen.top->first, 4);
  EXPECT_EQ(read.chosen.bottom->second, 2);
  EXPECT_TRUE(read.sheet.project.empty() && read.sheet.number == L"结施-12");
  EXPECT_EQ(read.sheet.services, L"吴海");
}

TEST(SectionInput, WritesNothingThatItCouldNotRead) {
  const TemporaryFolder folder;
  const std::wstring path = folder.wide("KL-3.txt");
  ASSERT_TRUE(write_section_input(path.c_str(), whole_section()));
  const std::string before = bytes_of(folder / "KL-3.txt");
  void (*const spoil[])(SectionInput&) = {
      [](SectionInput& input) { input.name = L""; },
      [](SectionInput& input) { input.name = L"// 梁"; },
      [](SectionInput& input) { input.name = std::wstring(31, L'梁'); },
      [](SectionInput& input) { input.cases[1].name = L"a\nb"; },
      [](SectionInput& input) { find_concrete(20, &input.concrete); },
      [](SectionInput& input) { input.sheet.date = L"2024, 5"; },
      [](SectionInput& input) { input.sheet.lead = L"\U0001F600"; },
  };
  for (const auto& make_fault : spoil) {
    SectionInput input = whole_section();
    make_fault(input);
    RecordedMessages recorded;
    EXPECT_FALSE(write_section_input(path.c_str(), input));
    ASSERT_EQ(recorded.messages.size(), 1u);
    EXPECT_EQ(recorded.messages[0].code, 301);
    EXPECT_EQ(bytes_of(folder / "KL-3.txt"), before);
  }
  RecordedMessages recorded;
  EXPECT_FALSE(write_section_input(L"/nowhere/KL-3.txt", whole_section()));
  EXPECT_EQ(recorded.messages.size(), 1u);
}

TEST(SectionInput, TellsAFileThatCannotBeOpened) {
  RecordedMessages recorded;
  SectionInput input;
  EXPECT_FALSE(read_section_input(L"/nowhere/L-1.txt", &input));
  ASSERT_EQ(recorded.messages.size(), 1u);
  EXPECT_EQ(recorded.messages[0].code, 301);
  EXPECT_NE(recorded.messages[0].text.find(L"/nowhere/L-1.txt"), std::wstring::npos);
}

}  // namespace
}  // namespace brindle::beam
