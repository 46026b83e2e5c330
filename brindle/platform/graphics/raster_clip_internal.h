// Where a call may paint: the bitmap, cut by the state's clip region.
#pragma once

#include <algorithm>
#include <cstdint>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {

inline CRect common_part(const CRect& a, const CRect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

struct RasterClip {
  CRect box;                           // within the bitmap; may be empty
  const RegionData* region = nullptr;  // null when the box says it all

  RasterClip(const RasterBitmap& target, const RegionData* clip)
      : box(0, 0, target.width(), target.height()) {
    if (!clip) return;
    box = common_part(box, clip->box());
    if (!clip->is_rectangle()) region = clip;
  }
  RasterClip(const RasterClip& clip, const CRect& within)
      : box(common_part(clip.box, within)), region(clip.region) {}

  bool empty() const { return box.IsRectEmpty(); }

  // Calls paint(y, first, last) for the parts of a run of pixels (without the last).
  template <class Paint>
  void spans(int y, std::int64_t first, std::int64_t last, Paint&& paint) const {
    if (y < box.top || y >= box.bottom) return;
    first = std::max<std::int64_t>(first, box.left);
    last = std::min<std::int64_t>(last, box.right);
    if (first >= last) return;
    const int left = static_cast<int>(first), right = static_cast<int>(last);
    if (!region) {
      paint(y, left, right);
      return;
    }
    for (const CRect& r : region->row(y)) {
      const int a = std::max(left, r.left), b = std::min(right, r.right);
      if (a < b) paint(y, a, b);
    }
  }

  // Calls paint(rectangle) for the parts of `within`.
  template <class Paint>
  void boxes(const CRect& within, Paint&& paint) const {
    const CRect part = common_part(box, within);
    if (part.IsRectEmpty()) return;
    if (!region) {
      paint(part);
      return;
    }
    for (const CRect& r : region->from_row(part.top)) {
      if (r.top >= part.bottom) break;
      const CRect piece = common_part(part, r);
      if (!piece.IsRectEmpty()) paint(piece);
    }
  }

  bool contains(int x, int y) const {
    return box.left <= x && x < box.right && box.top <= y && y < box.bottom &&
           (!region || region->contains(CPoint(x, y)));
  }
};

}  // namespace brindle
