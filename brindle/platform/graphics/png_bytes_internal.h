// A picture as the bytes of a PNG file, for forms that hold pictures inside.
#pragma once

#include <string>

#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

// With alpha. Empty when there is no memory or no picture.
std::string png_bytes(const RasterBitmap& picture);

}  // namespace brindle
