#include "brindle/platform/base/string.h"

#include <gtest/gtest.h>

#include <vector>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/exception.h"
#include "tests/support/expect_numbers.h"

namespace brindle {
namespace {

const wchar_t* const kNull = nullptr;

// Results that are texts, by the line of the table.
struct Result {
  CString got;
  const wchar_t* wanted;
};
template <std::size_t N>
void expect_results(const Result (&results)[N]) {
  for (std::size_t i = 0; i < N; ++i) EXPECT_EQ(results[i].got, results[i].wanted) << i;
}

TEST(CString, IsMadeOfEverySource) {
  expect_results({{CString(), L""},
                  {CString(kNull), L""},
                  {CString(L"abc", 2), L"ab"},
                  {CString(L'x', 3), L"xxx"},
                  {CString(L'x', -1), L""},
                  {CString("\xb8\xd6\xbd\xee"
                           "12"),
                   L"钢筋12"},
                  {CString(WText<10>(L"field")), L"field"}});
  EXPECT_THROW(CString(L"abc", -1), CInvalidArgException);
  CString text;
  text = "ansi";
  text = text.GetString() + 2;  // part of itself
  EXPECT_EQ(text, L"si");
  text = kNull;
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, ChecksItsIndexes) {
  CString text(L"abc");
  text.SetAt(2, L'z');
  EXPECT_EQ(text, L"abz");
  expect_equal({text[0], text[std::size_t{2}], text.GetAt(3)}, {L'a', L'z', L'\0'});
  EXPECT_THROW(text.GetAt(4), CInvalidArgException);
  EXPECT_THROW(text[-1], CInvalidArgException);
  EXPECT_THROW(text.SetAt(3, L'x'), CInvalidArgException);
}

TEST(CString, JoinsOnBothSides) {
  const CString b(L"b");
  const WText<5> field(L"f");
  CString text, twice = b;
  text += b;
  text += L"12";
  text += L'3';
  text += "4";
  text += field;
  text.Append(L"xyz", 2);
  text.AppendFormat(L"%03d|%s", 7, b);
  twice += twice;
  expect_results({{L"a" + b + L'c' + b + field, L"abcbf"},
                  {L'a' + b, L"ab"},
                  {field + b, L"fb"},
                  {b + kNull, L"b"},
                  {text, L"b1234fxy007|b"},
                  {twice, L"bb"}});
}

TEST(CString, Compares) {
  const struct {
    const wchar_t *a, *b;
    int exact, no_case, collate;
  } cases[] = {
      {L"", L"", 0, 0, 0},         {L"abc", L"abd", -1, -1, -1}, {L"abc", L"ab", 1, 1, 1},
      {L"ABC", L"abc", -1, 0, -1}, {L"b", L"C", 1, -1, -1},      {L"z", L"钢", -1, -1, -1},
      {L"中", L"安", -1, -1, 1},  // pinyin: an before zhong; by code U+4E2D before U+5B89
  };
  const auto sign = [](int value) { return (value > 0) - (value < 0); };
  for (const auto& c : cases) {
    const CString a(c.a), b(c.b);
    EXPECT_EQ(sign(a.Compare(b)), c.exact) << c.a << c.b;
    EXPECT_EQ(sign(a.CompareNoCase(b)), c.no_case) << c.a << c.b;
    EXPECT_EQ(sign(a.Collate(b)), c.collate) << c.a << c.b;
    EXPECT_EQ(a == b, c.exact == 0);
    EXPECT_EQ(a < b, c.exact < 0);
    EXPECT_EQ(a >= c.b, c.exact >= 0);
    EXPECT_EQ(c.a != b, c.exact != 0);
  }
  EXPECT_EQ(CString(L"").Compare(kNull), 0);
  EXPECT_TRUE(CString(L"t") == WText<9>(L"t") && WText<9>(L"t") == CString(L"t"));
}

TEST(CString, CutsParts) {
  const CString text(L"abcdef");
  expect_results({{text.Mid(2), L"cdef"},
                  {text.Mid(6), L""},
                  {text.Mid(-3, 2), L"ab"},
                  {text.Mid(2, 2), L"cd"},
                  {text.Mid(2, -1), L""},
                  {text.Mid(2, 2147483647), L"cdef"},
                  {text.Left(-1), L""},
                  {text.Left(99), L"abcdef"},
                  {text.Right(-1), L""},
                  {text.Right(99), L"abcdef"},
                  {text.SpanIncluding(L"cba"), L"abc"},
                  {text.SpanExcluding(L"ed"), L"abc"},
                  {text.SpanExcluding(L""), L"abcdef"},
                  {text.SpanIncluding(kNull), L""}});
}

TEST(CString, FindsAndEdits) {
  const CString text(L"abcabc");
  expect_equal(
      {text.Find(L'b'), text.Find(L'b', 2), text.Find(L"ca"), text.Find(L"", 6), text.Find(L'a', 7),
       text.Find(L"a", 7), text.Find(L'a', -1), text.Find(L"a", -1), text.Find(kNull),
       text.ReverseFind(L'b'), text.ReverseFind(L'x'), text.FindOneOf(L"xc"), text.FindOneOf(L"")},
      {1, 4, 2, 6, -1, -1, -1, -1, -1, 4, -1, 2, -1});

  CString edited(L"abc");
  EXPECT_EQ(edited.Insert(1, L'-'), 4);
  EXPECT_EQ(edited.Insert(99, L"!!"), 6);
  EXPECT_EQ(edited.Insert(-5, edited), 12);
  EXPECT_EQ(edited, L"a-bc!!a-bc!!");
  EXPECT_EQ(edited.Delete(6, 99), 6);
  EXPECT_EQ(edited.Delete(6), 6);
  EXPECT_EQ(edited.Delete(1), 5);
  EXPECT_EQ(edited, L"abc!!");
  EXPECT_THROW(edited.Delete(-1, 1), CInvalidArgException);
  EXPECT_THROW(edited.Delete(0, -1), CInvalidArgException);
  EXPECT_EQ(edited.Remove(L'!'), 2);
  EXPECT_EQ(edited, L"abc");
}

TEST(CString, Replaces) {
  const struct {
    const wchar_t *text, *from, *to, *expected;
    int count;
  } cases[] = {{L"a,b,c", L",", L"", L"abc", 2}, {L"aaa", L"aa", L"b", L"ba", 1},
               {L"aa", L"a", L"aa", L"aaaa", 2}, {L"abc", L"x", L"y", L"abc", 0},
               {L"abc", L"", L"y", L"abc", 0},   {L"abc", L"b", nullptr, L"ac", 1}};
  for (const auto& c : cases) {
    CString text(c.text);
    EXPECT_EQ(text.Replace(c.from, c.to), c.count) << c.text;
    EXPECT_EQ(text, c.expected);
  }
  CString text(L"a.b.c");
  EXPECT_EQ(text.Replace(L'.', L','), 2);
  EXPECT_EQ(text, L"a,b,c");
}

TEST(CString, TrimsAndTurnsCase) {
  expect_results({{CString(L" \t\r\n\u3000a b \u3000\n").Trim(), L"a b"},
                  {CString(L" \n ").Trim(), L""},
                  {CString(L" a ").TrimLeft(), L"a "},
                  {CString(L" a ").TrimRight(), L" a"},
                  {CString(L"xxaxx").Trim(L'x'), L"a"},
                  {CString(L"xyaxy").TrimRight(L"yx"), L"xya"},
                  {CString(L"xyaxy").TrimLeft(L"yx"), L"axy"},
                  {CString(L"aZ1αб中").MakeUpper(), L"AZ1αб中"},
                  {CString(L"aZ1ΑБ中").MakeLower(), L"az1ΑБ中"},
                  {CString(L"abc").MakeReverse(), L"cba"}});
}

TEST(CString, Tokenizes) {
  const struct {
    const wchar_t *text, *set;
    std::vector<CString> pieces;
  } cases[] = {{L"a,b;;c,", L",;", {L"a", L"b", L"c"}},
               {L",,", L",", {}},
               {L"", L",", {}},
               {L"one", L",", {L"one"}},
               {L"a b", L"", {L"a b"}}};
  for (const auto& c : cases) {
    std::vector<CString> pieces;
    int position = 0;
    const CString text(c.text);
    for (CString piece = text.Tokenize(c.set, position); position != -1;
         piece = text.Tokenize(c.set, position)) {
      pieces.push_back(piece);
      ASSERT_LT(pieces.size(), 10u);
    }
    EXPECT_EQ(pieces, c.pieces) << c.text;
  }
  int position = -1;
  EXPECT_THROW(CString(L"a").Tokenize(L",", position), CInvalidArgException);
}

TEST(CString, LendsItsBuffer) {
  CString text(L"abc");
  wchar_t* buffer = text.GetBuffer(10);
  EXPECT_STREQ(buffer, L"abc");
  std::copy_n(L"0123456789", 11, buffer);
  text.ReleaseBuffer(4);
  EXPECT_EQ(text, L"0123");
  text.GetBufferSetLength(6)[4] = L'x';
  text.ReleaseBuffer();
  EXPECT_EQ(text, L"0123x");
  text.Truncate(2);
  EXPECT_EQ(text, L"01");
  EXPECT_THROW(text.GetBuffer(-1), CInvalidArgException);
  EXPECT_THROW(text.ReleaseBuffer(99), CInvalidArgException);
  EXPECT_THROW(text.Truncate(3), CInvalidArgException);
}

}  // namespace
}  // namespace brindle
