// Bitmaps that titles, check cells, lists and tips show, each known by a number.
#pragma once

#include <memory>

#include "brindle/platform/base/types.h"

namespace brindle {

class CDC;
class RasterBitmap;

// Makes a bitmap known under a number above 0; null takes it away.
void register_table_bitmap(UINT id, std::shared_ptr<RasterBitmap> picture);
// Null for a number that isn't known.
std::shared_ptr<RasterBitmap> find_table_bitmap(UINT id);
// With its upper left corner at (x, y); FALSE when the number isn't known.
BOOL draw_table_bitmap(CDC* dc, int x, int y, UINT id);

}  // namespace brindle
