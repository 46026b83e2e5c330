#include "brindle/platform/graphics/figure_geometry_internal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "brindle/platform/graphics/file_device_internal.h"

namespace brindle {
namespace {

double area_of(const Rings& rings) {
  double sum = 0;
  const CPoint* at = rings.points.data();
  for (const int count : rings.counts) {
    for (int i = 0; i < count; ++i) {
      const CPoint &a = at[i], &b = at[(i + 1) % count];
      sum += (double(a.x) * b.y - double(a.y) * b.x) / 2;
    }
    at += count;
  }
  return std::abs(sum);
}

TEST(FigureGeometry, OutlinesOfRegionsFillToTheSameRegion) {
  std::mt19937 random(7);
  const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
  for (int round = 0; round < 200; ++round) {
    RegionData region;
    for (int i = below(12); i >= 0; --i) {
      const CRect box(CPoint(below(20), below(20)), CSize(1 + below(9), 1 + below(9)));
      region = i % 3 == 0 ? region ^ RegionData(box) : region | RegionData(box);
    }
    const Rings outline = region_outline(region, false);
    EXPECT_EQ(RegionData::polygons(outline.points.data(), outline.counts.data(),
                                   int(outline.counts.size()), ALTERNATE),
              region)
        << "round " << round;
  }
}

TEST(FigureGeometry, StraightensSlantingEdgesAndKeepsThinStrips) {
  const CPoint corners[]{{0, 0}, {300, 40}, {297, 60}, {-3, 20}};
  const RegionData strip = RegionData::polygon(corners, 4, WINDING);
  const Rings smooth = region_outline(strip, true);
  EXPECT_LE(smooth.points.size(), 12u);
  EXPECT_GT(region_outline(strip, false).points.size(), 100u);
  EXPECT_NEAR(area_of(smooth), area_of(region_outline(strip, false)), 300);
  RegionData stairs;
  for (int i = 0; i < 50; ++i) stairs |= RegionData(CRect(i, i, i + 1, i + 1));
  const Rings same = region_outline(stairs, true);
  EXPECT_EQ(RegionData::polygons(same.points.data(), same.counts.data(), int(same.counts.size()),
                                 ALTERNATE),
            stairs);
}

TEST(FigureGeometry, PatchesCoverTheTriangleInItsColours) {
  const GradientVertex vertices[]{{0, 0, 0, 10, 0}, {600, 0, 240, 10, 0}, {0, 300, 0, 10, 0}};
  const unsigned indexes[]{0, 1, 2};
  double area = 0;
  int colors = 0;
  for_each_patch(vertices, 3, indexes, 1, [&](COLORREF color, const auto& corners) {
    ++colors;
    EXPECT_EQ(GetGValue(color), 10);
    for (std::size_t i = 0; i < corners.size(); i += 3) {
      const FigurePoint &a = corners[i], &b = corners[i + 1], &c = corners[i + 2];
      area += std::abs((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x)) / 2;
      EXPECT_NEAR(GetRValue(color), (a.x + b.x + c.x) / 3 * 240 / 600, 1);
    }
  });
  EXPECT_NEAR(area, 600 * 300 / 2, 1e-6);
  EXPECT_GE(colors, 30);
}

TEST(FigureGeometry, ArcsRunCounterClockwiseAsSeen) {
  // The outline of the box runs from 0 to 100 each way.
  const CRect box(0, 0, 101, 101);
  const struct {
    CPoint from, to;
    double sweep_deg;
    CPoint middle;
  } cases[]{{{200, 50}, {50, -50}, 90, {85, 15}},
            {{50, -50}, {200, 50}, 270, {15, 85}},
            {{200, 50}, {200, 50}, 360, {0, 50}}};
  for (const auto& expected : cases) {
    const EllipseArc arc(box, expected.from, expected.to);
    EXPECT_NEAR(arc.sweep * 180 / M_PI, expected.sweep_deg, 1e-9);
    const FigurePoint middle = arc.at(arc.start + arc.sweep / 2);
    EXPECT_NEAR(middle.x, expected.middle.x, 0.5);
    EXPECT_NEAR(middle.y, expected.middle.y, 0.5);
  }
}

TEST(FigureGeometry, PlacesPartsOfPicturesAndMirrorsThem) {
  RasterBitmap picture(4, 1);
  for (int x = 0; x < 4; ++x) picture.set(x, 0, std::uint32_t(x));
  const struct {
    CRect to, from, placed;
    std::vector<std::uint32_t> pixels;
  } cases[]{
      {{0, 0, 40, 10}, {0, 0, 4, 1}, {0, 0, 40, 10}, {0, 1, 2, 3}},
      {{40, 0, 0, 10}, {0, 0, 4, 1}, {0, 0, 40, 10}, {3, 2, 1, 0}},
      {{40, 10, 0, 0}, {4, 1, 0, 0}, {0, 0, 40, 10}, {0, 1, 2, 3}},
      {{0, 0, 40, 10}, {2, 0, 6, 1}, {0, 0, 20, 10}, {2, 3}},
      {{40, 0, 0, 10}, {2, 0, 6, 1}, {20, 0, 40, 10}, {3, 2}},
  };
  for (const auto& expected : cases) {
    PlacedPicture out;
    ASSERT_TRUE(place_picture(expected.to, picture, expected.from, out));
    EXPECT_EQ(out.to, expected.placed);
    EXPECT_EQ(
        std::vector<std::uint32_t>(out.picture.data(), out.picture.data() + out.picture.width()),
        expected.pixels);
  }
}

}  // namespace
}  // namespace brindle
