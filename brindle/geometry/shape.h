// CFShape: one piece of a curve: a point, a straight section, an arc, or a circle.
#pragma once

#include <cmath>

#include "brindle/geometry/point.h"
#include "brindle/platform/base/types.h"

namespace brindle {

class CArchive;

// A value in single precision; angles are radians. A negative `r` means that the piece runs the
// other way: it turns the direction by pi, and as a factor of cosine and sine it keeps start and
// end where they are.
class CFShape : public CFPoint {
 public:
  // A point at the origin. Like the other points it leaves `a` and `b` unset.
  CFShape() : r(0) {}
  CFShape(float x_, float y_) : CFPoint(x_, y_, 0), r(0) {}
  CFShape(const CFPoint& p) : CFPoint(p), r(0) {}
  // The section from p to q, seen from above: z is 0.
  CFShape(const CFPoint& p, const CFPoint& q);
  // The section from p of length 1 in direction `angle`.
  CFShape(const CFPoint& p, float angle) : CFPoint(p), r(1), a(angle), b(0) {}
  // The given fields: an arc or circle about c, or a section from there. z is 0.
  CFShape(const CFPoint& c, float radius, float start_angle, float sweep)
      : CFPoint(c.x, c.y, 0), r(radius), a(start_angle), b(sweep) {}
  // The edge from p to q whose tangent at p is turned by the half-angle `c` from the chord: an arc
  // of sweep -2c, or the section for 0. z is 0.
  CFShape(const CFPoint& p, const CFPoint& q, float c);
  // The arc through three points, always stored as running from p2 to p1: counter-clockwise when p3
  // lies left of p1 to p2, else clockwise. Points on one line give the section from p1 to p2.
  CFShape(const CFPoint& p1, const CFPoint& p2, const CFPoint& p3);

  BOOL IsPoint() const { return r == 0; }
  BOOL IsLine() const { return r != 0 && b == 0; }
  BOOL IsArc() const { return r != 0 && b != 0 && std::fabs(b) < kFullTurn; }
  BOOL IsCircle() const { return r != 0 && std::fabs(b) >= kFullTurn; }

  // Direction of a section, or start angle.
  float GetA() const { return static_cast<float>(GetStartAngle()); }
  double GetStartAngle() const { return r >= 0 ? a : a + kHalfTurn; }
  void SetA(float angle) { a = r < 0 ? static_cast<float>(angle + kHalfTurn) : angle; }
  // Signed sweep.
  float GetB() const { return b; }
  void SetB(float sweep) { b = sweep; }
  // Length or radius, without sign; set, it takes the sign of the present one.
  float GetR() const { return std::fabs(r); }
  double GetRadius() const { return std::fabs(r); }
  void SetR(float length) { r = r < 0 ? -length : length; }
  double GetEndAngle() const { return GetStartAngle() + b; }

  // Their z is 0, but for the start of a section, which is its point.
  CFPoint GetStartPoint() const;
  CFPoint GetEndPoint() const;
  // Half way along; of a circle the top.
  CFPoint GetMiddlePoint() const;
  double GetLength() const { return IsLine() ? GetRadius() : std::fabs(double{r} * b); }
  // 1 when p lies left of the line through the point in direction `a`.
  BOOL AtLeft(const CFPoint& p) const;

  // The point, then `r`, `a`, `b` as 32-bit floats.
  void Serialize(CArchive& archive);

  float r;  // signed length of a section, or signed radius; 0: a point
  float a;  // direction of a section, or start angle
  float b;  // sweep, counter-clockwise when positive; 0: straight

 private:
  static constexpr double kHalfTurn = 3.1415926535;
  static constexpr double kFullTurn = 6.283185307;

  // The point at `distance` from (x, y) in direction `angle`, z 0.
  CFPoint at(double angle, double distance) const;
};

}  // namespace brindle
