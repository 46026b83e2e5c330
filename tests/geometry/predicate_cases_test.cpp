// Single cases of the planar predicates in both widths: edges, conventions, and the behaviours that
// look like slips and are meant.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <type_traits>

#include "predicate_twins.h"

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
  static_cast<void>(kFloat)

TYPED_TEST(PredicateCases, DirectionsCarryTheFamilysConstants) {
  USE_FAMILY;
  const Real pi = kFloat ? Real(3.1415927f) : Real(3.14159265358979);
  const Real two_pi = kFloat ? Real(6.2831855f) : Real(6.28318530718);
  EXPECT_EQ(F::GetAngle(1, 1, 1, 1), kFloat ? Real(1.5707964f) : Real(1.5707963267949));
  EXPECT_EQ(F::GetAngle(0, 0, 0, -1), kFloat ? Real(4.712389f) : Real(4.71238898038469));
  EXPECT_EQ(F::GetAngle(0, 0, -1, 0), pi);
  EXPECT_EQ(F::GetAngle(0, 0, 1, 0), 0);
  EXPECT_EQ(F::GetAngle(0, 0, 1, -1), Real(std::atan(-1.0)) + two_pi);
  EXPECT_EQ(F::GetAngle(0, 0, -1, -1), Real(std::atan(1.0)) + pi);
  EXPECT_EQ(F::Set2PI(-1), two_pi - 1);
  EXPECT_EQ(F::Set2PI(two_pi), 0);
}

TYPED_TEST(PredicateCases, ReducesAnyAngleInBoundedTime) {
  USE_FAMILY;
  for (const Real a :
       {Real(1e4), Real(-1e7), Real(3e15), Real(-1e30), std::numeric_limits<Real>::max()}) {
    const Real reduced = F::Set2PI(a);
    EXPECT_TRUE(reduced >= 0 && reduced < Real(6.2832)) << a << " " << reduced;
  }
  EXPECT_TRUE(std::isnan(F::Set2PI(NAN)));
  EXPECT_TRUE(std::isnan(F::Set2PI(-INFINITY)));
}

TYPED_TEST(PredicateCases, LinesHaveTheLongerAxisAtOne) {
  USE_FAMILY;
  Real a = 0, b = 0, c = 0;
  F::GetLineFunction(1, 2, 2, 6, &a, &b, &c);
  EXPECT_EQ(a, Real(0.25));
  EXPECT_EQ(b, 1);
  EXPECT_EQ(c, Real(-0.5));
  F::GetLineFunction(1, 2, 5, 3, &a, &b, &c);
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, Real(0.25));
  EXPECT_EQ(c, Real(1.75));
  F::GetLineFunction(1, 2, 1, 2, &a, &b, &c);
  EXPECT_TRUE(a == 1 && std::isnan(b) && std::isnan(c));
  Real x = 7, y = 8;
  EXPECT_EQ(F::GetInterPoint_Line_ByFunc(1, 0, 3, 0, 1, -2, &x, &y, Real(0.1)), 1);
  EXPECT_EQ(x, 2);
  EXPECT_EQ(y, 3);
  EXPECT_EQ(F::GetInterPoint_Line_ByFunc(1, 0, 3, 1, Real(0.05), 4, &x, &y, Real(0.1)), 0);
  EXPECT_EQ(x, 2);  // unwritten
}

TYPED_TEST(PredicateCases, ElementsMeasureAsTold) {
  USE_FAMILY;
  EXPECT_EQ(F::GetDet_Tri(1, 1, 3, 1, 1, 4), 6);
  EXPECT_EQ(F::GetDet_Tri(1, 1, 1, 4, 3, 1), -6);
  // From +y round to +x, by the first point's radius.
  EXPECT_NEAR(F::GetLenArc(0, 0, 0, 2, 9, 0), 2 * 1.5 * kPi, 1e-5);
  Real x = 0, y = 3;
  F::RotatePoint0(&x, &y, Real(kPi / 2));
  EXPECT_NEAR(x, 3, 1e-6);
  EXPECT_NEAR(y, 0, 1e-6);
  F::MovePoint0(&x, &y, 1, 2);
  EXPECT_NEAR(x, 2, 1e-6);
  EXPECT_NEAR(y, -2, 1e-6);
  Real left = 0, bottom = 0, right = 1, top = 1;
  F::Update_OutLook_Rect(&left, &bottom, &right, &top, -2, 5);
  EXPECT_TRUE(left == -2 && bottom == 0 && right == 1 && top == 5);
}

TYPED_TEST(PredicateCases, TolerancesMeasureDifferentThings) {
  USE_FAMILY;
  // An area for lines: the same distance fails between points farther apart.
  EXPECT_EQ(F::TestPoint_On_Line(0, Real(0.25), 0, 0, 1, 0, Real(0.5)), 1);
  EXPECT_EQ(F::TestPoint_On_Line(0, Real(0.25), 0, 0, 4, 0, Real(0.5)), 0);
  // A detour for sections, strict.
  EXPECT_EQ(F::TestPoint_On_LineSection(-1, 0, 0, 0, 4, 0, 2), 0);
  EXPECT_EQ(F::TestPoint_On_LineSection(-1, 0, 0, 0, 4, 0, Real(2.01)), 1);
  EXPECT_EQ(F::TestPoint_On_LineSection(2, 1, 0, 0, 4, 0, Real(0.5)), 1);
  // A band, closed.
  EXPECT_EQ(F::TestPointIn_LineSection(-1, 1, 0, 0, 4, 0, 1), 1);
  EXPECT_EQ(F::TestPointIn_LineSection(2, Real(1.01), 0, 0, 4, 0, 1), 0);
  EXPECT_EQ(F::TestPointIn_LineSection(Real(5.01), 0, 0, 0, 4, 0, 1), 0);
  // Discs are strict, rectangles closed, rings strict, arcs closed.
  EXPECT_EQ(F::TestPointIn_Circle(2, 0, 0, 0, 1, 1), 0);
  EXPECT_EQ(F::TestPointIn_Circle(1, 0, 0, 0, 1, Real(0.1)), 1);
  EXPECT_EQ(F::TestPointIn_Rect(0, 0, 1, 1, 2, -1, 1), 1);
  EXPECT_EQ(F::TestPointIn_Rect(0, 0, 1, 1, Real(2.01), 0, 1), 0);
  EXPECT_EQ(F::TestPointIn_JvBuYuanHuan(6, 0, 0, 0, 4, 2, 0, 1, 1), 0);
  EXPECT_EQ(F::TestPointIn_JvBuYuanHuan(Real(5.99), 0, 0, 0, 4, 2, 0, 1, 1), 1);
  EXPECT_EQ(F::TestPointIn_JvBuYuanHuan(2, 0, 0, 0, 4, 2, 0, 1, 1), 0);
  EXPECT_EQ(F::TestPointIn_Arc(5, 0, 0, 0, 4, 0, 1, 1), 1);
  EXPECT_EQ(F::TestPointIn_Arc(4, Real(-0.9), 0, 0, 4, Real(0.1), 1, 1), 0);  // not through zero
  EXPECT_EQ(F::TestPointIn_Arc(4, 0, 0, 0, 4, Real(0.2), 1, 1), 1);
  EXPECT_EQ(F::TestPointIn_Arc(4, -2, 0, 0, 4, 0, 1, 1), 0);
  EXPECT_EQ(F::TestCross_Domain_Ex(0, 1, 1, 2, Real(0.01)), 0);
  EXPECT_EQ(F::TestCross_Domain_Ex(3, 4, 3, 4, Real(0.01)), 1);
}

TYPED_TEST(PredicateCases, PolygonsWindCounterClockwise) {
  USE_FAMILY;
  const Real xs[] = {0, 2, 2, 0}, ys[] = {0, 0, 2, 2};
  const Real turned_xs[] = {0, 0, 2, 2}, turned_ys[] = {0, 2, 2, 0};
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, 1, 4, xs, ys, Real(1e-5)), 1);
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, 1, 4, turned_xs, turned_ys, Real(1e-5)), 0);
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, Real(-0.4), 4, xs, ys, Real(0.5)), 1);
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, Real(-0.6), 4, xs, ys, Real(0.5)), 0);
  EXPECT_EQ(F::TestPointIn_TuPolygon(1, 1, 0, nullptr, nullptr, 0), 1);
  EXPECT_EQ(F::TestPointIn_Polygon(1, 1, 4, xs, ys, Real(1e-5)), 0);
  EXPECT_EQ(F::TestCrossRegon_TuPolygon_TuPolygon(0, nullptr, nullptr, 4, xs, ys, 1), 0);
  // By the edges, whose tolerance is the caller's.
  const Real far_xs[] = {Real(2.05), 4, 4, Real(2.05)};
  EXPECT_EQ(F::TestCrossRegon_TuPolygon_TuPolygon(4, xs, ys, 4, far_xs, ys, Real(0.1)), 1);
  EXPECT_EQ(F::TestCrossRegon_TuPolygon_TuPolygon(4, xs, ys, 4, far_xs, ys, Real(0.01)), 0);
}

TYPED_TEST(PredicateCases, FeetAreWrittenAsTold) {
  USE_FAMILY;
  Real x = 7, y = 8;
  EXPECT_EQ(F::GetCuiZu_PointToLineSection(-3, 5, 0, 0, 4, 0, &x, &y, 1), 0);
  EXPECT_NEAR(x, -3, 1e-5);
  EXPECT_NEAR(y, 0, 1e-5);
  EXPECT_EQ(F::GetCuiZu_PointToLineSection(5, 5, 0, 0, 4, 0, &x, &y, 1), 1);
  x = 7, y = 8;
  EXPECT_EQ(F::GetCuiZu_PointToArc(-9, 0, 0, 0, 4, 0, 1, &x, &y, Real(0.1)), 0);
  EXPECT_TRUE(x == 7 && y == 8);
  EXPECT_EQ(F::GetCuiZu_PointToArc(9, 9, 0, 0, 4, 0, 1, &x, &y, Real(0.1)), 1);
  EXPECT_NEAR(x, 4 * std::sqrt(0.5), 1e-5);
  EXPECT_NEAR(y, x, 1e-5);
}

TYPED_TEST(PredicateCases, SectionsOnOneLine) {
  USE_FAMILY;
  const Real tol = Real(1e-4);
  Real x = 7, y = 8;
  EXPECT_EQ(F::GetInterPoint_LineSection_LineSection(0, 0, 4, 4, 2, 2, 6, 6, &x, &y, tol), 2);
  EXPECT_EQ(F::GetInterPoint_LineSection(0, 0, 4, 4, 2, 2, 6, 6, &x, &y, tol), 0);
  EXPECT_TRUE(x == 7 && y == 8);
  EXPECT_EQ(F::TestCrossRegon_LineSection_LineSection(0, 0, 4, 4, 2, 2, 6, 6, tol), 1);
  EXPECT_EQ(F::GetInterPoint_LineSection_LineSection(0, 0, 4, 4, 5, 5, 6, 6, &x, &y, tol), 0);
  // What is parallel doesn't depend on `tol`: sections that cross at so small a slope don't here.
  EXPECT_EQ(F::GetInterPoint_LineSection_LineSection(0, 0, 10, 0, 0, Real(-5e-6), 10, Real(5e-6),
                                                     &x, &y, Real(1e-9)),
            0);
  EXPECT_EQ(F::GetInterPoint_LineSection_LineSection(0, 0, 10, 0, 0, Real(-5e-6), 10, Real(5e-6),
                                                     &x, &y, tol),
            2);
}

TYPED_TEST(PredicateCases, SectionsWithoutLengthArePoints) {
  USE_FAMILY;
  const Real tol = Real(1e-3);
  Real x = 7, y = 8;
  EXPECT_EQ(F::GetInterPoint_LineSection(0, 0, 4, 0, 2, 0, 2, 0, &x, &y, tol), 1);
  EXPECT_TRUE(x == 2 && y == 0);
  EXPECT_EQ(F::GetInterPoint_LineSection(3, 0, 3, 0, 0, 0, 4, 0, &x, &y, tol), 1);
  EXPECT_TRUE(x == 3 && y == 0);
  EXPECT_EQ(F::GetInterPoint_LineSection(0, 0, 4, 4, 1, 3, 1, 3, &x, &y, tol), 0);
  EXPECT_EQ(F::GetInterPoint_LineSection(1, 3, 1, 3, 0, 0, 4, 4, &x, &y, tol), 0);
  EXPECT_TRUE(x == 3 && y == 0);
  // Without that care the point's line is NaN.
  EXPECT_EQ(F::GetInterPoint_LineSection_LineSection(0, 0, 4, 0, 2, 0, 2, 0, &x, &y, tol), 1);
  EXPECT_TRUE(std::isnan(x));
}

TYPED_TEST(PredicateCases, TheEarlierMethodWritesPointsThatItRefuses) {
  USE_FAMILY;
  Real x = 7, y = 8;
  EXPECT_EQ(F::GetInterPoint_LineSection_Old(0, 0, 1, 0, 2, -1, 2, 1, &x, &y, Real(1e-5)), 0);
  EXPECT_TRUE(x == 2 && y == 0);
  EXPECT_EQ(F::GetInterPoint_LineSection_Old(0, 0, 4, 0, 2, -1, 2, 1, &x, &y, Real(1e-5)), 1);
  x = 7;
  EXPECT_EQ(F::GetInterPoint_LineSection_Old(0, 0, 4, 0, 0, 1, 4, 1, &x, &y, Real(1e-5)), 0);
  EXPECT_EQ(x, 7);
}

TYPED_TEST(PredicateCases, CirclesAndSections) {
  USE_FAMILY;
  const Real tol = Real(1e-3);
  Real xa = 7, ya = 7, xb = 7, yb = 7;
  EXPECT_EQ(F::GetInterPoint_Circle_LineSection(0, 0, 2, -5, 0, 5, 0, &xa, &ya, &xb, &yb, tol), 2);
  EXPECT_NEAR(xa, 2, 1e-5);  // the farther one first
  EXPECT_NEAR(xb, -2, 1e-5);
  EXPECT_EQ(F::GetInterPoint_Circle_LineSection(0, 0, 2, -5, 0, 0, 0, &xa, &ya, &xb, &yb, tol), 1);
  EXPECT_NEAR(xa, -2, 1e-5);  // copied to the front
  EXPECT_NEAR(xb, -2, 1e-5);
  xb = 7;
  EXPECT_EQ(F::GetInterPoint_Circle_LineSection(0, 0, 2, -5, Real(2.0005), 5, Real(2.0005), &xa,
                                                &ya, &xb, &yb, tol),
            1);
  EXPECT_NEAR(xa, 0, 1e-4);
  EXPECT_EQ(xb, 7);
  EXPECT_EQ(F::GetInterPoint_Circle_LineSection(0, 0, 2, -5, Real(2.01), 5, Real(2.01), &xa, &ya,
                                                &xb, &yb, tol),
            0);
  // Inside the circle a section doesn't cross its line, but meets the disc.
  EXPECT_EQ(F::TestCross_Circle_LineSection(0, 0, 2, -1, 0, 1, 0, tol), 0);
  EXPECT_EQ(F::TestCrossRegon_Circle_LineSection(0, 0, 2, -1, 0, 1, 0, tol), 1);
  EXPECT_EQ(F::TestCross_Circle_LineSection(0, 0, 2, -1, 0, 3, 0, tol), 1);
  EXPECT_EQ(F::TestCrossRegon_Circle_LineSection(0, 0, 2, 3, -1, 3, 1, tol), 0);
}

TYPED_TEST(PredicateCases, OnlyTheSecondCrossingOfAnArcIsLookedAt) {
  USE_FAMILY;
  const Real tol = Real(1e-4);
  Real xa = 7, ya = 7, xb = 7, yb = 7;
  // The arc is the right half: the farther crossing, the first, is on it.
  const Real a0 = Real(1.5 * kPi), a1 = Real(0.5 * kPi);
  EXPECT_EQ(F::TestCross_LineSection_Arc(-5, 0, 5, 0, 0, 0, 2, a0, a1, tol), 0);
  EXPECT_EQ(F::GetInterPoint_LineSection_Arc(-5, 0, 5, 0, 0, 0, 2, a0, a1, &xa, &ya, &xb, &yb, tol),
            1);
  EXPECT_NEAR(xa, 2, 1e-5);
  EXPECT_EQ(F::TestCross_LineSection_Arc(5, 0, -5, 0, 0, 0, 2, a0, a1, tol), 1);
  EXPECT_EQ(F::GetInterPoint_LineSection_Arc(5, 0, -5, 0, 0, 0, 2, a0, a1, &xa, &ya, &xb, &yb, tol),
            1);
  EXPECT_NEAR(xa, 2, 1e-5);  // copied to the front
}

TYPED_TEST(PredicateCases, TwoCirclesByTheirDistance) {
  USE_FAMILY;
  const Real tol = Real(1e-3);
  struct Case {
    double x2, r1, r2;
    int count;
    double xa, ya;
  } const cases[] = {
      {0, 2, 2, -1, 7, 7},  {5, 2, 2, 0, 7, 7},
      {4, 2, 2, 1, 2, 0},   {4.0005, 3, 1, 1, 3.000375, 0},
      {0.5, 3, 1, 0, 7, 7}, {2, 3, 1, 1, 3, 0},
      {2, 1, 3, 1, -1, 0},  {2, 2, 2, 2, 1, std::sqrt(3.0)},
  };
  for (const Case& c : cases) {
    Real xa = 7, ya = 7, xb = 7, yb = 7;
    const int count =
        F::GetInterPoint_Circle_Circle(0, 0, c.r1, c.x2, 0, c.r2, &xa, &ya, &xb, &yb, tol);
    EXPECT_EQ(count, c.count) << c.x2 << " " << c.r1 << " " << c.r2;
    EXPECT_NEAR(xa, c.xa, 1e-5) << c.x2 << " " << c.r1 << " " << c.r2;
    EXPECT_NEAR(ya, c.ya, 1e-5) << c.x2 << " " << c.r1 << " " << c.r2;
    EXPECT_NEAR(yb, count == 2 ? -c.ya : 7, 1e-5);
  }
}

TYPED_TEST(PredicateCases, ArcsOfOneCircle) {
  USE_FAMILY;
  const Real tol = Real(1e-4);
  Real xa, ya, xb, yb;
  const auto arcs = [&](double a0, double a1, double b0, double b1) {
    return F::GetInterPoint_Arc_Arc(1, 1, 2, a0, a1, 1, 1, 2, b0, b1, &xa, &ya, &xb, &yb, tol);
  };
  EXPECT_EQ(arcs(0.1, 3, 3.2, 6.2), 0);
  EXPECT_EQ(arcs(0.1, 3, 2.9, 6.2), -1);
  EXPECT_EQ(arcs(0.1, 3, 1, 2), -1);
  EXPECT_EQ(arcs(1, 2, 0.1, 3), -1);
  EXPECT_EQ(F::TestCrossRegon_Arc_Arc(1, 1, 2, 1, 2, 1, 1, 2, Real(0.1), 3, tol), 1);
  EXPECT_EQ(F::GetInterPoint_Circle_Arc(1, 1, 2, 1, 1, 2, 1, 2, &xa, &ya, &xb, &yb, tol), -1);
  // The second crossing alone comes to the front.
  EXPECT_EQ(F::GetInterPoint_Circle_Arc(0, 0, 2, 2, 0, 2, Real(kPi), Real(1.9 * kPi), &xa, &ya, &xb,
                                        &yb, tol),
            1);
  EXPECT_NEAR(ya, -std::sqrt(3.0), 1e-5);
}

TYPED_TEST(PredicateCases, LinesAndRays) {
  USE_FAMILY;
  const Real tol = Real(1e-4);
  Real xs[2] = {7, 7}, ys[2] = {7, 7}, x = 7, y = 7;
  EXPECT_EQ(F::GetInterPoint_Line_Circle(1, 0, 2, 0, 0, 1, 0, xs, ys, tol), 2);
  EXPECT_NEAR(xs[0], 3, 1e-5);
  EXPECT_NEAR(xs[1], -1, 1e-5);
  EXPECT_EQ(F::GetInterPoint_Line_Circle(1, 0, 2, 0, Real(2.5), 1, Real(2.5), xs, ys, 1), 1);
  EXPECT_NEAR(xs[0], 1, 1e-5);
  EXPECT_NEAR(ys[0], 2.5, 1e-5);  // on the line, not on the circle
  // The ray keeps 1e-5.
  EXPECT_EQ(F::GetInterPoint_Ray_Cirlce(1, 0, 2, -9, Real(2.5), 1, Real(2.5), xs, ys, 1), 0);
  EXPECT_EQ(F::GetInterPoint_Ray_Cirlce(1, 0, 2, 0, 0, -1, 0, xs, ys, tol), 1);
  EXPECT_NEAR(xs[0], -1, 1e-5);
  // A hit at the start is none.
  EXPECT_EQ(F::GetInterPoint_Ray_Line(0, 0, 1, 0, 0, -1, 0, 1, &x, &y, tol), 0);
  EXPECT_EQ(F::GetInterPoint_Ray_Line(-1, 0, 1, 0, 0, -1, 0, 1, &x, &y, tol), 1);
  EXPECT_EQ(F::GetInterPoint_Ray_Line(1, 0, 2, 0, 0, -1, 0, 1, &x, &y, tol), 0);
  EXPECT_EQ(F::GetInterPoint_Ray_LineSection(-1, 0, 1, 0, 0, 1, 0, 2, &x, &y, tol), 0);
  EXPECT_EQ(F::GetInterPoint_Ray_LineSection(-1, 0, 1, 0, 0, -1, 0, 2, &x, &y, tol), 1);
  EXPECT_EQ(F::GetInterPoint_Ray_Ray(-1, 0, 1, 0, 0, 1, 0, 2, &x, &y, tol), 0);
  EXPECT_EQ(F::GetInterPoint_Ray_Ray(-1, 0, 1, 0, 0, 2, 0, 1, &x, &y, tol), 1);
  // An arc through zero ends beyond a turn here; one that ends below its start is empty.
  const Real a0 = Real(1.75 * kPi);
  EXPECT_EQ(F::GetInterPoint_Ray_Arc(0, 0, 2, a0, Real(2.25 * kPi), -9, 1, 9, 1, xs, ys, tol), 1);
  EXPECT_NEAR(xs[0], std::sqrt(3.0), 1e-5);
  EXPECT_EQ(F::GetInterPoint_Ray_Arc(0, 0, 2, a0, Real(0.25 * kPi), -9, 1, 9, 1, xs, ys, tol), 0);
}

TYPED_TEST(PredicateCases, TheSecondPointOfDiscAndArcIsTurnedByTheFirstsDirection) {
  USE_FAMILY;
  const Real tol = Real(1e-4);
  const auto meets = [&](double a0, double a1) {
    return F::TestCrossRegon_Circle_Arc(0, 0, 1, 1, 0, Real(1.5), Real(a0 * kPi / 180),
                                        Real(a1 * kPi / 180), tol);
  };
  EXPECT_EQ(meets(130, 230), 1);  // through the disc
  EXPECT_EQ(meets(170, 180), 1);  // inside it
  EXPECT_EQ(meets(300, 60), 0);   // beside it
  // Beside it, but where the second point comes to lie, at 110.7 degrees.
  EXPECT_EQ(meets(90, 130), 1);
  EXPECT_EQ(meets(90, 110), 0);
  EXPECT_EQ(meets(111, 130), 0);
  // Touching from outside doesn't count, but by an end of the arc.
  EXPECT_EQ(F::TestCrossRegon_Circle_Arc(0, 0, 1, 3, 0, 2, Real(0.5 * kPi), Real(1.5 * kPi), tol),
            0);
}

TYPED_TEST(PredicateCases, TheInnerEndOfARadialEdgeHasItsXTwice) {
  USE_FAMILY;
  // The ring from 9 to 11 over 0 to 0.5; (9, 9) lies 45 degrees up.
  const Real xs[] = {Real(8.9), Real(9.1), Real(9.1), Real(8.9)},
             ys[] = {Real(8.9), Real(8.9), Real(9.1), Real(9.1)};
  EXPECT_EQ(
      F::TestCrossRegon_TuPolygon_JvBuYuanHuan(4, xs, ys, 0, 0, 10, 2, 0, Real(0.5), Real(1e-4)),
      1);
  EXPECT_EQ(F::TestCrossRegon_TuPolygon_JvBuYuanHuan(4, xs, ys, 0, 0, 10, 2, Real(0.01), Real(0.5),
                                                     Real(1e-4)),
            1);
  const Real low_xs[] = {-Real(9.1), -Real(8.9), -Real(8.9), -Real(9.1)};
  EXPECT_EQ(F::TestCrossRegon_TuPolygon_JvBuYuanHuan(4, low_xs, ys, 0, 0, 10, 2, 0, Real(0.5),
                                                     Real(1e-4)),
            0);
}

TYPED_TEST(PredicateCases, PartialAnnuli) {
  USE_FAMILY;
  const Real tol = Real(1e-4);
  const auto meet = [&](double cx, double R, double W, double b0, double b1) {
    return F::TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan(0, 0, 10, 2, 0, 1, cx, 0, R, W, b0, b1, tol);
  };
  EXPECT_EQ(meet(0, 10, 1, 0.2, 0.4), 1);   // inside
  EXPECT_EQ(meet(0, 10, 4, -0.2, 1.2), 1);  // around
  EXPECT_EQ(meet(0, 20, 2, 0, 1), 0);
  EXPECT_EQ(meet(0, 10, 2, 2, 3), 0);
  EXPECT_EQ(meet(0, 12, 2, 0, 1), 1);  // side by side
  EXPECT_EQ(meet(22, 10, 1.9, 3, 3.3), 0);
  EXPECT_EQ(meet(19.5, 10, 2, 3, 3.3), 1);
  // A ring laid across both radial edges between the corners: edges and arcs are only compared with
  // their own kind.
  EXPECT_EQ(meet(0, 10, 1, 6, 1.5), 0);
}

}  // namespace
}  // namespace brindle
