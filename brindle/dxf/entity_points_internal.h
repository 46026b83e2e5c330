// Small helpers that the simple entity kinds share. Not for use outside this folder.
#pragma once

#include "brindle/geometry/coordinate_transform.h"

namespace brindle::Varnholt {

// Replaces a point by its picture under two axonometric angles, with z = 0.
inline void project_point(double& x, double& y, double& z, double angle1, double angle2) {
  float u = 0, v = 0;
  G_ConCoor.TouYing3Dto2D(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z),
                          static_cast<float>(angle1), static_cast<float>(angle2), u, v);
  x = u;
  y = v;
  z = 0;
}

}  // namespace brindle::Varnholt
