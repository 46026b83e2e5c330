// Pictures as device-independent bitmaps, the form that metafiles hold them in.
#pragma once

#include <string>

#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

inline constexpr int kDibHeaderBytes = 40;

// Header and rows, the last row first. 24 bits a pixel: blue, green, red, rows filled up to four
// bytes; 32: with alpha. Empty when it would take more than a gigabyte.
std::string packed_dib(const RasterBitmap& picture, int bits_per_pixel);

}  // namespace brindle
