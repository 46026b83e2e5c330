// The reader on bytes: lines and their ends, encodings, damage.
#include <gtest/gtest.h>

#include "brindle/platform/base/code_page.h"

#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;
using Texts = std::vector<std::wstring>;

// Lines longer than the limit go on as the next line, and put the pairs out of step.
TEST(BytesReader, LongLines) {
  for (const bool cr : {false, true}) {
    for (const std::string& unit : {std::string("x"), std::string("\xb8\xd6")}) {
      auto read_texts = [&](int length) {
        std::string words;
        for (int i = 0; i < length; ++i) words += unit;
        const std::string text =
            kTables + entities(text_entity("first") + text_entity(words) + "  7\nHZ\n" +
                               text_entity("last") + kLine + kLine);
        return ReadDrawing(cr ? with_cr(text) : text).texts();
      };
      SCOPED_TRACE(testing::Message() << cr << unit);
      const std::wstring longest(289, unit.size() == 1 ? L'x' : L'钢');
      EXPECT_EQ(read_texts(288), (Texts{L"first", longest.substr(1), L"last"}));
      EXPECT_EQ(read_texts(289), (Texts{L"first", longest, L"last"}));
      // From 290 on, what follows is lost as far as the pairs stay out of step; nothing else.
      for (int length : {290, 291, 579, 580, 100000}) {
        const Texts texts = read_texts(length);
        ASSERT_GE(texts.size(), 2u) << length;
        EXPECT_EQ(texts[0], L"first");
        EXPECT_EQ(texts[1].substr(0, 289), longest) << length;
        EXPECT_LE(texts[1].size(), 290u);
        if (length == 290) {
          EXPECT_EQ(texts.size(), 2u);
        }
      }
    }
  }
  // A long comment in front shifts the pairs as well, and then shifts them back.
  EXPECT_EQ(
      ReadDrawing("999\n" + std::string(10000000, 'x') + "\n" + kTables + entities(kLine)).result,
      1);
}

TEST(BytesReader, BytesThatAreNoText) {
  const struct {
    std::string words;
    std::wstring text;
  } cases[] = {
      {std::string("a\0b", 3), L"ab"},  // a zero is left out
      {"\xb8\xd6\xbd\xee", L"钢筋"},
      {"a\xff\x20", L"a\xfffd "},
      {"\xb8", L"\xfffd"},  // a lead byte before the line end
      {"\xb8\xd6\xbd", L"钢\xfffd"},
      {"\x81\x20\x81\x81", std::wstring(L"\xfffd \x4e96")},
  };
  for (const bool cr : {false, true}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::PrintToString(c.words));
      const std::string text = kTables + entities(text_entity(c.words) + text_entity("next"));
      EXPECT_EQ(ReadDrawing(cr ? with_cr(text) : text).texts(), (Texts{c.text, L"next"}));
    }
  }
}

TEST(BytesReader, EncodingsThatAFileTells) {
  const std::string gbk = "\xb8\xd6", utf8 = "\xe9\x92\xa2";  // 钢
  auto version = [](const char* name) { return std::string("  9\n$ACADVER\n  1\n") + name + "\n"; };
  auto page = [](const char* name) {
    return std::string("  9\n$DWGCODEPAGE\n  3\n") + name + "\n";
  };
  const struct {
    const char* what;
    std::string start, words;
    std::wstring text;
  } cases[] = {
      {"none", "", gbk, L"钢"},
      {"mark", "\xef\xbb\xbf", utf8, L"钢"},
      {"mark against the code page", "\xef\xbb\xbf" + header(page("ANSI_936")), utf8, L"钢"},
      {"AC1015", header(version("AC1015")), gbk, L"钢"},
      {"AC1018", header(version("AC1018") + page("ANSI_936")), gbk, L"钢"},
      {"AC1021", header(version("AC1021")), utf8, L"钢"},
      {"code page before AC1032", header(page("ANSI_936") + version("AC1032")), utf8, L"钢"},
      {"ANSI_936", header(page("ANSI_936")), gbk, L"钢"},
      {"ANSI_1252", header(page("ANSI_1252")), "\xe9t\xe9", L"été"},
      {"not known", header(page("KLINGON")), gbk, L"钢"},
      {"not in the header", header("") + "  0\nSECTION\n  2\nCLASSES\n" + page("ANSI_1252") + kEnd,
       gbk, L"钢"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const ReadDrawing read(c.start + kTables + entities(text_entity(c.words)));
    EXPECT_EQ(read.result, 1);
    ASSERT_EQ(read.texts().size(), 1u);
    EXPECT_EQ(read.texts()[0], c.text);
  }
}

TEST(BytesReader, TheProcessesCodePageHoldsOtherwise) {
  ASSERT_TRUE(set_ansi_code_page(65001u));
  const ReadDrawing read(kTables + entities(text_entity("\xe9\x92\xa2")));
  set_ansi_code_page(936u);
  EXPECT_EQ(read.texts(), Texts{L"钢"});
}

// A file cut off at any byte, or with any byte changed.
TEST(BytesReader, CutsAndFlips) {
  const std::string whole =
      header("  9\n$LTSCALE\n 40\n2\n") + kTables +
      blocks("  0\nBLOCK\n  2\nB\n" + kLine + "  0\nENDBLK\n") +
      entities(kLine + text_entity("\xb8\xd6%%132 20") + "1000\nQXEX\n1071\n5\n1002\n}\n");
  std::size_t complete = 0;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const ReadDrawing read(whole.substr(0, length));
    complete += read.entities().size() == 2 ? 1 : 0;
  }
  EXPECT_GT(complete, 20u);
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ (1 << (at % 8)));
    const ReadDrawing read(damaged);
    EXPECT_LE(read.entities().size(), 2u);
  }
}

}  // namespace
}  // namespace brindle
