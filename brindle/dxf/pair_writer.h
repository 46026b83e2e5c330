// Buffered output of drawing text: literals, numbers and names as the bytes of the file.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "brindle/platform/base/code_page.h"

namespace brindle {

// The two generations of drawing files that are written.
enum class DxfDialect { kR12, kAc1015 };

// Collects text and hands it to a stream in large pieces; the destructor hands over the rest. Line
// ends are written as CR LF. The stream is not owned. Errors stay in the stream (`ferror`).
class DxfPairWriter {
 public:
  explicit DxfPairWriter(FILE* stream, const CodePage& page = ansi_code_page());
  ~DxfPairWriter() { flush(); }
  DxfPairWriter(const DxfPairWriter&) = delete;
  DxfPairWriter& operator=(const DxfPairWriter&) = delete;

  // ASCII text as it stands, "\n" as CR LF.
  DxfPairWriter& literal(const char* text);
  // Text in the writer's code page. A line end inside it would break the file's pairs and is
  // written as a blank; a character that the page lacks is written as '?'.
  DxfPairWriter& text(const wchar_t* text);
  DxfPairWriter& real(double value);        // "%.10f"
  DxfPairWriter& integer(long long value);  // "%d"
  DxfPairWriter& hex(unsigned value);       // "%X"
  DxfPairWriter& end_line();

  // A whole pair, with the group code right-justified to three characters.
  void group(int code, const wchar_t* value);
  void group(int code, double value);
  void group(int code, int value);
  // The pair of a handle: "  5" and the number in hexadecimal.
  void handle(unsigned value);

  void flush();

 private:
  void reserve(std::size_t bytes);
  void group_code(int code);

  FILE* stream_;
  const CodePage* page_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  std::string encoded_;
};

}  // namespace brindle
