// The arc that a bulge makes of a segment. Not for use outside this folder.
#pragma once

#include <cmath>

namespace brindle::Varnholt {

struct BulgeArc {
  double x = 0, y = 0;  // centre
  double radius = 0;
  double start = 0;  // radians, direction of the first point
  double sweep = 0;  // radians, above 0 counter-clockwise
};

// A smaller bulge is a straight segment.
inline constexpr double kLeastBulge = 0.0001;

// False for a straight segment, and for one whose arc can't be told: equal or endless points, a
// radius beyond single precision.
inline bool bulge_arc(double x1, double y1, double x2, double y2, double bulge, BulgeArc& arc) {
  constexpr double kMostRadius = 1e30;
  const double size = std::fabs(bulge);
  if (!(size >= kLeastBulge)) return false;
  const double half_chord = std::hypot(x2 - x1, y2 - y1) / 2;
  const double sagitta = size * half_chord;
  const double leg = std::hypot(sagitta, half_chord);  // from an end to the top
  arc.radius = std::hypot(leg / 2, leg / 2 / size);
  if (!(half_chord > 0) || !(arc.radius < kMostRadius)) return false;
  // The centre lies to the left of the chord for a flat counter-clockwise arc.
  const double to_left = (bulge > 0 ? arc.radius - sagitta : sagitta - arc.radius) / half_chord / 2;
  arc.x = (x1 + x2) / 2 - (y2 - y1) * to_left;
  arc.y = (y1 + y2) / 2 + (x2 - x1) * to_left;
  arc.start = std::atan2(y1 - arc.y, x1 - arc.x);
  arc.sweep = 4 * std::atan(bulge);
  return true;
}

}  // namespace brindle::Varnholt
