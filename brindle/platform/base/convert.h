// Numbers from and to text, never depending on the locale, and the runtime's small text helpers.
#pragma once

#include <cstdint>

#include "brindle/platform/base/types.h"

namespace brindle {

// The longest output of format_fixed, with the terminating zero that it doesn't write.
inline constexpr int kFixedBufferSize = 400;

// The number at the start of the text after white space: an optional sign, decimal digits with an
// optional point and exponent, or inf, infinity, nan, nan(...) in any case. Beyond the range of a
// double: infinity of that sign, or zero of that sign. The text ends at the first character that
// doesn't belong ("1,5" is 1, "0x10" is 0, "1e" is 1). Without a number the result is 0 and `end`
// (when given) the start of the text.
double parse_double(const wchar_t* text, const wchar_t** end = nullptr);
double parse_double(const char* first, const char* last, const char** end = nullptr);

// The integer at the start of the text after white space, 0 without one; saturates.
int parse_int(const char* first, const char* last);
int _wtoi(const wchar_t* text);
LONG _wtol(const wchar_t* text);
std::int64_t _wtoi64(const wchar_t* text);
double _wtof(const wchar_t* text);

// Digits of `value` in the base `radix` (2 to 36, lower case), zero terminated; the minus sign
// belongs to base 10 only. The buffer must hold 33 characters. Returns the buffer.
wchar_t* _itow(int value, wchar_t* buffer, int radix);

// Writes the bytes that printf("%.{decimals}f") gives in the C locale (decimals from 0 to 80) and
// returns the end; writes no terminator. kFixedBufferSize bytes always suffice.
char* format_fixed(char* first, double value, int decimals);

// <0, 0, >0; A to Z count as a to z, other letters as themselves. Null counts as empty.
int _wcsicmp(const wchar_t* a, const wchar_t* b);
int _wcsnicmp(const wchar_t* a, const wchar_t* b, std::size_t count);

// Copies at most size-1 characters and terminates the copy, unless size < 1 (then nothing is
// written). A null source counts as empty. Returns the target.
wchar_t* lstrcpyn(wchar_t* target, const wchar_t* source, int size);
char* lstrcpyn(char* target, const char* source, int size);

}  // namespace brindle
