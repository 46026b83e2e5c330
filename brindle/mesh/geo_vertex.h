// Vertex and free vector of the double-precision polygon kernel, and the circle tests on them. The
// kernel's one tolerance, 1e-5 drawing units, is built into every comparison.
#pragma once

#include <cmath>

namespace brindle {

// The common base of edges, polygons and triangulations; empty.
class CGeometryBase {};

class CGeoVertex {
 public:
  double x = 0;
  double y = 0;
  double z = 0;

  CGeoVertex() = default;
  CGeoVertex(float px, float py, float pz) : x(px), y(py), z(pz) {}
  CGeoVertex(double px, double py, double pz) : x(px), y(py), z(pz) {}

  void Set(float px, float py, float pz) { *this = CGeoVertex(px, py, pz); }
  void Set(double px, double py, double pz) { *this = CGeoVertex(px, py, pz); }
  void Get(float& px, float& py, float& pz) const;
  void Get(double& px, double& py, double& pz) const;

  CGeoVertex operator+(const CGeoVertex& o) const { return {x + o.x, y + o.y, z + o.z}; }
  CGeoVertex operator-(const CGeoVertex& o) const { return {x - o.x, y - o.y, z - o.z}; }
  CGeoVertex operator*(const double& f) const { return {x * f, y * f, z * f}; }
  CGeoVertex operator/(const double& f) const { return {x / f, y / f, z / f}; }
  CGeoVertex operator-() const { return {-x, -y, -z}; }
  CGeoVertex& operator+=(const CGeoVertex& o) { return *this = *this + o; }
  CGeoVertex& operator-=(const CGeoVertex& o) { return *this = *this - o; }
  CGeoVertex& operator*=(const double& f) { return *this = CGeoVertex(x * f, y * f, z * f); }
  CGeoVertex& operator/=(const double& f) { return *this = CGeoVertex(x / f, y / f, z / f); }

  // No axis, z included, differs by more than 1e-5. Not transitive; NaN equals nothing.
  bool operator==(const CGeoVertex& o) const {
    return std::fabs(x - o.x) <= 1e-5 && std::fabs(y - o.y) <= 1e-5 && std::fabs(z - o.z) <= 1e-5;
  }
  bool operator!=(const CGeoVertex& o) const { return !(*this == o); }

  // Distance over all three axes.
  double Distance(const CGeoVertex& o) const {
    const double dx = x - o.x, dy = y - o.y, dz = z - o.z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
  }

  // 1 when b or c lies nearer than 1e-5 to a, or the cross product of b - a and c - a is shorter
  // than 1e-5. The product isn't normalised: long edges need a tiny angle. Else 0.
  static int IsConllinear(const CGeoVertex& a, const CGeoVertex& b, const CGeoVertex& c);
  // The circle through three points of the plane: 1, or 0 when they are collinear in the sense of
  // IsConllinear; the outputs are then left alone.
  static int Get_3P_Circle(double x1, double y1, double x2, double y2, double x3, double y3,
                           double& r, double& cx, double& cy);
  // 1 when the point lies in the circle or at most 1e-5 outside it, else 0.
  static int IsPtInCircle(double x, double y, double cx, double cy, double r);
  // Where (x, y) lies to the circle through three points in either turn: 1 inside, 0 on it, -1
  // outside, and always -1 when twice the area of the three is at most 1e-5. "On" is a determinant
  // below 1e-5 in size that grows with the fourth power of the coordinates, so far from the origin
  // hardly a point is on a circle.
  static int IsPtIn3PCircle(double x, double y, double x1, double y1, double x2, double y2,
                            double x3, double y3);
};

class CGeoVector : public CGeoVertex {
 public:
  CGeoVector() = default;
  CGeoVector(float px, float py, float pz) : CGeoVertex(px, py, pz) {}
  CGeoVector(double px, double py, double pz) : CGeoVertex(px, py, pz) {}
  CGeoVector(const CGeoVertex& v) : CGeoVertex(v) {}  // meant to be implicit

  using CGeoVertex::operator*;
  // Dot product.
  double operator*(const CGeoVector& o) const { return x * o.x + y * o.y + z * o.z; }
  // Cross product.
  CGeoVector operator^(const CGeoVector& o) const {
    return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
  }
  double Length2() const { return x * x + y * y + z * z; }
  double Length() const { return std::sqrt(Length2()); }
  // Scales to length 1; a vector shorter than 1e-5 stays as it is.
  void Normalize();
};

}  // namespace brindle
