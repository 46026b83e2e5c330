// Marks of bars: "6C28 2/4", "C8@200(2)", "G4C12", written and read.
#pragma once

#include <optional>
#include <string>

#include "examples/beam/bar_layout.h"
#include "examples/beam/concrete.h"

namespace brindle::beam {

// How a mark shows the bar grade: by the symbol's character of the shape fonts (130 to 143), which
// drawings use, or by the letters A to D, which every terminal and grid has.
enum class MarkForm { kShapeFont, kLetters };

// Bars that the engineer chose. What is missing the program chooses.
struct ChosenBars {
  std::optional<BarRows> bottom, top;
  std::optional<Stirrups> stirrups;
  std::optional<SideBars> side;  // without ties and the area asked for
};

// Where bars of a section lie, in the order of the project file.
enum class BarPlace { kBottom, kTop, kStirrup, kSide };
inline constexpr BarPlace kBarPlaces[] = {BarPlace::kBottom, BarPlace::kTop, BarPlace::kStirrup,
                                          BarPlace::kSide};

// The family of its marks, a BarFamily.
int bar_family(BarPlace place);
const wchar_t* place_name(BarPlace place);     // "下部纵筋"
const wchar_t* place_example(BarPlace place);  // a mark such as "6C28 2/4"

// "4%18", % being the grade's mark; of two rows "6%25 2/4", the upper one first.
std::wstring rows_mark(const BarRows& bars, Face face, const Steel& steel, MarkForm form);
// "%8@200(2)" with the number of legs, "%6@400" of ties, which have none.
std::wstring stirrup_mark(const Stirrups& stirrups, const Steel& steel, MarkForm form);
// "G4%12": the bars of both sides together. Empty without side bars.
std::wstring side_mark(const SideBars& bars, const Steel& steel, MarkForm form);

// Reads the mark of a place in either form. False, and nothing changed, for a text that is none or
// whose grade isn't the steel's.
bool read_mark(const std::wstring& text, BarPlace place, const Steel& steel, ChosenBars* bars);
// The mark of what was chosen at a place, empty for a choice that is the program's.
std::wstring chosen_mark(const ChosenBars& bars, BarPlace place, const Steel& steel);

}  // namespace brindle::beam
