#include "brindle/platform/base/code_page.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <random>
#include <string>
#include <vector>

namespace brindle {
namespace {

// A slow decoder: iconv, one character at a time. Returns no text for bytes it doesn't take.
std::u32string by_iconv(const char* page, const std::string& bytes) {
  const iconv_t handle = iconv_open("UTF-32LE", page);
  EXPECT_NE(handle, reinterpret_cast<iconv_t>(-1)) << page;
  char32_t wide[8] = {};
  char* in = const_cast<char*>(bytes.data());
  char* out = reinterpret_cast<char*>(wide);
  std::size_t in_left = bytes.size();
  std::size_t out_left = sizeof wide;
  const bool good = iconv(handle, &in, &in_left, &out, &out_left) != static_cast<std::size_t>(-1);
  iconv_close(handle);
  return good ? std::u32string(wide, (sizeof wide - out_left) / sizeof wide[0]) : std::u32string();
}

// decode() says the same as decode_one() called along the text, whatever the bytes.
void expect_one_by_one(const CodePage& page, const std::string& bytes) {
  std::wstring expected;
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t character = 0;
    int length = 0;
    for (int count = 1; length == 0; ++count) {
      if (at + static_cast<std::size_t>(count) > bytes.size()) {
        length = -1;  // the text ends within the character
      } else {
        length = page.decode_one(bytes.data() + at, count, character);
      }
    }
    if (length > 0) append_character(expected, character);
    for (int i = length; i < 0; ++i) append_character(expected, 0xFFFD);
    at += static_cast<std::size_t>(length > 0 ? length : -length);
  }
  EXPECT_EQ(page.decode(bytes), expected) << page.name() << ' ' << testing::PrintToString(bytes);
}

TEST(CodePage, EveryCharacterAsIconv) {
  for (const char* name : {"GBK", "BIG5", "CP932", "UHC", "CP1252", "CP437"}) {
    const CodePage* page = CodePage::find(name);
    ASSERT_NE(page, nullptr) << name;
    EXPECT_TRUE(page->is_ascii_compatible()) << name;
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) {
      std::string bytes(1, static_cast<char>(random()));
      std::u32string expected = by_iconv(name, bytes);
      if (expected.empty()) {
        bytes += static_cast<char>(random());
        expected = by_iconv(name, bytes);
      }
      if (expected.size() != 1) continue;
      const std::wstring wide = page->decode(bytes);
      EXPECT_EQ(std::u32string(wide.begin(), wide.end()), expected) << name;
      EXPECT_EQ(page->decode(page->encode(wide)), wide) << name;
    }
  }
}

// The system's iconv joins a letter and the accent behind it, and holds letters back for that.
TEST(CodePage, LettersAndAccentsStayApart) {
  const CodePage& vietnamese = *CodePage::find(1258);
  EXPECT_TRUE(vietnamese.is_ascii_compatible());
  EXPECT_EQ(vietnamese.decode("e\xECt\xE9\xCC"), L"e\u0301t\u00E9\u0300");
  EXPECT_EQ(vietnamese.encode(L"e\u0301t\u00E9\u0300"), "e\xECt\xE9\xCC");
  const CodePage& hebrew = *CodePage::find(1255);
  EXPECT_EQ(hebrew.decode("\xF9\xD1\xF6\xFF."), L"\u05E9\u05C1\u05E6\uFFFD.");
}

struct Decoding {
  std::string bytes;
  std::wstring text;
};

void expect_decodings(const CodePage& page, const std::vector<Decoding>& cases) {
  std::wstring reused(5, L'x');
  for (const Decoding& c : cases) {
    page.decode(c.bytes, reused);
    EXPECT_EQ(reused, c.text);
  }
}

TEST(CodePage, DecodesGbkWithWhatIsWrongInIt) {
  const CodePage& page = *CodePage::find(936);
  expect_decodings(
      page, {
                {"", L""},
                {"\xb8\xd6\xbd\xee", L"钢筋"},
                {"12345678\xb8\xd6"
                 "12345678",
                 L"12345678钢12345678"},
                {"\x80", L"\u20AC"},
                {"\xb8", L"\uFFFD"},                // lone lead byte at the end
                {"\xb8\n\xb8\xd6", L"\uFFFD\n钢"},  // never swallows a line end
                {"\xb8\r\n", L"\uFFFD\r\n"},
                {"\xb8"
                 "0\xb8 \xb8\x7f",
                 L"\uFFFD0\uFFFD \uFFFD\x7f"},
                {"\xff\xff"
                 "A",
                 L"\uFFFD\uFFFDA"},
                {"\x81\xff\xb8\xd6", L"\uFFFD\uFFFD钢"},
                {"\xa2\xab\xb8\xd6", L"\uFFFD\uFFFD钢"},  // undefined pair, the next is in step
                {std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
                // The user's own.
                {"\xaa\xa1\xf8\xa1\xa1\x40\xa7\xa0", L"\uE000\uE234\uE4C6\uE765"},
            });
  EXPECT_EQ(page.encode(L"\uE000\uE234\uE765€"), "\xaa\xa1\xf8\xa1\xa7\xa0\x80");
  std::string out = "kept:";
  page.encode(L"钢\u0E01\uFFFD\n", out);
  EXPECT_EQ(out, "kept:\xb8\xd6??\n");
}

TEST(CodePage, DecodesUtf8Strictly) {
  const CodePage& page = *CodePage::find(65001);
  expect_decodings(page, {{"\xe9\x92\xa2 \xc3\xa9", L"钢 é"},
                          {"\xc0\xaf", L"\uFFFD\uFFFD"},  // overlong
                          {"\xe0\x80\xaf", L"\uFFFD\uFFFD\uFFFD"},
                          {"\xed\xa0\x80", L"\uFFFD\uFFFD\uFFFD"},            // surrogate
                          {"\xf4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond U+10FFFF
                          {"\xe9\x92", L"\uFFFD\uFFFD"},
                          {"\xe9\n", L"\uFFFD\n"},
                          {"\xe9\x92\n\xe9\x92\xa2", L"\uFFFD\uFFFD\n钢"},
                          {"\x80", L"\uFFFD"}});
  EXPECT_EQ(page.encode(page.decode("\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf")),
            "\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf");
  EXPECT_EQ(page.encode(std::wstring(1, static_cast<wchar_t>(0xD800)) + L"a"), "?a");
}

TEST(CodePage, DecodesThroughIconvWhereNoTableFits) {
  const CodePage& page = *CodePage::find("gb18030");
  EXPECT_EQ(page.number(), 54936u);
  const std::wstring text =
      L"钢 \u3400\u0E01 a\n" + CodePage::find(65001)->decode("\xf0\x9f\x98\x80");
  EXPECT_EQ(page.decode(page.encode(text)), text);
  EXPECT_EQ(page.encode(L"\u0080"), "\x81\x30\x81\x30");
  EXPECT_EQ(page.decode("\x81\x30\n\xb8\xd6"), L"\uFFFD0\n钢");
  EXPECT_EQ(page.decode("a\xb8"), L"a\uFFFD");
  EXPECT_EQ(page.encode(std::wstring(1, static_cast<wchar_t>(0xD801)) + L"x"), "?x");
  const std::string large(100000, '\xb8');
  EXPECT_EQ(page.decode(large + "\n").back(), L'\n');
  EXPECT_EQ(CodePage::find("EUC-JP")->decode("\x8f\xb0\xa1"), L"\u4E02");
}

TEST(CodePage, AnyBytesLikeOneByOne) {
  std::mt19937 random(7);
  const std::string alphabet =
      "a\n\r0\x40\x7f\x80\x81\x30\xa1\xb8\xd6\xc3\xe9\x92\xa2\xed\xf0\xf4\xfe\xff";
  for (const unsigned number : {936u, 950u, 932u, 949u, 1252u, 65001u, 54936u}) {
    for (int i = 0; i < 2000; ++i) {
      std::string bytes(random() % 12, ' ');
      for (char& c : bytes) c = alphabet[random() % alphabet.size()];
      expect_one_by_one(*CodePage::find(number), bytes);
    }
  }
}

TEST(CodePage, IsFoundByNameAndNumber) {
  for (const char* name : {"GBK", "gbk", "CP936", "windows-936"}) {
    EXPECT_EQ(CodePage::find(name), CodePage::find(936)) << name;
  }
  EXPECT_EQ(CodePage::find("utf8"), CodePage::find(65001));
  EXPECT_EQ(CodePage::find(28591)->decode("\xe9"), L"é");
  EXPECT_EQ(CodePage::find(1361)->decode("\\~"), L"\\~");
  for (const char* name : {"", "no-such-page", "GBK//TRANSLIT", "../../etc/passwd", "\xff\xfe",
                           "a name with blanks", "CP99999999999999999999"}) {
    EXPECT_EQ(CodePage::find(name), nullptr) << name;
  }
  EXPECT_EQ(CodePage::find(static_cast<const char*>(nullptr)), nullptr);
  EXPECT_EQ(CodePage::find(std::string(100000, 'A').c_str()), nullptr);
  EXPECT_EQ(CodePage::find(0u), nullptr);
  EXPECT_EQ(CodePage::find(4294967295u), nullptr);
}

TEST(CodePage, IsFoundByTheNamesInDrawings) {
  const struct {
    const char* name;
    unsigned number;
  } cases[] = {
      {"ANSI_936", 936},    {"gb2312", 936},   {"GB18030", 54936},   {"UTF-8", 65001},
      {"DOS437", 437},      {"dos932", 932},   {"big5", 950},        {"ksc5601", 949},
      {"ISO8859-1", 28591}, {"8859_2", 28592}, {"mac-roman", 10000}, {" 936 ", 936},
  };
  for (const auto& c : cases) {
    const CodePage* page = find_by_drawing_name(c.name);
    ASSERT_NE(page, nullptr) << c.name;
    EXPECT_EQ(page->number(), c.number) << c.name;
  }
  // UTF-16 can't be the page of a text file of lines; the others don't exist.
  for (const char* name : {"", "ANSI_", "ANSI_1200", "ANSI_0", "ANSI_99999999999", "8859_40", "x",
                           "ANSI_936x", "undefined", "\xff\xff"}) {
    EXPECT_EQ(find_by_drawing_name(name), nullptr) << name;
  }
}

TEST(CodePage, ProcessPageIsGbkUntilItIsSet) {
  EXPECT_EQ(ansi_code_page().number(), 936u);
  EXPECT_TRUE(set_ansi_code_page(65001));
  EXPECT_FALSE(set_ansi_code_page("UTF-16LE"));
  EXPECT_FALSE(set_ansi_code_page("nonsense") || set_ansi_code_page(7u));
  EXPECT_EQ(ansi_code_page().number(), 65001u);
  EXPECT_TRUE(set_ansi_code_page("GBK"));
  EXPECT_EQ(ansi_code_page().number(), 936u);
}

}  // namespace
}  // namespace brindle
