#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "brindle/platform/base/format_internal.h"

namespace brindle {

namespace {

std::string to_digits(double value, std::chars_format form, int precision) {
  std::string digits(static_cast<std::size_t>(precision) + 330, '\0');
  char* first = digits.data();
  const auto result = std::to_chars(first, first + digits.size(), value, form, precision);
  digits.resize(static_cast<std::size_t>(result.ptr - first));
  return digits;
}

// The flag `#` asks for a point even where no digit follows it.
std::string with_point(std::string digits) {
  if (digits.find('.') == std::string::npos) {
    digits.insert(std::min(digits.find('e'), digits.size()), 1, '.');
  }
  return digits;
}

// %#g keeps its trailing zeros: the form goes by the exponent that %e would print.
std::string general_with_zeros(double value, int precision) {
  precision = std::max(precision, 1);
  const std::string scientific = to_digits(value, std::chars_format::scientific, precision - 1);
  const int exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
  if (exponent < -4 || exponent >= precision) return with_point(scientific);
  return with_point(to_digits(value, std::chars_format::fixed, precision - 1 - exponent));
}

}  // namespace

std::string real_digits(double value, wchar_t conversion, int precision, bool alternative) {
  if (conversion == L'g' || conversion == L'G') {
    return alternative ? general_with_zeros(value, precision)
                       : to_digits(value, std::chars_format::general, precision);
  }
  const bool is_fixed = conversion == L'f' || conversion == L'F';
  const std::string digits = to_digits(
      value, is_fixed ? std::chars_format::fixed : std::chars_format::scientific, precision);
  return alternative ? with_point(digits) : digits;
}

}  // namespace brindle
