// The triangle mesh of a slab and what holds its nodes.
#pragma once

#include <array>
#include <vector>

#include "examples/plate/plate_input.h"

namespace brindle::plate {

struct Support {
  bool deflection = false;  // held against deflection
  bool slopes = false;      // both slopes as well
  double tx = 0, ty = 0;    // unit direction along which the slope is held; 0, 0 for none
};

struct PlateMesh {
  std::vector<Point> nodes;
  std::vector<Support> supports;              // one a node; of two edges the stronger one counts
  std::vector<std::array<int, 3>> triangles;  // counter-clockwise
};

// Points on a staggered grid and along the edges, triangulated by CGeoCDT. False with a message
// (301) when the triangles don't fill the slab.
bool make_plate_mesh(const PlateInput& plate, PlateMesh* out);

}  // namespace brindle::plate
