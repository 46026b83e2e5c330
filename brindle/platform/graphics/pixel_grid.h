// How the whole units that a program draws in lie on the finer pixels of a screen.
#pragma once

#include <cmath>

#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

// Unit x begins at device pixel x * scale + shift, rounded: neighbours share an edge, whatever the
// scale. A window's shift makes its pixels those of the picture that it is a part of.
struct PixelGrid {
  double scale = 1;
  double shift_x = 0, shift_y = 0;  // pixels, at least -0.5 and below 0.5
  int width = 0, height = 0;        // extent in units

  // One pixel a unit.
  bool is_plain() const { return scale == 1; }
  int x(int unit) const { return place(unit, shift_x); }
  int y(int unit) const { return place(unit, shift_y); }
  CPoint at(CPoint point) const { return {x(point.x), y(point.y)}; }
  CRect box(const CRect& box) const {
    return {x(box.left), y(box.top), x(box.right), y(box.bottom)};
  }
  // The grid of a part that begins at `corner`.
  PixelGrid part(CPoint corner, CSize extent) const {
    const double left = corner.x * scale + shift_x, top = corner.y * scale + shift_y;
    return {scale, left - std::floor(left + 0.5), top - std::floor(top + 0.5), extent.cx,
            extent.cy};
  }
  bool operator==(const PixelGrid&) const = default;

 private:
  int place(int unit, double shift) const {
    if (scale == 1) return unit;
    // Edges that stand for "no end" stay within the numbers.
    const double pixel = std::floor(unit * scale + shift + 0.5);
    return static_cast<int>(std::fmin(std::fmax(pixel, -2147483648.0), 2147483647.0));
  }
};

}  // namespace brindle
