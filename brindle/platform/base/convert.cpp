#include "brindle/platform/base/convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <system_error>

namespace brindle {

namespace {

// The end of a zero-terminated text, so that one scanner serves both kinds of text.
struct Terminator {};
template <class Char>
bool operator==(const Char* position, Terminator) {
  return *position == 0;
}

template <class Char>
bool is_space(Char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
template <class Char>
bool is_digit(Char c) {
  return c >= '0' && c <= '9';
}
template <class Char>
Char to_lower(Char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<Char>(c - 'A' + 'a') : c;
}

template <class Char, class End>
const Char* skip_space(const Char* at, End end) {
  while (!(at == end) && is_space(*at)) ++at;
  return at;
}
template <class Char, class End>
const Char* skip_digits(const Char* at, End end) {
  while (!(at == end) && is_digit(*at)) ++at;
  return at;
}

// Behind the word when the text starts with it in any case, else null.
template <class Char, class End>
const Char* skip_word(const Char* at, End end, const char* word) {
  for (; *word != '\0'; ++word, ++at) {
    if (at == end || to_lower(*at) != static_cast<Char>(*word)) return nullptr;
  }
  return at;
}

template <class Char, class End>
const Char* skip_nan_payload(const Char* at, End end) {
  if (at == end || *at != '(') return at;
  const Char* inside = at + 1;
  while (!(inside == end) && (is_digit(*inside) || *inside == '_' ||
                              (to_lower(*inside) >= 'a' && to_lower(*inside) <= 'z'))) {
    ++inside;
  }
  return !(inside == end) && *inside == ')' ? inside + 1 : at;
}

// A number without its sign: digits, point, digits, exponent.
template <class Char>
struct Decimal {
  const Char* end = nullptr;     // null: there isn't a digit before the exponent
  std::ptrdiff_t digits = 0;     // before and behind the point
  std::ptrdiff_t decimals = 0;   // behind the point
  std::uint64_t all_digits = 0;  // as one number, modulo 2^64
  bool has_exponent = false;
};

template <class Char, class End>
const Char* take_digits(const Char* at, End end, std::uint64_t& value) {
  for (; !(at == end) && is_digit(*at); ++at) {
    value = value * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  return at;
}

template <class Char, class End>
Decimal<Char> scan_decimal(const Char* at, End end) {
  Decimal<Char> number;
  const Char* after = take_digits(at, end, number.all_digits);
  number.digits = after - at;
  if (!(after == end) && *after == '.') {
    const Char* fraction = after + 1;
    after = take_digits(fraction, end, number.all_digits);
    number.decimals = after - fraction;
    number.digits += number.decimals;
  }
  if (number.digits == 0) return number;
  if (!(after == end) && to_lower(*after) == 'e') {
    const Char* exponent = after + 1;
    if (!(exponent == end) && (*exponent == '+' || *exponent == '-')) ++exponent;
    const Char* exponent_end = skip_digits(exponent, end);
    number.has_exponent = exponent_end != exponent;
    if (number.has_exponent) after = exponent_end;
  }
  number.end = after;
  return number;
}

// Of a decimal number that is no finite double other than zero: whether it is too large, not too
// small. The place of its first digit that counts tells it, together with the exponent.
bool is_too_large(const char* at, const char* end) {
  const char* mantissa_end = std::find_if(at, end, [](char c) { return to_lower(c) == 'e'; });
  long exponent = 0;
  if (mantissa_end != end) {
    const char* digits = mantissa_end + 1 + (mantissa_end[1] == '+' ? 1 : 0);
    if (std::from_chars(digits, end, exponent).ec != std::errc()) return *digits != '-';
  }
  const char* point = std::find(at, mantissa_end, '.');
  const char* first = std::find_if(at, mantissa_end, [](char c) { return c >= '1' && c <= '9'; });
  constexpr long kFar = std::numeric_limits<long>::max() / 2;
  return std::clamp(exponent, -kFar, kFar) + (point - first) > 0;
}

double decimal_value(const char* at, const char* end) {
  double value = 0;
  if (std::from_chars(at, end, value).ec == std::errc::result_out_of_range) {
    return is_too_large(at, end) ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return value;
}

double decimal_value(const wchar_t* at, const wchar_t* end) {
  const auto length = static_cast<std::size_t>(end - at);
  char buffer[128];
  std::string long_number;
  char* narrow = buffer;
  if (length > sizeof buffer) {
    long_number.resize(length);
    narrow = long_number.data();
  }
  std::transform(at, end, narrow, [](wchar_t c) { return static_cast<char>(c); });
  return decimal_value(narrow, narrow + length);
}

// The numbers of drawings are short: their digits and the power of ten are exact doubles, so that
// one division gives the double nearest to the decimal number, as the long way does.
template <class Char>
double value_of(const Char* at, const Decimal<Char>& number) {
  static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                       1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};
  constexpr std::ptrdiff_t kMostDigits = 18;  // less than 2^64
  constexpr std::uint64_t kMostExact = std::uint64_t{1} << 53;
  if (number.digits <= kMostDigits && number.all_digits <= kMostExact && !number.has_exponent) {
    return static_cast<double>(number.all_digits) / kPowers[number.decimals];
  }
  return decimal_value(at, number.end);
}

template <class Char, class End>
double scan_double(const Char* text, End end, const Char** stop) {
  const Char* at = skip_space(text, end);
  const bool negative = !(at == end) && *at == '-';
  if (!(at == end) && (*at == '-' || *at == '+')) ++at;

  double value = 0;
  const Char* after = text;
  if (const Decimal<Char> decimal = scan_decimal(at, end); decimal.end != nullptr) {
    value = value_of(at, decimal);
    after = decimal.end;
  } else if (const Char* inf = skip_word(at, end, "inf")) {
    value = std::numeric_limits<double>::infinity();
    const Char* infinity = skip_word(inf, end, "inity");
    after = infinity != nullptr ? infinity : inf;
  } else if (const Char* nan = skip_word(at, end, "nan")) {
    value = std::numeric_limits<double>::quiet_NaN();
    after = skip_nan_payload(nan, end);
  } else {
    if (stop != nullptr) *stop = text;
    return 0;
  }
  if (stop != nullptr) *stop = after;
  return negative ? -value : value;
}

template <class Integer, class Char, class End>
Integer scan_integer(const Char* text, End end) {
  const Char* at = skip_space(text, end);
  const bool negative = !(at == end) && *at == '-';
  if (!(at == end) && (*at == '-' || *at == '+')) ++at;
  constexpr Integer kMax = std::numeric_limits<Integer>::max();
  constexpr Integer kMin = std::numeric_limits<Integer>::min();
  Integer value = 0;  // negative throughout, since the range reaches one further there
  for (; !(at == end) && is_digit(*at); ++at) {
    const auto digit = static_cast<Integer>(*at - '0');
    if (value < (kMin + digit) / 10) return negative ? kMin : kMax;
    value = value * 10 - digit;
  }
  if (negative) return value;
  return value == kMin ? kMax : -value;
}

}  // namespace

double parse_double(const wchar_t* text, const wchar_t** end) {
  return scan_double(text == nullptr ? L"" : text, Terminator(), end);
}

double parse_double(const char* first, const char* last, const char** end) {
  return scan_double(first, last, end);
}

int parse_int(const char* first, const char* last) {
  return scan_integer<int>(first, last);
}

int _wtoi(const wchar_t* text) {
  return text == nullptr ? 0 : scan_integer<int>(text, Terminator());
}

LONG _wtol(const wchar_t* text) {
  return _wtoi(text);
}

std::int64_t _wtoi64(const wchar_t* text) {
  return text == nullptr ? 0 : scan_integer<std::int64_t>(text, Terminator());
}

double _wtof(const wchar_t* text) {
  return parse_double(text);
}

wchar_t* _itow(int value, wchar_t* buffer, int radix) {
  char digits[40];
  char* end = digits;
  if (radix == 10) {
    end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  } else if (radix >= 2 && radix <= 36) {
    end = std::to_chars(digits, digits + sizeof digits, static_cast<unsigned>(value), radix).ptr;
  }
  *std::copy(digits, end, buffer) = L'\0';
  return buffer;
}

int _wcsnicmp(const wchar_t* a, const wchar_t* b, std::size_t count) {
  if (a == nullptr) a = L"";
  if (b == nullptr) b = L"";
  for (; count > 0; ++a, ++b, --count) {
    const wchar_t x = to_lower(*a);
    const wchar_t y = to_lower(*b);
    if (x != y) return x < y ? -1 : 1;
    if (x == L'\0') break;
  }
  return 0;
}

int _wcsicmp(const wchar_t* a, const wchar_t* b) {
  return _wcsnicmp(a, b, std::numeric_limits<std::size_t>::max());
}

namespace {

template <class Char>
Char* copy_bounded(Char* target, const Char* source, int size) {
  if (size < 1) return target;
  Char* to = target;
  for (; size > 1 && source != nullptr && *source != 0; --size) *to++ = *source++;
  *to = 0;
  return target;
}

}  // namespace

wchar_t* lstrcpyn(wchar_t* target, const wchar_t* source, int size) {
  return copy_bounded(target, source, size);
}

char* lstrcpyn(char* target, const char* source, int size) {
  return copy_bounded(target, source, size);
}

}  // namespace brindle
