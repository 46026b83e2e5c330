#include "brindle/geometry/predicates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "brindle/geometry/helpers.h"

namespace brindle {
namespace {

constexpr double kPi = std::numbers::pi;

TEST(Predicates, ReduceAngles) {
  for (const double a : {0.0, 1.0, -1.0, 6.0, 7.0, -7.0, 13.0, 100.0, -100.0}) {
    const double expected = a - std::floor(a / (2 * kPi)) * 2 * kPi;
    EXPECT_NEAR(JH_Set2PI(static_cast<float>(a)), expected, 2e-5) << a;
    EXPECT_NEAR(_JH_Set2PI(a), expected, 1e-9) << a;
  }
  // However large the angle, the way ends.
  for (const double a : {1e5, 1e9, -1e15, 1e30}) {
    EXPECT_GE(JH_Set2PI(static_cast<float>(a)), 0) << a;
    EXPECT_LT(JH_Set2PI(static_cast<float>(a)), 6.2832f) << a;
    EXPECT_GE(_JH_Set2PI(a), 0) << a;
    EXPECT_LT(_JH_Set2PI(a), 6.2832) << a;
  }
  EXPECT_TRUE(std::isnan(_JH_Set2PI(INFINITY)));
}

TEST(Predicates, TestAnglesInArcs) {
  struct Case {
    double a, a0, a1, tol;
    int in;
  } const cases[] = {
      {1, 0.5, 1.5, 0, 1},
      {0.5, 0.5, 1.5, 0, 1},
      {1.5, 0.5, 1.5, 0, 1},
      {1.6, 0.5, 1.5, 0, 0},
      {1.6, 0.5, 1.5, 0.2, 1},
      {0.4, 0.5, 1.5, 0.2, 1},  // by the raw angle
      {0.4, 0.5, 1.5, 0, 0},
      {0.2, 6, 1, 0, 1},  // through zero
      {6.1, 6, 1, 0, 1},
      {3, 6, 1, 0, 0},
      {1 + 2 * kPi, 0.5, 1.5, 0, 1},
      {0.4 + 2 * kPi, 0.5, 1.5, 0.2, 0},  // no raw match, and a turn beyond the end
  };
  for (const Case& c : cases) {
    EXPECT_EQ(_JH_TestAngleInArc(c.a, c.a0, c.a1, c.tol), c.in) << c.a << " " << c.a0;
    EXPECT_EQ(JH_TestAngleInArc(static_cast<float>(c.a), static_cast<float>(c.a0),
                                static_cast<float>(c.a1), static_cast<float>(c.tol)),
              c.in)
        << c.a << " " << c.a0;
  }
}

TEST(Predicates, MeetIntervals) {
  EXPECT_EQ(JH_TestCross_Float_Domain(0, 1, 1, 2, 0), 1);
  EXPECT_EQ(JH_TestCross_Domain(0, 1, 1, 2, 0), 1);
  EXPECT_EQ(_JH_TestCross_double_Domain(0, 1, 1, 2, 0), 0);
  EXPECT_EQ(_JH_TestCross_double_Domain(0, 1, 1, 2, 0.01), 1);
  EXPECT_EQ(JH_TestCross_Float_Domain(0, 9, 2, 3, 0), 1);
  EXPECT_EQ(JH_TestCross_Float_Domain(2, 3, 0, 9, 0), 1);
  EXPECT_EQ(JH_TestCross_Float_Domain(0, 1, 1.5f, 2, 0.25f), 0);
  EXPECT_EQ(JH_TestCross_Float_Domain_Ex(0, 1, 1, 2, 0.01f), 0);
  EXPECT_EQ(JH_TestCross_Float_Domain_Ex(0, 1, 0.9f, 2, 0.01f), 1);
  EXPECT_EQ(JH_TestCross_Float_Domain_Ex(0, 1, 0, 1, 0.01f), 1);
  EXPECT_EQ(JH_TestCross_Domain_Ex(1, 2, 0, 1, 0.01), 0);
}

TEST(Predicates, MeetRectanglesClosedInFloatAndStrictInDouble) {
  EXPECT_EQ(JH_TestCrossRegon_Rect(0, 0, 1, 1, 1, 0, 2, 1, 0), 1);
  EXPECT_EQ(_JH_TestCrossRegon_Rect(0, 0, 1, 1, 1, 0, 2, 1, 0), 0);
  EXPECT_EQ(JH_TestCrossRegon_Rect(0, 0, 1, 1, 0, 1.5f, 1, 2, 0.25f), 0);
  EXPECT_EQ(_JH_TestCrossRegon_Rect(0, 0, 9, 9, 3, 3, 4, 4, 0), 1);
}

TEST(Helpers, PolarGivesLengthAndDirection) {
  EXPECT_EQ(polar(0.0, 0.0, 2), 0);
  EXPECT_EQ(polar(-1.0, 0.0, 2), kPi);
  EXPECT_EQ(polar(3.0, -4.0, 1), 5);
  EXPECT_EQ(polar(3.0f, -4.0f, 1), 5);
  EXPECT_EQ(polar(0.0, -1.0, 2), 1.5 * kPi);
  EXPECT_EQ(polar(5e-9f, 5e-9f, 2), 0);
  EXPECT_NEAR(polar(5e-9, 5e-9, 2), kPi / 4, 1e-12);
  for (int i = 0; i < 48; ++i) {
    const double angle = i * kPi / 24 + 0.01;
    const double x = std::cos(angle), y = std::sin(angle);
    EXPECT_NEAR(get_line_angle(7.0, 3.0, 7 + x, 3 + y), angle, 1e-7);
    EXPECT_NEAR(get_line_angle(0.0f, 0.0f, static_cast<float>(x), static_cast<float>(y)), angle,
                1e-3);
    // A point at the frame's angle lands on its x axis.
    double turned_x = x, turned_y = y;
    rotate_coordinate(angle, &turned_x, &turned_y);
    EXPECT_NEAR(turned_x, 1, 1e-14);
    EXPECT_NEAR(turned_y, 0, 1e-14);
  }
}

TEST(Helpers, ShiftsAndTurnsClockwise) {
  float x = 5, y = 7;
  shift_coordinate(1.0f, 2.0f, &x, &y);
  EXPECT_EQ(x, 4);
  EXPECT_EQ(y, 5);
  rotate_coordinate(static_cast<float>(kPi / 2), &x, &y);
  EXPECT_NEAR(x, 5, 1e-6);
  EXPECT_NEAR(y, -4, 1e-6);
  EXPECT_EQ(get_dist(1.0f, 1.0f, 4.0f, 5.0f), 5.0f);
  EXPECT_EQ(get_dist(1.0, 1.0, 4.0, 5.0), 5.0);
  EXPECT_EQ(get_dist(1.0, 2.0, 3.0, 3.0, 5.0, 9.0), 7.0);
}

}  // namespace
}  // namespace brindle
