// The bodies that the two families of planar predicates share.
#pragma once

#include <cmath>

namespace brindle::planar {

// A family's constants, to its own number of figures.
template <class Real>
struct Angles;
template <>
struct Angles<float> {
  static constexpr float kTwoPi = 6.2831855f;
  static constexpr float kPi = 3.1415927f;
};
template <>
struct Angles<double> {
  static constexpr double kTwoPi = 6.28318530718;
  static constexpr double kPi = 3.14159265358979;
};

template <class Real>
void move_point(Real* x, Real* y, Real dx, Real dy) {
  *x -= dx;
  *y -= dy;
}

// Sine and cosine are taken in double and rounded to Real.
template <class Real>
void rotate_point(Real* x, Real* y, Real a) {
  const auto sine = static_cast<Real>(std::sin(static_cast<double>(a)));
  const auto cosine = static_cast<Real>(std::cos(static_cast<double>(a)));
  const Real turned_x = *y * sine + *x * cosine;
  const Real turned_y = *y * cosine - *x * sine;
  *x = turned_x;
  *y = turned_y;
}

// Whole turns are taken off by a quotient with `period`, then by steps. Where the quotient leaves
// many turns, a remainder shortens the way: for a large float a step would change nothing.
template <class Real>
Real reduce_angle(Real a, Real period) {
  constexpr Real kTwoPi = Angles<Real>::kTwoPi;
  constexpr Real kManyTurns = 1000 * kTwoPi;
  a -= std::trunc(a / period) * kTwoPi;
  if (std::fabs(a) > kManyTurns) a = std::fmod(a, kTwoPi);
  while (a >= kTwoPi) a -= kTwoPi;
  while (a < 0) a += kTwoPi;
  return a;
}

template <class Real, class Set2PI>
int angle_in_arc(Real a, Real a0, Real a1, Real tol, Set2PI set_2pi) {
  constexpr Real kTwoPi = Angles<Real>::kTwoPi;
  if (tol > std::fabs(a0 - a)) return 1;
  Real angle = set_2pi(a);
  if (a0 > angle) angle += kTwoPi;
  Real end = a1;
  if (a0 > end) end += kTwoPi;
  return angle >= a0 - tol && end + tol >= angle;
}

template <class Real>
void grow_rectangle(Real* xmin, Real* ymin, Real* xmax, Real* ymax, Real x, Real y) {
  if (x < *xmin) *xmin = x;
  if (y < *ymin) *ymin = y;
  if (x > *xmax) *xmax = x;
  if (y > *ymax) *ymax = y;
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

}  // namespace brindle::planar
