// The bodies of the membership predicates, and the partial annulus.
#pragma once

#include "brindle/geometry/predicates_elementary_internal.h"
#include "brindle/geometry/predicates_overlap_internal.h"

namespace brindle::planar {

// A partial annulus: radius of the centre line, full radial width, arc of directions.
template <class Real>
struct Annulus {
  Real cx, cy, R, W, a0, a1;
  Point<Real> center() const { return {cx, cy}; }
  Arc<Real> outer() const { return {cx, cy, R + W / 2, a0, a1}; }
  Arc<Real> inner() const { return {cx, cy, R - W / 2, a0, a1}; }
};

// The determinant is taken in double in both families: the triangle may be far from the origin, and
// its area is all that is looked at.
template <class Real>
int on_line(Point<Real> p, const Section<Real>& s, Real tol) {
  const double area =
      twice_area(Point<double>{p.x, p.y}, Point<double>{s.x1, s.y1}, Point<double>{s.x2, s.y2});
  return tol > std::fabs(static_cast<Real>(area));
}

// How much longer the way by p is than the section.
template <class Real>
Real detour(Point<Real> p, const Section<Real>& s) {
  return std::fabs(distance(p, s.start()) + distance(p, s.end()) - distance(s.start(), s.end()));
}

template <class Real>
int on_section(Point<Real> p, const Section<Real>& s, Real tol) {
  return tol > detour(p, s);
}

template <class Real>
int in_band(Point<Real> p, const Section<Real>& s, Real tol) {
  const Point<Real> local = frame_of(s).enter(p);
  return -tol <= local.x && local.x <= distance(s.start(), s.end()) + tol && -tol <= local.y &&
         local.y <= tol;
}

template <class Real>
int in_disc(Point<Real> p, const Circle<Real>& circle, Real tol) {
  return circle.r - distance(p, circle.center()) > -tol;
}

template <class Real>
int in_rectangle(const Rectangle<Real>& box, Point<Real> p, Real tol) {
  return p.x >= box.xmin - tol && p.x <= box.xmax + tol && p.y >= box.ymin - tol &&
         p.y <= box.ymax + tol;
}

template <class Real>
int in_polygon(Point<Real> p, const Polygon<Real>& polygon, Real tol) {
  for (int i = 0; i < polygon.n; ++i) {
    const Section<Real> edge = polygon.edge(i);
    const Real length = distance(edge.start(), edge.end());
    if (twice_area(edge.start(), edge.end(), p) < -tol * length) return 0;
  }
  return 1;
}

template <class Real>
int in_annulus(Point<Real> p, const Annulus<Real>& ring, Real tol) {
  if (!angle_in_arc(direction(ring.center(), p), ring.a0, ring.a1, tol / ring.R)) return 0;
  const Real d = distance(p, ring.center());
  return ring.R - ring.W / 2 - tol < d && d < ring.R + ring.W / 2 + tol;
}

template <class Real>
int on_arc(Point<Real> p, const Arc<Real>& arc, Real tol) {
  return std::fabs(arc.r - distance(p, arc.center())) <= tol && arc_faces(arc, p, tol);
}

}  // namespace brindle::planar
