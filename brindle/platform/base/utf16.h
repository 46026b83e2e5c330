// Text as UTF-16LE bytes, the form of all files that hold wide characters, whatever the size of
// wchar_t.
#pragma once

#include <string>
#include <string_view>

namespace brindle {

// Lone surrogates pass: they stand for odd bytes of file names. What is no character becomes
// U+FFFD.
std::string to_utf16_bytes(std::wstring_view text);
// An odd last byte is left out; a lone surrogate stays as it is.
std::wstring from_utf16_bytes(std::string_view bytes);

}  // namespace brindle
