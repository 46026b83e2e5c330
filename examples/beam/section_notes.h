// The words on a designed section: marks of bars and the lines of the note.
#pragma once

#include <string>
#include <vector>

#include "examples/beam/bar_choice.h"
#include "examples/beam/section_input.h"

namespace brindle::beam {

// How a mark shows the bar grade: by the symbol's character of the shape fonts (130 to 143), which
// drawings use, or by a letter that every terminal has.
enum class MarkForm { kShapeFont, kPlainText };

// "4%18", "6%25 2/4" for two rows (upper row first), % being the grade's symbol.
std::wstring bottom_mark(const SectionInput& input, const SectionDesign& design, MarkForm form);
// The same; of two rows at the top the upper one is the first row.
std::wstring top_mark(const SectionInput& input, const SectionDesign& design, MarkForm form);
// "%8@200(2)" with the number of legs.
std::wstring stirrup_mark(const SectionInput& input, const SectionDesign& design, MarkForm form);
// "G4%12": the bars of both sides together. Empty without side bars.
std::wstring side_mark(const SectionInput& input, const SectionDesign& design, MarkForm form);

// The numbered lines of the note in Chinese: code, materials, forces, steel asked for and chosen.
std::vector<std::wstring> note_lines(const SectionInput& input, const SectionDesign& design,
                                     MarkForm form);

}  // namespace brindle::beam
