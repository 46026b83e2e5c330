// Single cases of the planar predicates in both widths: edges, conventions, and the behaviours that
// look like slips and are meant.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <tuple>
#include <type_traits>
#include <vector>

#include "predicate_twins.h"
#include "tests/support/expect_numbers.h"

namespace brindle {
namespace {

constexpr double kPi = std::numbers::pi;

template <class Real>
class PredicateCases : public testing::Test {};
using Widths = testing::Types<float, double>;
TYPED_TEST_SUITE(PredicateCases, Widths);

#define USE_FAMILY                                     \
  using Real = TypeParam;                              \
  using F = Twins<TypeParam>;                          \
  constexpr bool kFloat = std::is_same_v<Real, float>; \
  constexpr Real tol = Real(1e-4);                     \
  static_cast<void>(kFloat), static_cast<void>(tol)

// Calls the predicate with the numbers in their order. `outputs` tells what stands behind each of
// its pointers, in their order, where a 7 stood before; those not told aren't looked at.
template <class... Args>
void check(int (*predicate)(Args...), const std::vector<double>& inputs, int result,
           const std::vector<double>& outputs = {},
           std::source_location at = std::source_location::current()) {
  using Real = std::remove_cvref_t<decltype(std::get<sizeof...(Args) - 1>(
      std::declval<std::tuple<Args...>>()))>;
  Real written[4][2] = {{7, 7}, {7, 7}, {7, 7}, {7, 7}};
  std::size_t next_input = 0, next_output = 0;
  const auto argument = [&]<class Arg>(std::type_identity<Arg>) {
    if constexpr (std::is_pointer_v<Arg>) {
      return static_cast<Arg>(written[next_output++]);
    } else {
      return static_cast<Arg>(inputs.at(next_input++));
    }
  };
  // A braced list is evaluated from left to right.
  const std::tuple<Args...> arguments{argument(std::type_identity<Args>{})...};
  const ::testing::ScopedTrace trace(at.file_name(), static_cast<int>(at.line()), "");
  EXPECT_EQ(std::apply(predicate, arguments), result);
  for (std::size_t i = 0; i < outputs.size(); ++i) expect_near({written[i][0]}, {outputs[i]}, 1e-5);
}

TYPED_TEST(PredicateCases, DirectionsCarryTheFamilysConstants) {
  USE_FAMILY;
  const Real pi = kFloat ? Real(3.1415927f) : Real(3.14159265358979);
  const Real two_pi = kFloat ? Real(6.2831855f) : Real(6.28318530718);
  const Real up = kFloat ? Real(1.5707964f) : Real(1.5707963267949);
  const Real down = kFloat ? Real(4.712389f) : Real(4.71238898038469);
  const Real eighth = Real(std::atan(1.0));
  const Real cases[][3] = {
      {0, 0, up},           {0, -1, down}, {-1, 0, pi}, {1, 0, 0}, {1, -1, two_pi - eighth},
      {-1, -1, eighth + pi}};
  for (const auto& [x, y, angle] : cases) {
    EXPECT_EQ(F::GetAngle(1, 1, 1 + x, 1 + y), angle) << x << ' ' << y;
  }
  EXPECT_EQ(F::Set2PI(-1), two_pi - 1);
  EXPECT_EQ(F::Set2PI(two_pi), 0);
}

TYPED_TEST(PredicateCases, ReducesAnyAngleInBoundedTime) {
  USE_FAMILY;
  for (const Real a : {0, 1, -1, 6, 7, -7, 13, 100, -100}) {
    EXPECT_NEAR(F::Set2PI(a), a - std::floor(a / (2 * kPi)) * 2 * kPi, kFloat ? 2e-5 : 1e-9);
  }
  for (const Real a : {Real(1e4), Real(-1e7), Real(3e15), Real(-1e15), Real(-1e30),
                       std::numeric_limits<Real>::max()}) {
    const Real reduced = F::Set2PI(a);
    EXPECT_TRUE(reduced >= 0 && reduced < Real(6.2832)) << a << " " << reduced;
  }
  EXPECT_TRUE(std::isnan(F::Set2PI(NAN)) && std::isnan(F::Set2PI(-INFINITY)));
}

TYPED_TEST(PredicateCases, AnglesInArcs) {
  USE_FAMILY;
  const auto in = F::TestAngleInArc;
  check(in, {1, 0.5, 1.5, 0}, 1);
  check(in, {0.5, 0.5, 1.5, 0}, 1);
  check(in, {1.5, 0.5, 1.5, 0}, 1);
  check(in, {1.6, 0.5, 1.5, 0}, 0);
  check(in, {1.6, 0.5, 1.5, 0.2}, 1);
  check(in, {0.4, 0.5, 1.5, 0.2}, 1);  // by the raw angle
  check(in, {0.4, 0.5, 1.5, 0}, 0);
  check(in, {0.2, 6, 1, 0}, 1);  // through zero
  check(in, {6.1, 6, 1, 0}, 1);
  check(in, {3, 6, 1, 0}, 0);
  check(in, {1 + 2 * kPi, 0.5, 1.5, 0}, 1);
  check(in, {0.4 + 2 * kPi, 0.5, 1.5, 0.2}, 0);  // no raw match, and a turn beyond the end
}

TYPED_TEST(PredicateCases, IntervalsAndRectangles) {
  USE_FAMILY;
  check(F::TestCross_Domain, {0, 1, 1, 2, 0}, 1);
  check(F::TestCross_Domain, {0, 9, 2, 3, 0}, 1);
  check(F::TestCross_Domain, {2, 3, 0, 9, 0}, 1);
  check(F::TestCross_Domain, {0, 1, 1.5, 2, 0.25}, 0);
  check(_JH_TestCross_double_Domain, {0, 1, 1, 2, 0}, 0);
  check(_JH_TestCross_double_Domain, {0, 1, 1, 2, 0.01}, 1);
  check(F::TestCross_Domain_Ex, {0, 1, 1, 2, 0.01}, 0);
  check(F::TestCross_Domain_Ex, {1, 2, 0, 1, 0.01}, 0);
  check(F::TestCross_Domain_Ex, {0, 1, 0.9, 2, 0.01}, 1);
  check(F::TestCross_Domain_Ex, {3, 4, 3, 4, 0.01}, 1);
  // Closed in float, strict in double.
  check(F::TestCrossRegon_Rect, {0, 0, 1, 1, 1, 0, 2, 1, 0}, kFloat);
  check(F::TestCrossRegon_Rect, {0, 0, 1, 1, 0, 1.5, 1, 2, 0.25}, 0);
  check(F::TestCrossRegon_Rect, {0, 0, 9, 9, 3, 3, 4, 4, 0}, 1);
}

TYPED_TEST(PredicateCases, LinesHaveTheLongerAxisAtOne) {
  USE_FAMILY;
  Real a = 0, b = 0, c = 0;
  F::GetLineFunction(1, 2, 2, 6, &a, &b, &c);
  expect_equal({a, b, c}, {0.25, 1, -0.5});
  F::GetLineFunction(1, 2, 5, 3, &a, &b, &c);
  expect_equal({a, b, c}, {1, 0.25, 1.75});
  F::GetLineFunction(1, 2, 1, 2, &a, &b, &c);
  expect_equal({a, b, c}, {1, NAN, NAN});
  check(F::GetInterPoint_Line_ByFunc, {1, 0, 3, 0, 1, -2, 0.1}, 1, {2, 3});
  check(F::GetInterPoint_Line_ByFunc, {1, 0, 3, 1, 0.05, 4, 0.1}, 0, {7, 7});
}

TYPED_TEST(PredicateCases, ElementsMeasureAsTold) {
  USE_FAMILY;
  EXPECT_EQ(F::GetDet_Tri(1, 1, 3, 1, 1, 4), 6);
  // From +y round to +x, by the first point's radius.
  EXPECT_NEAR(F::GetLenArc(0, 0, 0, 2, 9, 0), 2 * 1.5 * kPi, 1e-5);
  Real x = 0, y = 3;
  F::RotatePoint0(&x, &y, Real(kPi / 2));
  F::MovePoint0(&x, &y, 1, 2);
  expect_near({x, y}, {2, -2}, 1e-6);
  Real left = 0, bottom = 0, right = 1, top = 1;
  F::Update_OutLook_Rect(&left, &bottom, &right, &top, -2, 5);
  expect_equal({left, bottom, right, top}, {-2, 0, 1, 5});
}

TYPED_TEST(PredicateCases, TolerancesMeasureDifferentThings) {
  USE_FAMILY;
  // An area for lines: the same distance fails between points farther apart.
  check(F::TestPoint_On_Line, {0, 0.25, 0, 0, 1, 0, 0.5}, 1);
  check(F::TestPoint_On_Line, {0, 0.25, 0, 0, 4, 0, 0.5}, 0);
  // A detour for sections, strict.
  check(F::TestPoint_On_LineSection, {-1, 0, 0, 0, 4, 0, 2}, 0);
  check(F::TestPoint_On_LineSection, {-1, 0, 0, 0, 4, 0, 2.01}, 1);
  check(F::TestPoint_On_LineSection, {2, 1, 0, 0, 4, 0, 0.5}, 1);
  // A band, closed.
  check(F::TestPointIn_LineSection, {-1, 1, 0, 0, 4, 0, 1}, 1);
  check(F::TestPointIn_LineSection, {2, 1.01, 0, 0, 4, 0, 1}, 0);
  check(F::TestPointIn_LineSection, {5.01, 0, 0, 0, 4, 0, 1}, 0);
  // Discs are strict, rectangles closed, rings strict, arcs closed.
  check(F::TestPointIn_Circle, {2, 0, 0, 0, 1, 1}, 0);
  check(F::TestPointIn_Circle, {1, 0, 0, 0, 1, 0.1}, 1);
  check(F::TestPointIn_Rect, {0, 0, 1, 1, 2, -1, 1}, 1);
  check(F::TestPointIn_Rect, {0, 0, 1, 1, 2.01, 0, 1}, 0);
  check(F::TestPointIn_JvBuYuanHuan, {6, 0, 0, 0, 4, 2, 0, 1, 1}, 0);
  check(F::TestPointIn_JvBuYuanHuan, {5.99, 0, 0, 0, 4, 2, 0, 1, 1}, 1);
  check(F::TestPointIn_JvBuYuanHuan, {2, 0, 0, 0, 4, 2, 0, 1, 1}, 0);
  check(F::TestPointIn_Arc, {5, 0, 0, 0, 4, 0, 1, 1}, 1);
  check(F::TestPointIn_Arc, {4, -0.9, 0, 0, 4, 0.1, 1, 1}, 0);  // not through zero
  check(F::TestPointIn_Arc, {4, 0, 0, 0, 4, 0.2, 1, 1}, 1);
  check(F::TestPointIn_Arc, {4, -2, 0, 0, 4, 0, 1, 1}, 0);
}

TYPED_TEST(PredicateCases, PolygonsWindCounterClockwise) {
  USE_FAMILY;
  const Real xs[] = {0, 2, 2, 0}, ys[] = {0, 0, 2, 2}, far_xs[] = {Real(2.05), 4, 4, Real(2.05)};
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, 1, 4, xs, ys, tol), 1);
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, 1, 4, ys, xs, tol), 0);  // turned
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, Real(-0.4), 4, xs, ys, Real(0.5)), 1);
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, Real(-0.6), 4, xs, ys, Real(0.5)), 0);
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, 1, 0, nullptr, nullptr, 0), 1);
  EXPECT_EQ(F::TestPointIn_Polygon(1, 1, 4, xs, ys, tol), 0);
  EXPECT_EQ(F::TestCrossRegon_TuPolygon_TuPolygon(0, nullptr, nullptr, 4, xs, ys, 1), 0);
  // By the edges, whose tolerance is the caller's.
  EXPECT_EQ(F::TestCrossRegon_TuPolygon_TuPolygon(4, xs, ys, 4, far_xs, ys, Real(0.1)), 1);
  EXPECT_EQ(F::TestCrossRegon_TuPolygon_TuPolygon(4, xs, ys, 4, far_xs, ys, Real(0.01)), 0);
}

TYPED_TEST(PredicateCases, FeetAreWrittenAsTold) {
  USE_FAMILY;
  check(F::GetCuiZu_PointToLineSection, {-3, 5, 0, 0, 4, 0, 1}, 0, {-3, 0});
  check(F::GetCuiZu_PointToLineSection, {5, 5, 0, 0, 4, 0, 1}, 1);
  check(F::GetCuiZu_PointToArc, {-9, 0, 0, 0, 4, 0, 1, 0.1}, 0, {7, 7});
  check(F::GetCuiZu_PointToArc, {9, 9, 0, 0, 4, 0, 1, 0.1}, 1, {std::sqrt(8), std::sqrt(8)});
}

TYPED_TEST(PredicateCases, SectionsOnOneLine) {
  USE_FAMILY;
  const auto meet = F::GetInterPoint_LineSection_LineSection;
  check(meet, {0, 0, 4, 4, 2, 2, 6, 6, tol}, 2, {7, 7});
  check(F::GetInterPoint_LineSection, {0, 0, 4, 4, 2, 2, 6, 6, tol}, 0, {7, 7});
  check(F::TestCrossRegon_LineSection_LineSection, {0, 0, 4, 4, 2, 2, 6, 6, tol}, 1);
  check(meet, {0, 0, 4, 4, 5, 5, 6, 6, tol}, 0);
  // What is parallel doesn't depend on `tol`: sections that cross at so small a slope don't here.
  check(meet, {0, 0, 10, 0, 0, -5e-6, 10, 5e-6, 1e-9}, 0);
  check(meet, {0, 0, 10, 0, 0, -5e-6, 10, 5e-6, tol}, 2);
}

TYPED_TEST(PredicateCases, SectionsWithoutLengthArePoints) {
  USE_FAMILY;
  check(F::GetInterPoint_LineSection, {0, 0, 4, 0, 2, 0, 2, 0, tol}, 1, {2, 0});
  check(F::GetInterPoint_LineSection, {3, 0, 3, 0, 0, 0, 4, 0, tol}, 1, {3, 0});
  check(F::GetInterPoint_LineSection, {0, 0, 4, 4, 1, 3, 1, 3, tol}, 0, {7, 7});
  check(F::GetInterPoint_LineSection, {1, 3, 1, 3, 0, 0, 4, 4, tol}, 0, {7, 7});
  // Without that care the point's line is NaN.
  check(F::GetInterPoint_LineSection_LineSection, {0, 0, 4, 0, 2, 0, 2, 0, tol}, 1, {NAN});
}

TYPED_TEST(PredicateCases, TheEarlierMethodWritesPointsThatItRefuses) {
  USE_FAMILY;
  check(F::GetInterPoint_LineSection_Old, {0, 0, 1, 0, 2, -1, 2, 1, 1e-5}, 0, {2, 0});
  check(F::GetInterPoint_LineSection_Old, {0, 0, 4, 0, 2, -1, 2, 1, 1e-5}, 1);
  check(F::GetInterPoint_LineSection_Old, {0, 0, 4, 0, 0, 1, 4, 1, 1e-5}, 0, {7});
}

TYPED_TEST(PredicateCases, CirclesAndSections) {
  USE_FAMILY;
  const auto meet = F::GetInterPoint_Circle_LineSection;
  check(meet, {0, 0, 2, -5, 0, 5, 0, tol}, 2, {2, 0, -2, 0});   // the farther one first
  check(meet, {0, 0, 2, -5, 0, 0, 0, tol}, 1, {-2, 0, -2, 0});  // copied to the front
  check(meet, {0, 0, 2, -5, 2.00005, 5, 2.00005, tol}, 1, {0, 2.00005, 7, 7});
  check(meet, {0, 0, 2, -5, 2.01, 5, 2.01, tol}, 0);
  // Inside the circle a section doesn't cross its line, but meets the disc.
  check(F::TestCross_Circle_LineSection, {0, 0, 2, -1, 0, 1, 0, tol}, 0);
  check(F::TestCrossRegon_Circle_LineSection, {0, 0, 2, -1, 0, 1, 0, tol}, 1);
  check(F::TestCross_Circle_LineSection, {0, 0, 2, -1, 0, 3, 0, tol}, 1);
  check(F::TestCrossRegon_Circle_LineSection, {0, 0, 2, 3, -1, 3, 1, tol}, 0);
}

TYPED_TEST(PredicateCases, OnlyTheSecondCrossingOfAnArcIsLookedAt) {
  USE_FAMILY;
  // The arc is the right half: the farther crossing, the first, is on it.
  const double a0 = 1.5 * kPi, a1 = 0.5 * kPi;
  check(F::TestCross_LineSection_Arc, {-5, 0, 5, 0, 0, 0, 2, a0, a1, tol}, 0);
  check(F::GetInterPoint_LineSection_Arc, {-5, 0, 5, 0, 0, 0, 2, a0, a1, tol}, 1, {2});
  check(F::TestCross_LineSection_Arc, {5, 0, -5, 0, 0, 0, 2, a0, a1, tol}, 1);
  check(F::GetInterPoint_LineSection_Arc, {5, 0, -5, 0, 0, 0, 2, a0, a1, tol}, 1, {2});
}

TYPED_TEST(PredicateCases, TwoCirclesByTheirDistance) {
  USE_FAMILY;
  const double h = std::sqrt(3.0);
  const auto meet = F::GetInterPoint_Circle_Circle;
  check(meet, {0, 0, 2, 0, 0, 2, 1e-3}, -1, {7, 7, 7, 7});
  check(meet, {0, 0, 2, 5, 0, 2, 1e-3}, 0, {7, 7, 7, 7});
  check(meet, {0, 0, 2, 4, 0, 2, 1e-3}, 1, {2, 0, 7, 7});
  check(meet, {0, 0, 3, 4.0005, 0, 1, 1e-3}, 1, {3.000375, 0, 7, 7});
  check(meet, {0, 0, 3, 0.5, 0, 1, 1e-3}, 0, {7, 7, 7, 7});
  check(meet, {0, 0, 3, 2, 0, 1, 1e-3}, 1, {3, 0, 7, 7});
  check(meet, {0, 0, 1, 2, 0, 3, 1e-3}, 1, {-1, 0, 7, 7});
  check(meet, {0, 0, 2, 2, 0, 2, 1e-3}, 2, {1, h, 1, -h});
}

TYPED_TEST(PredicateCases, ArcsOfOneCircle) {
  USE_FAMILY;
  const auto meet = F::GetInterPoint_Arc_Arc;
  check(meet, {1, 1, 2, 0.1, 3, 1, 1, 2, 3.2, 6.2, tol}, 0);
  check(meet, {1, 1, 2, 0.1, 3, 1, 1, 2, 2.9, 6.2, tol}, -1);
  check(meet, {1, 1, 2, 0.1, 3, 1, 1, 2, 1, 2, tol}, -1);
  check(meet, {1, 1, 2, 1, 2, 1, 1, 2, 0.1, 3, tol}, -1);
  check(F::TestCrossRegon_Arc_Arc, {1, 1, 2, 1, 2, 1, 1, 2, 0.1, 3, tol}, 1);
  check(F::GetInterPoint_Circle_Arc, {1, 1, 2, 1, 1, 2, 1, 2, tol}, -1);
  // The second crossing alone comes to the front.
  check(F::GetInterPoint_Circle_Arc, {0, 0, 2, 2, 0, 2, kPi, 1.9 * kPi, tol}, 1,
        {1, -std::sqrt(3.0)});
}

TYPED_TEST(PredicateCases, LinesAndRays) {
  USE_FAMILY;
  check(F::GetInterPoint_Line_Circle, {1, 0, 2, 0, 0, 1, 0, tol}, 2, {3});
  // On the line, not on the circle; the ray keeps 1e-5.
  check(F::GetInterPoint_Line_Circle, {1, 0, 2, 0, 2.5, 1, 2.5, 1}, 1, {1, 2.5});
  check(F::GetInterPoint_Ray_Cirlce, {1, 0, 2, -9, 2.5, 1, 2.5, 1}, 0);
  check(F::GetInterPoint_Ray_Cirlce, {1, 0, 2, 0, 0, -1, 0, tol}, 1, {-1});
  // A hit at the start is none.
  check(F::GetInterPoint_Ray_Line, {0, 0, 1, 0, 0, -1, 0, 1, tol}, 0);
  check(F::GetInterPoint_Ray_Line, {-1, 0, 1, 0, 0, -1, 0, 1, tol}, 1);
  check(F::GetInterPoint_Ray_Line, {1, 0, 2, 0, 0, -1, 0, 1, tol}, 0);
  check(F::GetInterPoint_Ray_LineSection, {-1, 0, 1, 0, 0, 1, 0, 2, tol}, 0);
  check(F::GetInterPoint_Ray_LineSection, {-1, 0, 1, 0, 0, -1, 0, 2, tol}, 1);
  check(F::GetInterPoint_Ray_Ray, {-1, 0, 1, 0, 0, 1, 0, 2, tol}, 0);
  check(F::GetInterPoint_Ray_Ray, {-1, 0, 1, 0, 0, 2, 0, 1, tol}, 1);
  // An arc through zero ends beyond a turn here; one that ends below its start is empty.
  const double a0 = 1.75 * kPi;
  check(F::GetInterPoint_Ray_Arc, {0, 0, 2, a0, 2.25 * kPi, -9, 1, 9, 1, tol}, 1, {std::sqrt(3)});
  check(F::GetInterPoint_Ray_Arc, {0, 0, 2, a0, 0.25 * kPi, -9, 1, 9, 1, tol}, 0);
}

TYPED_TEST(PredicateCases, TheSecondPointOfDiscAndArcIsTurnedByTheFirstsDirection) {
  USE_FAMILY;
  const struct {
    double from_deg, to_deg;
    int meets;
  } cases[] = {{130, 230, 1},  // through the disc
               {170, 180, 1},  // inside it
               {300, 60, 0},   // beside it
               // Beside it, but where the second point comes to lie, at 110.7 degrees.
               {90, 130, 1},
               {90, 110, 0},
               {111, 130, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.from_deg);
    const double a0 = c.from_deg * kPi / 180, a1 = c.to_deg * kPi / 180;
    check(F::TestCrossRegon_Circle_Arc, {0, 0, 1, 1, 0, 1.5, a0, a1, tol}, c.meets);
  }
  // Touching from outside doesn't count, but by an end of the arc.
  check(F::TestCrossRegon_Circle_Arc, {0, 0, 1, 3, 0, 2, 0.5 * kPi, 1.5 * kPi, tol}, 0);
}

TYPED_TEST(PredicateCases, TheInnerEndOfARadialEdgeHasItsXTwice) {
  USE_FAMILY;
  // The ring from 9 to 11 over 0 to 0.5; (9, 9) lies 45 degrees up.
  const auto meets = [&](double x, double start) {
    const Real xs[] = {Real(x - 0.1), Real(x + 0.1), Real(x + 0.1), Real(x - 0.1)},
               ys[] = {Real(8.9), Real(8.9), Real(9.1), Real(9.1)};
    return F::TestCrossRegon_TuPolygon_JvBuYuanHuan(4, xs, ys, 0, 0, 10, 2, Real(start), Real(0.5),
                                                    tol);
  };
  EXPECT_EQ(meets(9, 0), 1);
  EXPECT_EQ(meets(9, 0.01), 1);
  EXPECT_EQ(meets(-9, 0), 0);
}

TYPED_TEST(PredicateCases, PartialAnnuli) {
  USE_FAMILY;
  const auto meet = F::TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan;
  check(meet, {0, 0, 10, 2, 0, 1, 0, 0, 10, 1, 0.2, 0.4, tol}, 1);   // inside
  check(meet, {0, 0, 10, 2, 0, 1, 0, 0, 10, 4, -0.2, 1.2, tol}, 1);  // around
  check(meet, {0, 0, 10, 2, 0, 1, 0, 0, 20, 2, 0, 1, tol}, 0);
  check(meet, {0, 0, 10, 2, 0, 1, 0, 0, 10, 2, 2, 3, tol}, 0);
  check(meet, {0, 0, 10, 2, 0, 1, 0, 0, 12, 2, 0, 1, tol}, 1);  // side by side
  check(meet, {0, 0, 10, 2, 0, 1, 22, 0, 10, 1.9, 3, 3.3, tol}, 0);
  check(meet, {0, 0, 10, 2, 0, 1, 19.5, 0, 10, 2, 3, 3.3, tol}, 1);
  // A ring laid across both radial edges between the corners: edges and arcs are only compared with
  // their own kind.
  check(meet, {0, 0, 10, 2, 0, 1, 0, 0, 10, 1, 6, 1.5, tol}, 0);
}

}  // namespace
}  // namespace brindle
