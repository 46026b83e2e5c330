#include "brindle/frame/utility/scanner.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "brindle/platform/base/string.h"
#include "brindle/platform/base/wide_text.h"
#include "tests/support/expect_numbers.h"

namespace brindle {
namespace {

TEST(Scanner, SplitsTheLineIntoFields) {
  const struct {
    const wchar_t* text;
    int found;
    std::vector<std::wstring> fields;  // of "%s,%s,%s,%s"
  } cases[] = {
      {L"1,,3", 3, {L"1", L"", L"3", L""}},
      {L"  \t 1   2\t\t3", 3, {L"1", L"2", L"3", L""}},
      // A blank ends the field, so the comma behind it begins and ends another one.
      {L"1 ,2", 3, {L"1", L"", L"2", L""}},
      {L",1-1\n", 2, {L"", L"1-1", L"", L""}},
      {L",\n", 2, {L"", L"", L"", L""}},
      {L"1 \n", 2, {L"1", L"", L"", L""}},
      {L"", 1, {L"", L"", L"", L""}},
      {L"1\n2,3", 1, {L"1", L"", L"", L""}},
      {L"1\r\n2,3", 1, {L"1", L"", L"", L""}},
      {L"1,2\r", 2, {L"1", L"2", L"", L""}},
      {L"a\rb,2", 2, {L"a\rb", L"2", L"", L""}},
      {L"梁 L-1;2 \"x\",y,z,more", 4, {L"梁", L"L-1;2", L"\"x\"", L"y"}},
      {nullptr, 0, {L"", L"", L"", L""}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text ? testing::PrintToString(std::wstring(c.text)) : "null");
    wchar_t f[4][20] = {L"?", L"?", L"?", L"?"};
    EXPECT_EQ(JSVsscanf::vsscanf(c.text, L"%s,%s,%s,%s", f[0], f[1], f[2], f[3]), c.found);
    for (size_t i = 0; i < 4; ++i) EXPECT_EQ(f[i], c.fields[i]) << i;
  }
}

TEST(Scanner, WritesZeroWhenTheInputIsFinished) {
  const wchar_t* cases[] = {L",,,", L"\n7", L"1,\n7", nullptr};
  for (const wchar_t* text : cases) {
    int first = 9, a = 9;
    long l = 9;
    float f = 9;
    double g = 9;
    wchar_t s[5] = L"x";
    JSVsscanf::vsscanf(text, L"%d,%d,%l,%f,%g,%s", &first, &a, &l, &f, &g, s);
    EXPECT_TRUE(a == 0 && l == 0 && f == 0 && g == 0 && s[0] == 0);
  }
  int a = 9, b = 9;
  EXPECT_EQ(JSVsscanf::vsscanf(L"1,2,3", L"%d,%*,%d", &a, &b), 2) << "a skipped field";
  EXPECT_EQ(b, 3);
  EXPECT_EQ(JSVsscanf::vsscanf(L"1,2", L"%d,%d", static_cast<int*>(nullptr), &b), 2);
  EXPECT_EQ(b, 2);
}

TEST(Scanner, TheLastLetterOfAPieceWins) {
  const struct {
    const wchar_t* format;
    char kind;  // of the one value it stores: i, f, g, s; - for none
  } cases[] = {
      {L"%d", 'i'},     {L"%l", 'i'},         {L"%ld", 'i'},      {L"%dl", 'i'},      {L"%f", 'f'},
      {L"%lf", 'f'},    {L"%5.2lf\n", 'f'},   {L"%g", 'g'},       {L"%lg", 'g'},      {L"%fg", 'g'},
      {L"s = %d", 'i'}, {L"d%s", 's'},        {L"g", 'g'},        {L"%*", '-'},       {L"%d*", '-'},
      {L"%*d", 'i'},    {L"%d\n,%d,%d", 'i'}, {L"%x,, %d,", 'i'}, {L" %g , \n", 'g'}, {L"", '-'},
      {L"\n%d", '-'},   {L"%x", '-'},         {nullptr, '-'},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.format ? testing::PrintToString(std::wstring(c.format)) : "null");
    int i = 0;
    float f = 0;
    double g = 0;
    CString s;
    const auto scan = [&](auto... target) {
      return JSVsscanf::vsscanf(L"3.5 8", c.format, target...);
    };
    EXPECT_EQ(c.kind == 'i'   ? scan(&i)
              : c.kind == 'f' ? scan(&f)
              : c.kind == 'g' ? scan(&g)
              : c.kind == 's' ? scan(&s)
                              : scan(),
              c.kind == '-' ? 0 : 1);
    expect_equal({i, f, g}, {3 * (c.kind == 'i'), 3.5 * (c.kind == 'f'), 3.5 * (c.kind == 'g')});
    EXPECT_STREQ(s, c.kind == 's' ? L"3.5" : L"");
  }
}

TEST(Scanner, ConvertsNumbers) {
  int i = 9;
  long l = 9;
  LONG narrow = 9;
  UINT u = 9;
  float f = 9, huge = 9;
  double g = 9, nan = 9, bad = 9;
  expect_equal({JSVsscanf::vsscanf(L"-12abc 99999999999,-99999999999 x", L"%d,%d,%l,%d", &i, &u, &l,
                                   &narrow),
                i, u, l, narrow},
               {4, -12, 2147483647u, -2147483647L - 1, 0});
  expect_equal(
      {JSVsscanf::vsscanf(L"0.1,0.1,1e400 nan -", L"%f,%g,%f,%g,%g", &f, &g, &huge, &nan, &bad), f,
       g, huge, nan, bad},
      {5, 0.1f, 0.1, INFINITY, NAN, 0});
}

TEST(Scanner, StoresTextsInEveryKindOfTarget) {
  const std::wstring word(300, L'长');
  wchar_t sized[4] = L"", roomy[400] = L"";
  wchar_t* raw = roomy;
  CString string;
  WText<10> field;
  std::wstring standard, text = word;
  for (int i = 0; i < 4; ++i) text += L"," + word;
  EXPECT_EQ(
      JSVsscanf::vsscanf(text.c_str(), L"%s,%s,%s,%s,%s", sized, raw, &string, &field, standard),
      5);
  EXPECT_EQ(sized, word.substr(0, 3));
  EXPECT_EQ(roomy, word);
  EXPECT_STREQ(string, word.c_str());
  EXPECT_EQ(field.view(), word.substr(0, 9));
  EXPECT_EQ(standard, word);
  EXPECT_EQ(JSVsscanf::vsscanf(roomy, L"%s", roomy), 1) << "the text that it scans";
  EXPECT_EQ(roomy, word);
}

TEST(ScannerDeathTest, AMismatchIsAnAssertionAndOtherwiseLeavesTheArgument) {
  double d = 9;
  float f = 9;
  int i = 9;
  CString s = L"old";
  // In debug the process ends; otherwise all of the block runs.
  EXPECT_DEBUG_DEATH(
      {
        EXPECT_EQ(JSVsscanf::vsscanf(L"1,2", L"%lf,%d", &d, &i), 2);
        EXPECT_EQ(i, 2) << "the others are stored";
        EXPECT_EQ(JSVsscanf::vsscanf(L"1,2", L"%d,%d", &i), 1);
        EXPECT_EQ(i, 1);
      },
      "conversion");
  EXPECT_DEBUG_DEATH(JSVsscanf::vsscanf(L"1", L"%g", &f), "conversion");
  EXPECT_DEBUG_DEATH(JSVsscanf::vsscanf(L"1", L"%d", &s), "conversion");
  EXPECT_DEBUG_DEATH(JSVsscanf::vsscanf(L"1", L"%s", &f), "conversion");
  EXPECT_DEBUG_DEATH(JSVsscanf::vsscanf(L"1,2", L"%d,%d", &i), "more conversions");
  EXPECT_DEBUG_DEATH(JSVsscanf::vsscanf(L"1,2", L"%*", &f), "fewer conversions");
  EXPECT_EQ(d, 9);
  EXPECT_EQ(f, 9);
  EXPECT_STREQ(s, L"old");
}

TEST(SscanfNext, WalksTheTextField) {
  const wchar_t* text = L"4*300, 5\n6";
  CString word;
  sscanf_next_begin();
  EXPECT_EQ(sscanf_next(text, L"%s", word), 1);
  EXPECT_STREQ(word, L"4*300");
  int n = 9;
  EXPECT_EQ(sscanf_next(text, L"%d,%d", &n), 1) << "one field a call";
  EXPECT_EQ(n, 5);
  EXPECT_EQ(sscanf_next(text, L"%d", &n), 0);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(sscanf_next(L"7", L"%d", &n), 0) << "the place isn't the text's";
  sscanf_next_begin();
}

}  // namespace
}  // namespace brindle
