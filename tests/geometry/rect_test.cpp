#include "brindle/geometry/rect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "brindle/geometry/shape.h"
#include "tests/support/expect_numbers.h"

namespace brindle {
namespace {

constexpr float kPi = std::numbers::pi_v<float>;
static_assert(sizeof(CFRect) == 16);

void expect_rect(const CFRect& r, float left, float bottom, float right, float top,
                 const char* name = "", double eps = 1e-5) {
  expect_near({r.left, r.bottom, r.right, r.top}, {left, bottom, right, top}, eps, name);
}

TEST(Rect, PutsCoordinatesInOrderButCopiesAsTheyAre) {
  CFRect r(3, 1, 2, 5);
  expect_rect(r, 2, 1, 3, 5);
  r.left = 10;
  const CFRect copy(r);
  expect_equal({copy.left, copy.Width(), copy.Area()}, {10, -7, 28});
}

TEST(Rect, IsEmptyByOneThinSide) {
  EXPECT_FALSE(CFRect().IsFRectEmpty(0));  // strict
  EXPECT_TRUE(CFRect(0, 0, 5, 0.001f).IsFRectEmpty(0.01f));
  EXPECT_FALSE(CFRect(0, 0, 5, 0.01f).IsFRectEmpty(0.01f));
  EXPECT_TRUE(CFRect(-0.5f, 0, 0.5f, 0.9f).IsFRectNull(1));
  EXPECT_FALSE(CFRect(-0.5f, 0, 0.5f, 1).IsFRectNull(1));
}

TEST(Rect, HoldsPointsOnItsWidenedEdge) {
  const CFRect r(1, 2, 4, 6);
  EXPECT_TRUE(r.FpInFRect(4, 2, 0));
  EXPECT_TRUE(r.FpInFRect(CFPoint(0.5f, 6.5f, 9), 0.5f));
  EXPECT_FALSE(r.FpInFRect(0.5f, 3, 0.25f));
  EXPECT_FALSE(r.FpInFRect(4, 3, -0.5f));
}

TEST(Rect, MeetsAnother) {
  struct Case {
    const char* name;
    CFRect a, b;
    int with, contains;
    CFRect common;
  } const cases[] = {
      {"overlap", {0, 0, 4, 4}, {2, 3, 9, 9}, 1, 0, {2, 3, 4, 4}},
      {"inside", {0, 0, 9, 9}, {2, 3, 4, 5}, 1, 1, {2, 3, 4, 5}},
      {"touch", {0, 0, 4, 4}, {4, 4, 9, 9}, 1, 0, {4, 4, 4, 4}},
      {"cross", {0, 3, 9, 5}, {3, 0, 5, 9}, 0, 0, {3, 3, 5, 5}},
      {"apart", {0, 0, 4, 4}, {5, 0, 9, 9}, 0, 0, {}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.a.IntersectWith(c.b), c.with) << c.name;
    EXPECT_EQ(c.b.IntersectWith(c.a), c.with) << c.name;
    EXPECT_EQ(c.a.Contains(c.b), c.contains) << c.name;
    const CFRect common = c.a & c.b;
    expect_rect(common, c.common.left, c.common.bottom, c.common.right, c.common.top, c.name, 0);
  }
  expect_rect(CFRect(2, 3, 4, 5) | CFRect(), 0, 0, 4, 5);
}

TEST(Rect, OffSetGrowsInsteadOfMoving) {
  CFRect r(0, 0, 4, 4);
  r.OffSet(CSize(1, 2));
  expect_rect(r, -1, -2, 5, 6);
  r += CFPoint(1, 2, 3);
  expect_rect(r, 0, 0, 6, 8);
  r.Inflect(1, 2, 3, 4);
  expect_rect(r, -1, -2, 9, 12);
}

TEST(Rect, TurnsIntoTheBoxOfItsCorners) {
  CFRect r(1, 0, 3, 1);
  expect_rect(r.Rotate(CFPoint(1, 0, 0), kPi / 2), 0, 0, 1, 2);
  expect_rect(CFRect(-1, -1, 1, 1).Rotate(CFPoint(), kPi / 4), -1.41421356f, -1.41421356f,
              1.41421356f, 1.41421356f);
}

TEST(Rect, CutsTowardsZeroForTheDevice) {
  EXPECT_EQ(CRect(CFRect(-1.9f, -0.5f, 1.9f, 2.5f)), CRect(-1, 0, 1, 2));
  constexpr int kLowest = std::numeric_limits<int>::min();
  CFRect wild(-1e10f, 0, 2147483520.0f, 0);
  wild.bottom = 2147483648.0f, wild.top = std::nanf("");
  EXPECT_EQ(CRect(wild), CRect(kLowest, kLowest, 2147483520, kLowest));
}

TEST(Rect, HoldsAStrokedShape) {
  const float h = std::sqrt(0.5f);
  struct Case {
    const char* name;
    CFShape shape;
    CFRect box;
  } const cases[] = {
      {"level section", {CFPoint(1, 1, 0), CFPoint(5, 1, 0)}, {1, 0, 5, 2}},
      {"slanting section", {CFPoint(0, 0, 0), CFPoint(4, 4, 0)}, {-h, -h, 4 + h, 4 + h}},
      {"section with a negative length", {CFPoint(0, 0, 0), -2, 0, 0}, {-2, -1, 0, 1}},
      {"quarter", {CFPoint(0, 0, 0), 3, 0, kPi / 2}, {0, 0, 4, 4}},
      {"quarter, clockwise", {CFPoint(0, 0, 0), 3, kPi / 2, -kPi / 2}, {0, 0, 4, 4}},
      {"right half through 0", {CFPoint(1, 1, 0), 3, -kPi / 2, kPi}, {1, -3, 5, 5}},
      {"right half, clockwise", {CFPoint(1, 1, 0), 3, kPi / 2, -kPi}, {1, -3, 5, 5}},
      {"left half by a negative radius", {CFPoint(0, 0, 0), -3, -kPi / 2, kPi}, {-4, -4, 0, 4}},
      {"all but a quarter", {CFPoint(0, 0, 0), 3, kPi / 2, 1.5f * kPi}, {-4, -4, 4, 4}},
      {"dot between the axes", {CFPoint(0, 0, 0), 3, kPi / 4, 1e-6f}, {2 * h, 2 * h, 4 * h, 4 * h}},
      {"circle", {CFPoint(1, 2, 0), -3, 0, 2 * kPi}, {-3, -2, 5, 6}},
      {"point", {CFPoint(1, 2, 0)}, {1, 2, 1, 2}},
  };
  for (const Case& c : cases) {
    CFShape shape = c.shape;
    const CFRect box(2, shape);
    expect_rect(box, c.box.left, c.box.bottom, c.box.right, c.box.top, c.name);
  }
}

}  // namespace
}  // namespace brindle
