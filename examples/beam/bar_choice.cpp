#include "examples/beam/bar_choice.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <optional>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

namespace brindle::beam {
namespace {

constexpr int kMainDiameters[] = {12, 14, 16, 18, 20, 22, 25, 28, 32};
constexpr int kStirrupDiameters[] = {6, 8, 10, 12, 14};
constexpr int kStirrupSpacings[] = {100, 110, 120, 130, 140, 150, 175, 200, 250, 300};
constexpr int kSideDiameters[] = {10, 12, 14, 16, 18, 20, 22, 25};
constexpr double kSideSpacing = 200;
constexpr int kHangerDiameter = 12;  // enough for any span (9.2.6)
constexpr double kNearlyLeast = 1.05;

// Legs by the width alone. The code bounds only what holds compressed bars; one more pair of legs
// for every 400 mm of width is this program's own rule.
int legs_by_width(double width) {
  return width <= 400 ? 2 : 2 * static_cast<int>(std::ceil(width / 400));
}

// The diameters of main bars that the grade has.
std::span<const int> main_diameters(const Steel& steel) {
  const auto end =
      std::upper_bound(std::begin(kMainDiameters), std::end(kMainDiameters), steel.max_diameter_mm);
  return {std::begin(kMainDiameters), end};
}

// Arrangements of bars of these diameters that fit at one face, in rising order of area.
std::vector<BarRows> fitting_rows(const StirrupFrame& frame, const std::vector<double>& faces,
                                  Face face, std::span<const int> diameters) {
  std::vector<BarRows> found;
  for (const int diameter : diameters) {
    for (int first = frame.legs; bars_fit(frame, faces, face, {diameter, first, 0}); ++first) {
      found.push_back({diameter, first, 0});
      for (int second = 2; second <= first; ++second) {
        const BarRows two{diameter, first, second};
        if (bars_fit(frame, faces, face, two)) found.push_back(two);
      }
    }
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const BarRows& a, const BarRows& b) { return a.area() < b.area(); });
  return found;
}

// Arrangements of bars that fit at one face, in rising order of area: the chosen one alone, or all
// of these diameters.
std::vector<BarRows> fitting_rows(const StirrupFrame& frame, const std::vector<double>& faces,
                                  Face face, std::span<const int> diameters,
                                  const std::optional<BarRows>& chosen) {
  if (!chosen) return fitting_rows(frame, faces, face, diameters);
  if (!bars_fit(frame, faces, face, *chosen)) return {};
  return {*chosen};
}

// Rows of the two faces leave room for the concrete between them.
bool faces_apart(const StirrupFrame& frame, const BarRows& bottom, const BarRows& top) {
  const int thicker = std::max(bottom.diameter, top.diameter);
  return height_between_rows(frame, bottom, top) >=
         (bottom.diameter + top.diameter) / 2.0 + std::max(25, thicker);
}

struct MainBars {
  StirrupFrame frame;
  BarRows bottom;
  BarRows top;
  bool top_is_compressed = false;
  BendingSection section;
  BendingDemand demand;

  double area() const { return bottom.area() + top.area(); }
  auto rank() const {
    return std::make_tuple(bottom.rows() + top.rows(), bottom.count() + top.count(), area());
  }
};

class MainBarSearch {
 public:
  MainBarSearch(const SectionInput& input, const StirrupFrame& frame)
      : input_(input), frame_(frame) {}

  // All arrangements that carry the moment, hangers first where they are enough.
  std::vector<MainBars> run() {
    if (input_.chosen.bottom) {
      run_diameter(input_.chosen.bottom->diameter);
    } else {
      for (const int& diameter : main_diameters(*input_.main_steel)) run_diameter(diameter);
    }
    return std::move(found_);
  }

 private:
  // The legs stand where the bottom bars want them, so the top bars depend on the bottom diameter.
  void run_diameter(const int& diameter) {
    const std::vector<double> faces = leg_faces(frame_, diameter);
    std::vector<BarRows> tops;
    for (const BarRows& bottom :
         fitting_rows(frame_, faces, Face::kBottom, {&diameter, 1}, input_.chosen.bottom)) {
      if (try_hangers(faces, bottom)) continue;
      if (tops.empty()) {
        tops = fitting_rows(frame_, faces, Face::kTop, main_diameters(*input_.main_steel),
                            input_.chosen.top);
      }
      try_compressed(bottom, tops);
    }
  }

  BendingSection section_with(const BarRows& bottom, const BarRows& top) const {
    return {&input_.concrete,
            input_.main_steel,
            input_.width,
            input_.height,
            input_.height - centroid_distance(frame_, bottom),
            centroid_distance(frame_, top)};
  }

  // True when concrete alone carries the compression over these bars, whether they are enough or
  // not.
  bool try_hangers(const std::vector<double>& faces, const BarRows& bottom) {
    const BarRows hangers = input_.chosen.top.value_or(BarRows{kHangerDiameter, frame_.legs, 0});
    const BendingSection section = section_with(bottom, hangers);
    const BendingDemand demand = bending_demand(section, input_.moment() * 1e6);
    if (!demand.possible || demand.compression > 0) return false;
    if ((input_.chosen.bottom || bottom.area() >= demand.tension) &&
        bars_fit(frame_, faces, Face::kTop, hangers) && faces_apart(frame_, bottom, hangers)) {
      found_.push_back({frame_, bottom, hangers, false, section, demand});
    }
    return true;
  }

  // Adds the lightest top bars that work with these bottom bars, for one row and for two.
  void try_compressed(const BarRows& bottom, const std::vector<BarRows>& tops) {
    bool done[3] = {};
    for (const BarRows& top : tops) {
      if (done[top.rows()]) continue;
      if (!input_.chosen.top && !ties_hold(top)) continue;
      const BendingSection section = section_with(bottom, top);
      const BendingDemand demand = bending_demand(section, input_.moment() * 1e6);
      if (!demand.possible || !faces_apart(frame_, bottom, top)) continue;
      if (!input_.chosen.top && demand.compression > top.area()) continue;
      if (!input_.chosen.bottom && demand.tension > bottom.area()) continue;
      found_.push_back({frame_, bottom, top, true, section, demand});
      done[top.rows()] = true;
    }
  }

  // The stirrups hold these bars in compression (9.2.9).
  bool ties_hold(const BarRows& top) const {
    return 4 * frame_.diameter >= top.diameter &&
           (frame_.legs > 2 || !needs_inner_stirrup(input_.width, top.first));
  }

  const SectionInput& input_;
  StirrupFrame frame_;
  std::vector<MainBars> found_;
};

std::optional<MainBars> choose_main_bars(const SectionInput& input, int stirrup_diameter) {
  const std::optional<Stirrups>& chosen = input.chosen.stirrups;
  StirrupFrame frame{input.width, input.height, input.cover, stirrup_diameter,
                     chosen ? chosen->legs : legs_by_width(input.width)};
  std::vector<MainBars> found = MainBarSearch(input, frame).run();
  if (!chosen && frame.legs == 2) {
    frame.legs = 4;
    for (MainBars& bars : MainBarSearch(input, frame).run()) {
      // Four legs are for many compressed bars only.
      if (bars.top_is_compressed && needs_inner_stirrup(input.width, bars.top.first)) {
        found.push_back(bars);
      }
    }
  }
  if (found.empty()) return std::nullopt;
  double least = found.front().area();
  for (const MainBars& bars : found) least = std::min(least, bars.area());
  const MainBars* best = nullptr;
  for (const MainBars& bars : found) {
    if (bars.area() > least * kNearlyLeast) continue;
    if (!best || bars.rank() < best->rank()) best = &bars;
  }
  return *best;
}

// The chosen stirrups, or the widest spacing at which this diameter is enough; nothing when 100 mm
// is too wide.
std::optional<Stirrups> choose_spacing(const std::optional<Stirrups>& chosen, int diameter,
                                       const MainBars& bars, const ShearDemand& demand) {
  if (chosen) return chosen;
  double largest = demand.largest_spacing;
  if (diameter < demand.smallest_diameter) return std::nullopt;
  if (bars.top_is_compressed) {
    largest = std::min(largest, largest_spacing_for_compressed(bars.top.diameter, bars.top.first));
  }
  std::optional<Stirrups> widest;
  for (const int spacing : kStirrupSpacings) {
    const Stirrups stirrups{diameter, spacing, bars.frame.legs};
    if (spacing <= largest && stirrups.area_per_length() >= demand.area_per_length) {
      widest = stirrups;
    }
  }
  return widest;
}

SideBars choose_side_bars(const SectionInput& input, const SectionDesign& design) {
  SideBars side;
  side.required_area = side_bar_area(input.width, design.effective_depth);
  if (side.required_area <= 0 && !input.chosen.side) return side;
  const double clear = height_between_rows(design.frame(input), design.bottom, design.top);
  side.tie_diameter = input.width <= 350 ? 6 : 8;
  if (input.chosen.side) {
    side.per_side = input.chosen.side->per_side;
    side.diameter = input.chosen.side->diameter;
    return side;
  }
  side.per_side = std::max(1, static_cast<int>(std::ceil(clear / kSideSpacing)) - 1);
  // A tall web of great width may need more bars than the spacing asks for.
  for (;; ++side.per_side) {
    for (const int diameter : kSideDiameters) {
      if (diameter > input.main_steel->max_diameter_mm) break;
      side.diameter = diameter;
      if (side.area() >= side.required_area) return side;
    }
  }
}

}  // namespace

StirrupFrame SectionDesign::frame(const SectionInput& input) const {
  return {input.width, input.height, input.cover, stirrups.diameter, stirrups.legs};
}

DesignStatus design_section(const SectionInput& input, SectionDesign* out) {
  if (!materials_fault(input).empty()) return DesignStatus::kMaterials;
  DesignStatus status = DesignStatus::kOk;  // of the thickest stirrup tried
  std::optional<SectionDesign> best;
  std::span<const int> diameters = kStirrupDiameters;
  if (input.chosen.stirrups) diameters = {&input.chosen.stirrups->diameter, 1};
  for (const int diameter : diameters) {
    const std::optional<MainBars> bars = choose_main_bars(input, diameter);
    if (!bars) {
      status = DesignStatus::kBendingImpossible;
      continue;
    }
    const ShearSection section{&input.concrete, input.stirrup_steel, input.width, input.height,
                               bars->section.effective_depth};
    const ShearDemand demand = shear_demand(section, input.shear() * 1e3);
    if (!demand.possible) {
      status = DesignStatus::kShearSectionTooSmall;
      continue;
    }
    const std::optional<Stirrups> stirrups =
        choose_spacing(input.chosen.stirrups, diameter, *bars, demand);
    if (!stirrups) {
      status = DesignStatus::kNoStirrups;
      continue;
    }
    if (best && stirrups->area_per_length() >= best->stirrups.area_per_length()) continue;
    best = SectionDesign{bars->bottom,
                         bars->top,
                         bars->top_is_compressed,
                         bars->section.effective_depth,
                         bars->section.top_distance,
                         bars->demand,
                         demand,
                         *stirrups,
                         {}};
  }
  if (!best) return status;
  best->side = choose_side_bars(input, *best);
  *out = *best;
  return DesignStatus::kOk;
}

const wchar_t* status_text(DesignStatus status) {
  switch (status) {
    case DesignStatus::kOk:
      return L"";
    case DesignStatus::kMaterials:
      return L"混凝土强度等级低于所用钢筋的要求(GB50010-2010 第4.1.2条)，请提高混凝土强度等级。";
    case DesignStatus::kBendingImpossible:
      return L"截面放不下受弯所需的或指定的纵筋，请加大截面、提高混凝土强度等级或另选纵筋。";
    case DesignStatus::kShearSectionTooSmall:
      return L"剪力超过截面限制条件(GB50010-2010 第6.3.1条)，请加大截面或提高混凝土强度等级。";
    case DesignStatus::kNoStirrups:
      return L"直径14、间距100的箍筋仍不满足受剪要求，请加大截面。";
  }
  return L"";
}

}  // namespace brindle::beam
