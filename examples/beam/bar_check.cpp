// What the bars of a designed section lack.
#include <algorithm>

#include "brindle/platform/base/format.h"
#include "examples/beam/bar_choice.h"

namespace brindle::beam {
namespace {

constexpr double kRounding = 1e-9;  // part of an area that may be missing

bool less(double has, double needs) {
  return has < needs * (1 - kRounding);
}

void check_main_bars(const SectionDesign& design, std::vector<std::wstring>& out) {
  const BendingDemand& demand = design.bending;
  if (less(design.bottom.area(), demand.tension)) {
    out.push_back(wformat(L"下部纵筋实配 %.0f mm2，少于需要的 %.0f mm2。", design.bottom.area(),
                          demand.tension));
  }
  if (design.top_is_compressed && less(design.top.area(), demand.compression)) {
    out.push_back(wformat(L"上部受压筋实配 %.0f mm2，少于需要的 %.0f mm2。", design.top.area(),
                          demand.compression));
  }
}

void check_stirrups(const SectionInput& input, const SectionDesign& design,
                    std::vector<std::wstring>& out) {
  const Stirrups& stirrups = design.stirrups;
  const ShearDemand& demand = design.shear;
  double largest = demand.largest_spacing;
  int smallest = demand.smallest_diameter;
  if (design.top_is_compressed) {
    largest =
        std::min(largest, largest_spacing_for_compressed(design.top.diameter, design.top.first));
    smallest = std::max(smallest, (design.top.diameter + 3) / 4);  // 9.2.9-2
    if (stirrups.legs == 2 && needs_inner_stirrup(input.width, design.top.first)) {
      out.push_back(L"上部受压筋较多，需设复合箍筋(第9.2.9条)。");
    }
  }
  if (less(stirrups.area_per_length(), demand.area_per_length)) {
    out.push_back(wformat(L"箍筋 Asv/s 实配 %.3f，少于需要的 %.3f mm2/mm。",
                          stirrups.area_per_length(), demand.area_per_length));
  }
  if (stirrups.spacing > largest) {
    out.push_back(wformat(L"箍筋间距 %d 大于允许的 %.0f mm。", stirrups.spacing, largest));
  }
  if (stirrups.diameter < smallest) {
    out.push_back(wformat(L"箍筋直径 %d 小于允许的 %d mm。", stirrups.diameter, smallest));
  }
}

}  // namespace

std::vector<std::wstring> shortfalls(const SectionInput& input, const SectionDesign& design) {
  std::vector<std::wstring> out;
  check_main_bars(design, out);
  check_stirrups(input, design, out);
  if (less(design.side.area(), design.side.required_area)) {
    out.push_back(wformat(L"腰筋每侧实配 %.0f mm2，少于需要的 %.0f mm2。", design.side.area(),
                          design.side.required_area));
  }
  return out;
}

CaseDemand case_demand(const SectionInput& input, const SectionDesign& design,
                       const LoadCase& load) {
  const BendingSection bending{&input.concrete, input.main_steel,       input.width,
                               input.height,    design.effective_depth, design.top_distance};
  const ShearSection shear{&input.concrete, input.stirrup_steel, input.width, input.height,
                           design.effective_depth};
  return {bending_demand(bending, load.moment * 1e6), shear_demand(shear, load.shear * 1e3)};
}

}  // namespace brindle::beam
