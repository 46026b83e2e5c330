// Chosen bars: laws that every designed section keeps, checked without the tool's own formulas.
#include "examples/beam/bar_choice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "tests/examples/beam/section_case.h"

namespace brindle::beam {
namespace {

double dot_area(const std::vector<Bar>& bars) {
  double area = 0;
  for (const Bar& bar : bars) area += std::numbers::pi * bar.diameter * bar.diameter / 4;
  return area;
}

double mean_height(const std::vector<Bar>& bars) {
  double sum = 0;
  for (const Bar& bar : bars) sum += bar.y;
  return sum / static_cast<double>(bars.size());
}

// The moment that the laid out bars carry (6.2.10), N.mm: x from the balance of forces, at most
// balanced.
double capacity(const SectionInput& input, const SectionDesign& design,
                const std::vector<Bar>& bottom, const std::vector<Bar>& top) {
  const Concrete& c = input.concrete;
  const Steel& s = *input.main_steel;
  const double h0 = input.height - mean_height(bottom);
  const double compressed = design.top_is_compressed ? dot_area(top) * s.fy_compression : 0;
  const double x =
      std::clamp((dot_area(bottom) * s.fy - compressed) / (c.alpha1 * c.fc * input.width), 0.0,
                 c.beta1 / (1 + s.fy / (s.es * c.epsilon_cu)) * h0);
  const double a_top = input.height - mean_height(top);
  if (design.top_is_compressed && x < 2 * a_top) {
    return dot_area(bottom) * s.fy * (h0 - a_top);  // 6.2.14
  }
  return c.alpha1 * c.fc * input.width * x * (h0 - x / 2) + compressed * (h0 - a_top);
}

// No two bars nearer than the code allows, none outside the stirrup, corner bars in its corners.
void expect_bars_fit(const SectionInput& input, const SectionDesign& design,
                     const std::vector<Bar>& bars, double sideways_gap, double row_gap) {
  const double inner = input.cover + design.stirrups.diameter;
  for (size_t i = 0; i < bars.size(); ++i) {
    const double r = bars[i].diameter / 2.0;
    EXPECT_GE(bars[i].x - r, inner - 1e-9);
    EXPECT_LE(bars[i].x + r, input.width - inner + 1e-9);
    EXPECT_GE(bars[i].y - r, inner - 1e-9);
    EXPECT_LE(bars[i].y + r, input.height - inner + 1e-9);
    EXPECT_GE(input.cover + design.stirrups.diameter, bars[i].diameter);
    for (size_t k = 0; k < i; ++k) {
      const bool same_row = bars[k].y == bars[i].y;
      const double clear = same_row ? std::fabs(bars[k].x - bars[i].x) - 2 * r
                                    : std::fabs(bars[k].y - bars[i].y) - 2 * r;
      EXPECT_GE(clear, (same_row ? sideways_gap : row_gap) - 1e-9);
    }
  }
  EXPECT_NEAR(bars.front().x - bars.front().diameter / 2.0, inner, 1e-9);
}

class DesignedSection : public testing::TestWithParam<SectionCase> {};

TEST_P(DesignedSection, KeepsTheCode) {
  const SectionInput input = GetParam().input();
  SectionDesign design;
  ASSERT_EQ(design_section(input, &design), DesignStatus::kOk);
  const StirrupFrame frame = design.frame(input);
  const std::vector<double> faces = leg_faces(frame, design.bottom.diameter);
  const std::vector<Bar> bottom = lay_out_bars(frame, faces, Face::kBottom, design.bottom);
  const std::vector<Bar> top = lay_out_bars(frame, faces, Face::kTop, design.top);
  ASSERT_EQ(static_cast<int>(bottom.size()), design.bottom.count());
  ASSERT_EQ(static_cast<int>(top.size()), design.top.count());

  // Bending.
  EXPECT_GE(capacity(input, design, bottom, top), input.moment() * 1e6 * (1 - 1e-9));
  EXPECT_NEAR(design.effective_depth, input.height - mean_height(bottom), 1e-9);
  EXPECT_NEAR(design.top_distance, input.height - mean_height(top), 1e-9);
  EXPECT_GE(dot_area(bottom), std::max(0.002, 0.45 * input.concrete.ft / input.main_steel->fy) *
                                  input.width * input.height);

  // Places.
  const int db = design.bottom.diameter;
  const int dt = design.top.diameter;
  expect_bars_fit(input, design, bottom, std::max(25, db), std::max(25, db));
  expect_bars_fit(input, design, top, std::max(30.0, 1.5 * dt), std::max(25, dt));
  EXPECT_GT(height_between_rows(frame, design.bottom, design.top), (db + dt) / 2.0 + 25 - 1e-9);

  // Shear.
  const Stirrups& s = design.stirrups;
  const double asv = s.legs * std::numbers::pi * s.diameter * s.diameter / 4;
  const double fyv = std::min(360.0, input.stirrup_steel->fy);
  const double h0 = design.effective_depth;
  const double vc = 0.7 * input.concrete.ft * input.width * h0;
  EXPECT_GE(vc + fyv * asv / s.spacing * h0, input.shear() * 1e3);
  if (input.shear() * 1e3 > vc) {
    EXPECT_GE(asv / (input.width * s.spacing), 0.24 * input.concrete.ft / fyv);
  }
  EXPECT_GE(s.diameter, input.height > 800 ? 8 : 6);
  EXPECT_TRUE(s.spacing >= 100 && s.spacing <= 300) << s.spacing;
  EXPECT_LE(s.spacing, design.shear.largest_spacing);
  if (design.top_is_compressed) {
    EXPECT_LE(s.spacing, 15 * dt);
    EXPECT_GE(4 * s.diameter, dt);
    EXPECT_TRUE(s.legs >= 4 || design.top.first <= (input.width > 400 ? 3 : 4));
  }

  // Side bars.
  const std::vector<Bar> side = lay_out_side_bars(frame, design.bottom, design.top,
                                                  design.side.per_side, design.side.diameter);
  EXPECT_EQ(side.empty(), h0 < 450);
  if (!side.empty()) {
    EXPECT_GE(dot_area(side) / 2, 0.001 * input.width * h0);
    EXPECT_LE(side.front().y - bottom.back().y, 200 + 1e-9);
    EXPECT_LE(top.back().y - side.back().y, 200 + 1e-9);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Sections, DesignedSection,
    testing::Values(
        SectionCase{"floor beam", 250, 600, 25, 30, L"HRB400", L"HPB300", 180, 150},
        SectionCase{"two rows", 300, 700, 25, 30, L"HRB400", L"HRB400", 620, 380},
        SectionCase{"compressed bars", 300, 700, 25, 30, L"HRB400", L"HRB400", 900, 380},
        SectionCase{"two rows at both faces", 400, 500, 30, 25, L"HRB335", L"HPB300", 700, 300},
        SectionCase{"many compressed bars", 400, 300, 25, 30, L"HRB400", L"HRB400", 340, 206},
        SectionCase{"no forces", 200, 400, 20, 20, L"HPB300", L"HPB300", 0, 0},
        SectionCase{"high grade", 300, 600, 25, 80, L"HRB500", L"HRB500", 600, 700},
        SectionCase{"wide", 900, 600, 35, 40, L"HRB500", L"HRB400", 1400, 1300},
        SectionCase{"transfer beam", 1000, 2000, 30, 40, L"HRB400", L"HRB400", 9000, 3500}));

TEST(DesignSection, TellsWhatIsTooSmall) {
  const struct {
    SectionCase section;
    DesignStatus status;
  } cases[] = {{{"moment", 200, 400, 25, 20, L"HRB335", L"HPB300", 900, 50},
                DesignStatus::kBendingImpossible},
               {{"shear", 250, 600, 25, 30, L"HRB400", L"HPB300", 180, 600},
                DesignStatus::kShearSectionTooSmall},
               {{"too narrow", 100, 300, 30, 20, L"HPB300", L"HPB300", 1, 1},
                DesignStatus::kBendingImpossible}};
  for (const auto& c : cases) {
    SectionDesign untouched;
    EXPECT_EQ(design_section(c.section.input(), &untouched), c.status) << c.section.name;
    EXPECT_EQ(untouched.bottom.count(), 0) << c.section.name;
    EXPECT_NE(status_text(c.status)[0], 0) << c.section.name;
  }
}

TEST(BarLayout, PlacesOfRows) {
  EXPECT_EQ(second_row_places(5, 3), (std::vector<int>{0, 2, 4}));
  EXPECT_TRUE(second_row_places(4, 3).empty());  // no place for the odd bar
  // Width 300, inner width 300 - 2*(25+10) = 230: four bars of 28 need 4*28 + 3*28 = 196, five
  // need 252.
  const StirrupFrame frame{300, 700, 25, 10, 2};
  const std::vector<double> faces = leg_faces(frame, 28);
  EXPECT_EQ(faces, (std::vector<double>{35, 265}));
  EXPECT_TRUE(bars_fit(frame, faces, Face::kBottom, {28, 4, 2}));
  EXPECT_FALSE(bars_fit(frame, faces, Face::kBottom, {28, 5, 0}));
  EXPECT_FALSE(bars_fit(frame, faces, Face::kTop, {28, 4, 0}));  // 4*28 + 3*42 = 238
  EXPECT_FALSE(bars_fit({300, 700, 15, 6, 2}, faces, Face::kBottom, {28, 2, 0}));  // cover < d
  // Two rows of 4 and 2: the centroid lies a third of the row step over the first row.
  EXPECT_DOUBLE_EQ(centroid_distance(frame, {28, 4, 2}), 35 + 14 + 56 / 3.0);
}

// What the engineer chose stands, and what it lacks is told.
TEST(ChosenBars, AreKeptAndJudged) {
  const SectionCase section{"chosen", 250, 600, 25, 30, L"HRB400", L"HPB300", 180, 250};
  const struct {
    BarPlace place;
    const wchar_t* mark;
    std::vector<const wchar_t*> told;
  } cases[] = {
      {BarPlace::kBottom, L"4C18", {}},
      {BarPlace::kBottom, L"2C18", {L"下部纵筋实配 509"}},
      {BarPlace::kTop, L"2C16", {}},
      {BarPlace::kStirrup, L"A10@100(2)", {}},
      {BarPlace::kStirrup, L"A6@300(2)", {L"Asv/s 实配 0.188", L"间距 300 大于允许的 250"}},
      {BarPlace::kSide, L"G2C10", {L"腰筋每侧实配 79"}},
  };
  for (const auto& c : cases) {
    SectionInput input = section.input();
    const Steel& steel = c.place == BarPlace::kStirrup ? *input.stirrup_steel : *input.main_steel;
    ASSERT_TRUE(read_mark(c.mark, c.place, steel, &input.chosen));
    SectionDesign design;
    ASSERT_EQ(design_section(input, &design), DesignStatus::kOk);
    EXPECT_EQ(chosen_mark(input.chosen, c.place, steel), c.mark);
    const std::vector<std::wstring> faults = shortfalls(input, design);
    ASSERT_EQ(faults.size(), c.told.size());
    for (size_t i = 0; i < faults.size(); ++i) {
      EXPECT_NE(faults[i].find(c.told[i]), std::wstring::npos);
    }
  }
  SectionInput input = section.input();
  ASSERT_TRUE(read_mark(L"12C32", BarPlace::kBottom, *input.main_steel, &input.chosen));
  SectionDesign design;
  EXPECT_EQ(design_section(input, &design), DesignStatus::kBendingImpossible);
}

}  // namespace
}  // namespace brindle::beam
