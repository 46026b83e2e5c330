// The arc of a domain's edge and the walk along a ring, for the sources of CPointInDomain.
#pragma once

#include <cmath>

#include "brindle/geometry/predicates.h"
#include "brindle/mesh/domain_edge.h"

namespace brindle::domain {

constexpr double kTwoPi = 6.283185307179586;

inline const CDomainEdge& following(int n, const CDomainEdge* edges, int i) {
  return edges[i + 1 < n ? i + 1 : 0];
}

// The direction of a point from the centre, and how far the second direction lies
// counter-clockwise of the first, in [0, 2 pi).
inline double direction_of(const CDomainEdge& arc, double x, double y) {
  return _JH_GetAngle(arc.centre.x, arc.centre.y, x, y);
}

inline double turn(double from, double to) {
  return to < from ? to - from + kTwoPi : to - from;
}

// An arc in double: radius, the direction from which it runs counter-clockwise, and by how much.
struct ArcSpan {
  ArcSpan(const CDomainEdge& edge, const CDomainEdge& next) {
    const double start = direction_of(edge, edge.start.x, edge.start.y);
    const double end = direction_of(edge, next.start.x, next.start.y);
    radius = _JH_GetDist(edge.centre.x, edge.centre.y, edge.start.x, edge.start.y);
    first = edge.ccw ? start : end;
    sweep = turn(first, edge.ccw ? end : start);
  }
  double middle() const { return first + sweep / 2; }

  double radius, first, sweep;
};

}  // namespace brindle::domain
