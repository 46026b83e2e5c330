#include "brindle/geometry/lines.h"

#include "brindle/geometry/helpers.h"
#include "brindle/geometry/predicates.h"

namespace brindle {
namespace {

constexpr double kParallel = 1e-5;

}  // namespace

void line_func(float x1, float y1, float x2, float y2, float* a, float* b, float* c) {
  JH_GetLineFunction(x1, y1, x2, y2, a, b, c);
}

void line_func(double x1, double y1, double x2, double y2, double* a, double* b, double* c) {
  _JH_GetLineFunction(x1, y1, x2, y2, a, b, c);
}

int line_func_inter(float a1, float b1, float c1, float a2, float b2, float c2, float* x,
                    float* y) {
  return JH_GetInterPoint_Line_ByFunc(a1, b1, c1, a2, b2, c2, x, y, static_cast<float>(kParallel));
}

int line_func_inter(double a1, double b1, double c1, double a2, double b2, double c2, double* x,
                    double* y) {
  return _JH_GetInterPoint_Line_ByFunc(a1, b1, c1, a2, b2, c2, x, y, kParallel);
}

int line_point_inter(float x1, float y1, float x2, float y2, float x3, float y3, float x4, float y4,
                     float* x, float* y) {
  return JH_GetInterPoint_Line(x1, y1, x2, y2, x3, y3, x4, y4, x, y, static_cast<float>(kParallel));
}

int line_point_inter(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                     double y4, double* x, double* y) {
  return _JH_GetInterPoint_Line(x1, y1, x2, y2, x3, y3, x4, y4, x, y, kParallel);
}

void line_offset_left(double x1, double y1, double x2, double y2, double distance, double* x3,
                      double* y3, double* x4, double* y4) {
  const double length = get_dist(x1, y1, x2, y2);
  const double dx = length > 0 ? -(y2 - y1) / length * distance : 0;
  const double dy = length > 0 ? (x2 - x1) / length * distance : 0;
  *x3 = x1 + dx;
  *y3 = y1 + dy;
  *x4 = x2 + dx;
  *y4 = y2 + dy;
}

void line_offset_left(float x1, float y1, float x2, float y2, float distance, float* x3, float* y3,
                      float* x4, float* y4) {
  double fx1, fy1, fx2, fy2;
  line_offset_left(double{x1}, double{y1}, double{x2}, double{y2}, double{distance}, &fx1, &fy1,
                   &fx2, &fy2);
  *x3 = static_cast<float>(fx1);
  *y3 = static_cast<float>(fy1);
  *x4 = static_cast<float>(fx2);
  *y4 = static_cast<float>(fy2);
}

}  // namespace brindle
