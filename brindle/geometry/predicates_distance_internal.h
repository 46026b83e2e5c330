// The bodies of the distances and feet of perpendiculars.
#pragma once

#include "brindle/geometry/predicates_elementary_internal.h"

namespace brindle::planar {

template <class Real>
Real distance_to_line(Point<Real> p, const Section<Real>& s) {
  return std::fabs(frame_of(s).enter(p).y);
}

template <class Real>
Real distance_to_section(Point<Real> p, const Section<Real>& s) {
  const Point<Real> local = frame_of(s).enter(p);
  if (local.x < 0) return distance(p, s.start());
  if (local.x > distance(s.start(), s.end())) return distance(p, s.end());
  return std::fabs(local.y);
}

template <class Real>
void foot_on_line(Point<Real> p, const Section<Real>& s, OutputOf<Real> foot) {
  const Frame<Real> frame = frame_of(s);
  foot.write(frame.leave({frame.enter(p).x, 0}));
}

template <class Real>
int foot_on_section(Point<Real> p, const Section<Real>& s, OutputOf<Real> foot, Real tol) {
  const Frame<Real> frame = frame_of(s);
  const Real along = frame.enter(p).x;
  foot.write(frame.leave({along, 0}));
  return -tol <= along && along <= distance(s.start(), s.end()) + tol;
}

template <class Real>
int foot_on_arc(Point<Real> p, const Arc<Real>& arc, OutputOf<Real> foot, Real tol) {
  const Real angle = direction(arc.center(), p);
  if (!angle_in_arc(angle, arc.a0, arc.a1, tol / arc.r)) return 0;
  foot.write(on_circle(arc.center(), arc.r, angle));
  return 1;
}

}  // namespace brindle::planar
