// The bodies of the predicates on outlines that cross and filled regions that meet.
#pragma once

#include "brindle/geometry/predicates_intersection_internal.h"

namespace brindle::planar {

template <class Real>
int section_crosses_circle(const Circle<Real>& circle, const Section<Real>& s, Real tol) {
  const Real inside = circle.r - tol;
  if (distance(circle.center(), s.start()) <= inside &&
      distance(circle.center(), s.end()) <= inside) {
    return 0;
  }
  return circle.r + tol > distance_to_section(circle.center(), s);
}

template <class Real>
int section_meets_disc(const Circle<Real>& circle, const Section<Real>& s, Real tol) {
  return tol > distance_to_section(circle.center(), s) - circle.r;
}

// Of two crossings of the circle the second alone decides; this is meant.
template <class Real>
int section_crosses_arc(const Section<Real>& s, const Arc<Real>& arc, Real tol) {
  if (!section_crosses_circle(arc.circle(), s, tol)) return 0;
  Point<Real> first{}, second{};
  const int count =
      intersect_circle_section(arc.circle(), s, {&first.x, &first.y}, {&second.x, &second.y}, tol);
  if (count == 0) return 0;
  return arc_faces(arc, count == 1 ? first : second, tol);
}

template <class Real>
int sections_meet(const Section<Real>& s, const Section<Real>& t, Real tol) {
  Point<Real> unused{};
  return intersect_sections(s, t, {&unused.x, &unused.y}, tol) != 0;
}

template <class Real>
int section_meets_arc(const Section<Real>& s, const Arc<Real>& arc, Real tol) {
  Point<Real> p{}, q{};
  return intersect_section_arc(s, arc, {&p.x, &p.y}, {&q.x, &q.y}, tol) != 0;
}

template <class Real>
int arcs_meet(const Arc<Real>& a, const Arc<Real>& b, Real tol) {
  Point<Real> p{}, q{};
  return intersect_arcs(a, b, {&p.x, &p.y}, {&q.x, &q.y}, tol) != 0;
}

template <class Real>
int discs_meet(const Circle<Real>& p, const Circle<Real>& q, Real tol) {
  return p.r + q.r + tol > distance(p.center(), q.center());
}

template <class Real, class Test>
bool any_edge(const Polygon<Real>& polygon, Test test) {
  for (int i = 0; i < polygon.n; ++i) {
    if (test(polygon.edge(i))) return true;
  }
  return false;
}

template <class Real, class Test>
bool any_vertex(const Polygon<Real>& polygon, Test test) {
  for (int i = 0; i < polygon.n; ++i) {
    if (test(polygon.vertex(i))) return true;
  }
  return false;
}

template <class Real>
int section_meets_polygon(const Polygon<Real>& polygon, const Section<Real>& s, Real tol) {
  return in_polygon(s.start(), polygon, tol) || in_polygon(s.end(), polygon, tol) ||
         any_edge(polygon, [&](const Section<Real>& edge) { return sections_meet(s, edge, tol); });
}

template <class Real>
int disc_meets_polygon(const Circle<Real>& circle, const Polygon<Real>& polygon, Real tol) {
  return in_polygon(circle.center(), polygon, tol) ||
         any_vertex(polygon, [&](Point<Real> p) { return in_disc(p, circle, tol); }) ||
         any_edge(polygon,
                  [&](const Section<Real>& edge) { return section_meets_disc(circle, edge, tol); });
}

template <class Real>
int polygons_meet(const Polygon<Real>& p, const Polygon<Real>& q, Real tol) {
  if (!rectangles_meet(bounds(p), bounds(q), tol)) return 0;
  const auto has_vertex_in = [](const Polygon<Real>& from, const Polygon<Real>& other) {
    return any_vertex(from, [&](Point<Real> vertex) {
      return in_polygon(vertex, other, Constants<Real>::kFixedTolerance);
    });
  };
  return has_vertex_in(p, q) || has_vertex_in(q, p) || any_edge(p, [&](const Section<Real>& s) {
           return any_edge(q, [&](const Section<Real>& t) { return sections_meet(s, t, tol); });
         });
}

template <class Real>
int arc_meets_polygon(const Polygon<Real>& polygon, const Arc<Real>& arc, Real tol) {
  return in_polygon(arc_start(arc), polygon, tol) || in_polygon(arc_end(arc), polygon, tol) ||
         any_edge(polygon,
                  [&](const Section<Real>& edge) { return section_crosses_arc(edge, arc, tol); });
}

// Touching circles don't count. The second crossing is turned by the direction in which the first
// was seen from the arc's centre, not by the direction between the centres; this is meant.
template <class Real>
int disc_meets_arc(const Circle<Real>& circle, const Arc<Real>& arc, Real tol) {
  if (in_disc(arc_start(arc), circle, tol) || in_disc(arc_end(arc), circle, tol)) return 1;
  const Real d = distance(circle.center(), arc.center());
  const Real difference = std::fabs(circle.r - arc.r);
  const Real gap = difference > d ? difference - d : d - circle.r - arc.r;
  if (gap > -tol) return 0;
  if (tol > std::fabs(d)) return tol > difference;
  const Real x = (d * d + circle.r * circle.r - arc.r * arc.r) / 2 / d;
  const Real y = std::sqrt(circle.r * circle.r - x * x);
  const auto seen_from_arc = [&](Point<Real> p, Real turn) {
    return direction(arc.center(), Frame<Real>{circle.center(), turn}.leave(p));
  };
  const Real u = seen_from_arc({x, y}, direction(circle.center(), arc.center()));
  if (angle_in_arc(u, arc.a0, arc.a1, tol / arc.r)) return 1;
  return angle_in_arc(seen_from_arc({x, -y}, u), arc.a0, arc.a1, tol / arc.r);
}

// The radial edge of the ring at its a0 or a1, the inner end first.
template <class Real>
Section<Real> start_edge(const Annulus<Real>& ring) {
  const Point<Real> in = arc_start(ring.inner());
  const Point<Real> out = arc_start(ring.outer());
  return {in.x, in.y, out.x, out.y};
}

template <class Real>
Section<Real> end_edge(const Annulus<Real>& ring) {
  const Point<Real> in = arc_end(ring.inner());
  const Point<Real> out = arc_end(ring.outer());
  return {in.x, in.y, out.x, out.y};
}

template <class Real, class Test>
bool any_corner(const Annulus<Real>& ring, Test test) {
  return test(arc_start(ring.outer())) || test(arc_end(ring.outer())) ||
         test(arc_start(ring.inner())) || test(arc_end(ring.inner()));
}

template <class Real, class Test>
bool any_arc(const Annulus<Real>& ring, Test test) {
  return test(ring.outer()) || test(ring.inner());
}

template <class Real, class Test>
bool any_radial_edge(const Annulus<Real>& ring, Test test) {
  return test(start_edge(ring)) || test(end_edge(ring));
}

template <class Real>
int section_meets_annulus(const Section<Real>& s, const Annulus<Real>& ring, Real tol) {
  return in_annulus(s.start(), ring, tol) || in_annulus(s.end(), ring, tol) ||
         any_arc(ring, [&](const Arc<Real>& arc) { return section_meets_arc(s, arc, tol); }) ||
         any_radial_edge(ring,
                         [&](const Section<Real>& edge) { return sections_meet(s, edge, tol); });
}

template <class Real>
int disc_meets_annulus(const Circle<Real>& circle, const Annulus<Real>& ring, Real tol) {
  return in_annulus(circle.center(), ring, tol) ||
         any_corner(ring, [&](Point<Real> p) { return in_disc(p, circle, tol); }) ||
         any_arc(ring, [&](const Arc<Real>& arc) { return disc_meets_arc(circle, arc, tol); }) ||
         any_radial_edge(ring, [&](const Section<Real>& edge) {
           return section_crosses_circle(circle, edge, tol);
         });
}

template <class Real>
int arc_meets_annulus(const Arc<Real>& arc, const Annulus<Real>& ring, Real tol) {
  return in_annulus(arc_start(arc), ring, tol) || in_annulus(arc_end(arc), ring, tol) ||
         any_radial_edge(
             ring, [&](const Section<Real>& edge) { return section_meets_arc(edge, arc, tol); }) ||
         any_arc(ring, [&](const Arc<Real>& side) { return arcs_meet(arc, side, tol); });
}

// A radial edge whose inner end is (x, x), its x coordinate twice; this is meant.
template <class Real>
Section<Real> with_inner_x_twice(const Section<Real>& edge) {
  return {edge.x1, edge.x1, edge.x2, edge.y2};
}

template <class Real>
int polygon_meets_annulus(const Polygon<Real>& polygon, const Annulus<Real>& ring, Real tol) {
  return any_corner(ring, [&](Point<Real> p) { return in_polygon(p, polygon, tol); }) ||
         any_vertex(polygon, [&](Point<Real> p) { return in_annulus(p, ring, tol); }) ||
         any_arc(ring,
                 [&](const Arc<Real>& arc) { return arc_meets_polygon(polygon, arc, tol); }) ||
         any_radial_edge(ring, [&](const Section<Real>& edge) {
           return section_meets_polygon(polygon, with_inner_x_twice(edge), tol);
         });
}

template <class Real>
int annuli_meet(const Annulus<Real>& p, const Annulus<Real>& q, Real tol) {
  const auto has_corner_in = [tol](const Annulus<Real>& from, const Annulus<Real>& other) {
    return any_corner(from, [&](Point<Real> corner) { return in_annulus(corner, other, tol); });
  };
  return has_corner_in(p, q) || has_corner_in(q, p) ||
         any_radial_edge(p,
                         [&](const Section<Real>& s) {
                           return any_radial_edge(
                               q, [&](const Section<Real>& t) { return sections_meet(s, t, tol); });
                         }) ||
         any_arc(q, [&](const Arc<Real>& theirs) {
           return any_arc(p, [&](const Arc<Real>& ours) { return arcs_meet(ours, theirs, tol); });
         });
}

}  // namespace brindle::planar
