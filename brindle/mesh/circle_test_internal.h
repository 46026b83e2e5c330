// The arithmetic of CGeoVertex::IsPtIn3PCircle, inline for the triangulation.
#pragma once

#include <cmath>

#include "brindle/geometry/determinant_internal.h"

namespace brindle {

// The determinant of the rows (1, x, y, x^2 + y^2) of three points and p, digit for digit as
// Mat_Det gives it: the pivots of the column of ones are all equal, so the first step takes the
// first row off the others and leaves three rows.
inline double circle_determinant(double x, double y, double x1, double y1, double x2, double y2,
                                 double x3, double y3) {
  const double s1 = x1 * x1 + y1 * y1;
  double rows[9] = {x2 - x1, y2 - y1, (x2 * x2 + y2 * y2) - s1,
                    x3 - x1, y3 - y1, (x3 * x3 + y3 * y3) - s1,
                    x - x1,  y - y1,  (x * x + y * y) - s1};
  return lu_determinant(rows, 3);
}

// Twice the area of the triangle, negative for a counter-clockwise one.
inline double twice_area_clockwise(double x1, double y1, double x2, double y2, double x3,
                                   double y3) {
  return (x3 - x1) * (y2 - y1) - (y3 - y1) * (x2 - x1);
}

inline int circle_side(double x, double y, double x1, double y1, double x2, double y2, double x3,
                       double y3) {
  const double z = twice_area_clockwise(x1, y1, x2, y2, x3, y3);
  if (std::fabs(z) <= 1e-5) return -1;
  const bool counter_clockwise = z < -1e-5;
  const double determinant = circle_determinant(x, y, x1, y1, x2, y2, x3, y3);
  if (std::fabs(determinant) < 1e-5) return 0;
  if (determinant > 1e-5) return counter_clockwise ? -1 : 1;
  return counter_clockwise ? 1 : -1;
}

}  // namespace brindle
