// Exact quotients and raster operations of the rasteriser.
#pragma once

#include <cstdint>

#include "brindle/platform/graphics/gdi_types.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

struct Quotient {
  std::int64_t whole, rest;  // 0 <= rest < divisor
};

// a * b / c for a, b up to 2^61 and c from 1 to 2^61 when the quotient fits, without an
// intermediate product that overflows.
inline Quotient multiply_divide(std::uint64_t a, std::uint64_t b, std::uint64_t c) {
  if ((a | b) < (std::uint64_t{1} << 31)) {
    const std::uint64_t product = a * b;
    return {static_cast<std::int64_t>(product / c), static_cast<std::int64_t>(product % c)};
  }
  const std::uint64_t b_whole = b / c, b_rest = b % c;
  std::uint64_t whole = 0, rest = 0;
  for (std::uint64_t bit = std::uint64_t{1} << 61; bit; bit >>= 1) {
    whole *= 2, rest *= 2;
    if (rest >= c) ++whole, rest -= c;
    if (!(a & bit)) continue;
    whole += b_whole, rest += b_rest;
    if (rest >= c) ++whole, rest -= c;
  }
  return {static_cast<std::int64_t>(whole), static_cast<std::int64_t>(rest)};
}

// The floor of a * b / c for a >= 0, any b, c > 0, and what remains.
inline Quotient signed_multiply_divide(std::int64_t a, std::int64_t b, std::int64_t c) {
  if (b >= 0)
    return multiply_divide(static_cast<std::uint64_t>(a), static_cast<std::uint64_t>(b),
                           static_cast<std::uint64_t>(c));
  Quotient q = multiply_divide(static_cast<std::uint64_t>(a), static_cast<std::uint64_t>(-b),
                               static_cast<std::uint64_t>(c));
  return q.rest ? Quotient{-q.whole - 1, c - q.rest} : Quotient{-q.whole, 0};
}

// What a pen or brush of one colour does to a pixel: (pixel & keep) ^ flip. Each of the 16 binary
// raster operations has this form once the colour is known.
struct PixelOp {
  std::uint32_t keep, flip;
  bool copies() const { return keep == 0; }
  std::uint32_t operator()(std::uint32_t pixel) const { return (pixel & keep) ^ flip; }
};

inline PixelOp pixel_op(int rop2, COLORREF color) {
  const unsigned table = static_cast<unsigned>(rop2 - 1);  // bit 2 * pen + pixel
  const auto mask = [table](int bit) { return table >> bit & 1 ? 0xffffffffu : 0u; };
  const std::uint32_t pen = argb_of(color);
  const std::uint32_t of_zero = (pen & mask(2)) | (~pen & mask(0));
  const std::uint32_t of_one = (pen & mask(3)) | (~pen & mask(1));
  return {(of_zero ^ of_one) & 0x00ffffff, (of_zero & 0x00ffffff) | 0xff000000};
}

inline void paint_run(std::uint32_t* first, std::uint32_t* last, PixelOp op) {
  if (op.copies()) {
    for (; first < last; ++first) *first = op.flip;
  } else {
    for (; first < last; ++first) *first = op(*first);
  }
}

}  // namespace brindle
