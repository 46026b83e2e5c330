// What the sources of shapes and regions share.
#pragma once

#include <cmath>

#include "brindle/geometry/point.h"

namespace brindle::shapes {

// Distance and direction seen from above, in double.
inline double planar_distance(const CFPoint& p, const CFPoint& q) {
  const double dx = double{q.x} - p.x, dy = double{q.y} - p.y;
  return std::sqrt(dx * dx + dy * dy);
}

inline double planar_direction(const CFPoint& from, const CFPoint& to) {
  return std::atan2(double{to.y} - from.y, double{to.x} - from.x);
}

// The four questions of a window dragged leftwards from p1 to p2: does the piece cross a side?
template <class Shape>
bool crosses_window(const Shape& shape, const CFPoint& p1, const CFPoint& p2) {
  constexpr float kUp = 1.5707964f;
  return shape.OverLine(p1, 0, p2.x - p1.x) || shape.OverLine(p1, kUp, p2.y - p1.y) ||
         shape.OverLine(p2, 0, p1.x - p2.x) || shape.OverLine(p2, kUp, p1.y - p2.y);
}

}  // namespace brindle::shapes
