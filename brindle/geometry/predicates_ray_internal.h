// The bodies of the intersections with rays.
#pragma once

#include "brindle/geometry/predicates_intersection_internal.h"

namespace brindle::planar {

template <class Real>
bool is_ahead(const Ray<Real>& ray, Point<Real> p) {
  return (ray.x1 - ray.x0) * (p.x - ray.x0) + (ray.y1 - ray.y0) * (p.y - ray.y0) > 0;
}

template <class Real>
int intersect_ray_line(const Ray<Real>& ray, const Section<Real>& line, OutputOf<Real> out,
                       Real tol) {
  return intersect_lines(ray.line(), line, out, tol) && is_ahead(ray, out.read());
}

template <class Real>
int intersect_ray_section(const Ray<Real>& ray, const Section<Real>& s, OutputOf<Real> out,
                          Real tol) {
  return intersect_ray_line(ray, s, out, tol) && on_section(out.read(), s, tol);
}

template <class Real>
int intersect_rays(const Ray<Real>& p, const Ray<Real>& q, OutputOf<Real> out, Real tol) {
  return intersect_ray_line(p, q.line(), out, tol) && is_ahead(q, out.read());
}

// Of the `count` points at the front of xs, ys those that `keeps` accepts, in order, packed.
template <class Real, class Keeps>
int pack_points(int count, Real* xs, Real* ys, Keeps keeps) {
  int kept = 0;
  for (int i = 0; i < count; ++i) {
    const Point<Real> p{xs[i], ys[i]};
    if (keeps(p)) Output<Real>{xs + kept, ys + kept}.write(p), ++kept;
  }
  return kept;
}

template <class Real>
int intersect_ray_circle(const Circle<Real>& circle, const Ray<Real>& ray, Real* xs, Real* ys) {
  const int count =
      intersect_line_circle(circle, ray.line(), xs, ys, Constants<Real>::kFixedTolerance);
  return pack_points(count, xs, ys, [&](Point<Real> p) { return is_ahead(ray, p); });
}

// The rays' own rule for arcs: a1 lies beyond 2 pi when the arc passes through zero.
template <class Real>
bool in_ray_arc(Real u, Real a0, Real a1, Real tol) {
  constexpr Real kTwoPi = Constants<Real>::kTwoPi;
  if (a1 < kTwoPi) return a0 - tol < u && u < a1 + tol;
  return (a0 - tol < u && u < kTwoPi + tol) || (-tol < u && u < a1 - kTwoPi + tol);
}

template <class Real>
int intersect_ray_arc(const Arc<Real>& arc, const Ray<Real>& ray, Real* xs, Real* ys, Real tol) {
  const int count = intersect_ray_circle(arc.circle(), ray, xs, ys);
  return pack_points(count, xs, ys, [&](Point<Real> p) {
    const auto u = static_cast<Real>(get_line_angle(arc.cx, arc.cy, p.x, p.y));
    return in_ray_arc(u, arc.a0, arc.a1, tol);
  });
}

}  // namespace brindle::planar
