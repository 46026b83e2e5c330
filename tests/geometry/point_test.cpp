#include "brindle/geometry/point.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "brindle/geometry/vector3.h"
#include "tests/support/archive_bytes.h"
#include "tests/support/expect_numbers.h"

namespace brindle {
namespace {

constexpr double kPi = std::numbers::pi;
static_assert(sizeof(CFPoint) == 12 && sizeof(CVector3) == 12);

void expect_point(const CFPoint& p, float x, float y, float z, double eps = 1e-5) {
  expect_near({p.x, p.y, p.z}, {x, y, z}, eps);
}

TEST(Point, NearPointsAreBothEqualAndUnequal) {
  const CFPoint origin, near_one(0, 0.0005f, 0), far_one(0, 0, 0.001f);
  EXPECT_TRUE(origin == near_one);
  EXPECT_TRUE(origin != near_one);
  EXPECT_FALSE(origin == far_one);  // strict
  EXPECT_FALSE(origin != CFPoint());
}

TEST(Point, DividesWithAGuardAndTheWrongZ) {
  expect_point(CFPoint(6, 8, 100) / CFPoint(2, 4, 3), 3, 2, 2, 0);
  expect_point(CFPoint(6, 8, 100) / CFPoint(0, 4, 3), 0, 2, 2, 0);
  expect_point(CFPoint(6, 8, 100) / CFPoint(2, 0, 0), 3, 0, 0, 0);
}

TEST(Point, ContainsWhatLiesOnTheBox) {
  const CFPoint a(1, 5, 0), b(3, 2, 0);
  EXPECT_TRUE(CFPoint(1, 2, 0).Contain(a, b));
  EXPECT_TRUE(CFPoint(2, 5, 0).Contain(b, a));
  EXPECT_FALSE(CFPoint(2, 3, 0.001f).Contain(a, b));
  EXPECT_FALSE(CFPoint(3.001f, 3, 0).Contain(a, b));
}

TEST(Point, ComparesStrictlyInDouble) {
  EXPECT_TRUE(CFPoint(1, 1, 1).Similar(CFPoint(1.5f, 0.5f, 1), 0.5000001));
  EXPECT_FALSE(CFPoint(1, 1, 1).HitTest(CFPoint(1.5f, 1, 1), 0.5));
}

TEST(Point, TurnsMirrorsAndStretches) {
  CFPoint p(3, 1, 7);
  expect_point(p.Rotate(CFPoint(1, 1, 7), kPi / 2), 1, 3, 7);
  // A centre 3 lower lengthens the radius from 4 to 5.
  CFPoint off(4, 0, 3);
  expect_point(off.Rotate(CFPoint(), kPi / 2), 0, 5, 3);
  CFPoint self(4, 2, 0);
  expect_point(self.Rotate(self, 1), 4, 2, 0);
  CFPoint mirrored(3, 1, 0);
  expect_point(mirrored.Mirror(CFPoint(1, 1, 0), CFPoint(2, 2, 0)), 1, 3, 0);
  CFPoint stretched(3, 4, 5);
  expect_point(stretched.Stretch(CFPoint(1, 2, 3), -0.5), 0, 1, 2);
}

TEST(Point, MeasuresInSpaceByFloatSquares) {
  EXPECT_EQ(CFPoint(1, 2, 3).Distance(CFPoint(3, 5, 9)), 7.0);
  // Squares in float: 2^24 + 1 doesn't fit.
  EXPECT_EQ(CFPoint(4096, 1, 0).Distance(CFPoint()), 4096.0);
}

TEST(Point, GoesThroughAnArchive) {
  CFPoint p(1.5f, -2, 3), q;
  const std::string out = stored([&](CArchive& ar) { p.Serialize(ar); });
  EXPECT_EQ(out, bytes("\0\0\xC0\x3F\0\0\0\xC0\0\0\x40\x40"));
  loaded(out, [&](CArchive& ar) { q.Serialize(ar); });
  EXPECT_FALSE(p != q);
}

TEST(Vector3, MultipliesBothWays) {
  const CVector3 a(1, 2, 3), b(4, 5, 6);
  const CVector3 cross = a ^ b;
  expect_equal({cross.x, cross.y, cross.z, a * b, a.Dist(CVector3(3, 5, 9)), (a / 0).x},
               {-3, 6, -3, 32, 7, INFINITY});
}

TEST(Vector3, NormalizesOnlyWhatHasALength) {
  CVector3 zero(0, 0, 0), tiny(9e-6f, 0, 0), small(2e-5f, 0, 0), v(3, 0, -4);
  zero.Normalize(), tiny.Normalize(), small.Normalize(), v.Normalize();
  expect_near({zero.x, small.x, v.x, v.z}, {0, 1, 0.6, -0.8}, 1e-6);
  EXPECT_EQ(tiny.x, 9e-6f);
}

}  // namespace
}  // namespace brindle
