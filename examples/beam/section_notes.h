// The lines of the note on a designed section.
#pragma once

#include <string>
#include <vector>

#include "examples/beam/bar_choice.h"
#include "examples/beam/bar_marks.h"
#include "examples/beam/section_input.h"

namespace brindle::beam {

// The numbered lines of the note in Chinese: code, materials, forces, steel asked for and chosen.
std::vector<std::wstring> note_lines(const SectionInput& input, const SectionDesign& design,
                                     MarkForm form);

}  // namespace brindle::beam
