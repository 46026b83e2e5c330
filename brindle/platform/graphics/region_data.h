// A set of pixels as rectangles: the value that regions and clips are made of. Exact algebra, whose
// cost is linear in the rectangles of both sides.
#pragma once

#include <span>
#include <vector>

#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

// The rectangles stand in bands: rectangles of one band have the same top and bottom, run from left
// to right and don't touch; bands run from the top down and don't overlap, and two that touch
// differ in their x ranges. So equal sets have equal rectangles.
class RegionData {
 public:
  // Empty.
  RegionData() = default;
  // The pixels of a rectangle; empty when the rectangle is.
  explicit RegionData(const CRect& box);

  // The pixels whose middle lies in the ellipse that fills `box`.
  static RegionData ellipse(const CRect& box);
  // `box` with corners rounded by quarters of an ellipse of the extent `corner`.
  static RegionData round_rectangle(const CRect& box, CSize corner);
  // The pixels whose top left point lies in the polygon of `rings` rings with `counts[i]` corners
  // each, closed by themselves. A point on a left or top edge is in, on a right or bottom edge out,
  // so neighbours that share an edge share no pixel. `mode` is ALTERNATE or WINDING. Nothing
  // outside of -kPolygonLimit to kPolygonLimit counts, so that wild corners cost no more than those
  // rows.
  static RegionData polygons(const CPoint* points, const int* counts, int rings, int mode);
  static RegionData polygon(const CPoint* points, int count, int mode) {
    return polygons(points, &count, 1, mode);
  }
  static constexpr int kPolygonLimit = 65536;
  // From rectangles in any order, overlapping or not.
  static RegionData from_rects(std::span<const CRect> rects);

  bool empty() const { return rects_.empty(); }
  bool is_rectangle() const { return rects_.size() == 1; }
  // The smallest rectangle around it, all zero when it is empty.
  const CRect& box() const { return box_; }
  std::span<const CRect> rects() const { return rects_; }
  const CRect* begin() const { return rects_.data(); }
  const CRect* end() const { return rects_.data() + rects_.size(); }
  // The rectangles that hold pixels of row `y`, from left to right; empty when none does.
  std::span<const CRect> row(int y) const;
  // The rectangles from the first band that reaches below row `y` on.
  std::span<const CRect> from_row(int y) const;

  bool contains(CPoint point) const;
  bool intersects(const CRect& rect) const;
  bool contains(const CRect& rect) const;

  // Moves it; what would leave the 32-bit range is cut off.
  void offset(int dx, int dy);
  RegionData& operator|=(const RegionData& other) { return *this = *this | other; }
  RegionData& operator&=(const RegionData& other) { return *this = *this & other; }
  RegionData& operator-=(const RegionData& other) { return *this = *this - other; }
  RegionData& operator^=(const RegionData& other) { return *this = *this ^ other; }
  friend RegionData operator|(const RegionData& a, const RegionData& b);
  friend RegionData operator&(const RegionData& a, const RegionData& b);
  friend RegionData operator-(const RegionData& a, const RegionData& b);
  friend RegionData operator^(const RegionData& a, const RegionData& b);
  bool operator==(const RegionData& other) const { return rects_ == other.rects_; }

 private:
  friend class RegionBuilder;

  std::vector<CRect> rects_;
  CRect box_;
};

}  // namespace brindle
