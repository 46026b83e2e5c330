#include "brindle/geometry/break_point.h"

#include <cmath>

#include "brindle/geometry/distances.h"
#include "brindle/geometry/helpers.h"
#include "brindle/geometry/lines.h"
#include "brindle/geometry/vectors.h"

namespace brindle {
namespace {

struct Point {
  explicit Point(const float* p) : c{p[0], p[1], p[2]} {}
  double c[3];
};

double distance(const Point& p, const Point& q) {
  return get_dist(p.c[0], p.c[1], p.c[2], q.c[0], q.c[1], q.c[2]);
}

// Seen along an axis, a section this much shorter than it is has no direction any more.
bool collapses(const Point& p, const Point& q, int u, int v) {
  return std::hypot(q.c[u] - p.c[u], q.c[v] - p.c[v]) <= 1e-6 * distance(p, q);
}

struct Sections {
  Point p1, p2, p3, p4;

  // The crossing of the lines seen in the plane of the axes u and v.
  bool cross_in(int u, int v, double* at_u, double* at_v) const {
    if (collapses(p1, p2, u, v) || collapses(p3, p4, u, v)) return false;
    return line_point_inter(p1.c[u], p1.c[v], p2.c[u], p2.c[v], p3.c[u], p3.c[v], p4.c[u], p4.c[v],
                            at_u, at_v) == 1;
  }

  bool skew() const {
    double u[3], v[3], w[3], normal[3];
    form_vector(p1.c, p3.c, u);
    form_vector(p1.c, p2.c, v);
    form_vector(p3.c, p4.c, w);
    vector_cross_vector(u, v, normal);
    return std::fabs(vector_dot_vector(normal, w)) > 1e-6;
  }

  // The crossing of two lines in one plane. Two coordinates come from the first projection in which
  // the lines cross, the third from another one; where there is none, it is constant.
  bool cross(double* q) const {
    constexpr int kX = 0, kY = 1, kZ = 2;
    double other;
    if (cross_in(kX, kY, &q[kX], &q[kY])) {
      if (!cross_in(kY, kZ, &other, &q[kZ]) && !cross_in(kX, kZ, &other, &q[kZ])) q[kZ] = p1.c[kZ];
      return true;
    }
    if (cross_in(kY, kZ, &q[kY], &q[kZ])) {
      if (!cross_in(kX, kZ, &q[kX], &other)) q[kX] = p1.c[kX];
      return true;
    }
    if (cross_in(kX, kZ, &q[kX], &q[kZ])) {
      q[kY] = p1.c[kY];
      return true;
    }
    return false;
  }
};

}  // namespace

int get_break_point(const float* p1, const float* p2, const float* p3, const float* p4, float* out,
                    float tol) {
  const struct {
    const float *q, *a, *b;
  } ends[] = {{p3, p1, p2}, {p4, p1, p2}, {p1, p3, p4}, {p2, p3, p4}};
  for (const auto& end : ends) {
    if (!JudgePointOnLine(end.q, end.a, end.b, tol)) continue;
    for (int i = 0; i < 3; ++i) out[i] = end.q[i];
    return 1;
  }
  const Sections s{Point(p1), Point(p2), Point(p3), Point(p4)};
  if (distance(s.p1, s.p3) <= tol || distance(s.p1, s.p4) <= tol || distance(s.p2, s.p3) <= tol ||
      distance(s.p2, s.p4) <= tol) {
    return 0;
  }
  double q[3];
  if (s.skew() || !s.cross(q)) return 0;
  if (!JudgePointOnLine(q, s.p1.c, s.p2.c, double{tol}) ||
      !JudgePointOnLine(q, s.p3.c, s.p4.c, double{tol})) {
    return 0;
  }
  for (int i = 0; i < 3; ++i) out[i] = static_cast<float>(q[i]);
  return 1;
}

}  // namespace brindle
