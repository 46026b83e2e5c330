#include "brindle/platform/graphics/region_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <functional>
#include <random>
#include <vector>

#include "brindle/platform/graphics/gdi_types.h"

namespace brindle {
namespace {

// Rectangles in canonical order, touching neighbours merged, and the box around them.
void expect_canonical(const RegionData& region) {
  const auto rects = region.rects();
  CRect around;
  std::vector<CRect> before, band;
  for (size_t i = 0; i < rects.size(); i += band.size()) {
    band.clear();
    while (i + band.size() < rects.size() && rects[i + band.size()].top == rects[i].top)
      band.push_back(rects[i + band.size()]);
    bool same = band.size() == before.size() && before[0].bottom == band[0].top;
    for (size_t k = 0; k < band.size(); ++k) {
      ASSERT_FALSE(band[k].IsRectEmpty());
      ASSERT_EQ(band[k].bottom, band[0].bottom);
      if (k > 0) {
        ASSERT_GT(band[k].left, band[k - 1].right);
      }
      around |= band[k];
      same = same && band[k].left == before[k].left && band[k].right == before[k].right;
    }
    ASSERT_FALSE(same) << "bands that could be one";
    if (!before.empty()) {
      ASSERT_GE(band[0].top, before[0].bottom);
    }
    before = band;
  }
  EXPECT_EQ(region.box(), around);
}

constexpr int kSide = 40;
using Pixels = std::vector<bool>;

Pixels pixels_of(const std::function<bool(int, int)>& in) {
  Pixels pixels;
  for (int y = 0; y < kSide; ++y)
    for (int x = 0; x < kSide; ++x) pixels.push_back(in(x, y));
  return pixels;
}

Pixels pixels_of(const RegionData& region) {
  if (region.rects().size() < 1000) expect_canonical(region);
  return pixels_of([&](int x, int y) { return region.contains(CPoint(x, y)); });
}

TEST(RegionData, CombinesAsSetsOfPixels) {
  std::mt19937 random(1);
  const auto any = [&](int limit) { return static_cast<int>(random() % limit); };
  for (int round = 0; round < 150; ++round) {
    RegionData sides[2];
    Pixels sets[2] = {Pixels(kSide * kSide), Pixels(kSide * kSide)};
    for (int side = 0; side < 2; ++side) {
      std::vector<CRect> rects(static_cast<size_t>(any(12)));
      for (CRect& r : rects) r = CRect(CPoint(any(kSide), any(kSide)), CSize(any(15) - 1, any(15)));
      sides[side] = RegionData::from_rects(rects);
      sets[side] = pixels_of([&](int x, int y) {
        return std::any_of(rects.begin(), rects.end(),
                           [&](const CRect& r) { return r.PtInRect(CPoint(x, y)); });
      });
      ASSERT_EQ(pixels_of(sides[side]), sets[side]);
    }
    const RegionData results[] = {sides[0] | sides[1], sides[0] & sides[1], sides[0] - sides[1],
                                  sides[0] ^ sides[1]};
    const unsigned tables[] = {0b1110, 0b1000, 0b0100, 0b0110};
    for (int op = 0; op < 4; ++op) {
      Pixels expected;
      for (size_t i = 0; i < sets[0].size(); ++i)
        expected.push_back(tables[op] >> (2 * sets[0][i] + sets[1][i]) & 1);
      ASSERT_EQ(pixels_of(results[op]), expected) << op;
    }
    const CRect box(CPoint(any(kSide), any(kSide)), CSize(any(9), any(9)));
    EXPECT_EQ(sides[0].intersects(box), !(sides[0] & RegionData(box)).empty());
    EXPECT_EQ(sides[0].contains(box), !box.IsRectEmpty() && (RegionData(box) - sides[0]).empty());
    RegionData moved = sides[0];
    moved.offset(7, -9);
    expect_canonical(moved);
    for (int y = 0; y < kSide; ++y) {
      int covered = 0, counted = 0;
      for (const CRect& r : sides[0].row(y)) covered += r.Width();
      for (int x = 0; x < 2 * kSide; ++x) {
        counted += sides[0].contains(CPoint(x, y));
        ASSERT_EQ(moved.contains(CPoint(x + 7, y - 9)), sides[0].contains(CPoint(x, y)));
      }
      EXPECT_EQ(covered, counted);
    }
  }
}

TEST(RegionData, OffsetCutsAtTheEndOfTheNumbers) {
  RegionData region(CRect(0, 0, 10, 10));
  region |= RegionData(CRect(20, 0, 30, 10));
  region.offset(INT_MAX - 25, 0);
  expect_canonical(region);
  EXPECT_EQ(region.box(), CRect(INT_MAX - 25, 0, INT_MAX, 10));
  region.offset(INT_MAX, 0);
  EXPECT_TRUE(region.empty());
}

__extension__ typedef __int128 Wide;

// The number of turns around a pixel's point, by crossings of its row left of it, and their parity.
struct Around {
  int turns = 0, crossings = 0;
};
Around around(const std::vector<CPoint>& ring, std::int64_t x, std::int64_t y) {
  Around result;
  for (size_t i = 0; i < ring.size(); ++i) {
    CPoint a = ring[i], b = ring[(i + 1) % ring.size()];
    const int turn = a.y < b.y ? 1 : -1;
    if (turn < 0) std::swap(a, b);
    if (y < a.y || y >= b.y) continue;
    // The crossing is left of the point or on it: a.x + (y - a.y) * dx / dy <= x.
    const Wide dx = std::int64_t{b.x} - a.x, dy = std::int64_t{b.y} - a.y;
    if ((y - a.y) * dx > (x - a.x) * dy) continue;
    result.turns += turn;
    ++result.crossings;
  }
  return result;
}

TEST(RegionData, PolygonsHoldThePointsInside) {
  std::mt19937 random(2);
  for (int round = 0; round < 180; ++round) {
    const long long span = round % 30 == 0 ? 4294967295LL : round % 15 == 0 ? 5000 : round % 90 + 2;
    std::vector<CPoint> ring(3 + random() % (round % 4 == 1 ? 60 : 7));
    for (CPoint& p : ring) {
      const auto place = [&] {
        return static_cast<int>(kSide / 2 - span / 2 + static_cast<long long>(random() % span));
      };
      p = CPoint(place(), place());
    }
    const int count = static_cast<int>(ring.size());
    const RegionData by_parity = RegionData::polygon(ring.data(), count, ALTERNATE);
    const RegionData by_turns = RegionData::polygon(ring.data(), count, WINDING);
    ASSERT_EQ(pixels_of(by_parity),
              pixels_of([&](int x, int y) { return around(ring, x, y).crossings % 2 != 0; }));
    ASSERT_EQ(pixels_of(by_turns),
              pixels_of([&](int x, int y) { return around(ring, x, y).turns != 0; }));
  }
}

TEST(RegionData, PolygonsOfSeveralRings) {
  const CPoint points[] = {{0, 0},   {30, 0},  {30, 30}, {0, 30},
                           {10, 10}, {20, 10}, {20, 20}, {10, 20}};
  const int counts[] = {4, 4};
  const RegionData ring = RegionData(CRect(0, 0, 30, 30)) - RegionData(CRect(10, 10, 20, 20));
  EXPECT_EQ(RegionData::polygons(points, counts, 2, ALTERNATE), ring);
  EXPECT_EQ(RegionData::polygons(points, counts, 2, WINDING), RegionData(CRect(0, 0, 30, 30)));
  // Without area, and without corners.
  const int flat[] = {1, 0, 2};
  EXPECT_TRUE(RegionData::polygons(points, flat, 3, WINDING).empty());
}

TEST(RegionData, EllipsesHoldTheMiddlesInside) {
  for (const CSize size : {CSize(1, 1), CSize(2, 1), CSize(3, 3), CSize(8, 5), CSize(37, 40)}) {
    const CRect box(CPoint(1, 0), size);
    const RegionData ellipse = RegionData::ellipse(box);
    EXPECT_EQ(pixels_of(ellipse), pixels_of([&](int x, int y) {
                const std::int64_t w = size.cx, h = size.cy, u = 2 * x + 1 - box.left - box.right,
                                   v = 2 * y + 1 - box.top - box.bottom;
                return u * u * h * h + v * v * w * w <= w * w * h * h;
              }))
        << size.cx << " by " << size.cy;
  }
  EXPECT_EQ(RegionData::round_rectangle(CRect(0, 0, 9, 9), CSize(0, 4)),
            RegionData(CRect(0, 0, 9, 9)));
  const RegionData rounded = RegionData::round_rectangle(CRect(0, 0, 40, 30), CSize(10, 8));
  expect_canonical(rounded);
  EXPECT_EQ(rounded.box(), CRect(0, 0, 40, 30));
  EXPECT_FALSE(rounded.contains(CPoint(0, 0)));
  EXPECT_TRUE(rounded.contains(CRect(0, 4, 40, 26)));
  // Far outside it costs no more rows than a device could have.
  EXPECT_LT(
      RegionData::ellipse(CRect(-1000000000, -1000000000, 1000000000, 1000000000)).rects().size(),
      140000u);
}

}  // namespace
}  // namespace brindle
