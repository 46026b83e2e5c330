// Text on standard output and standard error, as UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "brindle/platform/base/format.h"

namespace brindle::cli {

// The text of a file for a terminal: control characters, which could drive it, become U+FFFD.
std::wstring printable(std::wstring_view text);

// A formatted line on standard output; arguments that come from files go through `printable`.
void print_line(std::wstring_view line);
template <class... Args>
void print(const wchar_t* format, const Args&... args) {
  print_line(wformat(format, args...));
}

// "brindle: " and the text, a line on standard error.
void complain(std::wstring_view text);

}  // namespace brindle::cli
