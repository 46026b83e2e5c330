// Deflection and moments of a thin plate by discrete Kirchhoff triangles.
#pragma once

#include <vector>

#include "examples/plate/plate_mesh.h"

namespace brindle::plate {

struct NodeResult {
  double deflection_mm = 0;        // down is positive
  double mx = 0, my = 0, mxy = 0;  // kN.m/m; positive with tension at the bottom
};

// One result a node; the moments are the means of the triangles there. Empty with a message (301)
// when the supports don't hold the slab.
std::vector<NodeResult> solve_plate(const PlateInput& plate, const PlateMesh& mesh);

}  // namespace brindle::plate
