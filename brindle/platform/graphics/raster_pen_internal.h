// What draws an outline: a pen of one pixel, with or without dashes, or a wide one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/raster_arithmetic_internal.h"
#include "brindle/platform/graphics/raster_clip_internal.h"

namespace brindle {

struct RealPoint {
  double x, y;
  bool operator==(const RealPoint&) const = default;
};

class RasterPen {
 public:
  RasterPen(RasterBitmap& target, const PaintState& state, const RasterClip& clip);

  bool paints() const { return paints_; }
  // One pixel without gaps: what curves may draw pixel by pixel.
  bool thin_solid() const { return width_ < 2 && dashes_ == 0; }
  int width() const { return width_; }
  void pixel(int x, int y) {
    if (clip_.contains(x, y)) target_.row(y)[x] = op_(target_.row(y)[x]);
  }
  void span(int y, std::int64_t first, std::int64_t last);
  // Lines from corner to corner, without the pixel of the last corner when open.
  void chain(const CPoint* points, std::size_t count, bool closed);
  // The same through points with fractions, as curves are for wide or dashed pens.
  void curve(const std::vector<RealPoint>& points, bool closed);

 private:
  void thin_line(CPoint from, CPoint to);
  void dashed_line(CPoint from, CPoint to);
  void wide_curve(const std::vector<RealPoint>& points, bool closed);

  RasterBitmap& target_;
  const RasterClip& clip_;
  PixelOp op_, gap_op_;
  bool paints_, gaps_painted_;
  int style_, width_;
  std::uint32_t dashes_ = 0;  // bit i: pixel i of the period is drawn; 0: no dashes
  int period_ = 1;
  std::int64_t phase_ = 0;
};

}  // namespace brindle
