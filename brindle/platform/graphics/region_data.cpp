#include "brindle/platform/graphics/region_data.h"

#include <climits>
#include <cmath>
#include <cstdint>

#include "brindle/platform/graphics/region_builder_internal.h"

namespace brindle {
namespace {

// Where the pixels of row `row` of an ellipse of `width` by `height` begin, from its box's left
// edge; half the width, rounded up, when none is in.
int ellipse_inset(int width, int height, int row) {
  const std::int64_t w = width, h = height, y = 2 * std::int64_t{row} + 1 - h;
  const double room = static_cast<double>(h * h - y * y);
  if (room < 0) return static_cast<int>((w + 1) / 2);
  // Twice the distance of the farthest middle of a pixel from the axis has the parity of w - 1.
  auto reach =
      static_cast<std::int64_t>(std::sqrt(room) * static_cast<double>(w) / static_cast<double>(h));
  if (w < 32768 && h < 32768) {  // the products fit, so the root can be made exact
    const std::int64_t limit = w * w * (h * h - y * y);
    while (reach * reach * h * h > limit) --reach;
    while ((reach + 1) * (reach + 1) * h * h <= limit) ++reach;
  }
  if ((reach & 1) != ((w - 1) & 1)) --reach;
  return static_cast<int>((w - 1 - reach) / 2);
}

RegionData united(std::span<const CRect> rects) {
  if (rects.size() == 1) return RegionData(rects[0]);
  if (rects.empty()) return {};
  const size_t half = rects.size() / 2;
  return united(rects.first(half)) | united(rects.subspan(half));
}

bool spans_too_far(const CRect& box) {
  return std::int64_t{box.right} - box.left > INT_MAX ||
         std::int64_t{box.bottom} - box.top > INT_MAX;
}

}  // namespace

RegionData::RegionData(const CRect& box) {
  if (box.IsRectEmpty()) return;
  rects_.push_back(box);
  box_ = box;
}

RegionData RegionData::ellipse(const CRect& box) {
  return round_rectangle(box, CSize(INT_MAX, INT_MAX));
}

RegionData RegionData::round_rectangle(const CRect& box, CSize corner) {
  if (box.IsRectEmpty() || spans_too_far(box)) return {};
  const int width = std::min(corner.cx, box.Width()), height = std::min(corner.cy, box.Height());
  if (width <= 0 || height <= 0) return RegionData(box);
  RegionBuilder builder;
  // Rows of the upper curve, what is straight, rows of the lower curve.
  const int curve = (height + 1) / 2;
  const auto add = [&](int top, int bottom, int inset) {
    builder.begin_band(top, bottom);
    builder.span(box.left + inset, box.right - inset);
    builder.end_band();
  };
  const auto visible = [](int y) { return -kPolygonLimit <= y && y < kPolygonLimit; };
  const int first = std::clamp(box.top, -kPolygonLimit, kPolygonLimit);
  for (int y = first; y < box.top + curve && visible(y); ++y)
    add(y, y + 1, ellipse_inset(width, height, y - box.top));
  const int lower = std::max(box.top + curve, box.bottom - curve);
  if (box.top + curve < lower) add(box.top + curve, lower, 0);
  for (int y = std::max(lower, -kPolygonLimit); y < box.bottom && visible(y); ++y)
    add(y, y + 1, ellipse_inset(width, height, box.bottom - 1 - y));
  return builder.take();
}

RegionData RegionData::from_rects(std::span<const CRect> rects) {
  return united(rects);
}

std::span<const CRect> RegionData::from_row(int y) const {
  const auto first = std::partition_point(rects_.begin(), rects_.end(),
                                          [y](const CRect& r) { return r.bottom <= y; });
  return {first, rects_.end()};
}

std::span<const CRect> RegionData::row(int y) const {
  const std::span<const CRect> rest = from_row(y);
  if (rest.empty() || rest.front().top > y) return {};
  const auto last = std::partition_point(
      rest.begin(), rest.end(), [top = rest.front().top](const CRect& r) { return r.top == top; });
  return {rest.begin(), last};
}

bool RegionData::contains(CPoint point) const {
  if (!box_.PtInRect(point)) return false;
  const std::span<const CRect> spans = row(point.y);
  const auto span = std::partition_point(spans.begin(), spans.end(),
                                         [&](const CRect& r) { return r.right <= point.x; });
  return span != spans.end() && span->left <= point.x;
}

bool RegionData::intersects(const CRect& rect) const {
  if (rect.IsRectEmpty()) return false;
  for (const CRect& r : from_row(rect.top)) {
    if (r.top >= rect.bottom) return false;
    if (r.left < rect.right && r.right > rect.left) return true;
  }
  return false;
}

bool RegionData::contains(const CRect& rect) const {
  if (rect.IsRectEmpty()) return false;
  int y = rect.top;  // rows above are covered
  for (const CRect& r : from_row(rect.top)) {
    if (r.top > y) return false;
    if (r.left <= rect.left && r.right >= rect.right) y = r.bottom;
    if (y >= rect.bottom) return true;
  }
  return false;
}

void RegionData::offset(int dx, int dy) {
  const auto moved = [](int at, int by) {
    return static_cast<int>(std::clamp<std::int64_t>(std::int64_t{at} + by, INT_MIN, INT_MAX));
  };
  bool cut = false;
  for (CRect& r : rects_) {
    const CRect to(moved(r.left, dx), moved(r.top, dy), moved(r.right, dx), moved(r.bottom, dy));
    cut |= to.Width() != r.Width() || to.Height() != r.Height();
    r = to;
  }
  if (cut) {
    *this = from_rects(std::vector<CRect>(std::move(rects_)));
  } else if (!empty()) {
    box_.OffsetRect(dx, dy);
  }
}

}  // namespace brindle
