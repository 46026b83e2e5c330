// RasterBitmap: a picture in memory, 32 bits a pixel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/pixel_grid.h"

namespace brindle {

// A pixel is 0xAARRGGBB in the machine's byte order; 0xFF in the top byte is opaque.
constexpr std::uint32_t argb_of(COLORREF color) {
  return 0xff000000u | (color & 0xff) << 16 | (color & 0xff00) | (color >> 16 & 0xff);
}
constexpr COLORREF color_of(std::uint32_t argb) {
  return (argb & 0xff) << 16 | (argb & 0xff00) | (argb >> 16 & 0xff);
}

// Rows run from the top down without a gap between them, so that other code can wrap data() as an
// image of `width * 4` bytes a line. A copy is deep.
class RasterBitmap {
 public:
  static constexpr int kMaxSide = 32767;
  static constexpr std::size_t kMaxBytes = std::size_t{1} << 30;

  RasterBitmap() = default;
  // As create(); empty when that fails.
  RasterBitmap(int width, int height, std::uint32_t argb = 0xffffffff) {
    create(width, height, argb);
  }

  // Becomes a picture of that size in one colour. False, and empty then, for a side below 1 or
  // above kMaxSide, for more than kMaxBytes, and when there is no memory.
  bool create(int width, int height, std::uint32_t argb = 0xffffffff);

  // The same for a picture whose extent is told in units of a grid. The grid stays with the pixels,
  // so that whoever paints on them does it in units.
  bool create(const PixelGrid& grid, std::uint32_t argb = 0xffffffff);
  const PixelGrid& grid() const { return grid_; }

  int width() const { return width_; }
  int height() const { return height_; }
  bool empty() const { return pixels_.empty(); }
  // Pixels from one row to the next, the width.
  std::ptrdiff_t stride() const { return width_; }

  std::uint32_t* data() { return pixels_.data(); }
  const std::uint32_t* data() const { return pixels_.data(); }
  // The row must be one of 0 to height - 1.
  std::uint32_t* row(int y) { return data() + y * stride(); }
  const std::uint32_t* row(int y) const { return data() + y * stride(); }

  bool contains(int x, int y) const { return 0 <= x && x < width_ && 0 <= y && y < height_; }
  // The pixel, 0 outside of the picture.
  std::uint32_t at(int x, int y) const { return contains(x, y) ? row(y)[x] : 0; }
  // Does nothing outside of the picture.
  void set(int x, int y, std::uint32_t argb) {
    if (contains(x, y)) row(y)[x] = argb;
  }
  void fill(std::uint32_t argb);

  bool operator==(const RasterBitmap&) const = default;

 private:
  int width_ = 0, height_ = 0;
  PixelGrid grid_;
  std::vector<std::uint32_t> pixels_;
};

}  // namespace brindle
