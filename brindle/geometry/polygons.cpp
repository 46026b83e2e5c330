#include "brindle/geometry/polygons.h"

#include <numbers>

#include "brindle/geometry/helpers.h"

namespace brindle {
namespace {

template <class Real>
double area_sum(int n, const Real* x, const Real* y) {
  double sum = 0;
  for (int i = 0; i < n; ++i) {
    const int next = i + 1 < n ? i + 1 : 0;
    sum += det_tri(0.0, 0.0, double{x[i]}, double{y[i]}, double{x[next]}, double{y[next]});
  }
  return sum / 2;
}

template <class Real>
void centroid(int n, const Real* x, const Real* y, Real* cx, Real* cy) {
  *cx = *cy = 0;
  if (n < 1) return;
  double area = 0, moment_x = 0, moment_y = 0, sum_x = 0, sum_y = 0;
  for (int i = 0; i < n; ++i) {
    const int next = i + 1 < n ? i + 1 : 0;
    const double px = double{x[i]} - x[0], py = double{y[i]} - y[0];
    const double qx = double{x[next]} - x[0], qy = double{y[next]} - y[0];
    const double det = px * qy - py * qx;
    area += det;
    moment_x += det * (px + qx);
    moment_y += det * (py + qy);
    sum_x += px;
    sum_y += py;
  }
  const bool flat = area == 0;
  *cx = static_cast<Real>(x[0] + (flat ? sum_x / n : moment_x / (3 * area)));
  *cy = static_cast<Real>(y[0] + (flat ? sum_y / n : moment_y / (3 * area)));
}

template <class Real>
double perimeter(int n, const Real* x, const Real* y) {
  double sum = 0;
  for (int i = 0; i < n; ++i) {
    const int next = i + 1 < n ? i + 1 : 0;
    sum += get_dist(double{x[i]}, double{y[i]}, double{x[next]}, double{y[next]});
  }
  return sum;
}

}  // namespace

double det_tri(double x1, double y1, double x2, double y2, double x3, double y3) {
  return x1 * y2 + x2 * y3 + x3 * y1 - y1 * x2 - y2 * x3 - y3 * x1;
}

float det_tri(float x1, float y1, float x2, float y2, float x3, float y3) {
  return static_cast<float>(
      det_tri(double{x1}, double{y1}, double{x2}, double{y2}, double{x3}, double{y3}));
}

double area_tri(double x1, double y1, double x2, double y2, double x3, double y3) {
  return det_tri(x1, y1, x2, y2, x3, y3) / 2;
}

float area_tri(float x1, float y1, float x2, float y2, float x3, float y3) {
  return det_tri(x1, y1, x2, y2, x3, y3) / 2;
}

float area_poli(int n, const float* x, const float* y) {
  return static_cast<float>(area_sum(n, x, y));
}

double area_poli(int n, const double* x, const double* y) {
  return area_sum(n, x, y);
}

void centroid_poli(int n, const float* x, const float* y, float* cx, float* cy) {
  centroid(n, x, y, cx, cy);
}

void centroid_poli(int n, const double* x, const double* y, double* cx, double* cy) {
  centroid(n, x, y, cx, cy);
}

float zhouchang_poli(int n, const float* x, const float* y) {
  return static_cast<float>(perimeter(n, x, y));
}

double zhouchang_poli(int n, const double* x, const double* y) {
  return perimeter(n, x, y);
}

void get_rect_jiaodian(float cx, float cy, float w, float h, float angle, float* x, float* y) {
  constexpr int kSigns[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
  const auto turn = static_cast<float>(-double{angle} * std::numbers::pi / 180);
  for (int i = 0; i < 4; ++i) {
    x[i] = static_cast<float>(kSigns[i][0]) * w / 2;
    y[i] = static_cast<float>(kSigns[i][1]) * h / 2;
    rotate_coordinate(turn, &x[i], &y[i]);
    shift_coordinate(-cx, -cy, &x[i], &y[i]);
  }
}

}  // namespace brindle
