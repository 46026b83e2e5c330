// The constants of the two families of planar predicates and the elementary bodies that they share.
// Real is float or double; all arithmetic is done in it, sines, cosines and arc tangents are
// rounded to it.
#pragma once

#include <cmath>

#include "brindle/geometry/predicates_figures_internal.h"

namespace brindle::planar {

// A family's constants, to its own number of figures.
template <class Real>
struct Constants;
template <>
struct Constants<float> {
  static constexpr float kTwoPi = 6.2831855f;
  static constexpr float kPi = 3.1415927f;
  static constexpr float kHalfPi = 1.5707964f;
  static constexpr float kThreeHalvesPi = 4.712389f;
  static constexpr float kFixedTolerance = 1e-5f;
  static constexpr float kReductionPeriod = kTwoPi;
};
template <>
struct Constants<double> {
  static constexpr double kTwoPi = 6.28318530718;
  static constexpr double kPi = 3.14159265358979;
  static constexpr double kHalfPi = 1.5707963267949;
  static constexpr double kThreeHalvesPi = 4.71238898038469;
  static constexpr double kFixedTolerance = 1e-5;
  // Whole turns are counted in half turns here: the first step of the reduction overshoots, and the
  // steps of a turn bring the angle back.
  static constexpr double kReductionPeriod = kPi;
};

template <class Real>
Real sine(Real a) {
  return static_cast<Real>(std::sin(static_cast<double>(a)));
}

template <class Real>
Real cosine(Real a) {
  return static_cast<Real>(std::cos(static_cast<double>(a)));
}

template <class Real>
Real distance(Point<Real> p, Point<Real> q) {
  return std::sqrt((p.x - q.x) * (p.x - q.x) + (p.y - q.y) * (p.y - q.y));
}

template <class Real>
void move_point(Real* x, Real* y, Real dx, Real dy) {
  *x -= dx;
  *y -= dy;
}

template <class Real>
void rotate_point(Real* x, Real* y, Real a) {
  const Real s = sine(a);
  const Real c = cosine(a);
  const Real turned_x = *y * s + *x * c;
  const Real turned_y = *y * c - *x * s;
  *x = turned_x;
  *y = turned_y;
}

template <class Real>
Real direction(Point<Real> from, Point<Real> to) {
  using K = Constants<Real>;
  const Real dx = to.x - from.x;
  const Real dy = to.y - from.y;
  if (dx == 0) return dy < 0 ? K::kThreeHalvesPi : K::kHalfPi;
  const auto t = static_cast<Real>(std::atan(static_cast<double>(dy / dx)));
  if (dx < 0) return t + K::kPi;
  return dy < 0 ? t + K::kTwoPi : t;
}

// Whole turns are taken off by a quotient, then by steps. Where the quotient leaves many turns, or
// its product has no value, the remainder is taken instead: for a large angle a step would change
// nothing.
template <class Real>
Real reduce_angle(Real a) {
  constexpr Real kTwoPi = Constants<Real>::kTwoPi;
  constexpr Real kManyTurns = 1000 * kTwoPi;
  Real rest = a - std::trunc(a / Constants<Real>::kReductionPeriod) * kTwoPi;
  if (!(std::fabs(rest) <= kManyTurns)) rest = std::fmod(a, kTwoPi);
  while (rest >= kTwoPi) rest -= kTwoPi;
  while (rest < 0) rest += kTwoPi;
  return rest;
}

template <class Real>
int angle_in_arc(Real a, Real a0, Real a1, Real tol) {
  constexpr Real kTwoPi = Constants<Real>::kTwoPi;
  if (tol > std::fabs(a0 - a)) return 1;
  Real angle = reduce_angle(a);
  if (a0 > angle) angle += kTwoPi;
  Real end = a1;
  if (a0 > end) end += kTwoPi;
  return angle >= a0 - tol && end + tol >= angle;
}

// Whether the arc has the point's direction; how far the point is doesn't matter.
template <class Real>
int arc_faces(const Arc<Real>& arc, Point<Real> p, Real tol) {
  return angle_in_arc(direction(arc.center(), p), arc.a0, arc.a1, tol / arc.r);
}

// The point of the circle in the direction `a`.
template <class Real>
Point<Real> on_circle(Point<Real> center, Real r, Real a) {
  return {center.x + r * cosine(a), center.y + r * sine(a)};
}

template <class Real>
Point<Real> arc_start(const Arc<Real>& arc) {
  return on_circle(arc.center(), arc.r, arc.a0);
}

template <class Real>
Point<Real> arc_end(const Arc<Real>& arc) {
  return on_circle(arc.center(), arc.r, arc.a1);
}

// A frame with its own origin and direction of the x axis.
template <class Real>
struct Frame {
  Point<Real> origin;
  Real angle;

  Point<Real> enter(Point<Real> p) const {
    move_point(&p.x, &p.y, origin.x, origin.y);
    rotate_point(&p.x, &p.y, angle);
    return p;
  }
  Point<Real> leave(Point<Real> p) const {
    rotate_point(&p.x, &p.y, -angle);
    move_point(&p.x, &p.y, -origin.x, -origin.y);
    return p;
  }
};

// The frame that starts where the section starts and has its x axis along it.
template <class Real>
Frame<Real> frame_of(const Section<Real>& s) {
  return {s.start(), direction(s.start(), s.end())};
}

template <class Real>
Real twice_area(Point<Real> a, Point<Real> b, Point<Real> c) {
  return a.x * b.y + b.x * c.y + c.x * a.y - a.y * b.x - b.y * c.x - c.y * a.x;
}

template <class Real>
Line<Real> line_through(const Section<Real>& s) {
  const Real dx = s.x2 - s.x1;
  const Real dy = s.y2 - s.y1;
  if (std::fabs(dy) > std::fabs(dx)) {
    const Real a = dx / dy;
    return {a, 1, a * s.y1 - s.x1};
  }
  const Real b = dy / dx;
  return {1, b, s.y1 - b * s.x1};
}

template <class Real>
Real arc_length(Point<Real> center, Point<Real> from, Point<Real> to) {
  Real angle = direction(center, to) - direction(center, from);
  if (angle < 0) angle += Constants<Real>::kTwoPi;
  return distance(center, from) * angle;
}

template <class Real>
void grow_rectangle(Real* xmin, Real* ymin, Real* xmax, Real* ymax, Real x, Real y) {
  if (x < *xmin) *xmin = x;
  if (y < *ymin) *ymin = y;
  if (x > *xmax) *xmax = x;
  if (y > *ymax) *ymax = y;
}

}  // namespace brindle::planar
