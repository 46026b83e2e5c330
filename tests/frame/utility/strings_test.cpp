#include "brindle/frame/utility/strings.h"

#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <cwchar>
#include <string>
#include <vector>

#include "brindle/platform/base/code_page.h"

namespace brindle {
namespace {

using Texts = std::vector<std::wstring>;

Texts texts_of(const CStringArray& items) {
  Texts texts;
  for (INT_PTR i = 0; i < items.GetSize(); ++i) texts.emplace_back(items.GetAt(i).GetString());
  return texts;
}

TEST(Strings, CompartString) {
  const struct {
    const wchar_t* text;
    const wchar_t* separators;
    Texts kept, dropped;  // empty pieces
  } cases[] = {
      {L"a,b;c", L",;", {L"a", L"b", L"c"}, {L"a", L"b", L"c"}},
      {L"a,,b", L",", {L"a", L"", L"b"}, {L"a", L"b"}},
      {L",a,", L",", {L"", L"a", L""}, {L"a"}},
      {L"梁、柱", L"、", {L"梁", L"柱"}, {L"梁", L"柱"}},
      {L"a,b", L"", {L"a,b"}, {L"a,b"}},
      {L"", L",", {}, {}},
      {nullptr, L",", {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text ? testing::PrintToString(std::wstring(c.text)) : "null");
    CStringArray pieces;
    pieces.Add(L"old");
    EXPECT_EQ(CompartString(c.text, pieces, c.separators), static_cast<int>(c.kept.size()));
    EXPECT_EQ(texts_of(pieces), c.kept);
    EXPECT_EQ(CompartString2(c.text, pieces, c.separators), static_cast<int>(c.dropped.size()));
    EXPECT_EQ(texts_of(pieces), c.dropped);
  }
}

TEST(Strings, ListsToArrays) {
  CStringList list;
  for (const wchar_t* item : {L"12", L"", L"-3 m", L"x"}) list.AddTail(item);
  CStringArray texts;
  CArray<int, int> numbers;
  numbers.Add(99);
  EXPECT_EQ(StringListToStringArray(list, texts), 4);
  EXPECT_EQ(texts_of(texts), (Texts{L"12", L"", L"-3 m", L"x"}));
  EXPECT_EQ(StringListToIntArray(list, numbers), 4);
  EXPECT_EQ(std::vector<int>(numbers.begin(), numbers.end()), (std::vector{12, 0, -3, 0}));

  CString text = L" \t a b ";
  DelFrontEmpty(text);
  EXPECT_STREQ(text, L"a b ");
  EXPECT_EQ(StringListToStringArray(L" 1, 2\t3\r\n", texts), 3);
  EXPECT_EQ(texts_of(texts), (Texts{L"1", L"2", L"3"}));
}

TEST(Strings, CodePageConversionIsCutAtTheGivenSize) {
  wchar_t wide[4] = L"???";
  EXPECT_EQ(ToW("\xb8\xd6\xbd\xee"
                "abc",
                wide, 4),
            wide);
  EXPECT_STREQ(wide, L"钢筋a");
  char bytes[16];
  std::memset(bytes, '?', sizeof(bytes));
  EXPECT_STREQ(ToA(L"钢筋a", bytes, 16),
               "\xb8\xd6\xbd\xee"
               "a");
  EXPECT_STREQ(ToA(L"a钢筋", bytes, 4), "a\xb8\xd6");
  EXPECT_STREQ(ToA(L"a钢筋", bytes, 1), "");
  EXPECT_STREQ(ToW(nullptr, wide, 4), L"");
  EXPECT_STREQ(ToA(nullptr, bytes, 4), "");
}

TEST(Strings, TimeStringIsThePresentLocalTime) {
  const auto text_of = [](std::time_t time) {
    wchar_t text[20];
    std::wcsftime(text, 20, L"%Y-%m-%d %H:%M:%S", std::localtime(&time));
    return std::wstring(text);
  };
  const std::time_t before = std::time(nullptr);
  const std::wstring text = GetTimeString().GetString();
  EXPECT_LE(text_of(before), text);
  EXPECT_LE(text, text_of(std::time(nullptr)));
}

}  // namespace
}  // namespace brindle
