// Texts of the engineering helpers: pieces, lines of files, numbers, items of a report.
#pragma once

#include <cstdio>
#include <utility>

#include "brindle/frame/utility/scanner.h"
#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/base/types.h"

namespace brindle::QxJGFunEx {

// Piece `index`, from 0, of a text that any of the separators divides; empty pieces count. Empty
// beyond the last piece and for null.
CString Str_GetSubStr(const wchar_t* text, int index, const wchar_t* separators);

// The reverse: joins the pieces with the separator between them.
CString Str_SetComboStr(const CStringArray& pieces, const wchar_t* separator);

// Reads one line of any length, without its line end: 1; 0 with an empty text at the end of the
// stream or for a null one.
int Str_ReadFromFile(std::FILE* fp, CString& text);

// JSVsscanf::vsscanf.
template <class... Targets>
int Str_Scanf(const wchar_t* text, const wchar_t* format, Targets&&... targets) {
  return JSVsscanf::vsscanf(text, format, std::forward<Targets>(targets)...);
}

// A whole number as text; a real one with so many decimals (0 to 15).
CString Str_GetNumStr(int value);
CString Str_GetNumStr(double value, int decimals);

// The colour at an index of a book's colour table, 1 to 16; black for any other.
COLORREF Rtf_GetRtfColorRef(int index);

// Writes one paragraph "name：value" of a Rich Text book, the value in the colour of the index (0
// is the automatic one). The characters of the markup are escaped, others than ASCII stand as bytes
// of GBK. 1, or 0 for a null stream or when writing failed.
int Rtf_WriteItem(std::FILE* fp, const wchar_t* name, const wchar_t* value, int color = 0);

}  // namespace brindle::QxJGFunEx
