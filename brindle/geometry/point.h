// CFPoint: a point in world units, single precision.
#pragma once

#include "brindle/platform/base/types.h"

namespace brindle {

class CArchive;

// A plain value of three floats; no virtual operations, no failures.
class CFPoint {
 public:
  constexpr CFPoint() : x(0), y(0), z(0) {}
  constexpr CFPoint(float x_, float y_, float z_) : x(x_), y(y_), z(z_) {}

  float GetX() const { return x; }
  float GetY() const { return y; }
  float GetZ() const { return z; }
  void SetX(float value) { x = value; }
  void SetY(float value) { y = value; }
  void SetZ(float value) { z = value; }

  // Each coordinate differs by less than 0.001.
  bool operator==(const CFPoint& p) const;
  // Any coordinate differs at all. Meant so: near points are both equal and unequal.
  bool operator!=(const CFPoint& p) const { return x != p.x || y != p.y || z != p.z; }

  // Coordinate by coordinate.
  CFPoint operator+(const CFPoint& p) const { return {x + p.x, y + p.y, z + p.z}; }
  CFPoint operator-(const CFPoint& p) const { return {x - p.x, y - p.y, z - p.z}; }
  CFPoint operator*(const CFPoint& p) const { return {x * p.x, y * p.y, z * p.z}; }
  // A zero divisor gives 0 in its place. The third coordinate is this x (not z) over p.z: meant so.
  CFPoint operator/(const CFPoint& p) const;
  CFPoint& operator+=(const CFPoint& p) { return *this = *this + p; }
  CFPoint& operator-=(const CFPoint& p) { return *this = *this - p; }

  // Distance in space; differences and squares in float.
  double Distance(const CFPoint& p) const;
  // 1 when each coordinate differs by less than `eps`, else 0.
  BOOL Similar(const CFPoint& p, double eps) const;
  BOOL HitTest(const CFPoint& p, double eps) const { return Similar(p, eps); }
  // 1 when the point lies in the closed box that `a` and `b` span, whichever corners they are.
  BOOL Contain(const CFPoint& a, const CFPoint& b) const;

  // Turns the point about `centre` by `angle` radians, counter-clockwise; z stays. The radius is
  // the distance in space, so a centre at another z throws the point outwards.
  CFPoint& Rotate(const CFPoint& centre, double angle);
  // Mirrors the point in the line through `a` and `b`, seen from above.
  CFPoint& Mirror(const CFPoint& a, const CFPoint& b);
  // Moves the point away from `centre` to `factor` times its distance.
  CFPoint& Stretch(const CFPoint& centre, double factor);

  // x, y, z as 32-bit floats.
  void Serialize(CArchive& archive);

  float x, y, z;
};

}  // namespace brindle
