// in_domain: whether a point lies in a plain polygon given as an array of points.
#pragma once

#include "brindle/geometry/point.h"

namespace brindle {

// For the polygon of n vertices, closed from the last to the first, either winding: 1 inside and 0
// outside; -n on an edge; at a vertex n + 1 when it is the first end of the edge at which that
// shows, else 2. The tolerance of coordinates, of products of two heights and of the sum of both
// coordinate differences at a vertex is 0.0001, or `tol`. A point level with the first end of a
// sloping edge that lies right of it but ends left of it, above, counts as on that edge: meant so.
// n <= 0 gives 0.
int in_domain(int n, const float* x, const float* y, float px, float py);
int in_domain(int n, const CFPoint* p, CFPoint q, double tol);

}  // namespace brindle
