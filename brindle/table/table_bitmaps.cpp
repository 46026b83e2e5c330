#include "brindle/table/table_bitmaps.h"

#include <map>

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

namespace {

std::map<UINT, std::shared_ptr<RasterBitmap>>& known_bitmaps() {
  static std::map<UINT, std::shared_ptr<RasterBitmap>> bitmaps;
  return bitmaps;
}

}  // namespace

void register_table_bitmap(UINT id, std::shared_ptr<RasterBitmap> picture) {
  if (picture == nullptr) {
    known_bitmaps().erase(id);
  } else {
    known_bitmaps()[id] = std::move(picture);
  }
}

std::shared_ptr<RasterBitmap> find_table_bitmap(UINT id) {
  const auto found = known_bitmaps().find(id);
  return found == known_bitmaps().end() ? nullptr : found->second;
}

BOOL draw_table_bitmap(CDC* dc, int x, int y, UINT id) {
  const std::shared_ptr<RasterBitmap> picture = find_table_bitmap(id);
  if (picture == nullptr) return FALSE;
  CBitmap bitmap;
  bitmap.Attach(picture);
  CDC memory;
  memory.CreateCompatibleDC(dc);
  CBitmap* const old = memory.SelectObject(&bitmap);
  const BOOL done = dc->BitBlt(x, y, picture->width(), picture->height(), &memory, 0, 0, SRCCOPY);
  memory.SelectObject(old);
  return done;
}

}  // namespace brindle
