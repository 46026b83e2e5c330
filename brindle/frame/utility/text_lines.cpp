#include "brindle/frame/utility/text_lines.h"

#include "brindle/frame/utility/scanner.h"
#include "brindle/platform/base/stream.h"

#include <algorithm>
#include <cwchar>
#include <string>

namespace brindle {
namespace {

// Longest piece of a line that is read at once where no caller's buffer sets the limit.
constexpr int kPieceSize = 512;

bool ends_line(const wchar_t* piece) {
  const size_t length = std::wcslen(piece);
  return length > 0 && piece[length - 1] == L'\n';
}

// Skips the rest of the line of which `piece` was read last.
void skip_rest_of_line(const wchar_t* piece, std::FILE* stream) {
  wchar_t rest[kPieceSize];
  while (!ends_line(piece) && brindle::fgetws(rest, kPieceSize, stream)) piece = rest;
}

// The next byte without taking it, EOF at the end.
int peek(std::FILE* stream) {
  const int c = std::fgetc(stream);
  if (c != EOF) std::ungetc(c, stream);
  return c;
}

template <class IsSkipped>
wchar_t* next_line(wchar_t* buf, int size, std::FILE* stream, IsSkipped is_skipped) {
  if (size < 1) return buf;
  buf[0] = 0;
  if (!stream) return buf;
  while (brindle::fgetws(buf, size, stream) && is_skipped(buf)) {
    skip_rest_of_line(buf, stream);
    if (peek(stream) == EOF) break;  // `buf` keeps the last line that was skipped
  }
  if (buf[0] == L'\n') buf[0] = 0;
  return buf;
}

bool is_comment(const wchar_t* line) {
  return (line[0] == L'#' && line[1] == L'#') || (line[0] == L'/' && line[1] == L'/');
}

bool first_word_is(const wchar_t* line, const wchar_t* word) {
  wchar_t first[kPieceSize];
  JSVsscanf::vsscanf(line, L"%s", first);
  return std::wcscmp(first, word) == 0;
}

bool separates_units(wchar_t c) {
  return c == L' ' || c == L',' || c == L'\n' || c == L'\r';
}

// Separators are single bytes in every code page, so that a byte is enough to see one.
bool peek_separator(std::FILE* stream) {
  const int c = peek(stream);
  return c != EOF && separates_units(static_cast<wchar_t>(c));
}

// Looks at the lines from the stream's position that start before `to`.
bool find_line(std::FILE* stream, const wchar_t* word, long to) {
  wchar_t line[kPieceSize];
  for (;;) {
    const long position = std::ftell(stream);
    if (position < 0 || position >= to || !brindle::fgetws(line, kPieceSize, stream)) return false;
    if (first_word_is(line, word)) return std::fseek(stream, position, SEEK_SET) == 0;
    skip_rest_of_line(line, stream);
  }
}

}  // namespace

wchar_t* fgets_skip_comment(wchar_t* buf, int size, std::FILE* stream) {
  return next_line(buf, size, stream, is_comment);
}

wchar_t* fgets_skip_comment(wchar_t* buf, int size, std::FILE* stream, const wchar_t* stop) {
  return next_line(buf, size, stream,
                   [stop](const wchar_t* line) { return stop && first_word_is(line, stop); });
}

int read_one_unit_limited(wchar_t* out, int size, std::FILE* stream) {
  int length = 0;
  if (stream) {
    while (peek_separator(stream)) std::fgetc(stream);
    wchar_t one[3];
    while (length < size - 1 && !peek_separator(stream) && brindle::fgetws(one, 2, stream)) {
      out[length++] = one[0];
    }
  }
  out[length] = 0;
  return length > 0;
}

int read_one_unit_limited(wchar_t* out, int size, const wchar_t* text, int* pos) {
  int length = 0;
  if (text && *pos >= 0 && wcsnlen(text, static_cast<size_t>(*pos)) == static_cast<size_t>(*pos)) {
    while (text[*pos] != 0 && separates_units(text[*pos])) ++*pos;
    while (length < size - 1 && text[*pos] != 0 && !separates_units(text[*pos])) {
      out[length++] = text[(*pos)++];
    }
  }
  out[length] = 0;
  return length > 0;
}

int Find_BiaoShi(std::FILE* stream, const wchar_t* word, long from, long to) {
  if (!stream || !word) return 0;
  if (find_line(stream, word, to)) return 1;
  return std::fseek(stream, from, SEEK_SET) == 0 && find_line(stream, word, to);
}

int LoadOneCString(std::FILE* stream, CString& text, int size) {
  text.Empty();
  if (!stream) return 0;
  std::wstring line;
  wchar_t piece[kPieceSize];
  bool found = false;
  while (brindle::fgetws(piece, kPieceSize, stream)) {
    found = true;
    if (size <= 0 || line.size() < static_cast<size_t>(size)) line += piece;
    if (ends_line(piece)) break;
  }
  if (!line.empty() && line.back() == L'\n') line.pop_back();
  if (size > 0) line.resize(std::min(line.size(), static_cast<size_t>(size) - 1));
  text = line.c_str();
  return found;
}

int SaveOneCString(std::FILE* stream, const CString& text, int size) {
  if (!stream) return 0;
  const wchar_t* characters = text;
  std::wstring line(characters);
  if (size > 0) line.resize(std::min(line.size(), static_cast<size_t>(size) - 1));
  std::replace_if(
      line.begin(), line.end(), [](wchar_t c) { return c == L'\n' || c == L'\r'; }, L' ');
  return brindle::fputws((line + L'\n').c_str(), stream) >= 0;
}

}  // namespace brindle
