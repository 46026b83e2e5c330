#include "brindle/platform/base/stream.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/string.h"
#include "tests/support/temporary_folder.h"

namespace brindle {
namespace {

class Stream : public testing::Test {
 protected:
  std::wstring path(const wchar_t* name) const { return folder_.wide() + name; }

  std::FILE* open_with(const std::string& bytes) {
    put_bytes(folder_ / "text", bytes);
    return _wfopen(path(L"text").c_str(), L"rt");
  }

  TemporaryFolder folder_;
};

struct Piece {
  std::wstring text;
  long end;
  bool operator==(const Piece& other) const { return text == other.text && end == other.end; }
};

void PrintTo(const Piece& piece, std::ostream* out) {
  *out << testing::PrintToString(piece.text) << " to " << piece.end;
}

std::vector<Piece> read_all(std::FILE* stream, int limit, const CodePage& page) {
  std::vector<Piece> pieces;
  std::vector<wchar_t> buffer(static_cast<std::size_t>(limit));
  while (brindle::fgetws(buffer.data(), limit, stream, page) != nullptr && pieces.size() < 100) {
    pieces.push_back({buffer.data(), std::ftell(stream)});
  }
  return pieces;
}

TEST_F(Stream, ReadsLinesWithTrueByteOffsets) {
  const struct {
    std::string bytes;
    int limit;
    std::vector<Piece> pieces;
  } cases[] = {
      {"", 290, {}},
      {"\n", 290, {{L"\n", 1}}},
      {"  0\r\nLINE\n10", 290, {{L"  0\n", 5}, {L"LINE\n", 10}, {L"10", 12}}},
      {"a\rb\r\r\nc\r", 290, {{L"a\rb\r\n", 6}, {L"c\r", 8}}},
      {"\xb8\xd6\xbd\xee\r\n", 290, {{L"钢筋\n", 6}}},
      {"\xb8\n\xb8\r\n\xb8", 290, {{L"\uFFFD\n", 2}, {L"\uFFFD\n", 5}, {L"\uFFFD", 6}}},
      {"\xa2\xab\xb8\xd6\n", 290, {{L"\uFFFD\uFFFD钢\n", 5}}},
      {std::string("a\0b\0\r\nc", 7), 290, {{L"ab\n", 6}, {L"c", 7}}},
      {std::string(50, '\0'), 290, {}},
      // Cuts: between characters, never within one, and CR LF stays one line end.
      {"abcde\r\n", 4, {{L"abc", 3}, {L"de\n", 7}}},
      {"abc\r\nd", 4, {{L"abc", 3}, {L"\n", 5}, {L"d", 6}}},
      {"ab\r\nd", 4, {{L"ab\n", 4}, {L"d", 5}}},
      {"ab\rd", 4, {{L"ab\r", 3}, {L"d", 4}}},
      {"ab\xb8\xd6\xbd\xee\n", 4, {{L"ab钢", 4}, {L"筋\n", 7}}},
      {"ab\xb8\n", 4, {{L"ab\uFFFD", 3}, {L"\n", 4}}},
      {"ab\xa2\xab\xb8\xd6", 4, {{L"ab", 2}, {L"\uFFFD\uFFFD钢", 6}}},
      {"\xa2\xab\xb8", 2, {{L"\uFFFD", 1}, {L"\uE075", 3}}},  // one character a line: no choice
      {"abc", 1, {}},
  };
  for (const auto& c : cases) {
    std::FILE* stream = open_with(c.bytes);
    EXPECT_EQ(read_all(stream, c.limit, ansi_code_page()), c.pieces)
        << testing::PrintToString(c.bytes);
    std::fclose(stream);
  }
}

TEST_F(Stream, ReadsInTheGivenPage) {
  const CodePage& utf8 = *CodePage::find(65001);
  std::FILE* stream = open_with("\xe9\x92\xa2\xe9\x92\n\xe9\x92");
  const std::vector<Piece> cut = {{L"钢", 3}, {L"\uFFFD", 4}, {L"\uFFFD", 5},
                                  {L"\n", 6}, {L"\uFFFD", 7}, {L"\uFFFD", 8}};
  EXPECT_EQ(read_all(stream, 2, utf8), cut);
  std::rewind(stream);
  const std::vector<Piece> whole = {{L"钢\uFFFD\uFFFD\n", 6}, {L"\uFFFD\uFFFD", 8}};
  EXPECT_EQ(read_all(stream, 290, utf8), whole);
  std::fclose(stream);

  stream = open_with("\x81\x30\x81\x30 \x81\x30\n");
  const std::vector<Piece> four = {{L"\u0080 \uFFFD0\n", 8}};
  EXPECT_EQ(read_all(stream, 290, *CodePage::find(54936)), four);
  std::fclose(stream);
}

// A line of any length comes back whole from its pieces, and seeking to a position read before
// gives the same line again.
TEST_F(Stream, PiecesOfALongLineMakeItUp) {
  std::string bytes;
  for (int i = 0; i < 20000; ++i) bytes += i % 3 == 0 ? "\xb8\xd6" : "x";
  std::FILE* stream = open_with(bytes + "\r\nnext\r\n");
  std::wstring text;
  wchar_t buffer[290];
  while (brindle::fgetws(buffer, 290, stream) != nullptr && buffer[0] != L'n') {
    text += buffer;
    const long position = std::ftell(stream);
    wchar_t again[290];
    brindle::fgetws(again, 290, stream);
    std::fseek(stream, position, SEEK_SET);
  }
  EXPECT_STREQ(buffer, L"next\n");
  EXPECT_EQ(text, ansi_code_page().decode(bytes) + L"\n");
  std::fclose(stream);
}

TEST_F(Stream, WritesBytesOfThePageAndCrLf) {
  std::FILE* stream = _wfopen(path(L"out").c_str(), L"wt");
  EXPECT_EQ(brindle::fputws(L"钢\n\n", stream), 0);
  EXPECT_EQ(brindle::fwprintf(stream, L"  %d\n%s\n%.10f", 0, CString(L"ab\u0E01"), 0.1), 20);
  EXPECT_EQ(brindle::fputws(L"钢\n", stream, *CodePage::find(65001)), 0);
  std::fclose(stream);
  EXPECT_EQ(bytes_of(folder_ / "out"),
            "\xb8\xd6\r\n\r\n  0\r\nab?\r\n0.1000000000\xe9\x92\xa2\r\n");

  std::FILE* full = _wfopen(L"/dev/full", L"wt");
  ASSERT_NE(full, nullptr);
  std::setvbuf(full, nullptr, _IONBF, 0);
  EXPECT_EQ(brindle::fputws(L"x", full), EOF);
  EXPECT_EQ(brindle::fwprintf(full, L"%d", 1), -1);
  std::fclose(full);
}

TEST_F(Stream, OpensByMode) {
  const std::wstring file = path(L"钢筋.txt");
  EXPECT_EQ(_wfopen(file.c_str(), L"rt"), nullptr);
  for (const wchar_t* mode : {L"wt", L"at, ccs=UTF-8", L"r+b", L"rb+", L"w+t", L"a+"}) {
    std::FILE* stream = _wfopen(file.c_str(), mode);
    ASSERT_NE(stream, nullptr) << mode;
    EXPECT_EQ(std::fputs("x", stream) >= 0, true) << mode;
    EXPECT_EQ(std::fclose(stream), 0) << mode;
  }
  EXPECT_EQ(bytes_of(folder_ / "钢筋.txt"), "xx") << "w+ and a+ came last";
  std::FILE* reader = _wfopen(file.c_str(), L"rt");
  EXPECT_EQ(std::fputs("y", reader), EOF) << "opened for reading only";
  std::fclose(reader);
  for (const wchar_t* mode : {L"", L"t", L"xyz", static_cast<const wchar_t*>(nullptr)}) {
    EXPECT_EQ(_wfopen(file.c_str(), mode), nullptr);
  }
  EXPECT_EQ(_wfopen(nullptr, L"rt"), nullptr);
  EXPECT_EQ(_wfopen(L"", L"rt"), nullptr);
  EXPECT_EQ(_wfopen(folder_.wide().c_str(), L"rt"), nullptr) << "a directory";
  EXPECT_EQ(errno, EISDIR);
}

TEST(Paths, EveryFileNameSurvives) {
  for (const char* name : {"", "plain", "\xe9\x92\xa2.dxf", "gbk\xb8\xd6.dxf", "\xf0\x9f\x98\x80",
                           "\xed\xa0\x80", "\xff\xe9\x92", "\xed\xb2\x80"}) {
    EXPECT_EQ(to_path(from_path(name).c_str()), name);
  }
  EXPECT_EQ(from_path("\xe9\x92\xa2"), L"钢");
}

}  // namespace
}  // namespace brindle
