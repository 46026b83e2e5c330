// A drawing file as a sequence of line pairs: a group code line and a value line.
//
// The reader keeps a window of the file's bytes and goes back within it, so that an object can be
// handed the pair that announces it without a seek of the stream.
#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/wide_text.h"

namespace brindle {

// A line of a drawing file, as the bytes of the file without the line end (LF or CR LF). `ended`
// tells whether a line end followed: a line at the end of the file, and a line that was cut at
// kMaxLineChars, have none, and are never equal to a keyword.
struct DxfLine {
  std::string_view bytes;
  bool ended = false;

  // True for exactly this text followed by a line end.
  bool is(std::string_view text) const { return ended && bytes == text; }
};

// A group code line and its value line; the bytes stay valid until the reader moves on.
struct DxfPair {
  DxfLine code_line;
  DxfLine value;
  int code = kUnknownCode;  // the group code, kUnknownCode for any form but the writers' own

  static constexpr int kUnknownCode = -1;

  bool is(int group, std::string_view text) const { return code == group && value.is(text); }
};

// The group code of a line: three characters, right-justified with blanks, or four digits. Any
// other spelling ("0", " 8 ", "010") is not a group code of this reader: kUnknownCode.
int parse_group_code(const DxfLine& line);

class DxfPairReader {
 public:
  // A line holds at most this many characters, its line end included; what is longer goes on as
  // the next line, which puts the pairs behind it out of step.
  static constexpr int kMaxLineChars = 290;

  // Reads from the stream's present position. The stream is not owned and must outlive the reader.
  DxfPairReader(FILE* stream, const CodePage& page);

  // The next pair; false at the end of the file, also when only a code line is left.
  bool read(DxfPair& pair);
  // The next single line; false at the end of the file.
  bool read_line(DxfLine& line);
  // Goes back to the start of the pair (or line) that was read last.
  void unread() { next_ = last_start_; }

  // Position in the file, in bytes, of the next line; and the way back to it.
  long long position() const { return window_start_ + static_cast<long long>(next_); }
  void seek(long long position);
  // Puts the stream itself where the reader stands, for code that goes on with the stream.
  void sync_stream();

  FILE* stream() const { return stream_; }
  const CodePage& code_page() const { return *page_; }
  void set_code_page(const CodePage& page);

  // The value as text in the file's code page, without its line end.
  const std::wstring& text(const DxfPair& pair);
  // The same for the names that repeat all through a drawing: remembers the last ones.
  const WText<300>& name(const DxfPair& pair);

  static double real(const DxfPair& pair);  // 0 for what is no number
  static int integer(const DxfPair& pair);  // 0 for what is no number; saturates

 private:
  struct KnownName {
    std::string bytes;
    WText<300> text;
  };

  bool fill(std::size_t wanted);
  bool take_short_code_line(DxfPair& pair);
  bool take_line(DxfLine& line);
  bool take_long_line(DxfLine& line);

  FILE* stream_;
  const CodePage* page_;
  std::unique_ptr<char[]> window_;
  std::size_t next_ = 0;        // of the window: the next byte to hand out
  std::size_t end_ = 0;         // of the window: end of the bytes in it
  std::size_t last_start_ = 0;  // of the window: start of the last pair or line
  long long window_start_ = 0;  // in the file: first byte of the window
  bool at_end_ = false;         // the stream has no more bytes
  // The last pair of code 0 and its place in the window: who looks for an object reads it and gives
  // it back, and the object reads it again.
  static constexpr std::size_t kNoPair = ~std::size_t{0};
  DxfPair held_;
  std::size_t held_start_ = kNoPair;
  std::size_t held_end_ = 0;
  std::wstring text_;
  std::array<KnownName, 64> names_;
};

}  // namespace brindle
