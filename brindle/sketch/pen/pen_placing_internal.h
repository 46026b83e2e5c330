// Placing local points in the pen's coordinates.
#pragma once

#include "brindle/geometry/helpers.h"

namespace brindle {

constexpr double kRadiansOfDegree = 3.14159265358979323846 / 180.0;

inline float radians_of(float degrees) {
  return static_cast<float>(degrees * kRadiansOfDegree);
}

// Turns a local point counter-clockwise and shifts it.
inline void place_point(float angle, float dx, float dy, float* x, float* y) {
  rotate_coordinate(-radians_of(angle), x, y);
  shift_coordinate(-dx, -dy, x, y);
}

// The centre of a rectangle by its corner: turned clockwise in every form, which is meant.
inline void corner_to_centre(float w, float h, float left, float bottom, float angle, float* cx,
                             float* cy) {
  *cx = w / 2;
  *cy = h / 2;
  rotate_coordinate(radians_of(angle), cx, cy);
  shift_coordinate(-left, -bottom, cx, cy);
}

}  // namespace brindle
