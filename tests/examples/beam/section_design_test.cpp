// Demands of bending and shear against independent reckoning and against known values of the code.
#include "examples/beam/section_design.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace brindle::beam {
namespace {

Concrete concrete(int grade) {
  Concrete found;
  EXPECT_TRUE(find_concrete(grade, &found)) << grade;
  return found;
}

TEST(Concrete, KnownStrengths) {
  struct Case {
    int grade;
    double fc, ft, alpha1, beta1, beta_c, epsilon_cu;
  };
  const Case cases[] = {
      {15, 7.2, 0.91, 1.0, 0.8, 1.0, 0.0033},   {30, 14.3, 1.43, 1.0, 0.8, 1.0, 0.0033},
      {50, 23.1, 1.89, 1.0, 0.8, 1.0, 0.0033},  {60, 27.5, 2.04, 0.98, 0.78, 1 - 0.2 / 3, 0.0032},
      {80, 35.9, 2.22, 0.94, 0.74, 0.8, 0.003},
  };
  for (const Case& c : cases) {
    const Concrete found = concrete(c.grade);
    EXPECT_DOUBLE_EQ(found.fc, c.fc) << c.grade;
    EXPECT_DOUBLE_EQ(found.ft, c.ft) << c.grade;
    EXPECT_NEAR(found.alpha1, c.alpha1, 1e-12) << c.grade;
    EXPECT_NEAR(found.beta1, c.beta1, 1e-12) << c.grade;
    EXPECT_NEAR(found.beta_c, c.beta_c, 1e-12) << c.grade;
    EXPECT_NEAR(found.epsilon_cu, c.epsilon_cu, 1e-12) << c.grade;
  }
  Concrete untouched;
  for (const int grade : {0, 10, 32, 85}) EXPECT_FALSE(find_concrete(grade, &untouched)) << grade;
  EXPECT_EQ(untouched.grade, 0);
}

// Balanced depths as handbooks tabulate them.
TEST(Concrete, BalancedDepths) {
  struct Case {
    int grade;
    const wchar_t* steel;
    double ratio;
  };
  const Case cases[] = {{30, L"HPB300", 0.576}, {50, L"HRB335", 0.550}, {20, L"HRB400", 0.518},
                        {50, L"HRB500", 0.482}, {60, L"HRB400", 0.499}, {80, L"HRB335", 0.493},
                        {80, L"HRB400", 0.463}, {70, L"HRB500", 0.447}};
  for (const Case& c : cases) {
    EXPECT_NEAR(balanced_depth_ratio(concrete(c.grade), *find_steel(c.steel)), c.ratio, 0.0006)
        << c.grade;
  }
  EXPECT_EQ(find_steel(L"HRB40"), nullptr);
  EXPECT_EQ(stirrup_strength(*find_steel(L"HRB500")), 360);
  EXPECT_EQ(stirrup_strength(*find_steel(L"HPB300")), 270);
}

// Moment about the tension steel at block depth x, written out without the tool's formulas.
double moment_at(const Concrete& c, double width, double h0, double x) {
  return c.alpha1 * c.fc * width * x * (h0 - 0.5 * x);
}

// Smallest x whose moment reaches the wanted one, by halving.
double depth_for(const Concrete& c, double width, double h0, double moment) {
  double low = 0;
  double high = h0;
  for (int i = 0; i < 200; ++i) {
    const double middle = (low + high) / 2;
    (moment_at(c, width, h0, middle) < moment ? low : high) = middle;
  }
  return high;
}

TEST(Bending, AgreesWithHalvingAndWithHandReckoning) {
  struct Case {
    const char* name;
    double width, height, h0;
    int grade;
    const wchar_t* steel;
    double moment_knm;
    double tension;  // reckoned by hand to the last digit given
  };
  const Case cases[] = {
      // x = 460 - sqrt(460^2 - 2*150e6/(14.3*250)) = 102.67
      {"C30, M=150", 250, 500, 460, 30, L"HRB400", 150, 1019.6},
      // 0.2 % of 250*500 governs over 0.45*1.43/360 = 0.179 %
      {"least steel", 250, 500, 460, 30, L"HRB400", 10, 250.0},
      // 0.45*2.04/360 = 0.255 %
      {"least steel by ft", 300, 600, 560, 60, L"HRB400", 20, 459.0},
      // x = 540 - sqrt(540^2 - 2*600e6/(0.94*35.9*300)) = 123.986
      {"high grade", 300, 600, 540, 80, L"HRB500", 600, 2885.5},
  };
  for (const Case& c : cases) {
    const Concrete material = concrete(c.grade);
    const Steel& steel = *find_steel(c.steel);
    const BendingDemand demand =
        bending_demand({&material, &steel, c.width, c.height, c.h0, 35}, c.moment_knm * 1e6);
    ASSERT_TRUE(demand.possible) << c.name;
    EXPECT_EQ(demand.compression, 0) << c.name;
    const double x = depth_for(material, c.width, c.h0, c.moment_knm * 1e6);
    EXPECT_NEAR(demand.block_depth, x, 1e-6) << c.name;
    EXPECT_NEAR(demand.tension, c.tension, 0.6) << c.name;
    if (!demand.minimum_governs) {
      EXPECT_NEAR(demand.tension, material.alpha1 * material.fc * c.width * x / steel.fy, 1e-3)
          << c.name;
    }
  }
}

TEST(Bending, CompressionSteelBeyondTheBalancedDepth) {
  const Concrete c30 = concrete(30);
  const Steel& steel = *find_steel(L"HRB400");
  const double h0 = 440;
  const double top = 40;
  const BendingSection section{&c30, &steel, 250, 500, h0, top};
  const double limit = moment_at(c30, 250, h0, balanced_depth_ratio(c30, steel) * h0);

  const BendingDemand below = bending_demand(section, limit * (1 - 1e-9));
  const BendingDemand above = bending_demand(section, limit * (1 + 1e-9));
  EXPECT_EQ(below.compression, 0);
  EXPECT_NEAR(below.tension, above.tension, 1e-3);  // no step where the method changes

  const BendingDemand demand = bending_demand(section, 350e6);
  // The compressed steel of a shallow section lies too deep to yield.
  EXPECT_FALSE(bending_demand({&c30, &steel, 250, 150, 105, 40}, 100e6).possible);
  EXPECT_GT(demand.compression, 100);
  // Forces balance, and the moment about the tension steel is the one asked for.
  const double block = c30.fc * 250 * demand.block_depth;
  EXPECT_NEAR(block + 360 * demand.compression, 360 * demand.tension, 1e-3);
  EXPECT_NEAR(moment_at(c30, 250, h0, demand.block_depth) + 360 * demand.compression * (h0 - top),
              350e6, 1);
}

TEST(Shear, LimitsStirrupsAndSpacing) {
  struct Case {
    const char* name;
    double width, height, h0, shear_kn;
    bool possible, computed;
    double area_per_length, spacing;
    int diameter;
  };
  // C30 and HPB300: 0.7 ft = 1.001, 0.25 fc = 3.575, least ratio 0.24*1.43/270 = 0.0012711.
  const Case cases[] = {
      {"concrete alone", 250, 600, 560, 140, true, false, 0, 350, 6},
      {"least ratio", 250, 600, 560, 141, true, true, 0.31778, 250, 6},
      {"computed", 250, 600, 560, 250, true, true, (250e3 - 140140) / (270.0 * 560), 250, 6},
      {"at the section limit", 250, 600, 560, 500.4, true, true, (500.4e3 - 140140) / (270.0 * 560),
       250, 6},
      {"over the limit", 250, 600, 560, 500.6, false, true, 0, 250, 6},
      // hw/b = 5: factor 0.225, 0.225*14.3*200*1000 = 643.5 kN
      {"slender web within", 200, 1050, 1000, 643, true, true, (643e3 - 200200) / (270.0 * 1000),
       300, 8},
      {"slender web over", 200, 1050, 1000, 644, false, true, 0, 300, 8},
      // hw/b = 7: factor 0.2, 0.2*14.3*150*1050 = 450.45 kN
      {"very slender over", 150, 1100, 1050, 451, false, true, 0, 300, 8},
      {"low, computed", 200, 300, 265, 54, true, true, 0.25422, 150, 6},
      {"high", 300, 801, 760, 10, true, false, 0, 400, 8},
      {"just not high", 300, 800, 760, 10, true, false, 0, 350, 6},
  };
  const Concrete c30 = concrete(30);
  for (const Case& c : cases) {
    const ShearDemand demand =
        shear_demand({&c30, find_steel(L"HPB300"), c.width, c.height, c.h0}, c.shear_kn * 1e3);
    EXPECT_EQ(demand.possible, c.possible) << c.name;
    EXPECT_EQ(demand.stirrups_computed, c.computed) << c.name;
    EXPECT_NEAR(demand.area_per_length, c.area_per_length, 1e-4) << c.name;
    EXPECT_EQ(demand.largest_spacing, c.spacing) << c.name;
    EXPECT_EQ(demand.smallest_diameter, c.diameter) << c.name;
  }
}

TEST(Shear, BoundsForCompressedBars) {
  EXPECT_EQ(largest_spacing_for_compressed(20, 6), 200);  // more than five, thicker than 18
  EXPECT_EQ(largest_spacing_for_compressed(18, 6), 270);
  EXPECT_FALSE(needs_inner_stirrup(400, 4));
  EXPECT_TRUE(needs_inner_stirrup(400, 5));
  EXPECT_TRUE(needs_inner_stirrup(401, 4));
}

}  // namespace
}  // namespace brindle::beam
