#include "brindle/mesh/geo_vertex.h"

#include "brindle/mesh/circle_test_internal.h"

namespace brindle {

void CGeoVertex::Get(float& px, float& py, float& pz) const {
  px = static_cast<float>(x);
  py = static_cast<float>(y);
  pz = static_cast<float>(z);
}

void CGeoVertex::Get(double& px, double& py, double& pz) const {
  px = x;
  py = y;
  pz = z;
}

int CGeoVertex::IsConllinear(const CGeoVertex& a, const CGeoVertex& b, const CGeoVertex& c) {
  const CGeoVector u = b - a;
  const CGeoVector v = c - a;
  return u.Length() < 1e-5 || v.Length() < 1e-5 || (u ^ v).Length() < 1e-5;
}

int CGeoVertex::Get_3P_Circle(double x1, double y1, double x2, double y2, double x3, double y3,
                              double& r, double& cx, double& cy) {
  const CGeoVertex p1(x1, y1, 0.0), p2(x2, y2, 0.0), p3(x3, y3, 0.0);
  if (IsConllinear(p1, p2, p3)) return 0;
  const double length = p1.Distance(p2);
  const double nx = -(y2 - y1) / length;
  const double ny = (x2 - x1) / length;
  const double t =
      ((x3 - x2) * (x3 - x1) + (y3 - y2) * (y3 - y1)) / (2 * ((x3 - x1) * nx + (y3 - y1) * ny));
  cx = (x1 + x2) / 2 + t * nx;
  cy = (y1 + y2) / 2 + t * ny;
  r = p1.Distance(CGeoVertex(cx, cy, 0.0));
  return 1;
}

int CGeoVertex::IsPtInCircle(double x, double y, double cx, double cy, double r) {
  return 1e-5 >= CGeoVertex(x, y, 0.0).Distance(CGeoVertex(cx, cy, 0.0)) - r;
}

int CGeoVertex::IsPtIn3PCircle(double x, double y, double x1, double y1, double x2, double y2,
                               double x3, double y3) {
  return circle_side(x, y, x1, y1, x2, y2, x3, y3);
}

void CGeoVector::Normalize() {
  const double length = Length();
  if (length < 1e-5) return;
  x /= length;
  y /= length;
  z /= length;
}

}  // namespace brindle
