// The figures of the planar predicates. Real is float or double.
#pragma once

namespace brindle::planar {

template <class Real>
struct Point {
  Real x, y;
};

// Two points: an infinite line through them or the section between them.
template <class Real>
struct Section {
  Real x1, y1, x2, y2;
  Point<Real> start() const { return {x1, y1}; }
  Point<Real> end() const { return {x2, y2}; }
};

// From the start through another point.
template <class Real>
struct Ray {
  Real x0, y0, x1, y1;
  Section<Real> line() const { return {x0, y0, x1, y1}; }
};

// a * y - b * x = c
template <class Real>
struct Line {
  Real a, b, c;
};

template <class Real>
struct Circle {
  Real cx, cy, r;
  Point<Real> center() const { return {cx, cy}; }
};

template <class Real>
struct Arc {
  Real cx, cy, r, a0, a1;
  Point<Real> center() const { return {cx, cy}; }
  Circle<Real> circle() const { return {cx, cy, r}; }
};

// A convex polygon, counter-clockwise.
template <class Real>
struct Polygon {
  int n;
  const Real *xs, *ys;
  Point<Real> vertex(int i) const { return {xs[i], ys[i]}; }
  Section<Real> edge(int i) const {
    const int next = i + 1 < n ? i + 1 : 0;
    return {xs[i], ys[i], xs[next], ys[next]};
  }
};

// Where the caller wants a point written.
template <class Real>
struct Output {
  Real *x, *y;
  void write(Point<Real> p) const {
    *x = p.x;
    *y = p.y;
  }
  Point<Real> read() const { return {*x, *y}; }
};

// Keeps an argument from taking part in the deduction of Real.
template <class Real>
struct NotDeduced {
  using Type = Real;
};
template <class Real>
using OutputOf = Output<typename NotDeduced<Real>::Type>;

}  // namespace brindle::planar
