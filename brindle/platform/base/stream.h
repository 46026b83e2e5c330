// Wide text on byte streams: decoding by code page, CR LF line ends, true byte positions. Call
// these functions qualified (`brindle::fgetws`): the C library has functions of the same names.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "brindle/platform/base/format.h"

namespace brindle {

class CodePage;

// Opens a file. Of the mode, r, w, a and + count; t, b and ",ccs=..." change nothing, since every
// stream is a stream of bytes. Null, with errno set, when it fails or the path is a directory.
std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode);

// Reads at most n-1 characters up to and with the line end, and terminates them. CR LF becomes LF,
// also when the limit falls between the two; a lone CR stays. A byte of zero is left out, since it
// would hide the rest of the line. The stream then stands right behind the bytes of what was
// returned; the rest of a line that is too long comes with the next call, no character is ever
// split. Returns buf, or null at the end of the file or on an error when nothing was read (or n <
// 2).
wchar_t* fgetws(wchar_t* buf, int n, std::FILE* stream);
// The same with another page than the process's, which must be ASCII compatible.
wchar_t* fgetws(wchar_t* buf, int n, std::FILE* stream, const CodePage& page);

// Writes the text in the page's bytes; each "\n" becomes CR LF. Returns 0, or EOF (-1) on an error.
int fputws(const wchar_t* text, std::FILE* stream);
int fputws(std::wstring_view text, std::FILE* stream, const CodePage& page);

// For fwprintf: formats and writes as fputws does. Returns the number of characters, or -1.
int write_formatted(std::FILE* stream, const wchar_t* format, const FormatArg* args,
                    std::size_t count);

template <class... Args>
int fwprintf(std::FILE* stream, const wchar_t* format, const Args&... args) {
  const FormatArg list[sizeof...(Args) + 1] = {FormatArg(args)..., FormatArg(nullptr)};
  return write_formatted(stream, format, list, sizeof...(Args));
}

// 0, or -1 with errno set. As in the runtime, a rename never replaces an existing file.
int _wremove(const wchar_t* path);
int _wrename(const wchar_t* old_path, const wchar_t* new_path);

// Something that isn't a directory exists under this path (links are followed).
bool file_exists(const wchar_t* path);

// The path as the system's calls take it (UTF-8 here) and back. Every file name survives the way
// there and back: bytes that aren't valid UTF-8 become U+DC80 to U+DCFF.
std::string to_path(const wchar_t* path);
std::wstring from_path(std::string_view path);

}  // namespace brindle
