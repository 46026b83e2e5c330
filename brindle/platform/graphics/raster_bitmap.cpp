#include "brindle/platform/graphics/raster_bitmap.h"

#include <algorithm>
#include <new>

namespace brindle {

bool RasterBitmap::create(int width, int height, std::uint32_t argb) {
  width_ = height_ = 0;
  pixels_.clear();
  if (width < 1 || height < 1 || width > kMaxSide || height > kMaxSide) return false;
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  if (count > kMaxBytes / sizeof(std::uint32_t)) return false;
  try {
    pixels_.assign(count, argb);
  } catch (const std::bad_alloc&) {
    return false;
  }
  width_ = width, height_ = height;
  grid_ = {1, 0, 0, width, height};
  return true;
}

bool RasterBitmap::create(const PixelGrid& grid, std::uint32_t argb) {
  if (!create(grid.x(grid.width), grid.y(grid.height), argb)) return false;
  grid_ = grid;
  return true;
}

void RasterBitmap::fill(std::uint32_t argb) {
  std::fill(pixels_.begin(), pixels_.end(), argb);
}

}  // namespace brindle
