// Chooses the bars of a section: main bars, hangers or compressed bars, stirrups and side bars.
#pragma once

#include <string>
#include <vector>

#include "examples/beam/bar_layout.h"
#include "examples/beam/section_design.h"
#include "examples/beam/section_input.h"

namespace brindle::beam {

// A designed section.
struct SectionDesign {
  BarRows bottom;
  BarRows top;
  bool top_is_compressed = false;  // the calculation counts on the top bars
  double effective_depth = 0;
  double top_distance = 0;  // a's
  BendingDemand bending;
  ShearDemand shear;
  Stirrups stirrups;
  SideBars side;

  StirrupFrame frame(const SectionInput& input) const;
};

enum class DesignStatus {
  kOk,
  kMaterials,             // the concrete is too weak for its bars (4.1.2)
  kBendingImpossible,     // no arrangement of bars carries the moment, or the chosen ones don't fit
  kShearSectionTooSmall,  // 6.3.1
  kNoStirrups,            // no diameter and spacing of the choice is enough
};

// What a case asks for in the designed section.
struct CaseDemand {
  BendingDemand bending;
  ShearDemand shear;
};

// Designs the section for the largest moment and shear of its cases; `out` is filled when the
// status is kOk.
//
// Main bars are of one diameter out of 12, 14, 16, 18, 20, 22, 25, 28, 32, in one row or two, each
// arrangement judged with its own effective depth. Among those that fit and carry the moment the
// steel area decides; within 5 % of the least area fewer rows, then fewer bars win. Stirrups:
// 6 to 14 mm, 100 to 300 mm apart (steps of 10 to 150, of 25 to 200, of 50 beyond), the least
// steel, then the wider spacing. Bars that the engineer chose are taken as they are, enough or not:
// `shortfalls` says what they lack.
DesignStatus design_section(const SectionInput& input, SectionDesign* out);

// One Chinese sentence for each demand that the bars of the section miss; none for bars that the
// program chose.
std::vector<std::wstring> shortfalls(const SectionInput& input, const SectionDesign& design);

CaseDemand case_demand(const SectionInput& input, const SectionDesign& design,
                       const LoadCase& load);

// One Chinese sentence on what to change, for a status other than kOk.
const wchar_t* status_text(DesignStatus status);

}  // namespace brindle::beam
