#include "brindle/geometry/matrix/sections.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "brindle/geometry/matrix/circle_segment_internal.h"

namespace brindle::QxJGFunEx {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kLeastSize = 0.0001;

struct Centroid {
  double area = 0;
  double x = 0;
  double y = 0;
};

Centroid centroid_of(int n, const float* x, const float* y, const float* b, const float* h) {
  Centroid c;
  for (int i = 0; i < n; ++i) {
    const double area = double{b[i]} * h[i];
    c.area += area;
    c.x += area * (x[i] + b[i] / 2.0);
    c.y += area * (y[i] + h[i] / 2.0);
  }
  if (c.area == 0) return {};
  c.x /= c.area;
  c.y /= c.area;
  return c;
}

// Sums over the crescent, x along the line of centres from the larger circle's centre.
struct Crescent {
  double area = 0;
  double moment = 0;
  double along = 0;
  double across = 0;

  Crescent(double R, double r, double d) {
    d = std::fabs(d);
    if (r > R) std::swap(R, r);
    if (!(r >= kLeastSize) || d <= R - r) return;
    area = kPi * r * r;
    moment = area * d;
    across = kPi * r * r * r * r / 4;
    along = across + area * d * d;
    if (d >= R + r) return;
    // What both circles share, the lens, is a segment of each beyond the common chord.
    const double chord = (d * d + R * R - r * r) / (2 * d);
    const CircleSegment large(R, chord);
    const CircleSegment small(r, d - chord);  // seen from its own centre, back to the larger one
    area -= large.area + small.area;
    moment -= large.moment + d * small.area - small.moment;
    along -= large.along + d * d * small.area - 2 * d * small.moment + small.along;
    across -= large.across + small.across;
  }

  double centroid() const { return area > 0 ? moment / area : 0; }
};

}  // namespace

int JH_GetMultiRectPoid(int n, const float* x, const float* y, const float* b, const float* h,
                        float& cx, float& cy) {
  const Centroid c = centroid_of(n, x, y, b, h);
  cx = static_cast<float>(c.x);
  cy = static_cast<float>(c.y);
  return c.area != 0;
}

int JH_GetMultiRectIxIy(int n, const float* x, const float* y, const float* b, const float* h,
                        float& Ix, float& Iy) {
  const Centroid c = centroid_of(n, x, y, b, h);
  double about_x = 0, about_y = 0;
  if (c.area != 0) {
    for (int i = 0; i < n; ++i) {
      const double width = b[i], height = h[i], area = width * height;
      const double dx = x[i] + width / 2 - c.x, dy = y[i] + height / 2 - c.y;
      about_x += area * (height * height / 12 + dy * dy);
      about_y += area * (width * width / 12 + dx * dx);
    }
  }
  Ix = static_cast<float>(about_x);
  Iy = static_cast<float>(about_y);
  return c.area != 0;
}

float JH_CalCircleGong_Area(float R, float r, float d) {
  return static_cast<float>(Crescent(R, r, d).area);
}

float JH_CalCircleGong_XingXin(float R, float r, float d) {
  return static_cast<float>(Crescent(R, r, d).centroid());
}

int JH_CalCircleGong_GuanXingJu(float R, float r, float d, float& Ix, float& Iy) {
  const Crescent c(R, r, d);
  const double x = c.centroid();
  Ix = static_cast<float>(c.across);
  Iy = static_cast<float>(c.along - x * c.moment);
  return c.area > 0;
}

}  // namespace brindle::QxJGFunEx
