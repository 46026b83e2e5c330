// Splitting and listing of texts, conversion between wide and ANSI text, the present time as text.
#pragma once

#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/base/string_list.h"

namespace brindle {

// Splits `text` at each of the characters in `separators` and returns the number of pieces, which
// replace the content of `pieces`. Empty pieces are kept: "a,,b" gives three, "a," two. An empty or
// null text gives none. Without separators the text is one piece. Pieces are not trimmed.
int CompartString(const wchar_t* text, CStringArray& pieces, const wchar_t* separators);

// The same without the empty pieces: separators in a row count as one.
int CompartString2(const wchar_t* text, CStringArray& pieces, const wchar_t* separators);

// What separates the items of a text that is a list.
inline constexpr wchar_t kListSeparators[] = L", \t\r\n";

// Copies the items of a list, or of a text such as "1,2 3", in their order to an array, whose
// content they replace; returns their number. Integers are read by _wtoi, so that what is no number
// is 0.
int StringListToStringArray(const CStringList& list, CStringArray& items);
int StringListToStringArray(const wchar_t* list, CStringArray& items);
int StringListToIntArray(const CStringList& list, CArray<int, int>& items);
int StringListToIntArray(const wchar_t* list, CArray<int, int>& items);

// Removes the blanks and tabs at the start of a text, the empty items at the start of a list.
void DelFrontEmpty(CString& text);
void DelFrontEmpty(CStringArray& items);
void DelFrontEmpty(CStringList& items);

// Converts the whole text from or to the process's ANSI code page and copies it to `out` as
// lstrcpyn does: cut at size-1 characters or bytes, so that a character of two bytes may be halved,
// and terminated. A null `out` or a size of 0 leaves nothing; a null text counts as empty. Returns
// `out`.
wchar_t* ToW(const char* text, wchar_t* out, unsigned size);
char* ToA(const wchar_t* text, char* out, unsigned size);

// The local time as "YYYY-MM-DD HH:MM:SS".
CString GetTimeString();

}  // namespace brindle
