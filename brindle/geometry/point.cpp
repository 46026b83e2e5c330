#include "brindle/geometry/point.h"

#include <algorithm>
#include <cmath>

#include "brindle/platform/base/archive.h"

namespace brindle {
namespace {

// The direction from `from` to `to` in radians, the differences in float.
double direction(const CFPoint& from, const CFPoint& to) {
  return std::atan2(static_cast<double>(to.y - from.y), static_cast<double>(to.x - from.x));
}

float divide(float value, float divisor) {
  return divisor == 0 ? 0 : value / divisor;
}

bool between(float value, float a, float b) {
  return std::min(a, b) <= value && value <= std::max(a, b);
}

}  // namespace

bool CFPoint::operator==(const CFPoint& p) const {
  constexpr float kTolerance = 0.001f;
  return kTolerance > std::fabs(x - p.x) && kTolerance > std::fabs(y - p.y) &&
         kTolerance > std::fabs(z - p.z);
}

CFPoint CFPoint::operator/(const CFPoint& p) const {
  return {divide(x, p.x), divide(y, p.y), divide(x, p.z)};
}

double CFPoint::Distance(const CFPoint& p) const {
  const float dx = x - p.x, dy = y - p.y, dz = z - p.z;
  return std::sqrt(static_cast<double>(dx * dx + dy * dy + dz * dz));
}

BOOL CFPoint::Similar(const CFPoint& p, double eps) const {
  return eps > std::fabs(double{x} - p.x) && eps > std::fabs(double{y} - p.y) &&
         eps > std::fabs(double{z} - p.z);
}

BOOL CFPoint::Contain(const CFPoint& a, const CFPoint& b) const {
  return between(x, a.x, b.x) && between(y, a.y, b.y) && between(z, a.z, b.z);
}

CFPoint& CFPoint::Rotate(const CFPoint& centre, double angle) {
  const CFPoint c = centre;  // it may be this point itself
  const double radius = Distance(c);
  const double turned = direction(c, *this) + angle;
  x = static_cast<float>(c.x + radius * std::cos(turned));
  y = static_cast<float>(c.y + radius * std::sin(turned));
  return *this;
}

CFPoint& CFPoint::Mirror(const CFPoint& a, const CFPoint& b) {
  return Rotate(a, 2 * (direction(a, b) - direction(a, *this)));
}

CFPoint& CFPoint::Stretch(const CFPoint& centre, double factor) {
  const CFPoint c = centre;
  x = static_cast<float>(c.x + (x - c.x) * factor);
  y = static_cast<float>(c.y + (y - c.y) * factor);
  z = static_cast<float>(c.z + (z - c.z) * factor);
  return *this;
}

void CFPoint::Serialize(CArchive& archive) {
  if (archive.IsStoring()) {
    archive << x << y << z;
  } else {
    archive >> x >> y >> z;
  }
}

}  // namespace brindle
