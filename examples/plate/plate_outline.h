// The slab itself on a drawing: edges with their supports, openings, columns.
#pragma once

#include "brindle/sketch/pen/base_sgt.h"
#include "examples/plate/plate_input.h"

namespace brindle::plate {

struct Box {
  double left, bottom, right, top;  // m

  double width() const { return right - left; }
  double height() const { return top - bottom; }
};
Box bounding_box(const Ring& ring);

// Draws with `unit` pen units a metre: edges wide, fixed ones with strokes outside, simply
// supported ones with a dashed line inside, openings crossed out, columns filled.
void draw_slab(CBase_SGT& pen, const PlateInput& plate, double unit);

}  // namespace brindle::plate
