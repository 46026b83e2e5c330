// CFShape: where a point lies, what a ray or a window meets, and the box.
#include <algorithm>

#include "brindle/geometry/shape.h"
#include "brindle/geometry/shape_internal.h"

namespace brindle {

using shapes::planar_direction;
using shapes::planar_distance;

double CFShape::Distance(const CFPoint& p) const {
  const double away = planar_distance(*this, p);
  return std::fabs(IsLine() ? away * std::sin(planar_direction(*this, p) - a) : away - r);
}

BOOL CFShape::AtLeft(const CFPoint& p) const {
  const double dx = double{p.x} - x, dy = double{p.y} - y;
  return dy * std::cos(double{a}) - dx * std::sin(double{a}) > 0;
}

double CFShape::first_angle() const {
  double angle = a;
  if (r < 0) angle += kHalfTurn;
  if (b < 0) angle += b;
  angle = std::fmod(angle, kFullTurn);
  return angle < 0 ? angle + kFullTurn : angle;
}

BOOL CFShape::OnShape(const CFPoint& p, float tol) const {
  if (is_straight()) {
    // From p back to the start: the section covers x from -|r| to 0.
    const double dx = double{x} - p.x, dy = double{y} - p.y;
    const double cosine = std::cos(double{a}), sine = std::sin(double{a});
    double along = dx * cosine + dy * sine;
    if (r < 0) along = -along;
    return along - tol <= 0 && along + GetRadius() + tol >= 0 &&
           std::fabs(dy * cosine - dx * sine) < tol;
  }
  if (std::fabs(planar_distance(*this, p) - GetRadius()) > tol) return 0;
  const double first = first_angle();
  double direction = std::fmod(planar_direction(*this, p), kFullTurn);
  while (direction < first) direction += kFullTurn;
  return std::fabs(b) + first >= direction;
}

BOOL CFShape::OverLine(const CFPoint& p, float angle, float len) const {
  if (IsPoint()) return 0;
  CFShape moved(*this);
  if (angle != 0) {
    static_cast<CFPoint&>(moved).Rotate(p, -angle);
    moved.a -= angle;
  }
  moved.x -= p.x;
  moved.y -= p.y;
  if (len < 0) {
    len = -len;
    moved.x = -moved.x;
    moved.y = -moved.y;
    moved.a -= 3.1415927f;
  }
  return is_straight() ? moved.section_over_axis(len) : moved.arc_over_axis(len);
}

bool CFShape::section_over_axis(double len) const {
  const double crossing = -y / std::tan(double{a}) + x;
  if (crossing < 0) return false;
  if (len != 0 && len < crossing) return false;
  return (crossing - x) * (crossing - (x + r * std::cos(double{a}))) <= 0;
}

bool CFShape::arc_over_axis(double len) const {
  constexpr float kTurn = 6.2831855f;
  CFShape arc(*this);
  if (arc.r < 0) {
    arc.r = -arc.r;
    arc.a += 3.1415927f;
  }
  if (arc.b < 0) {
    arc.a += arc.b;
    arc.b = -arc.b;
  }
  arc.a = std::fmod(arc.a, kTurn);
  if (arc.a < 0) arc.a += kTurn;

  // A circle that the axis misses makes these NaN, which satisfies no comparison below.
  const double half_chord = std::sqrt(double{arc.r} * arc.r - double{y} * y);
  double direction = std::atan(y / half_chord) + kHalfTurn;
  const auto holds_direction = [&] {
    return (direction - arc.a) * (direction - arc.a - arc.b) <= 0;
  };
  const bool has_left = x - half_chord >= 0;
  if (has_left && holds_direction() && (len == 0 || len >= x - half_chord)) return true;
  if (!has_left && x + half_chord < 0) return false;
  direction = kHalfTurn - direction;
  if (arc.a >= 4.71238898025) arc.a -= kTurn;
  return holds_direction() && (len == 0 || len >= x + half_chord);
}

BOOL CFShape::Contain(const CFPoint& p1, const CFPoint& p2) const {
  CFPoint min, max;
  GetRect(min, max);
  if (min.Contain(p1, p2) && max.Contain(p1, p2)) return 1;
  if (p2.x >= p1.x) return 0;
  return shapes::crosses_window(*this, p1, p2);
}

void CFShape::GetRect(CFPoint& min, CFPoint& max) const {
  const CFPoint start = GetStartPoint(), end = GetEndPoint();
  min = {std::min(start.x, end.x), std::min(start.y, end.y), 0};
  max = {std::max(start.x, end.x), std::max(start.y, end.y), 0};
  if (b == 0) return;
  const double first = first_angle();
  const double last = first + std::fabs(b);
  // Whether the arc passes the direction of an axis; an end there is in the box already.
  const auto passes = [first, last](double axis) {
    return last > (first >= axis ? axis + kFullTurn : axis);
  };
  const float radius = GetR();
  if (passes(0)) max.x = std::max(max.x, x + radius);
  if (passes(1.57079632675)) max.y = std::max(max.y, y + radius);
  if (passes(3.1415926535)) min.x = std::min(min.x, x - radius);
  if (passes(4.71238898025)) min.y = std::min(min.y, y - radius);
}

}  // namespace brindle
