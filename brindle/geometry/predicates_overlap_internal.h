// The bodies of the interval and rectangle predicates.
#pragma once

#include <limits>

#include "brindle/geometry/predicates_elementary_internal.h"

namespace brindle::planar {

template <class Real>
struct Rectangle {
  Real xmin, ymin, xmax, ymax;

  // Holds nothing and meets nothing.
  static Rectangle empty() {
    constexpr Real kInfinity = std::numeric_limits<Real>::infinity();
    return {kInfinity, kInfinity, -kInfinity, -kInfinity};
  }
  void grow(Point<Real> p) { grow_rectangle(&xmin, &ymin, &xmax, &ymax, p.x, p.y); }
};

template <class Real>
Rectangle<Real> bounds(const Section<Real>& s) {
  Rectangle<Real> box{s.x1, s.y1, s.x1, s.y1};
  box.grow(s.end());
  return box;
}

template <class Real>
Rectangle<Real> bounds(const Polygon<Real>& polygon) {
  auto box = Rectangle<Real>::empty();
  for (int i = 0; i < polygon.n; ++i) box.grow(polygon.vertex(i));
  return box;
}

template <class Real>
int intervals_meet(Real a, Real b, Real c, Real d, Real tol) {
  const auto in = [tol](Real v, Real low, Real high) { return v >= low - tol && v <= high + tol; };
  return in(c, a, b) || in(d, a, b) || in(a, c, d) || in(b, c, d);
}

template <class Real>
int intervals_meet_strictly(Real a, Real b, Real c, Real d, Real tol) {
  const auto in = [tol](Real v, Real low, Real high) { return v > low - tol && v < high + tol; };
  return in(c, a, b) || in(d, a, b) || in(a, c, d) || in(b, c, d);
}

template <class Real>
int intervals_overlap(Real a, Real b, Real c, Real d, Real tol) {
  return (a - tol <= c && c < b - tol) || (a + tol < d && d <= b + tol) ||
         (c - tol <= a && a < d - tol) || (c + tol < b && b <= d + tol);
}

// Rectangles are compared closed in float and strictly in double: that is how the twins differ.
inline int sides_meet(float a, float b, float c, float d, float tol) {
  return intervals_meet(a, b, c, d, tol);
}
inline int sides_meet(double a, double b, double c, double d, double tol) {
  return intervals_meet_strictly(a, b, c, d, tol);
}

template <class Real>
int rectangles_meet(const Rectangle<Real>& p, const Rectangle<Real>& q, Real tol) {
  return sides_meet(p.xmin, p.xmax, q.xmin, q.xmax, tol) &&
         sides_meet(p.ymin, p.ymax, q.ymin, q.ymax, tol);
}

}  // namespace brindle::planar
