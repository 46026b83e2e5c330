#include "examples/beam/section_design.h"

#include <algorithm>
#include <cmath>

namespace brindle::beam {
namespace {

// Largest spacing of stirrups by section height (table 9.2.9), with and without shear that
// exceeds the concrete's part.
struct SpacingRow {
  double height_to;
  double computed;
  double constructive;
};

constexpr SpacingRow kSpacings[] = {
    {300, 150, 200}, {500, 200, 300}, {800, 250, 350}, {1e30, 300, 400}};

double largest_spacing(double height, bool computed) {
  for (const SpacingRow& row : kSpacings) {
    if (height <= row.height_to) return computed ? row.computed : row.constructive;
  }
  return 0;
}

// Factor of beta_c fc b h0 in 6.3.1: 0.25 for a compact web, 0.2 for a slender one.
double section_limit_factor(double web_over_width) {
  return 0.25 - 0.05 * std::clamp((web_over_width - 4) / 2, 0.0, 1.0);
}

}  // namespace

BendingDemand bending_demand(const BendingSection& s, double moment) {
  BendingDemand demand;
  const double h0 = s.effective_depth;
  if (!(h0 > 0)) return demand;
  const double block = s.concrete->alpha1 * s.concrete->fc * s.width;  // N per mm of depth
  const double balanced = balanced_depth_ratio(*s.concrete, *s.steel) * h0;
  const double singly_limit = block * balanced * (h0 - balanced / 2);

  if (moment <= singly_limit) {
    // Of the two roots of M = block x (h0 - x/2) the smaller one, written so that a small moment
    // loses no digits.
    const double m = 2 * moment / block;
    demand.block_depth = m / (h0 + std::sqrt(std::max(0.0, h0 * h0 - m)));
    demand.tension = block * demand.block_depth / s.steel->fy;
  } else {
    if (balanced < 2 * s.top_distance) return demand;
    demand.block_depth = balanced;
    demand.compression =
        (moment - singly_limit) / (s.steel->fy_compression * (h0 - s.top_distance));
    demand.tension =
        (block * balanced + s.steel->fy_compression * demand.compression) / s.steel->fy;
  }
  const double least = minimum_steel_ratio(*s.concrete, *s.steel) * s.width * s.height;
  demand.minimum_governs = demand.tension < least;
  demand.tension = std::max(demand.tension, least);
  demand.possible = true;
  return demand;
}

ShearDemand shear_demand(const ShearSection& s, double shear) {
  ShearDemand demand;
  const double area = s.width * s.effective_depth;
  demand.section_limit = section_limit_factor(s.effective_depth / s.width) * s.concrete->beta_c *
                         s.concrete->fc * area;
  demand.concrete_part = 0.7 * s.concrete->ft * area;
  demand.possible = shear <= demand.section_limit;
  demand.stirrups_computed = shear > demand.concrete_part;
  demand.largest_spacing = largest_spacing(s.height, demand.stirrups_computed);
  demand.smallest_diameter = s.height > 800 ? 8 : 6;
  if (demand.possible && demand.stirrups_computed) {
    const double fyv = stirrup_strength(*s.stirrup_steel);
    demand.area_per_length = std::max((shear - demand.concrete_part) / (fyv * s.effective_depth),
                                      0.24 * s.concrete->ft / fyv * s.width);
  }
  return demand;
}

double largest_spacing_for_compressed(int bar_diameter, int bars_in_row) {
  const int diameters = bars_in_row > 5 && bar_diameter > 18 ? 10 : 15;
  return std::min(400.0, static_cast<double>(diameters * bar_diameter));
}

bool needs_inner_stirrup(double width, int bars_in_row) {
  return bars_in_row > (width > 400 ? 3 : 4);
}

double side_bar_area(double width, double effective_depth) {
  return effective_depth < 450 ? 0 : 0.001 * width * effective_depth;
}

}  // namespace brindle::beam
