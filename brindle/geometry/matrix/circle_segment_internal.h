// Area and moments of the segment that a chord cuts off a circle.
#pragma once

#include <algorithm>
#include <cmath>

namespace brindle::QxJGFunEx {

// The part of the circle of radius R about the origin with x beyond `x` (from -R to R, held to it).
struct CircleSegment {
  double area = 0;
  double moment = 0;  // integral of x
  double along = 0;   // integral of x x
  double across = 0;  // integral of y y

  CircleSegment(double R, double x) {
    const double half = std::acos(std::clamp(x / R, -1.0, 1.0));
    const double s = std::sin(half), c = std::cos(half);
    // The sector, t / 2 pi of the disc for t = 2 half, less the triangle s R x.
    const double plain = half - s * c;
    area = R * R * plain;
    moment = 2.0 / 3 * R * R * R * s * s * s;
    const double fourth = R * R * R * R / 4;
    along = fourth * (plain + 2 * s * s * s * c);
    across = fourth * (plain - 2.0 / 3 * s * s * s * c);
  }
};

}  // namespace brindle::QxJGFunEx
