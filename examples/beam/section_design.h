// Demands of a rectangular section by GB50010-2010: how much steel bending and shear ask for, and
// the bounds that the code puts on stirrups. Lengths in mm, forces in N, moments in N.mm.
#pragma once

#include "examples/beam/concrete.h"

namespace brindle::beam {

// A rectangular section in bending, with the depth of its steel given.
struct BendingSection {
  const Concrete* concrete = nullptr;
  const Steel* steel = nullptr;
  double width = 0;
  double height = 0;
  double effective_depth = 0;  // h0: from the compressed edge to the centroid of tension steel
  double top_distance = 0;     // a's: from the compressed edge to the centroid of compressed steel
};

// Steel that a moment asks for.
struct BendingDemand {
  bool possible = false;   // false: no steel makes the section carry the moment, the rest is 0
  double tension = 0;      // mm2, not less than the minimum
  double compression = 0;  // mm2, 0 while concrete alone carries the compression
  double block_depth = 0;  // x
  bool minimum_governs = false;
};

// Clauses 6.2.10 and 8.5.1. Where x would exceed xi_b h0, compression steel is added with
// x = xi_b h0. Not possible when the compressed steel then lies too deep to yield
// (x < 2 a's), or when h0 isn't positive.
BendingDemand bending_demand(const BendingSection& section, double moment);

// A section in shear under distributed load.
struct ShearSection {
  const Concrete* concrete = nullptr;
  const Steel* stirrup_steel = nullptr;
  double width = 0;
  double height = 0;
  double effective_depth = 0;
};

struct ShearDemand {
  bool possible = false;           // false: the section is too small (6.3.1)
  double section_limit = 0;        // N, right-hand side of 6.3.1
  double concrete_part = 0;        // N, 0.7 ft b h0
  bool stirrups_computed = false;  // the shear exceeds the concrete's part (6.3.7)
  double area_per_length = 0;      // Asv/s in mm2/mm: 6.3.4 and the least ratio of 9.2.9
  double largest_spacing = 0;      // mm, table 9.2.9
  int smallest_diameter = 0;       // mm, 9.2.9
};

// Clauses 6.3.1, 6.3.4 and 9.2.9. The bounds on spacing and diameter are filled in any case.
ShearDemand shear_demand(const ShearSection& section, double shear);

// What compressed bars that the calculation counts on ask of the stirrups (9.2.9-4): closed
// stirrups with a spacing of 15 of the thinnest compressed bar and 400 at most, or of 10 bars when
// a row has more than five bars thicker than 18.
double largest_spacing_for_compressed(int bar_diameter, int bars_in_row);

// True when one closed stirrup isn't enough to hold `bars_in_row` compressed bars (9.2.9-4).
bool needs_inner_stirrup(double width, int bars_in_row);

// Area that the side bars of each face need, 0.1 % of b*hw; 0 when the web is lower than 450 mm
// and needs none (9.2.13). The web of a rectangle is as high as its effective depth.
double side_bar_area(double width, double effective_depth);

}  // namespace brindle::beam
