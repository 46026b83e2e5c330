// The picture of a designed section, in an empty or used drawing in memory.
#pragma once

#include "brindle/dxf/dxf.h"
#include "examples/beam/bar_choice.h"
#include "examples/beam/section_input.h"

namespace brindle::beam {

// World millimetres in one of paper: 10 for sections lower than 300 mm, else 20.
double drawing_scale(const SectionInput& input);

// Draws section 1-1 with its lower left corner at the origin, y up, world millimetres: outline,
// stirrups, bars, dimensions, marks, title and note. What `drawing` held before is lost. False when
// the drawing refused an entry or an entity; the drawing is then incomplete.
bool draw_section(const SectionInput& input, const SectionDesign& design, DXF& drawing);

}  // namespace brindle::beam
