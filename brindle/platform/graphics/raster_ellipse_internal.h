// The pixels of an ellipse that fills a box, row by row and column by column, so that only what is
// visible costs time.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

#include "brindle/platform/graphics/raster_pen_internal.h"

namespace brindle {

// Centre and half axes of the curve through the middles of the outermost pixels of a box. The
// centre is a whole or a half pixel.
struct RasterEllipse {
  double cx, cy, a, b;

  // The box must not be empty.
  explicit RasterEllipse(const CRect& box)
      : cx((double{1} * box.left + box.right - 1) / 2),
        cy((double{1} * box.top + box.bottom - 1) / 2),
        a((double{1} * box.right - box.left - 1) / 2),
        b((double{1} * box.bottom - box.top - 1) / 2) {}

  // Half the extent of the curve in the row (column) that lies `d` off the centre.
  static double half_extent(double across, double along, double d) {
    if (along <= 0) return across;
    const double t = d / along;
    return t * t >= 1 ? 0 : across * std::sqrt(1 - t * t);
  }
  double half_width(double dy) const { return half_extent(a, b, dy); }
  double half_height(double dx) const { return half_extent(b, a, dx); }

  // Calls pixel(x, y) once for each pixel of the curve within `visible`: one a row where it is
  // steep, one a column where it is flat. The quarters' own shifts make a rounded box of it.
  template <class Pixel>
  void outline(const CRect& visible, double shift_x, double shift_y, Pixel&& pixel) const {
    const double length = std::hypot(a, b);
    double steep = length > 0 ? b * b / length : 0, flat = length > 0 ? a * a / length : 0;
    // A curve so flat that no row crosses its steep part, and the reverse.
    const bool no_row = steep < 0.5 && cy != std::floor(cy);
    const bool no_column = flat < 0.5 && cx != std::floor(cx);
    if (no_row) flat = a;
    if (no_column) steep = b;
    for (int side_y = -1; side_y <= 1; side_y += 2) {
      const double move_y = side_y > 0 ? shift_y : 0;
      each(visible.top - move_y, visible.bottom - move_y, cy, steep, side_y, [&](double y) {
        const double x = row_end(y);
        for (int side_x = -1; side_x <= 1; side_x += 2) {
          if (side_x < 0 && x == cx && shift_x == 0) continue;
          put(visible, side_x > 0 ? x + shift_x : 2 * cx - x, y + move_y, pixel);
        }
      });
    }
    for (int side_x = -1; side_x <= 1; side_x += 2) {
      const double move_x = side_x > 0 ? shift_x : 0;
      each(visible.left - move_x, visible.right - move_x, cx, flat, side_x, [&](double x) {
        const double y = std::floor(cy + half_height(x - cx) + 0.5);
        // The row has drawn this very pixel.
        if (y - cy <= steep && std::abs(x - cx) == row_end(y) - cx) return;
        for (int side_y = -1; side_y <= 1; side_y += 2) {
          if (side_y < 0 && y == cy && shift_y == 0) continue;
          put(visible, x + move_x, side_y > 0 ? y + shift_y : 2 * cy - y, pixel);
        }
      });
    }
  }

 private:
  // The right pixel of a row.
  double row_end(double y) const { return std::floor(cx + half_width(y - cy) + 0.5); }

  // The whole numbers v from low to high - 1 with |v - centre| <= reach on one side of the centre;
  // the centre itself belongs to the side of 1.
  template <class Visit>
  static void each(double low, double high, double centre, double reach, int side, Visit&& visit) {
    double first = side > 0 ? std::ceil(centre) : std::ceil(centre - reach);
    double last = side > 0 ? std::floor(centre + reach) : std::ceil(centre) - 1;
    first = std::max(first, low), last = std::min(last, high - 1);
    for (double v = first; v <= last; ++v) visit(v);
  }
  template <class Pixel>
  static void put(const CRect& visible, double x, double y, Pixel&& pixel) {
    if (x >= visible.left && x < visible.right && y >= visible.top && y < visible.bottom)
      pixel(static_cast<int>(x), static_cast<int>(y));
  }
};

// Chords of an ellipse from one parameter angle to another (y down, so a growing angle turns
// clockwise as seen), both ends included, less than about a twentieth of a pixel off the curve.
inline void append_arc(std::vector<RealPoint>& points, double cx, double cy, double a, double b,
                       double from, double to) {
  const double radius = std::max({a, b, 1.0});
  const double step = 2 * std::acos(1 - std::min(0.05 / radius, 0.5));
  const int count = std::clamp(static_cast<int>(std::ceil(std::abs(to - from) / step)), 2, 20000);
  for (int i = 0; i <= count; ++i) {
    const double t = from + (to - from) * i / count;
    points.push_back({cx + a * std::cos(t), cy + b * std::sin(t)});
  }
}

}  // namespace brindle
