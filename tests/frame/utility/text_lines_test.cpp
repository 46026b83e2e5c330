#include "brindle/frame/utility/text_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

// A stream that reads `bytes` and can be written.
class TextLines : public testing::Test {
 protected:
  void TearDown() override {
    if (stream) std::fclose(stream);
  }
  std::FILE* open(const std::string& bytes) {
    if (stream) std::fclose(stream);
    stream = std::tmpfile();
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::rewind(stream);
    return stream;
  }
  std::string rest() {
    std::string bytes;
    for (int c; (c = std::fgetc(stream)) != EOF;) bytes += static_cast<char>(c);
    return bytes;
  }
  std::FILE* stream = nullptr;
};

using Texts = std::vector<std::wstring>;

TEST_F(TextLines, SkipComment) {
  const struct {
    std::string bytes;
    Texts lines;  // up to the end of the stream
  } cases[] = {
      {"a\nb\n", {L"a\n", L"b\n", L""}},
      {"a\r\n##c\r\n//d\r\nb", {L"a\n", L"b", L""}},
      {"a\n## two", {L"a\n", L"## two"}},
      {"#a\n/b\n ##c\n", {L"#a\n", L"/b\n", L" ##c\n", L""}},
      {"", {L""}},
      {"0123456789abcdefg\nb\n", {L"0123456789abcde", L"fg\n", L"b\n", L""}},
      // The rest of a long comment is no data.
      {"// 6789abcdefghijklmnopqrstuvwxyz 1,2\nb\n", {L"b\n", L""}},
      {"\xb8\xd6\xbd\xee\n", {L"钢筋\n", L""}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.bytes));
    open(c.bytes);
    Texts lines;
    wchar_t buf[16] = L"?";
    while (lines.size() < c.lines.size()) {
      EXPECT_EQ(fgets_skip_comment(buf, 16, stream), buf);
      lines.push_back(buf);
    }
    EXPECT_TRUE(std::feof(stream));
    EXPECT_EQ(lines, c.lines);
  }
}

TEST_F(TextLines, ReadOneUnitFromStreamAndString) {
  const std::string long_word(150, 'w');
  const std::string text = " , \r\n\nab,c\td\r\n" + long_word;
  const std::wstring wide_text(text.begin(), text.end());
  open(text);
  wchar_t word[kUnitSize];
  int pos = 0;
  for (const std::wstring& expected : {std::wstring(L"ab"), std::wstring(L"c\td"),
                                       std::wstring(99, L'w'), std::wstring(51, L'w')}) {
    EXPECT_EQ(read_one_unit(word, stream), 1);
    EXPECT_EQ(word, expected);
    EXPECT_EQ(read_one_unit_from_string(word, wide_text.c_str(), &pos), 1);
    EXPECT_EQ(word, expected);
  }
  EXPECT_EQ(read_one_unit(word, stream), 0);
  EXPECT_EQ(read_one_unit(word, nullptr), 0);
  for (const int place : {pos, pos + 1, 100000, -1}) {
    int after = place;
    EXPECT_EQ(read_one_unit_from_string(word, wide_text.c_str(), &after), 0);
    EXPECT_STREQ(word, L"");
    EXPECT_EQ(after, place);
  }
}

TEST_F(TextLines, FindMark) {
  const std::string long_line = "x " + std::string(1500, 'y') + " BB\n";
  const std::string bytes = "AA,1\r\nBB 2\nBBB\n" + long_line + "  CC\nBB 3\n";
  const long size = static_cast<long>(bytes.size());
  const long second = 6, last = size - 5;
  const struct {
    const wchar_t* word;
    long start, from, to;
    int result;
    long position;
  } cases[] = {
      {L"BB", 0, 0, size, 1, second},
      {L"BB", second + 1, 0, size, 1, last},  // "B 2" comes first; then the last line
      {L"BB", last + 5, 0, size, 1, second},  // wraps
      {L"CC", 0, 0, size, 1, last - 5},
      {L"B", 0, 0, size, 0, size},
      {L"AA", second, second, size, 0, size},
      {L"BB", 0, 0, second, 0, second},
      {L"BB", 0, 0, second + 1, 1, second},  // a line that starts before `to`
      {L"BB", 0, 0, -1, 0, 0},
      {L"ZZ", 0, 0, size + 1000, 0, size},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << testing::PrintToString(std::wstring(c.word)) << " from "
                                    << c.start << " to " << c.to);
    std::fseek(open(bytes), c.start, SEEK_SET);
    EXPECT_EQ(Find_BiaoShi(stream, c.word, c.from, c.to), c.result);
    EXPECT_EQ(std::ftell(stream), c.position);
  }
  EXPECT_EQ(Find_BiaoShi(nullptr, L"A", 0, 10), 0);
  EXPECT_EQ(Find_BiaoShi(open(bytes), L"ZZ", -5, size), 0);
}

TEST_F(TextLines, OneStringALine) {
  const std::wstring long_text(1300, L'梁');
  open("");
  for (const wchar_t* text : {L"层 1,\"x\"", L"", L"a\r\nb", long_text.c_str(), L"123456"}) {
    EXPECT_EQ(SaveOneCString(stream, text), 1);
  }
  EXPECT_EQ(SaveOneCString(stream, L"123456", 4), 1);
  std::fputs("\x01 binary", stream);
  std::rewind(stream);

  CString text = L"old";
  for (const wchar_t* expected : {L"层 1,\"x\"", L"", L"a  b", long_text.c_str()}) {
    EXPECT_EQ(LoadOneCString(stream, text), 1);
    EXPECT_STREQ(text, expected);
  }
  EXPECT_EQ(LoadOneCString(stream, text, 4), 1);
  EXPECT_STREQ(text, L"123");
  EXPECT_EQ(LoadOneCString(stream, text), 1);
  EXPECT_STREQ(text, L"123");
  EXPECT_EQ(rest(), "\x01 binary") << "reads not a byte beyond its line";
  EXPECT_EQ(LoadOneCString(stream, text), 0);
  EXPECT_EQ(LoadOneCString(nullptr, text), 0);
  std::FILE* full = std::fopen("/dev/full", "wb");
  ASSERT_NE(full, nullptr);
  std::setvbuf(full, nullptr, _IONBF, 0);
  EXPECT_EQ(SaveOneCString(full, L"x"), 0);
  std::fclose(full);
}

}  // namespace
}  // namespace brindle
