// CFShape: one piece of a curve: a point, a straight section, an arc, or a circle.
#pragma once

#include <cmath>

#include "brindle/geometry/point.h"
#include "brindle/platform/base/types.h"

namespace brindle {

class CArchive;

// A value in single precision; angles are radians. A negative `r` means that the piece runs the
// other way: it turns the direction by pi, and as a factor of cosine and sine it keeps start and
// end where they are. Queries look from above, along z, and return 1 or 0.
class CFShape : public CFPoint {
 public:
  // A point, at the origin without arguments. The `a` and `b` of a point mean nothing.
  CFShape() : r(0), a(0), b(0) {}
  CFShape(float x_, float y_) : CFPoint(x_, y_, 0), r(0), a(0), b(0) {}
  CFShape(const CFPoint& p) : CFPoint(p), r(0), a(0), b(0) {}
  // The section from p to q, seen from above: z is 0.
  CFShape(const CFPoint& p, const CFPoint& q);
  // The section from p of length 1 in direction `angle`.
  CFShape(const CFPoint& p, float angle) : CFPoint(p), r(1), a(angle), b(0) {}
  // The given fields: an arc or circle about c, or a section from there. z is 0.
  CFShape(const CFPoint& c, float radius, float start_angle, float sweep)
      : CFPoint(c.x, c.y, 0), r(radius), a(start_angle), b(sweep) {}
  // The edge from p to q whose tangent at p is turned by the half-angle `c` from the chord: an arc
  // of sweep -2c, or the section for 0. z is 0. Equal points give a point.
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

  // The distance of p from the section's infinite line, or | distance from the centre - r |,
  // whatever the angles: for a negative r the two lengths add up, which is meant.
  double Distance(const CFPoint& p) const;
  // 1 when p lies left of the line through the point in direction `a`.
  BOOL AtLeft(const CFPoint& p) const;
  // Whether p lies on the piece within `tol`. A section is lengthened by it; its sides are strict.
  // The angles of an arc have no tolerance.
  BOOL OnShape(const CFPoint& p, float tol) const;
  BOOL HitTest(const CFPoint& p, float tol) const { return OnShape(p, tol); }
  // Whether the piece crosses the ray from p in direction `angle`, `len` long; 0: without end, and
  // a negative length goes backwards. The ray's start counts, a point is never crossed. The
  // crossing's direction on an arc is compared with its angles as they stand, without a turn added:
  // an arc that passes the crossing only in its second turn is not hit.
  BOOL OverLine(const CFPoint& p, float angle, float len) const;
  // Selection by a window dragged from p1 to p2: 1 for a piece whose box lies within; a window
  // dragged leftwards also takes what crosses one of its sides. Heights (z) count as in
  // CFPoint::Contain, with the piece at 0.
  BOOL Contain(const CFPoint& p1, const CFPoint& p2) const;
  // The lower left and the upper right corner of the piece's box, z 0.
  void GetRect(CFPoint& min, CFPoint& max) const;

  // The common points of two pieces go to pts[0] and pts[1], z 0; returns their number, or -1 when
  // two straight pieces overlap; curves are compared without a tolerance, so that no two of them
  // do, and pieces of one circle have no point. The modes, 0 for sections and 1 for infinite lines,
  // have a meaning for two straight pieces, and the two must be alike: unlike ones give 0. An arc
  // goes from its start angle to that plus the sweep, as JH_TestAngleInArc takes them, so that a
  // clockwise one has the points of the rest of its circle; this is meant.
  int Intersect(const CFShape& other, CFPoint pts[], int mode1, int mode2) const;
  // Whether two pieces meet within `tol`, arcs as before.
  BOOL Intersect(const CFShape& other, float tol) const;
  // Whether points (within 1e-5), lengths (`tol`) and directions (tol / r) agree. The sweeps must
  // differ by at least tol / r: two equal pieces are not similar for a positive tolerance, and this
  // is meant.
  BOOL Similar(const CFShape& other, float tol) const;

  // A parallel copy: of a section to the right by a positive distance and to the left by a negative
  // one, of an arc or circle with `dist` added to `r`. A point stays.
  CFShape VertMove(float dist) const;
  // Mirrors in the line through p1 and p2.
  CFShape& Mirror(const CFPoint& p1, const CFPoint& p2);
  CFShape& Rotate(const CFPoint& centre, float angle);
  CFShape& Stretch(const CFPoint& base, float factor);

  // The point, then `r`, `a`, `b` as 32-bit floats.
  void Serialize(CArchive& archive);

  float r;  // signed length of a section, or signed radius; 0: a point
  float a;  // direction of a section, or start angle
  float b;  // sweep, counter-clockwise when positive; 0: straight

 private:
  static constexpr double kHalfTurn = 3.1415926535;
  static constexpr double kFullTurn = 6.283185307;

  bool is_straight() const { return r == 0 || b == 0; }
  // The point at `distance` from (x, y) in direction `angle`, z 0.
  CFPoint at(double angle, double distance) const;
  // The angle in [0, 2 pi) from which the piece runs counter-clockwise by |b|.
  double first_angle() const;
  // Whether the piece crosses the positive x axis up to `len`, 0: without end.
  bool section_over_axis(double len) const;
  bool arc_over_axis(double len) const;
};

}  // namespace brindle
