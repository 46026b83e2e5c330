// CFShape: what two pieces have in common.
#include "brindle/geometry/predicates.h"
#include "brindle/geometry/shape.h"

namespace brindle {
namespace {

// A straight piece as the predicates take it.
struct Ends {
  explicit Ends(const CFShape& s) : start(s.GetStartPoint()), end(s.GetEndPoint()) {}
  CFPoint start, end;
};

// A curved piece as the predicates take it, the sweep as it stands.
struct Arc {
  explicit Arc(const CFShape& s)
      : x(s.x),
        y(s.y),
        radius(s.GetR()),
        first(s.GetA()),
        last(static_cast<float>(s.GetEndAngle())) {}
  float x, y, radius, first, last;
};

// Up to two points from the predicates.
struct Found {
  float x[2], y[2];
  int count;

  int write(CFPoint pts[]) const {
    for (int i = 0; i < count; ++i) pts[i] = {x[i], y[i], 0};
    return count;
  }
};

int intersect_straight(const CFShape& s, const CFShape& t, CFPoint pts[], int mode1, int mode2) {
  constexpr float kTolerance = 1e-5f;
  const Ends p(s), q(t);
  Found f{};
  const auto by = [&](auto intersection) {
    f.count = intersection(p.start.x, p.start.y, p.end.x, p.end.y, q.start.x, q.start.y, q.end.x,
                           q.end.y, f.x, f.y, kTolerance);
  };
  if (mode1 == 0 && mode2 == 0) {
    by(JH_GetInterPoint_LineSection_LineSection);
  } else if (mode1 == 1 && mode2 == 1) {
    by(JH_GetInterPoint_Line);
  }
  return f.count == 2 ? -1 : f.write(pts);
}

int intersect_curved(const CFShape& s, const CFShape& t, CFPoint pts[]) {
  const Arc p(s), q(t);
  Found f{};
  f.count = JH_GetInterPoint_Arc_Arc(p.x, p.y, p.radius, p.first, p.last, q.x, q.y, q.radius,
                                     q.first, q.last, f.x, f.y, f.x + 1, f.y + 1, 0);
  return f.count == -1 ? -1 : f.write(pts);
}

int intersect_mixed(const CFShape& section, const CFShape& curve, CFPoint pts[]) {
  const Ends s(section);
  const Arc arc(curve);
  Found f{};
  f.count = JH_GetInterPoint_LineSection_Arc(s.start.x, s.start.y, s.end.x, s.end.y, arc.x, arc.y,
                                             arc.radius, arc.first, arc.last, f.x, f.y, f.x + 1,
                                             f.y + 1, 0);
  return f.write(pts);
}

BOOL meet_mixed(const CFShape& section, const CFShape& curve, float tol) {
  const Ends s(section);
  const Arc arc(curve);
  return JH_TestCrossRegon_LineSection_Arc(s.start.x, s.start.y, s.end.x, s.end.y, arc.x, arc.y,
                                           arc.radius, arc.first, arc.last, tol);
}

}  // namespace

int CFShape::Intersect(const CFShape& other, CFPoint pts[], int mode1, int mode2) const {
  if (IsPoint() || other.IsPoint()) return 0;
  if (IsLine() && other.IsLine()) return intersect_straight(*this, other, pts, mode1, mode2);
  if (IsLine()) return intersect_mixed(*this, other, pts);
  if (other.IsLine()) return intersect_mixed(other, *this, pts);
  return intersect_curved(*this, other, pts);
}

BOOL CFShape::Intersect(const CFShape& other, float tol) const {
  if (IsPoint() || other.IsPoint()) return 0;
  if (IsLine() && other.IsLine()) {
    const Ends p(*this), q(other);
    return JH_TestCrossRegon_LineSection_LineSection(p.start.x, p.start.y, p.end.x, p.end.y,
                                                     q.start.x, q.start.y, q.end.x, q.end.y, tol);
  }
  if (IsLine()) return meet_mixed(*this, other, tol);
  if (other.IsLine()) return meet_mixed(other, *this, tol);
  const Arc p(*this), q(other);
  return JH_TestCrossRegon_Arc_Arc(p.x, p.y, p.radius, p.first, p.last, q.x, q.y, q.radius, q.first,
                                   q.last, tol);
}

BOOL CFShape::Similar(const CFShape& other, float tol) const {
  if (!CFPoint::Similar(other, 1e-5)) return 0;
  if (std::fabs(double{r} - other.r) > tol) return 0;
  if (r == 0) return 1;
  const double angular = std::fabs(double{tol} / r);
  if (std::fabs(std::fmod(double{a} - other.a, 6.2831854820251465)) > angular) return 0;
  return !(angular > std::fabs(double{b} - other.b));
}

}  // namespace brindle
