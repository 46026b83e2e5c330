// format_fixed: the numbers of drawing files, several times faster than the general way.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "brindle/platform/base/convert.h"

namespace brindle {

namespace {

constexpr int kPieceDigits = 9;
constexpr std::uint64_t kPowersOfTen[kPieceDigits + 1] = {
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};

// Takes the first `count` decimal digits off `fraction` / 2^64.
std::uint64_t take_decimals(std::uint64_t& fraction, int count) {
  const std::uint64_t low = (fraction & 0xFFFFFFFF) * kPowersOfTen[count];
  const std::uint64_t high = (fraction >> 32) * kPowersOfTen[count] + (low >> 32);
  fraction = high << 32 | (low & 0xFFFFFFFF);
  return high >> 32;
}

// The two digits of each number below 100.
constexpr auto kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

// Writes the last `count` digits.
char* write_digits(char* first, std::uint64_t number, int count) {
  auto digits = static_cast<std::uint32_t>(number);
  int i = count;
  for (; i >= 2; i -= 2, digits /= 100) {
    std::copy_n(kDigitPairs.data() + 2 * (digits % 100), 2, first + i - 2);
  }
  if (i == 1) *first = static_cast<char>('0' + digits % 10);
  return first + count;
}

// Writes `whole` + `fraction` / 2^64, which is the number itself and not a rounded one, so that the
// last digit comes out as it should: the nearest, and halfway between two the even one.
char* write_exact(char* first, char* last, std::uint64_t whole, std::uint64_t fraction,
                  int decimals) {
  constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
  if (fraction == 0) {
    first = std::to_chars(first, last, whole).ptr;
    if (decimals == 0) return first;
    *first++ = '.';
    return std::fill_n(first, decimals, '0');
  }
  const int head_count = std::min(decimals, kPieceDigits);
  const int tail_count = decimals - head_count;
  std::uint64_t head = take_decimals(fraction, head_count);
  std::uint64_t tail = take_decimals(fraction, tail_count);
  const std::uint64_t last_piece = tail_count > 0 ? tail : head_count > 0 ? head : whole;
  if (fraction > kHalf || (fraction == kHalf && last_piece % 2 == 1)) {
    // One up in the last place, carried on where a piece overflows.
    if (++tail == kPowersOfTen[tail_count]) {
      tail = 0;
      if (++head == kPowersOfTen[head_count]) {
        head = 0;
        ++whole;
      }
    }
  }
  first = std::to_chars(first, last, whole).ptr;
  if (decimals == 0) return first;
  *first++ = '.';
  return write_digits(write_digits(first, head, head_count), tail, tail_count);
}

}  // namespace

char* format_fixed(char* first, double value, int decimals) {
  constexpr double kWholeLimit = 9007199254740992.0;  // 2^53: from there on all doubles are whole
  constexpr double kTwo63 = 9223372036854775808.0;
  decimals = std::clamp(decimals, 0, 80);
  if (std::signbit(value)) {
    *first++ = '-';
    value = -value;
  }
  char* const last = first + kFixedBufferSize - 1;
  if (value < kWholeLimit && decimals <= 2 * kPieceDigits) {
    // Through signed integers, which the processor converts in one step. All steps are exact.
    const auto whole = static_cast<std::int64_t>(value);
    const double scaled = (value - static_cast<double>(whole)) * kTwo63;
    const auto fraction = static_cast<std::int64_t>(scaled);
    // Numbers with bits below 2^-63 aren't for the short way.
    if (static_cast<double>(fraction) == scaled) {
      return write_exact(first, last, static_cast<std::uint64_t>(whole),
                         static_cast<std::uint64_t>(fraction) * 2, decimals);
    }
  }
  if (!std::isfinite(value)) {
    return std::copy_n(std::isnan(value) ? "nan" : "inf", 3, first);
  }
  return std::to_chars(first, last, value, std::chars_format::fixed, decimals).ptr;
}

}  // namespace brindle
