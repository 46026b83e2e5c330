// The sheet of a designed section: the section, the beam's elevation, and the notes in an A3 frame.
#pragma once

#include <memory>

#include "brindle/sketch/pen/base_sgt.h"
#include "examples/beam/bar_choice.h"
#include "examples/beam/section_input.h"

namespace brindle::beam {

// World millimetres in one of paper: 10 for sections lower than 300 mm, else 20.
double drawing_scale(const SectionInput& input);

// Draws the sheet with its lower left corner at the origin, y up, world millimetres. Texts are
// placed by the fonts of the process (LoadShx). Null when memory is out.
std::unique_ptr<CBase_SGT> draw_section(const SectionInput& input, const SectionDesign& design);
// Section 1-1 of the sheet alone.
std::unique_ptr<CBase_SGT> draw_section_figure(const SectionInput& input,
                                               const SectionDesign& design);

}  // namespace brindle::beam
