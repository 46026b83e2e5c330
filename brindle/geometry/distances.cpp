#include "brindle/geometry/distances.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "brindle/geometry/helpers.h"

namespace brindle {

int get_distsquare(int x1, int y1, int z1, int x2, int y2, int z2) {
  constexpr std::int64_t kLargest = std::numeric_limits<int>::max();
  std::int64_t sum = 0;
  for (const std::int64_t d :
       {std::int64_t{x1} - x2, std::int64_t{y1} - y2, std::int64_t{z1} - z2}) {
    if (std::abs(d) > kLargest) return std::numeric_limits<int>::max();
    sum = std::min(sum + std::min(d * d, kLargest), kLargest);
  }
  return static_cast<int>(sum);
}

float get_distsquare(float x1, float y1, float z1, float x2, float y2, float z2) {
  return (x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2) + (z1 - z2) * (z1 - z2);
}

double get_distsquare(double x1, double y1, double z1, double x2, double y2, double z2) {
  return (x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2) + (z1 - z2) * (z1 - z2);
}

double get_dist_point_segment(double px, double py, double x1, double y1, double x2, double y2) {
  const double length = get_dist(x1, y1, x2, y2);
  if (length == 0) return get_dist(px, py, x1, y1);
  const double ux = (x2 - x1) / length, uy = (y2 - y1) / length;
  const double along = (px - x1) * ux + (py - y1) * uy;
  if (along < 0) return get_dist(px, py, x1, y1);
  if (along > length) return get_dist(px, py, x2, y2);
  return std::fabs((py - y1) * ux - (px - x1) * uy);
}

float get_dist_point_segment(float px, float py, float x1, float y1, float x2, float y2) {
  return static_cast<float>(get_dist_point_segment(double{px}, double{py}, double{x1}, double{y1},
                                                   double{x2}, double{y2}));
}

int JudgePointOnLine(const double* q, const double* a, const double* b, double tol) {
  const double d1 = get_dist(q[0], q[1], q[2], a[0], a[1], a[2]);
  const double d2 = get_dist(q[0], q[1], q[2], b[0], b[1], b[2]);
  const double length = get_dist(a[0], a[1], a[2], b[0], b[1], b[2]);
  return std::fabs(length - (d1 + d2)) < length / 100000 && d1 > tol && d2 > tol;
}

int JudgePointOnLine(const float* q, const float* a, const float* b, float tol) {
  const double wide_q[] = {q[0], q[1], q[2]};
  const double wide_a[] = {a[0], a[1], a[2]};
  const double wide_b[] = {b[0], b[1], b[2]};
  return JudgePointOnLine(wide_q, wide_a, wide_b, double{tol});
}

}  // namespace brindle
