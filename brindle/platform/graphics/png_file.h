// Pictures in PNG files.
#pragma once

#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

// Writes the whole file or nothing: on false (an empty picture, a full disk, no such folder) a file
// that stood there is as before. Alpha is stored when a pixel isn't opaque. `dpi` goes into the
// file; 0 or less leaves it out.
bool write_png(const wchar_t* path, const RasterBitmap& picture, double dpi = 96);

// Any kind of PNG, as 32 bits a pixel, alpha not multiplied in. False, and the picture empty, when
// the file is missing or damaged or the picture beyond a bitmap's limits.
bool read_png(const wchar_t* path, RasterBitmap& picture);

}  // namespace brindle
