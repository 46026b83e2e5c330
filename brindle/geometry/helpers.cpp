#include "brindle/geometry/helpers.h"

#include <cmath>

#include "brindle/geometry/predicates.h"

namespace brindle {
namespace {

double polar_above(double least_length, double dx, double dy, int mode) {
  const double length = std::sqrt(dx * dx + dy * dy);
  if (length < least_length) return 0;
  if (mode == 1) return length;
  double angle = std::asin(dy / length);
  if (dx < 0) angle = 3.141592653589793 - angle;
  if (angle < 0) angle += 6.283185307179586;
  return angle;
}

}  // namespace

float polar(float dx, float dy, int mode) {
  return static_cast<float>(polar_above(1e-8, dx, dy, mode));
}

double polar(double dx, double dy, int mode) {
  return polar_above(1e-10, dx, dy, mode);
}

double get_line_angle(float x1, float y1, float x2, float y2) {
  return polar(x2 - x1, y2 - y1, 2);
}

double get_line_angle(double x1, double y1, double x2, double y2) {
  return polar(x2 - x1, y2 - y1, 2);
}

float get_dist(float x1, float y1, float x2, float y2) {
  return std::sqrt((x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2));
}

double get_dist(double x1, double y1, double x2, double y2) {
  return std::sqrt((x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2));
}

double get_dist(double x1, double y1, double z1, double x2, double y2, double z2) {
  return std::sqrt((x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2) + (z1 - z2) * (z1 - z2));
}

void shift_coordinate(float dx, float dy, float* x, float* y) {
  JH_MovePoint0(x, y, dx, dy);
}

void shift_coordinate(double dx, double dy, double* x, double* y) {
  _JH_MovePoint0(x, y, dx, dy);
}

void rotate_coordinate(float a, float* x, float* y) {
  JH_RotatePoint0(x, y, a);
}

void rotate_coordinate(double a, double* x, double* y) {
  _JH_RotatePoint0(x, y, a);
}

}  // namespace brindle
