// Planar predicates and intersections: free functions on float (JH_) and their twins on double
// (_JH_, or the same name told apart by its double arguments). All of them, by theme.
//
// A point is x, y; an infinite line or a section two points; a ray its start and a point that it
// goes through; a circle cx, cy, r; an arc cx, cy, r, a0, a1, counter-clockwise from a0 to a1,
// through zero when a1 is the smaller; a partial annulus (JvBuYuanHuan) cx, cy, R, W, a0, a1: the
// radius of its centre line and its full radial width; a convex polygon (TuPolygon) n, xs, ys,
// counter-clockwise, closed from the last vertex to the first. Angles are radians,
// counter-clockwise from +x.
//
// A predicate returns 1 or 0, an intersection a count. The tolerance comes last, a distance unless
// its function says otherwise; widening an arc it becomes the angle tol / r. Nothing is reported or
// thrown: degenerate input (equal points, no radius, NaN) gives what the arithmetic gives, in
// bounded time. Every function is pure but for its outputs.
#pragma once

#include "brindle/geometry/predicates_distance.h"
#include "brindle/geometry/predicates_elementary.h"
#include "brindle/geometry/predicates_intersection.h"
#include "brindle/geometry/predicates_membership.h"
#include "brindle/geometry/predicates_overlap.h"
#include "brindle/geometry/predicates_ray.h"
#include "brindle/geometry/predicates_region.h"
