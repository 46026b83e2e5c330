#include "brindle/geometry/shape.h"

#include "brindle/geometry/shape_internal.h"
#include "brindle/platform/base/archive.h"

namespace brindle {

CFShape::CFShape(const CFPoint& p, const CFPoint& q) : CFShape(p, q, 0.0f) {}

CFShape::CFShape(const CFPoint& p, const CFPoint& q, float c) : CFPoint(p.x, p.y, 0) {
  const double chord = shapes::planar_distance(p, q);
  const double direction = shapes::planar_direction(p, q);
  if (c == 0) {
    r = static_cast<float>(chord);
    a = static_cast<float>(direction);
    b = 0;
    return;
  }
  const double radius = chord / (2 * std::sin(double{c}));
  x = static_cast<float>(p.x + radius * std::sin(c + direction));
  y = static_cast<float>(p.y - radius * std::cos(c + direction));
  r = static_cast<float>(radius);
  a = static_cast<float>(c + direction + 1.57079632675);
  b = -2 * c;
}

CFShape::CFShape(const CFPoint& p1, const CFPoint& p2, const CFPoint& p3) {
  const double x1 = p1.x, y1 = p1.y, x2 = p2.x, y2 = p2.y, x3 = p3.x, y3 = p3.y;
  const double s12 = x1 * x1 + y1 * y1 - x2 * x2 - y2 * y2;
  const double s13 = x1 * x1 + y1 * y1 - x3 * x3 - y3 * y3;
  const double cx =
      (s12 * (y1 - y3) - s13 * (y1 - y2)) / (2 * (x1 - x2) * (y1 - y3) - 2 * (x1 - x3) * (y1 - y2));
  const double cy = std::fabs(y1 - y2) < 1e-20 ? (s13 - 2 * cx * (x1 - x3)) / (2 * (y1 - y3))
                                               : (s12 - 2 * cx * (x1 - x2)) / (2 * (y1 - y2));
  const double radius = std::sqrt((cx - x1) * (cx - x1) + (cy - y1) * (cy - y1));
  const CFShape section(p1, p2);
  // Points on one line give an infinite radius, or none at all when two of them coincide.
  if (!(radius <= 1e20)) {
    *this = section;
    return;
  }
  const double to_p1 = std::atan2(y1 - cy, x1 - cx), to_p2 = std::atan2(y2 - cy, x2 - cx);
  const bool left = section.AtLeft(p3);
  const double from = left ? to_p2 : to_p1;
  double sweep = std::fmod((left ? to_p1 : to_p2) - from, kFullTurn);
  if (sweep < 0) sweep += 6.2831855;
  x = static_cast<float>(cx);
  y = static_cast<float>(cy);
  r = static_cast<float>(radius);
  a = static_cast<float>(left ? from : from + sweep);
  b = static_cast<float>(left ? sweep : -sweep);
}

CFPoint CFShape::at(double angle, double distance) const {
  return {static_cast<float>(x + distance * std::cos(angle)),
          static_cast<float>(y + distance * std::sin(angle)), 0};
}

CFPoint CFShape::GetStartPoint() const {
  return IsLine() ? CFPoint(*this) : at(a, r);
}

CFPoint CFShape::GetEndPoint() const {
  return at(IsLine() ? double{a} : double{a} + b, r);
}

CFPoint CFShape::GetMiddlePoint() const {
  if (IsLine()) return at(a, double{r} / 2);
  if (IsCircle()) return {x, y + std::fabs(r), 0};
  return at(double{b} / 2 + a, r);
}

CFShape CFShape::VertMove(float dist) const {
  constexpr double kRightAngle = 1.5707964;
  CFShape moved(*this);
  if (IsPoint()) return moved;
  if (!IsLine()) {
    moved.r += dist;
  } else if (dist > 0) {
    moved.x = static_cast<float>(x + dist * std::cos(a - kRightAngle));
    moved.y = static_cast<float>(y + dist * std::sin(a - kRightAngle));
  } else if (dist < 0) {
    moved.x = static_cast<float>(x - dist * std::cos(a + kRightAngle));
    moved.y = static_cast<float>(y - dist * std::sin(a + kRightAngle));
  }
  return moved;
}

CFShape& CFShape::Mirror(const CFPoint& p1, const CFPoint& p2) {
  const double axis = shapes::planar_direction(p1, p2);
  CFPoint::Mirror(p1, p2);
  a = static_cast<float>(2 * axis - a);
  b = -b;
  return *this;
}

CFShape& CFShape::Rotate(const CFPoint& centre, float angle) {
  CFPoint::Rotate(centre, angle);
  a += angle;
  return *this;
}

CFShape& CFShape::Stretch(const CFPoint& base, float factor) {
  CFPoint::Stretch(base, factor);
  r *= factor;
  return *this;
}

void CFShape::Serialize(CArchive& archive) {
  CFPoint::Serialize(archive);
  if (archive.IsStoring()) {
    archive << r << a << b;
  } else {
    archive >> r >> a >> b;
  }
}

}  // namespace brindle
