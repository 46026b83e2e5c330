#include "brindle/frame/utility/strings.h"

#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
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
      {L",", L",", {L"", L""}, {}},
      {L" a , b", L",", {L" a ", L" b"}, {L" a ", L" b"}},
      {L"梁、柱", L"、", {L"梁", L"柱"}, {L"梁", L"柱"}},
      {L"a,b", L"", {L"a,b"}, {L"a,b"}},
      {L"a,b", nullptr, {L"a,b"}, {L"a,b"}},
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

TEST(Strings, CompartStringMaySplitAnItemOfItsOwnArray) {
  CStringArray pieces;
  pieces.Add(L"a,b");
  EXPECT_EQ(CompartString(pieces.GetAt(0), pieces, L","), 2);
  EXPECT_EQ(texts_of(pieces), (Texts{L"a", L"b"}));
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

  EXPECT_EQ(StringListToStringArray(L" 1, 2\t3\r\n", texts), 3);
  EXPECT_EQ(texts_of(texts), (Texts{L"1", L"2", L"3"}));
  EXPECT_EQ(StringListToIntArray(L"1,2 x", numbers), 3);
  EXPECT_EQ(std::vector<int>(numbers.begin(), numbers.end()), (std::vector{1, 2, 0}));
}

TEST(Strings, DelFrontEmpty) {
  CString text = L" \t a b ";
  DelFrontEmpty(text);
  EXPECT_STREQ(text, L"a b ");
  CStringArray items;
  CStringList list;
  for (const wchar_t* item : {L"", L"", L"a", L"", L"b"}) {
    items.Add(item);
    list.AddTail(item);
  }
  DelFrontEmpty(items);
  EXPECT_EQ(texts_of(items), (Texts{L"a", L"", L"b"}));
  DelFrontEmpty(list);
  StringListToStringArray(list, items);
  EXPECT_EQ(texts_of(items), (Texts{L"a", L"", L"b"}));
  items.RemoveAll();
  items.Add(L"");
  DelFrontEmpty(items);
  EXPECT_TRUE(items.IsEmpty());
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
  bytes[0] = '?';
  EXPECT_EQ(ToA(L"x", bytes, 0), bytes);
  EXPECT_EQ(bytes[0], '?');
  EXPECT_EQ(ToW("x", nullptr, 5), nullptr);
  EXPECT_EQ(ToA(L"x", nullptr, 5), nullptr);
  EXPECT_STREQ(ToW(nullptr, wide, 4), L"");
  EXPECT_STREQ(ToA(nullptr, bytes, 4), "");
  EXPECT_STREQ(ToA(L"abc", bytes, ~0u), "abc");
}

TEST(Strings, TimeStringIsThePresentLocalTime) {
  const std::time_t before = std::time(nullptr);
  const std::wstring text = GetTimeString().GetString();
  const std::time_t after = std::time(nullptr);
  ASSERT_EQ(text.size(), 19u);
  std::wstring shape = text;
  for (wchar_t& c : shape) c = c >= L'0' && c <= L'9' ? L'9' : c;
  EXPECT_EQ(shape, L"9999-99-99 99:99:99");
  const auto number = [&](size_t at, size_t count) { return std::stoi(text.substr(at, count)); };
  std::tm parts{};
  parts.tm_year = number(0, 4) - 1900;
  parts.tm_mon = number(5, 2) - 1;
  parts.tm_mday = number(8, 2);
  parts.tm_hour = number(11, 2);
  parts.tm_min = number(14, 2);
  parts.tm_sec = number(17, 2);
  parts.tm_isdst = -1;
  const std::time_t told = std::mktime(&parts);
  EXPECT_LE(before, told);
  EXPECT_LE(told, after);
}

}  // namespace
}  // namespace brindle
