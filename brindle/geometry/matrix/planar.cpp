#include "brindle/geometry/matrix/planar.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "brindle/geometry/arrays.h"
#include "brindle/geometry/helpers.h"
#include "brindle/geometry/predicates.h"
#include "brindle/geometry/vectors.h"

namespace brindle::QxJGFunEx {
namespace {

constexpr float kTolerance = 0.0001f;

float narrow(double v) {
  return static_cast<float>(v);
}

// How far the point lies to the left of the line; not a number for a line without length.
double left_of(double px, double py, double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1, dy = y2 - y1;
  return (dx * (py - y1) - dy * (px - x1)) / std::hypot(dx, dy);
}

struct Circle {
  double x, y, r;
};

bool circle_through(double x1, double y1, double x2, double y2, double x3, double y3, Circle& c) {
  // Points on one line: one of them lies within the tolerance of the line through the others, the
  // two that are farthest apart.
  const double ux = x2 - x1, uy = y2 - y1, vx = x3 - x1, vy = y3 - y1;
  const double det = ux * vy - uy * vx;
  const double longest =
      std::max({std::hypot(ux, uy), std::hypot(vx, vy), std::hypot(x3 - x2, y3 - y2)});
  if (!(std::fabs(det) > double{kTolerance} * longest)) return false;
  const double uu = ux * ux + uy * uy, vv = vx * vx + vy * vy;
  const double cx = (uu * vy - vv * uy) / (2 * det), cy = (vv * ux - uu * vx) / (2 * det);
  c = {x1 + cx, y1 + cy, std::hypot(cx, cy)};
  return true;
}

struct Plane {
  double normal[3];
  double offset;  // normal . p + offset is 0 in the plane
};

bool plane_through(const float* p1, const float* p2, const float* p3, Plane& plane) {
  double u[3], v[3];
  for (int i = 0; i < 3; ++i) {
    u[i] = double{p2[i]} - p1[i];
    v[i] = double{p3[i]} - p1[i];
  }
  vector_cross_vector(u, v, plane.normal);
  const double length = vector_len(plane.normal);
  double across[3];
  form_vector(u, v, across);
  if (!(length >
        double{kTolerance} * std::max({vector_len(u), vector_len(v), vector_len(across)}))) {
    return false;
  }
  for (double& component : plane.normal) component /= length;
  plane.offset = 0;
  for (int i = 0; i < 3; ++i) plane.offset -= plane.normal[i] * p1[i];
  return true;
}

}  // namespace

void JH_RotatePoints(int n, float* xs, float* ys, float a) {
  rotate_points(a, n, xs, ys);
}

float JH_GetDistance(float x1, float y1, float z1, float x2, float y2, float z2) {
  return narrow(get_dist(double{x1}, double{y1}, double{z1}, double{x2}, double{y2}, double{z2}));
}

void JH_GetLineEnd(float x, float y, float a, float length, float* ex, float* ey) {
  *ex = narrow(x + length * std::cos(double{a}));
  *ey = narrow(y + length * std::sin(double{a}));
}

int JH_GetLinePointY(float x1, float y1, float x2, float y2, float x, float* y) {
  const double dx = double{x2} - x1;
  if (!(std::fabs(dx) >= double{kTolerance})) return 0;
  *y = narrow(y1 + (double{y2} - y1) / dx * (double{x} - x1));
  return 1;
}

void JH_GetLineRatioPoint(float x1, float y1, float x2, float y2, float ratio, float* x, float* y) {
  *x = narrow(x1 + double{ratio} * (double{x2} - x1));
  *y = narrow(y1 + double{ratio} * (double{y2} - y1));
}

int JH_IsPointOnLine(float px, float py, float x1, float y1, float x2, float y2) {
  return JH_TestPointIn_LineSection(px, py, x1, y1, x2, y2, kTolerance);
}

int JH_IsLineLeftPt(float px, float py, float x1, float y1, float x2, float y2) {
  return left_of(px, py, x1, y1, x2, y2) > double{kTolerance};
}

void JH_RectScale(float* xmin, float* ymin, float* xmax, float* ymax, float scale) {
  const double cx = (double{*xmin} + *xmax) / 2, cy = (double{*ymin} + *ymax) / 2;
  const double w = (double{*xmax} - *xmin) / 2 * scale, h = (double{*ymax} - *ymin) / 2 * scale;
  *xmin = narrow(cx - w);
  *xmax = narrow(cx + w);
  *ymin = narrow(cy - h);
  *ymax = narrow(cy + h);
}

void JH_GetRectPoint(float cx, float cy, float w, float h, float a, float* xs, float* ys) {
  const float half_w = w / 2, half_h = h / 2;
  const float x[4] = {-half_w, half_w, half_w, -half_w}, y[4] = {-half_h, -half_h, half_h, half_h};
  std::copy_n(x, 4, xs);
  std::copy_n(y, 4, ys);
  rotate_points(-a, 4, xs, ys);
  shift_points(-cx, -cy, 4, xs, ys);
}

int JH_IsAngleOnArc(float a, float a0, float a1) {
  return JH_TestAngleInArc(a, JH_Set2PI(a0), a1, kTolerance);
}

int JH_Get3PtCircleParam(float x1, float y1, float x2, float y2, float x3, float y3, float* cx,
                         float* cy, float* r) {
  Circle c;
  if (!circle_through(x1, y1, x2, y2, x3, y3, c)) return 0;
  *cx = narrow(c.x);
  *cy = narrow(c.y);
  *r = narrow(c.r);
  return 1;
}

int JH_GetArcPara(float x1, float y1, float x2, float y2, float x3, float y3, float* cx, float* cy,
                  float* r, float* a0, float* a1) {
  if (!JH_Get3PtCircleParam(x1, y1, x2, y2, x3, y3, cx, cy, r)) return 0;
  *a0 = JH_GetAngle(*cx, *cy, x1, y1);
  *a1 = JH_GetAngle(*cx, *cy, x3, y3);
  if (left_of(x3, y3, x1, y1, x2, y2) < 0) std::swap(*a0, *a1);
  return 1;
}

int JH_GetQuadrant(float dx, float dy) {
  if (dx > 0 && dy >= 0) return 1;
  if (dx <= 0 && dy > 0) return 2;
  if (dx < 0 && dy <= 0) return 3;
  if (dx >= 0 && dy < 0) return 4;
  return 0;
}

int JH_Get3PtPlaneEquationParam(const float* p1, const float* p2, const float* p3, float* A,
                                float* B, float* C, float* D) {
  Plane plane;
  if (!plane_through(p1, p2, p3, plane)) return 0;
  *A = narrow(plane.normal[0]);
  *B = narrow(plane.normal[1]);
  *C = narrow(plane.normal[2]);
  *D = narrow(plane.offset);
  return 1;
}

int JH_Get3PtPlanePtZ(const float* p1, const float* p2, const float* p3, float x, float y,
                      float* z) {
  Plane plane;
  if (!plane_through(p1, p2, p3, plane)) return 0;
  if (!(std::fabs(plane.normal[2]) >= double{kTolerance})) return 0;
  *z = narrow(-(plane.normal[0] * x + plane.normal[1] * y + plane.offset) / plane.normal[2]);
  return 1;
}

int JH_IsTuPolygon(int n, const float* xs, const float* ys) {
  if (n < 3) return 0;
  bool left = false, right = false;
  double turned = 0;
  for (int i = 0; i < n; ++i) {
    const int j = i + 1 < n ? i + 1 : 0, k = j + 1 < n ? j + 1 : 0;
    const double ux = double{xs[j]} - xs[i], uy = double{ys[j]} - ys[i];
    const double vx = double{xs[k]} - xs[j], vy = double{ys[k]} - ys[j];
    const double cross = ux * vy - uy * vx;
    // How far the next corner is from the line through this side.
    const double off = cross / std::hypot(ux, uy);
    if (off > double{kTolerance}) left = true;
    if (off < -double{kTolerance}) right = true;
    turned += std::atan2(cross, ux * vx + uy * vy);
  }
  return left != right && std::fabs(std::fabs(turned) - 2 * std::numbers::pi) < 1;
}

int JH_GetMaxMinDist(float px, float py, int n, const float* xs, const float* ys, float* largest,
                     float* smallest) {
  if (n < 1) return 0;
  for (int i = 0; i < n; ++i) {
    const float d = brindle::JH_GetDistance(px, py, xs[i], ys[i]);
    if (i == 0 || d > *largest) *largest = d;
    if (i == 0 || d < *smallest) *smallest = d;
  }
  return 1;
}

int JH_LineInterExtent(float x1, float y1, float x2, float y2, float xmin, float ymin, float xmax,
                       float ymax, float* xa, float* ya, float* xb, float* yb) {
  const double length = std::hypot(double{x2} - x1, double{y2} - y1);
  if (!(length > 0)) return 0;
  const double ux = (double{x2} - x1) / length, uy = (double{y2} - y1) / length;
  double from = -std::numeric_limits<double>::infinity(), to = -from;
  // The stretch of the line between each pair of sides.
  const struct {
    double direction, low, high;
  } pairs[] = {{ux, double{xmin} - x1, double{xmax} - x1},
               {uy, double{ymin} - y1, double{ymax} - y1}};
  for (const auto& pair : pairs) {
    if (std::fabs(pair.direction) < 1e-12) {
      if (!(pair.low <= double{kTolerance} && pair.high >= -double{kTolerance})) return 0;
      continue;
    }
    const double a = pair.low / pair.direction, b = pair.high / pair.direction;
    from = std::max(from, std::min(a, b));
    to = std::min(to, std::max(a, b));
  }
  if (!(to - from >= -double{kTolerance})) return 0;
  *xa = narrow(x1 + from * ux);
  *ya = narrow(y1 + from * uy);
  *xb = narrow(x1 + to * ux);
  *yb = narrow(y1 + to * uy);
  if (to - from > double{kTolerance}) return 2;
  *xb = *xa;
  *yb = *ya;
  return 1;
}

}  // namespace brindle::QxJGFunEx
