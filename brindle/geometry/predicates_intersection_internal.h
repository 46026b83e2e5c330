// The bodies of the intersections of lines, sections, circles and arcs.
#pragma once

#include <algorithm>

#include "brindle/geometry/helpers.h"
#include "brindle/geometry/predicates_distance_internal.h"
#include "brindle/geometry/predicates_membership_internal.h"
#include "brindle/geometry/predicates_overlap_internal.h"

namespace brindle::planar {

template <class Real>
int intersect_lines(const Line<Real>& p, const Line<Real>& q, OutputOf<Real> out, Real tol) {
  const Real determinant = q.a * p.b - p.a * q.b;
  if (tol > std::fabs(determinant)) return 0;
  out.write({(p.a * q.c - q.a * p.c) / determinant, (p.b * q.c - q.b * p.c) / determinant});
  return 1;
}

template <class Real>
int intersect_lines(const Section<Real>& s, const Section<Real>& t, OutputOf<Real> out, Real tol) {
  return intersect_lines(line_through(s), line_through(t), out, tol);
}

// Two sections whose bounding rectangles meet. `on_one_line` is what an overlap of sections on one
// line returns.
template <class Real>
int intersect_in_frame(const Section<Real>& s, const Section<Real>& t, OutputOf<Real> out, Real tol,
                       int on_one_line) {
  const Real length = distance(s.start(), s.end());
  const Frame<Real> frame = frame_of(s);
  const Point<Real> p = frame.enter(t.start());
  const Point<Real> q = frame.enter(t.end());
  const Line<Real> line = line_through(Section<Real>{p.x, p.y, q.x, q.y});
  if ((p.y > tol && q.y > tol) || (p.y < -tol && q.y < -tol)) return 0;
  if (std::fabs(line.b) < Constants<Real>::kFixedTolerance) {
    return std::fabs(line.c) < tol ? on_one_line : 0;
  }
  const Real x = -line.c / line.b;
  if (x < -tol || x > length + tol) return 0;
  out.write(frame.leave({x, 0}));
  return 1;
}

template <class Real>
int intersect_sections(const Section<Real>& s, const Section<Real>& t, OutputOf<Real> out,
                       Real tol) {
  if (!rectangles_meet(bounds(s), bounds(t), tol)) return 0;
  return intersect_in_frame(s, t, out, tol, 2);
}

// Shorter than `tol` on both axes.
template <class Real>
bool is_point(const Section<Real>& s, Real tol) {
  return std::fabs(s.x1 - s.x2) < std::fabs(tol) && std::fabs(s.y1 - s.y2) < std::fabs(tol);
}

template <class Real>
int point_on_carrier(Point<Real> p, const Section<Real>& carrier, OutputOf<Real> out, Real tol) {
  if (detour(p, carrier) > std::fabs(tol)) return 0;
  out.write(p);
  return 1;
}

template <class Real>
int intersect_sections_or_points(const Section<Real>& s, const Section<Real>& t, OutputOf<Real> out,
                                 Real tol) {
  if (!rectangles_meet(bounds(s), bounds(t), tol)) return 0;
  if (is_point(t, tol)) return point_on_carrier(t.start(), s, out, tol);
  if (is_point(s, tol)) return point_on_carrier(s.start(), t, out, tol);
  return intersect_in_frame(s, t, out, tol, 0);
}

// Whether a point of the section's line lies between its ends, by the section's longer axis.
template <class Real>
bool between_ends(Point<Real> p, const Section<Real>& s) {
  const auto between = [](Real v, Real a, Real b) {
    return std::min(a, b) <= v && v <= std::max(a, b);
  };
  return std::fabs(s.x2 - s.x1) > std::fabs(s.y2 - s.y1) ? between(p.x, s.x1, s.x2)
                                                         : between(p.y, s.y1, s.y2);
}

template <class Real>
int intersect_sections_by_lines(const Section<Real>& s, const Section<Real>& t, OutputOf<Real> out,
                                Real tol) {
  if (!intersect_lines(s, t, out, tol)) return 0;
  return between_ends(out.read(), s) && between_ends(out.read(), t);
}

template <class Real>
int intersect_circle_section(const Circle<Real>& circle, const Section<Real>& s,
                             OutputOf<Real> first, OutputOf<Real> second, Real tol) {
  const Frame<Real> frame = frame_of(s);
  const Point<Real> center = frame.enter(circle.center());
  const Real end = frame.enter(s.end()).x;
  const auto accepted = [tol, end](Real x) { return -tol <= x && x <= end + tol; };
  const Real away = std::fabs(center.y);
  if (away > circle.r + tol) return 0;
  if (!(away <= circle.r - tol)) {
    if (!accepted(center.x)) return 0;
    first.write(frame.leave({center.x, 0}));
    return 1;
  }
  const Real half_chord = std::sqrt(circle.r * circle.r - center.y * center.y);
  const bool far_one = accepted(center.x + half_chord);
  const bool near_one = accepted(center.x - half_chord);
  if (far_one) first.write(frame.leave({center.x + half_chord, 0}));
  if (near_one) second.write(frame.leave({center.x - half_chord, 0}));
  if (near_one && !far_one) first.write(second.read());
  return far_one + near_one;
}

// Of `count` points written, 0 to 2, those that `keeps` accepts. A second point that is left alone
// is copied to the first place.
template <class Real, class Keeps>
int filter_points(int count, Output<Real> first, Output<Real> second, Keeps keeps) {
  if (count <= 0) return count;
  if (count == 1) return keeps(first.read()) ? 1 : 0;
  const bool first_kept = keeps(first.read());
  const bool second_kept = keeps(second.read());
  if (second_kept && !first_kept) first.write(second.read());
  return first_kept + second_kept;
}

template <class Real>
int intersect_section_arc(const Section<Real>& s, const Arc<Real>& arc, OutputOf<Real> first,
                          OutputOf<Real> second, Real tol) {
  const int count = intersect_circle_section(arc.circle(), s, first, second, tol);
  return filter_points<Real>(count, first, second,
                             [&](Point<Real> p) { return arc_faces(arc, p, tol); });
}

template <class Real>
int intersect_circles(const Circle<Real>& p, const Circle<Real>& q, OutputOf<Real> first,
                      OutputOf<Real> second, Real tol) {
  const Real d = distance(p.center(), q.center());
  const Real sum = p.r + q.r;
  const Real difference = std::fabs(p.r - q.r);
  if (d > sum + tol) return 0;
  if (d > sum - tol) {
    first.write({p.cx + (q.cx - p.cx) * p.r / sum, p.cy + (q.cy - p.cy) * p.r / sum});
    return 1;
  }
  if (tol > d && tol > difference) return -1;
  if (difference - tol > d) return 0;
  const Real towards_q = direction(p.center(), q.center());
  if (!(difference + tol > d)) {
    const Frame<Real> frame{p.center(), towards_q};
    const Real x = (d * d - q.r * q.r + p.r * p.r) / (2 * d);
    const Real y = std::sqrt(p.r * p.r - x * x);
    first.write(frame.leave({x, y}));
    second.write(frame.leave({x, -y}));
    return 2;
  }
  first.write(p.r > q.r ? on_circle(q.center(), q.r, towards_q)
                        : on_circle(p.center(), p.r, direction(q.center(), p.center())));
  return 1;
}

template <class Real>
int intersect_circle_arc(const Circle<Real>& circle, const Arc<Real>& arc, OutputOf<Real> first,
                         OutputOf<Real> second, Real tol) {
  const int count = intersect_circles(circle, arc.circle(), first, second, tol);
  return filter_points<Real>(count, first, second,
                             [&](Point<Real> p) { return arc_faces(arc, p, tol); });
}

// Whether an end of `arc` lies in the directions of `other`, which has its centre.
template <class Real>
bool has_end_in(const Arc<Real>& arc, const Arc<Real>& other, Real tol) {
  return angle_in_arc(arc.a0, other.a0, other.a1, tol / other.r) ||
         angle_in_arc(arc.a1, other.a0, other.a1, tol / other.r);
}

template <class Real>
int intersect_arcs(const Arc<Real>& p, const Arc<Real>& q, OutputOf<Real> first,
                   OutputOf<Real> second, Real tol) {
  const int count = intersect_circles(p.circle(), q.circle(), first, second, tol);
  if (count == -1) return has_end_in(p, q, tol) || has_end_in(q, p, tol) ? -1 : 0;
  return filter_points<Real>(count, first, second, [&](Point<Real> point) {
    return arc_faces(p, point, tol) && arc_faces(q, point, tol);
  });
}

template <class Real>
int intersect_line_circle(const Circle<Real>& circle, const Section<Real>& line, Real* xs, Real* ys,
                          Real tol) {
  const auto angle = static_cast<Real>(get_line_angle(line.x1, line.y1, line.x2, line.y2));
  const Frame<Real> frame{circle.center(), angle};
  const Real y = frame.enter(line.start()).y;
  const Real away = std::fabs(y);
  const auto put = [&](int i, Real x) { Output<Real>{xs + i, ys + i}.write(frame.leave({x, y})); };
  if (away > circle.r + tol) return 0;
  if (circle.r - tol < away && away < circle.r + tol) {
    put(0, 0);
    return 1;
  }
  const Real half_chord = std::sqrt(circle.r * circle.r - y * y);
  put(0, half_chord);
  put(1, -half_chord);
  return 2;
}

}  // namespace brindle::planar
