#include "brindle/geometry/point2d.h"

#include <cmath>

#include "brindle/geometry/angles.h"
#include "brindle/geometry/distances.h"
#include "brindle/geometry/helpers.h"
#include "brindle/geometry/polygons.h"

namespace brindle {
namespace {

constexpr double kTolerance = 1e-5;

}  // namespace

double get_dist_point_2d(const POINT_2D& p, const POINT_2D& q) {
  return get_dist(p.x, p.y, q.x, q.y);
}

double get_dist_point_segment_2d(const POINT_2D& p, const POINT_2D& a, const POINT_2D& b) {
  return get_dist_point_segment(p.x, p.y, a.x, a.y, b.x, b.y);
}

double det3_point_2d(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3) {
  return det_tri(p1.x, p1.y, p2.x, p2.y, p3.x, p3.y);
}

double max_angle_of_tri(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3) {
  return max_angle_of_tri(p1.x, p1.y, p2.x, p2.y, p3.x, p3.y);
}

double min_angle_of_tri(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3) {
  return min_angle_of_tri(p1.x, p1.y, p2.x, p2.y, p3.x, p3.y);
}

double max_angle_of_tri_2(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3, int* corner) {
  double angles[3];
  get_triangle_inter_angle(p1.x, p1.y, p2.x, p2.y, p3.x, p3.y, &angles[0], &angles[1], &angles[2]);
  *corner = 0;
  for (int i = 1; i < 3; ++i) {
    if (angles[i] > angles[*corner]) *corner = i;
  }
  return angles[*corner];
}

int segment_cross_point(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3,
                        const POINT_2D& p4, POINT_2D* cross) {
  const double ux = p2.x - p1.x, uy = p2.y - p1.y, vx = p4.x - p3.x, vy = p4.y - p3.y;
  const double wx = p3.x - p1.x, wy = p3.y - p1.y;
  const double u_length = std::hypot(ux, uy), v_length = std::hypot(vx, vy);
  const double d = ux * vy - uy * vx;
  // Parallel is what turns by less than rounding could.
  if (!(std::fabs(d) > 1e-12 * u_length * v_length)) return 0;
  const double s = (wx * vy - wy * vx) / d, t = (wx * uy - wy * ux) / d;
  const double s_room = kTolerance / u_length, t_room = kTolerance / v_length;
  if (!(s >= -s_room && s <= 1 + s_room && t >= -t_room && t <= 1 + t_room)) return 0;
  cross->x = p1.x + s * ux;
  cross->y = p1.y + s * uy;
  return 1;
}

int point_in_area(const POINT_2D& p, int n, const POINT_2D* corners) {
  int inside = 0;
  for (int i = 0; i < n; ++i) {
    const POINT_2D& a = corners[i];
    const POINT_2D& b = corners[i + 1 < n ? i + 1 : 0];
    if (get_dist_point_segment_2d(p, a, b) <= kTolerance) return 1;
    // The ray to the right of p: the lower end of an edge counts, the upper one doesn't.
    if ((a.y > p.y) == (b.y > p.y)) continue;
    if (p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y)) inside = !inside;
  }
  return inside;
}

}  // namespace brindle
