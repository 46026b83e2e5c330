#include "brindle/geometry/coordinate_transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "brindle/geometry/pixel_rounding.h"
#include "tests/support/expect_numbers.h"

namespace brindle {
namespace {

TEST(PixelRounding, IsHalfUpAboveZeroAndOddBelow) {
  struct Case {
    float device;
    int pixel;
  } const cases[] = {// What an int can't hold is its lowest value before the halving.
                     {0, 0},
                     {0.49f, 0},
                     {0.5f, 1},
                     {1.49f, 1},
                     {2.5f, 3},
                     {-0.25f, 0},
                     {-0.5f, 0},
                     {-0.75f, 0},
                     {-1.2f, 0},
                     {-1.5f, -1},
                     {-2.4f, -1},
                     {-2.5f, -2},
                     {1e9f, 1000000000},
                     {1.1e9f, -1073741824},
                     {-3e9f, -1073741824},
                     {std::numeric_limits<float>::infinity(), -1073741824},
                     {std::nanf(""), -1073741824}};
  for (const Case& c : cases) EXPECT_EQ(round_to_pixel(c.device), c.pixel) << c.device;
}

TEST(Coor, ShowsThePlaneWithoutArgumentsOfItsOwn) {
  CFCoor coor;
  EXPECT_EQ(coor.m_Angle2, 1.5707964f);
  coor.Init(CFPoint(10, 20, 99), 2, 1);
  std::mt19937 random(3);
  std::uniform_real_distribution<float> value(-100, 100);
  for (int i = 0; i < 1000; ++i) {
    const CFPoint p(std::round(value(random)), std::round(value(random)), 0);
    ASSERT_EQ(coor.FPtoDP(p), coor.FP2toDP(p)) << p.x << " " << p.y;
  }
  EXPECT_EQ(coor.FP2toDP(CFPoint(13, 15, 7)), CPoint(6, 10));
  coor.SetReverse(0);
  EXPECT_EQ(coor.FP2toDP(CFPoint(13, 25, 7)), CPoint(6, 10));
}

TEST(Coor, WithThreeArgumentsShowsZInstead) {
  const CFCoor coor(CFPoint(1, 2, 3), 2, 0);
  EXPECT_EQ(coor.m_Angle2, 0);
  EXPECT_EQ(coor.m_Origin.z, 0);
  EXPECT_EQ(coor.FPtoDP(CFPoint(4, 50, 7)), CPoint(6, 10));
  EXPECT_EQ(coor.FP2toDP(CFPoint(4, 50, 7)), CPoint(6, 96));
}

TEST(Coor, KeepsTheOriginsZ) {
  CFCoor coor;
  coor.m_Origin.z = 5;
  coor.SetOrigin(CFPoint(1, 2, 3));
  coor.Init(CFPoint(1, 2, 3), 4, 1);
  const CFPoint p = coor.DPtoFP(CPoint(8, 8));
  expect_equal({p.x, p.y, p.z}, {3, 0, 5});
}

TEST(Coor, ConvertsLengthsAndRectangles) {
  CFCoor coor;
  coor.Init(CFPoint(0, 100, 0), 2, 1);
  expect_equal({coor.FPtoDP(1.25), coor.DPtoFP(5)}, {2.5, 2.5});
  const CRect device = coor.FPtoDP(CFRect(10, 20, 30, 60));
  EXPECT_EQ(device, CRect(20, 80, 60, 160));
  const CFRect world = coor.DPtoFP(device);
  expect_equal({world.left, world.bottom, world.right, world.top}, {10, 20, 30, 60});
  EXPECT_TRUE(coor.DPtoFP(static_cast<const tagRECT&>(device)).IsFRectNull(1e-9f));
}

TEST(Coor, ProjectsAndComesBackToThePlane) {
  float u, v, x, y, z;
  CFCoor::TouYing3Dto2D(1, 2, 3, 0.5f, 0.25f, u, v);
  expect_near({u, v},
              {std::cos(0.5) + 2 * std::sin(0.5),
               3 * std::cos(0.25) + (2 * std::cos(0.5) - std::sin(0.5)) * std::sin(0.25)},
              1e-6);
  for (const float a : {0.0f, 0.5f, 2.0f, -1.0f}) {
    for (const float b : {0.25f, 1.0f, 1.5707964f, -0.5f}) {
      CFCoor::TouYing3Dto2D(3, -4, 0, a, b, u, v);
      CFCoor::FanTouYing2Dto3D(u, v, a, b, x, y, z);
      expect_near({x, y, z}, {3, -4, 0}, 1e-4);
    }
  }
  CFCoor::FanTouYing2Dto3D(5, 7, 0.5f, 0, x, y, z);
  expect_near({x, y, z}, {5 * std::cos(0.5), 5 * std::sin(0.5), 7}, 1e-5);
  CFCoor coor;
  coor.m_Angle1 = 0.5f;
  const CFPoint world = coor.DPtoFP3(coor.FP2toDP(coor.PointTouYing(CFPoint(300, 400, 0))));
  expect_near({world.x, world.y}, {300, 400}, 2);  // half a pixel, enlarged by the way back
}

TEST(Coor, NormalizesTheDeviceRectangle) {
  CFCoor coor;
  coor.m_ViewLeft = 100, coor.m_ViewRight = 300, coor.m_ViewTop = 0, coor.m_ViewBottom = 50;
  expect_equal({coor.getXnormalized(100), coor.getXnormalized(250), coor.getYnormalized(50),
                coor.getYnormalized(0)},
               {-1, 0.5, -1, 1});
}

TEST(Coor, ConvertsRectanglesThroughItsVirtualPoints) {
  struct Shifted : CFCoor {
    CPoint FP2toDP(const CFPoint& p) const override { return CFCoor::FP2toDP(p) + CSize(1000, 0); }
  } coor;
  const CFCoor& base = coor;
  EXPECT_EQ(base.FPtoDP(CFRect(0, 0, 1, 1)), CRect(1000, -0, 1001, 0));
}

TEST(Coor, HasItsGlobalsReady) {
  EXPECT_EQ(G_ConCoor.m_Scale, 1);
  EXPECT_EQ(G_ConCoor.m_Angle2, 1.5707964f);
  EXPECT_TRUE(G_ConCoor_bak.IsReverseY());
}

}  // namespace
}  // namespace brindle
