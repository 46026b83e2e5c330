#include "brindle/geometry/shape.h"
#include "tests/support/archive_bytes.h"
#include "tests/support/expect_numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace brindle {
namespace {

constexpr float kPi = std::numbers::pi_v<float>;
static_assert(sizeof(CFShape) == 24);

void expect_at(const CFPoint& p, float x, float y, const char* what = "") {
  expect_near({p.x, p.y}, {x, y}, 1e-5, what);
}

TEST(Shape, KnowsItsKind) {
  const CFPoint o;
  EXPECT_TRUE(CFShape().IsPoint());
  EXPECT_TRUE(CFShape(1, 2).IsPoint());
  EXPECT_TRUE(CFShape(o, 0.5f).IsLine());
  EXPECT_EQ(CFShape(o, 0.5f).GetLength(), 1);
  EXPECT_TRUE(CFShape(o, -2, 0, 6.283f).IsArc());
  EXPECT_TRUE(CFShape(o, 2, 0, -2 * kPi).IsCircle());
  EXPECT_FALSE(CFShape(o, 2, 0, -2 * kPi).IsArc());
}

TEST(Shape, RunsTheOtherWayWithANegativeRadius) {
  CFShape s(CFPoint(1, 1, 0), -2, 0, 0);
  EXPECT_DOUBLE_EQ(s.GetStartAngle(), 3.1415926535);
  expect_at(s.GetStartPoint(), 1, 1);
  expect_at(s.GetEndPoint(), -1, 1);
  expect_at(s.GetMiddlePoint(), 0, 1);
  EXPECT_EQ(s.GetR(), 2);
  s.SetR(3);
  EXPECT_EQ(s.r, -3);
  s.SetA(1);
  EXPECT_NEAR(s.a, 1 + kPi, 1e-6);

  const CFShape arc(CFPoint(1, 1, 0), -2, 0, kPi / 2);
  expect_at(arc.GetStartPoint(), -1, 1);
  expect_at(arc.GetEndPoint(), 1, -1);
  expect_near({arc.GetEndAngle(), arc.GetLength()}, {1.5 * kPi, kPi}, 1e-6);
  expect_at(CFShape(CFPoint(1, 1, 0), -2, 0, 2 * kPi).GetMiddlePoint(), 1, 3);
}

TEST(Shape, JoinsTwoPointsByAHalfAngle) {
  const CFPoint p(1, 2, 9), q(5, 2, 9);
  const CFShape line(p, q), flat(p, q, 0.0f);
  EXPECT_TRUE(flat.IsLine());
  expect_equal({line.r, line.z, flat.r, flat.a}, {4, 0, 4, line.a});
  for (const float c : {0.3f, kPi / 4, 2.0f, -0.3f, -kPi / 2}) {
    for (const CFPoint& end : {q, CFPoint(-3, 7, 0), CFPoint(1, -2, 0)}) {
      const CFShape arc(p, end, c);
      expect_at(arc.GetStartPoint(), p.x, p.y);
      expect_at(arc.GetEndPoint(), end.x, end.y);
      EXPECT_EQ(arc.b, -2 * c);
    }
  }
  // A positive half-angle turns to the left of the chord at its start and comes back clockwise.
  const CFShape up(p, q, kPi / 2);
  expect_at(up.GetMiddlePoint(), 3, 4);
}

TEST(Shape, RunsThroughThreePointsFromTheSecondToTheFirst) {
  struct Case {
    const char* name;
    CFPoint p1, p2, p3;
    bool counter_clockwise;
  } const cases[] = {
      {"third left", {1, 0, 0}, {-1, 0, 0}, {0, -1, 0}, true},
      {"third right", {1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, false},
      {"short", {3, 1, 0}, {1, 3, 0}, {2.4142136f, 2.4142136f, 0}, false},
      {"long", {3, 1, 0}, {1, 3, 0}, {-0.4142136f, -0.4142136f, 0}, true},
      {"level start", {0, 0, 0}, {4, 0, 0}, {2, 2, 0}, true},
  };
  for (const Case& c : cases) {
    const CFShape arc(c.p1, c.p2, c.p3);
    expect_at(arc.GetStartPoint(), c.p2.x, c.p2.y, c.name);
    expect_at(arc.GetEndPoint(), c.p1.x, c.p1.y, c.name);
    EXPECT_EQ(arc.b > 0, c.counter_clockwise) << c.name;
    EXPECT_NEAR(std::hypot(c.p3.x - arc.x, c.p3.y - arc.y), arc.r, 1e-5) << c.name;
  }
  for (const CFPoint& way : {CFPoint(1, 0, 0), CFPoint(0, 1, 0), CFPoint(0.25f, 0.75f, 0)}) {
    for (const CFPoint& third : {way + way + way, way, CFPoint()}) {
      const CFShape straight(CFPoint(), way + way, third);
      EXPECT_TRUE(straight.IsLine());
      expect_at(straight.GetEndPoint(), 2 * way.x, 2 * way.y);
    }
  }
}

TEST(Shape, TellsItsLeftSide) {
  const CFShape line(CFPoint(1, 1, 0), CFPoint(2, 2, 0));
  EXPECT_TRUE(line.AtLeft(CFPoint(1, 2, 0)));
  EXPECT_FALSE(line.AtLeft(CFPoint(2, 1, 0)));
  EXPECT_FALSE(line.AtLeft(CFPoint(1, 1, 0)));
}

TEST(Shape, GoesThroughAnArchive) {
  CFShape arc(CFPoint(1, 2, 0), -3, 0.5f, 0.25f), back;
  const std::string out = stored([&](CArchive& ar) { arc.Serialize(ar); });
  EXPECT_EQ(out, bytes("\0\0\x80\x3F\0\0\0\x40\0\0\0\0\0\0\x40\xC0\0\0\0\x3F\0\0\x80\x3E"));
  loaded(out, [&](CArchive& ar) { back.Serialize(ar); });
  expect_equal({back.y, back.r, back.a, back.b}, {2, -3, 0.5, 0.25});
}

}  // namespace
}  // namespace brindle
