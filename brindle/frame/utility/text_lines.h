// Reading text data files: lines with comments, single words, one text a line, search for a line.
#pragma once

#include <cstdio>
#include <type_traits>

#include "brindle/platform/base/string.h"

namespace brindle {

// All functions read the stream in the process's code page, take CR LF as a newline, and leave the
// stream right behind what they read. A null stream is one at its end.

// Reads the next line that isn't a comment into `buf` (`size` characters, the terminating zero
// included) and returns `buf`. A comment begins with "##" or "//" in its first column. The line
// keeps its newline; a line that is only a newline comes back as empty text, and is not skipped. A
// longer line comes back in pieces, each looked at like a line; the rest of a comment longer than
// the buffer is skipped with it.
//
// At the end of the stream the text is empty. When the stream ends behind comments, `buf` holds
// the last of them: files may rely on it, so it is meant. feof() tells both from a line.
wchar_t* fgets_skip_comment(wchar_t* buf, int size, std::FILE* stream);

// The same, but skips the lines whose first word, as the scanner takes it, is exactly `stop`.
wchar_t* fgets_skip_comment(wchar_t* buf, int size, std::FILE* stream, const wchar_t* stop);

// The longest word of read_one_unit with its terminating zero.
inline constexpr int kUnitSize = 100;

int read_one_unit_limited(wchar_t* out, int size, std::FILE* stream);
int read_one_unit_limited(wchar_t* out, int size, const wchar_t* text, int* pos);

// The room that `out` offers: its own for an array; a pointer promises kUnitSize characters.
template <class Out>
constexpr int unit_room() {
  using Plain = std::remove_reference_t<Out>;
  if constexpr (std::is_array_v<Plain>) {
    return std::extent_v<Plain> < kUnitSize ? static_cast<int>(std::extent_v<Plain>) : kUnitSize;
  } else {
    return kUnitSize;
  }
}

// Reads one word: skips blanks, commas and newlines, collects up to 99 characters to the next of
// them, and leaves the stream before that character. A tab belongs to a word. Returns 1, or 0 with
// an empty word at the end of the stream. `out` is a wchar_t array or points to room for 100.
template <class Out>
int read_one_unit(Out&& out, std::FILE* stream) {
  return read_one_unit_limited(out, unit_room<Out>(), stream);
}

// The same from `text` at index *pos, which moves behind the word. Past the end, or with a negative
// index or a null text, the word is empty and the result 0.
template <class Out>
int read_one_unit_from_string(Out&& out, const wchar_t* text, int* pos) {
  return read_one_unit_limited(out, unit_room<Out>(), text, pos);
}

// Finds the line whose first word, as the scanner takes it, is exactly `word`. Looks at the lines
// that start before position `to` (a byte position, as ftell gives it), first from the stream's
// position, then once more from position `from`: data usually comes in order, and then the search
// costs one line. On a hit the stream stands at the start of the line and the result is 1; on a
// miss it stands where the search ended, at or behind `to` or at the end of the stream, and the
// result is 0. BiaoShi: mark. Linear in to - from.
int Find_BiaoShi(std::FILE* stream, const wchar_t* word, long from, long to);

// Reads the text that SaveOneCString wrote: one line without its newline. A positive `size` cuts it
// at size-1 characters; the rest of the line is skipped. Returns 1, or 0 with an empty text at the
// end of the stream.
int LoadOneCString(std::FILE* stream, CString& text, int size = 0);

// Writes the text on a line of its own, also amid binary records. A positive `size` cuts it at
// size-1 characters. Line ends inside the text become blanks. Returns 1, or 0 on an error.
int SaveOneCString(std::FILE* stream, const CString& text, int size = 0);

}  // namespace brindle
