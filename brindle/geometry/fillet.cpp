#include "brindle/geometry/fillet.h"

#include <cmath>
#include <numbers>

#include "brindle/geometry/helpers.h"
#include "brindle/geometry/polygons.h"

namespace brindle {
namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

// In [0, 2 pi); polar would lose half of the digits near the y axis.
double direction(double dx, double dy) {
  const double angle = std::atan2(dy, dx);
  return angle < 0 ? angle + kTwoPi : angle;
}

// Out of the frame at (x0, y0) that is turned by `angle`.
void back(double angle, double x0, double y0, double* x, double* y) {
  rotate_coordinate(-angle, x, y);
  shift_coordinate(-x0, -y0, x, y);
}

}  // namespace

int Fillet(double x0, double y0, double x1, double y1, double x2, double y2, double r, double& cx,
           double& cy, double& ax, double& ay, double& bx, double& by) {
  if (std::fabs(det_tri(x0, y0, x1, y1, x2, y2)) < 1e-6) {
    cx = cy = ax = ay = bx = by = 0;
    return -1;
  }
  const double first = direction(x1 - x0, y1 - y0), second = direction(x2 - x0, y2 - y0);
  if (first > second) return Fillet(x0, y0, x2, y2, x1, y1, r, cx, cy, bx, by, ax, ay);
  const double between = second - first;
  // The leg from which the other one is reached by less than half a turn to the left.
  const bool from_first = between < std::numbers::pi;
  const double from = from_first ? first : second;
  const double turn = from_first ? between : kTwoPi - between;
  double near_x = r / std::tan(turn / 2), near_y = 0;
  double far_x = near_x, far_y = 0;
  cx = near_x;
  cy = r;
  rotate_coordinate(-turn, &far_x, &far_y);
  back(from, x0, y0, &cx, &cy);
  back(from, x0, y0, &near_x, &near_y);
  back(from, x0, y0, &far_x, &far_y);
  ax = from_first ? near_x : far_x;
  ay = from_first ? near_y : far_y;
  bx = from_first ? far_x : near_x;
  by = from_first ? far_y : near_y;
  return 0;
}

int Fillet(float x0, float y0, float x1, float y1, float x2, float y2, float r, float& cx,
           float& cy, float& ax, float& ay, float& bx, float& by) {
  double wide[6];
  const int result = Fillet(double{x0}, double{y0}, double{x1}, double{y1}, double{x2}, double{y2},
                            double{r}, wide[0], wide[1], wide[2], wide[3], wide[4], wide[5]);
  float* const places[] = {&cx, &cy, &ax, &ay, &bx, &by};
  for (int i = 0; i < 6; ++i) *places[i] = static_cast<float>(wide[i]);
  return result;
}

}  // namespace brindle
