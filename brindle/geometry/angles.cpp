#include "brindle/geometry/angles.h"

#include <algorithm>
#include <cmath>

namespace brindle {
namespace {

double angle_between(double ux, double uy, double vx, double vy) {
  return std::atan2(std::fabs(ux * vy - uy * vx), ux * vx + uy * vy);
}

}  // namespace

double get_two_line_angle(double x1, double y1, double x2, double y2, double x3, double y3,
                          double x4, double y4) {
  const double ux = x2 - x1, uy = y2 - y1, vx = x4 - x3, vy = y4 - y3;
  // A vector without length may come as -0, whose direction would be pi.
  if ((ux == 0 && uy == 0) || (vx == 0 && vy == 0)) return 0;
  return angle_between(ux, uy, vx, vy);
}

double get_two_line_angle(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                          float y4) {
  return get_two_line_angle(double{x1}, double{y1}, double{x2}, double{y2}, double{x3}, double{y3},
                            double{x4}, double{y4});
}

void get_triangle_inter_angle(double x1, double y1, double x2, double y2, double x3, double y3,
                              double* a1, double* a2, double* a3) {
  *a1 = get_two_line_angle(x1, y1, x2, y2, x1, y1, x3, y3);
  *a2 = get_two_line_angle(x2, y2, x3, y3, x2, y2, x1, y1);
  *a3 = get_two_line_angle(x3, y3, x1, y1, x3, y3, x2, y2);
}

void get_triangle_inter_angle(float x1, float y1, float x2, float y2, float x3, float y3, float* a1,
                              float* a2, float* a3) {
  double first, second, third;
  get_triangle_inter_angle(double{x1}, double{y1}, double{x2}, double{y2}, double{x3}, double{y3},
                           &first, &second, &third);
  *a1 = static_cast<float>(first);
  *a2 = static_cast<float>(second);
  *a3 = static_cast<float>(third);
}

double max_angle_of_tri(double x1, double y1, double x2, double y2, double x3, double y3) {
  double a1, a2, a3;
  get_triangle_inter_angle(x1, y1, x2, y2, x3, y3, &a1, &a2, &a3);
  return std::max({a1, a2, a3});
}

double max_angle_of_tri(float x1, float y1, float x2, float y2, float x3, float y3) {
  return max_angle_of_tri(double{x1}, double{y1}, double{x2}, double{y2}, double{x3}, double{y3});
}

double min_angle_of_tri(double x1, double y1, double x2, double y2, double x3, double y3) {
  double a1, a2, a3;
  get_triangle_inter_angle(x1, y1, x2, y2, x3, y3, &a1, &a2, &a3);
  return std::min({a1, a2, a3});
}

double min_angle_of_tri(float x1, float y1, float x2, float y2, float x3, float y3) {
  return min_angle_of_tri(double{x1}, double{y1}, double{x2}, double{y2}, double{x3}, double{y3});
}

}  // namespace brindle
