#include "brindle/geometry/region.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "brindle/geometry/rect.h"
#include "brindle/platform/base/exception.h"
#include "tests/support/archive_bytes.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/fine_polygon.h"

namespace brindle {
namespace {

using brindle::testing::FinePolygon;
constexpr float kPi = 3.14159265f;
static_assert(sizeof(CFShoot) == 96);

CFRegion region_of(std::initializer_list<CFShoot> vertices) {
  CFRegion region;
  for (const CFShoot& vertex : vertices) region.Add(vertex);
  return region;
}

// A disc, or for another half-angle a lens, of two arcs; a positive half-angle runs clockwise.
CFRegion disc(float x, float y, float r, float c) {
  return region_of({{x - r, y, c}, {x + r, y, c}});
}

FinePolygon flattened(const CFRegion& region) {
  FinePolygon fine;
  for (INT_PTR i = 0; i < region.GetSize(); ++i) {
    const CFShoot &p = region[i], &q = region[i + 1 < region.GetSize() ? i + 1 : 0];
    fine.add_bulge(p.x, p.y, q.x, q.y, p.c);
  }
  return fine;
}

TEST(Shoot, KeepsItsWords) {
  CFShoot vertex(1, 2, 0.5f);
  EXPECT_TRUE(vertex.IsArc() && !vertex.IsLine() && !vertex.IsCircle());
  EXPECT_TRUE(CFShoot(CFPoint(1, 2, 3), -6.2831855f).IsCircle());
  vertex.first_words[9] = 10;
  vertex.second_words[9] = ~9u;
  const CFRegion copy(region_of({vertex, CFShoot()}));
  expect_equal({copy[0].first_words[9], copy[0].second_words[9], copy[1].second_words[0]},
               {10, ~9u, 0});
}

TEST(Region, IsMadeFromPointsAndBoxes) {
  const CFPoint points[] = {{1, 2, 9}, {3, 4, 9}, {0, 7, 9}};
  const float xs[] = {1, 3}, ys[] = {2, 4};
  CFRegion region(points, 3);
  expect_equal({region.GetSize(), region[2].y, region[2].z}, {3, 7, 0});
  region.Init(xs, ys, 2);
  expect_equal({region.GetSize(), region[1].x}, {2, 3});
  region.Init(xs, ys, -1);
  EXPECT_TRUE(region.IsEmpty());

  CFRegion box(CFRect(5, 6, 1, 2));
  const CFPoint corners[] = {{1, 2, 0}, {5, 2, 0}, {5, 6, 0}, {1, 6, 0}};
  region = box;
  box = *&box;
  expect_equal({region.GetSize(), box.GetSize()}, {4, 4});
  for (int i = 0; i < 4; ++i) EXPECT_EQ(box[i], corners[i]) << i;
}

struct MembershipCase {
  const char* name;
  CFRegion region;
  CFPoint p;
  int inside;
};

TEST(Region, HoldsPoints) {
  const CFRegion box(CFRect(0, 0, 4, 4));
  const CFRegion cw = disc(0, 0, 2, kPi / 2), ccw = disc(0, 0, 2, -kPi / 2);
  const CFRegion bulged = region_of({{0, 0, 0}, {4, 0, -kPi / 2}, {4, 4, 0}, {0, 4, 0}});
  const CFRegion dented = region_of({{0, 0, 0}, {4, 0, kPi / 2}, {4, 4, 0}, {0, 4, 0}});
  const MembershipCase cases[] = {
      {"in a box", box, {1, 1, 0}, 1},
      {"left of it", box, {-1, 1, 0}, 0},
      {"on the lower edge", box, {1, 0, 0}, 0},
      {"on the upper edge", box, {1, 4, 0}, 1},
      {"on the left edge", box, {0, 1, 0}, 0},
      {"on the right edge", box, {4, 1, 0}, 1},
      {"in a clockwise disc", cw, {0, 1, 0}, 1},
      {"below its middle", cw, {0.5f, -1, 0}, 1},
      {"in a disc", ccw, {0, 1, 0}, 1},
      {"right of it", ccw, {3, 1, 0}, 0},
      {"above it", ccw, {0, 2.5f, 0}, 0},
      {"in the bulge", bulged, {5, 2, 0}, 1},
      {"past the bulge", bulged, {5, 3.9f, 0}, 0},
      {"in the dent", dented, {3, 2, 0}, 0},
      {"left of the dent", dented, {1, 2, 0}, 1},
      // Its upper half would be crossed twice, and so would count for none; it counts for one.
      {"left of a disc", ccw, {-3, 1, 0}, 1},
      {"an edge without length", region_of({{1, 1, 1}, {1, 1, 1}}), {0, 1, 0}, 0},
  };
  for (const MembershipCase& c : cases) {
    EXPECT_EQ(c.region.InRegion(c.p), c.inside) << c.name;
    EXPECT_EQ(c.region.HitTest(c.p, 99), c.inside) << c.name;
  }
  EXPECT_EQ(box.InRegion(CFShape(1, 1)), 0);
  EXPECT_EQ(box.Similar(box, 1), 0);
}

// In its box, and wherever the ray meets no arc twice.
TEST(Region, AgreesWithAFineCopy) {
  std::mt19937 random(17);
  std::uniform_real_distribution<float> place(-5, 5), bulge(-2.5f, 2.5f);
  std::uniform_int_distribution<int> vertices(2, 6), chance(0, 3);
  int inside = 0, outside = 0;
  for (int round = 0; round < 150; ++round) {
    CFRegion region;
    const int n = vertices(random);
    for (int i = 0; i < n; ++i) {
      region.Add({place(random), place(random), chance(random) ? bulge(random) : 0});
    }
    const FinePolygon fine = flattened(region);
    CFPoint min, max;
    region.GetRect(min, max);
    const FinePolygon::Vertex low = fine.low(), high = fine.high();
    expect_near({min.x, max.x, min.y, max.y}, {low.x, high.x, low.y, high.y},
                1e-4 + static_cast<double>(fine.error()));
    for (int i = 0; i < 12; ++i) {
      const CFPoint p(place(random), place(random), 0);
      bool twice = fine.distance(p.x, p.y) < fine.error() + 1e-3L;
      for (int k = 0; k < n; ++k) {
        const CFShoot &from = region[k], &to = region[(k + 1) % n];
        FinePolygon edge;
        edge.add_bulge(from.x, from.y, to.x, to.y, from.c);
        edge.add(to.x, to.y);
        // The chord that closes this copy crosses the ray at most once more.
        FinePolygon chord;
        chord.add(from.x, from.y);
        chord.add(to.x, to.y);
        const int on_chord = chord.crossings(p.x, p.y) / 2;
        if (from.c != 0 && edge.crossings(p.x, p.y) - on_chord > 1) twice = true;
        if (std::fabs(p.y - from.y) < 1e-3f) twice = true;
      }
      if (twice) continue;
      const bool expected = fine.contains(p.x, p.y);
      ++(expected ? inside : outside);
      ASSERT_EQ(region.InRegion(p), expected) << round << " at " << p.x << ", " << p.y;
    }
  }
  EXPECT_GT(inside, 200);
  EXPECT_GT(outside, 200);
}

TEST(Region, MeetsShapesAndRegions) {
  const CFRegion box(CFRect(0, 0, 4, 4));
  CFPoint pts[16];
  const CFShape through(CFPoint(1, -2, 0), CFPoint(1, 9, 0));
  ASSERT_EQ(box.Intersect(through, pts), 2);
  EXPECT_EQ(pts[0], CFPoint(1, 0, 0));
  EXPECT_EQ(pts[1], CFPoint(1, 4, 0));
  EXPECT_EQ(box.Intersect(CFShape(CFPoint(1, 1, 0), CFPoint(2, 1, 0)), pts), 0);
  EXPECT_EQ(box.Intersect(CFShape(CFPoint(1, 4, 0), CFPoint(2, 4, 0)), pts), -1);
  // The closing edge comes first.
  ASSERT_EQ(box.Intersect(CFShape(CFPoint(-1, 1, 0), CFPoint(9, 1, 0)), pts), 2);
  EXPECT_EQ(pts[0], CFPoint(0, 1, 0));

  const CFRegion shifted(CFRect(2, 2, 6, 6));
  ASSERT_EQ(box.Intersect(shifted, pts, 0), 2);
  EXPECT_EQ(pts[0], CFPoint(2, 4, 0));
  EXPECT_EQ(pts[1], CFPoint(4, 2, 0));
  EXPECT_EQ(box.Intersect(shifted, pts, 1), 1);

  struct Case {
    const char* name;
    CFRegion other;
    int inside, touching;
  } const cases[] = {
      {"within", CFRegion(CFRect(1, 1, 2, 2)), 1, 1},
      {"around", CFRegion(CFRect(-1, -1, 9, 9)), 0, 1},
      {"a corner in it", shifted, 0, 1},
      {"across without a corner", CFRegion(CFRect(-1, 1, 9, 2)), 0, 1},
      {"apart", CFRegion(CFRect(7, 7, 9, 9)), 0, 0},
      {"along an edge, outside", CFRegion(CFRect(1, -2, 2, 0)), 0, 1},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(box.Intersect(c.other, 1), c.inside) << c.name;
    EXPECT_EQ(box.Intersect(c.other, 0), c.touching) << c.name;
  }
  // More common points than anybody has room for.
  CFRegion comb;
  for (int i = 0; i < 300; ++i) {
    comb.Add({static_cast<float>(i), i % 2 ? 9.0f : -9.0f, 0});
  }
  EXPECT_EQ(comb.Intersect(CFRegion(CFRect(-1, -10, 301, 0.001f)), 0), 1);
}

TEST(Region, IsSelectedByADraggedWindow) {
  const CFRegion box(CFRect(0, 0, 4, 4));
  EXPECT_TRUE(box.Contain({-1, -1, 0}, {5, 5, 0}) && box.Contain({5, 5, 0}, {3, 3, 0}));
  EXPECT_FALSE(box.Contain({3, 3, 0}, {5, 5, 0}) || box.Contain({8, 8, 0}, {6, 6, 0}));
  EXPECT_FALSE(box.Contain({3, 3, 0}, {1, 1, 0}));  // wholly inside the ring, on no edge
}

TEST(Region, KnowsItsOrder) {
  CFRegion ring = region_of({{0, 0, 0.3f}, {4, 0, 0}, {4, 4, -0.2f}, {0, 4, 0.1f}});
  EXPECT_TRUE(ring.IsOrder());
  const FinePolygon::Real area = flattened(ring).area();
  ring.Mirror({0, 0, 0}, {1, 1, 0});
  EXPECT_FALSE(ring.IsOrder());
  EXPECT_NEAR(static_cast<double>(flattened(ring).area() + area), 0, 1e-4);
  EXPECT_EQ(ring[0].c, -0.3f);
  EXPECT_EQ(ring[1].y, 4);
  ring.Mirror({0, 0, 0}, {1, 1, 0});
  ring.Rotate({1, 1, 0}, 0.7f);
  ring.Offset({3, -2, 0});
  ring.Stretch(ring[1], 2);
  EXPECT_TRUE(ring.IsOrder());
  EXPECT_NEAR(static_cast<double>(flattened(ring).area() / area), 4, 1e-4);
  EXPECT_TRUE(disc(0, 0, 1, -1).IsOrder());
  EXPECT_FALSE(disc(0, 0, 1, 1).IsOrder());
}

TEST(Region, GoesThroughAnArchive) {
  CFRegion region = region_of({{1, -2, 0.5f}}), back(CFRect(0, 0, 1, 1));
  region[0].z = 3;
  const std::string out = stored([&](CArchive& ar) { region.Serialize(ar); });
  EXPECT_EQ(out, bytes("\1\0\0\0\0\0\x80\x3F\0\0\0\xC0\0\0\x40\x40\0\0\0\x3F"));
  loaded(out, [&](CArchive& ar) { back.Serialize(ar); });
  ASSERT_EQ(back.GetSize(), 1);
  expect_equal({back[0].z, back[0].c}, {3, 0.5});
  // A count that the file can't hold takes no memory and leaves the region alone.
  loaded(bytes("\xFF\xFF\xFF\xFF\0\0\0\0"),
         [&](CArchive& ar) { EXPECT_THROW(back.Serialize(ar), CArchiveException); });
  EXPECT_EQ(back.GetSize(), 1);
}

TEST(Region, WantsAVertex) {
  const CFRegion empty, box(CFRect(0, 0, 1, 1));
  CFPoint a, b, pts[4];
  EXPECT_THROW(empty.InRegion(CFPoint()), CInvalidArgException);
  EXPECT_THROW(empty.GetRect(a, b), CInvalidArgException);
  EXPECT_THROW(empty.Contain(a, b), CInvalidArgException);
  EXPECT_THROW(empty.Intersect(CFShape(), pts), CInvalidArgException);
  EXPECT_THROW(box.Intersect(empty, pts, 0), CInvalidArgException);
  EXPECT_THROW(box.Intersect(empty, 1), CInvalidArgException);
  EXPECT_THROW(region_of({{1, 1, 0}}).IsOrder(), CInvalidArgException);
}

TEST(Region, SurvivesDegenerateInput) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float huge = std::numeric_limits<float>::max();
  const CFRegion regions[] = {
      region_of({{1, 1, 0}}),
      region_of({{1, 1, 2}, {1, 1, 2}}),
      region_of({{0, 0, kPi}, {1, 0, -kPi}}),
      region_of({{nan, 0, 1}, {0, nan, 0}, {1, 1, nan}}),
      region_of({{huge, -huge, 1}, {-huge, huge, huge}}),
  };
  for (const CFRegion& r : regions) {
    CFPoint min, max;
    r.GetRect(min, max);
    for (const float v : {0.0f, 1.0f, nan, huge}) {
      r.InRegion(CFPoint(v, v, 0));
      r.Contain({v, v, 0}, {-v, -v, 0});
    }
    for (const CFRegion& other : regions) r.Intersect(other, 0);
    if (r.GetSize() > 1) r.IsOrder();
  }
  EXPECT_EQ(regions[3].InRegion(CFPoint(0, 0, 0)), 0);
}

}  // namespace
}  // namespace brindle
