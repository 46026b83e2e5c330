// CFRegion: whether a point lies in the ring.
#include "brindle/geometry/region.h"
#include "brindle/geometry/shape_internal.h"

namespace brindle {
namespace {

bool crosses_section(const CFPoint& from, const CFPoint& to, const CFPoint& p) {
  if (from.y == to.y) return false;
  const CFPoint& low = from.y < to.y ? from : to;
  const CFPoint& high = from.y < to.y ? to : from;
  if (!(low.y < p.y && p.y <= high.y)) return false;
  const double x = double{p.x} - low.x, y = double{p.y} - low.y;
  const double dx = double{high.x} - low.x, dy = double{high.y} - low.y;
  return x - y * dx / dy <= 0;
}

// The tests stand in their order; each decides only what the ones before it left open. `first` and
// `second` are the ends, exchanged halfway so that the arc runs counter-clockwise between them.
bool crosses_arc(const CFPoint& from, const CFPoint& to, float c, const CFPoint& p) {
  if (from.x == to.x && from.y == to.y) return false;
  const double signed_radius = shapes::planar_distance(from, to) / 2 / std::sin(double{c});
  const double tangent = shapes::planar_direction(from, to) + c;
  const CFPoint centre(static_cast<float>(from.x + std::sin(tangent) * signed_radius),
                       static_cast<float>(from.y - std::cos(tangent) * signed_radius), 0);
  const double radius = std::fabs(signed_radius);

  if (from.x == centre.x && (from.y <= to.y ? p.y <= from.y : p.y > from.y)) return false;
  if (to.x == centre.x && (to.y <= from.y ? p.y <= to.y : p.y > to.y)) return false;
  if (!(p.y <= centre.y + radius && p.y > centre.y - radius)) return false;  // NaN included
  const bool out = shapes::planar_distance(p, centre) > radius;
  if (p.x > centre.x && out) return false;

  const CFPoint& first = c > 0 ? to : from;
  const CFPoint& second = c > 0 ? from : to;
  const bool first_left = first.x < centre.x, second_left = second.x < centre.x;
  if (first_left && !second_left) return p.y <= second.y || (out && p.y <= first.y);
  if (first_left && second_left) {
    return first.y <= second.y || (out && second.y < p.y && p.y <= first.y);
  }
  if (second_left) return p.y > first.y || (out && p.y > second.y);
  if (second.y <= first.y) return out || p.y > first.y || p.y <= second.y;
  return first.y < p.y && p.y <= second.y;
}

}  // namespace

BOOL CFRegion::InRegion(const CFPoint& p) const {
  constexpr float kStraight = 0.001f;
  bool inside = false;
  const CFShoot* from = &GetAt(GetUpperBound());
  for (const CFShoot& to : *this) {
    const bool straight = std::fabs(from->c) < kStraight;
    if (straight ? crosses_section(*from, to, p) : crosses_arc(*from, to, from->c, p)) {
      inside = !inside;
    }
    from = &to;
  }
  return inside;
}

}  // namespace brindle
