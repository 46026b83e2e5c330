#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "brindle/geometry/region.h"
#include "brindle/mesh/domain_location.h"
#include "brindle/mesh/domain_polygon.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/fine_polygon.h"

namespace brindle {
namespace {

using brindle::testing::FinePolygon;
using Domain = std::vector<CDomainEdge>;
constexpr float kPi = 3.14159265f;

int count(const Domain& domain) {
  return static_cast<int>(domain.size());
}

CDomainEdge line(float x, float y) {
  CDomainEdge edge;
  edge.start = {x, y, 0};
  return edge;
}

CDomainEdge arc(float x, float y, float cx, float cy, int ccw) {
  CDomainEdge edge = line(x, y);
  edge.type = 1;
  edge.centre = {cx, cy, 0};
  edge.ccw = ccw;
  return edge;
}

Domain domain_of(const CFRegion& region) {
  Domain domain(static_cast<std::size_t>(region.GetSize()));
  ChangeToEdge(region, domain.data());
  return domain;
}

FinePolygon flattened(const Domain& domain) {
  FinePolygon fine;
  for (std::size_t i = 0; i < domain.size(); ++i) {
    const CFPoint &p = domain[i].start, &c = domain[i].centre;
    const CFPoint& q = domain[i + 1 < domain.size() ? i + 1 : 0].start;
    if (domain[i].type == 0) {
      fine.add(p.x, p.y);
    } else {
      fine.add_arc(p.x, p.y, q.x, q.y, c.x, c.y, domain[i].ccw);
    }
  }
  return fine;
}

// A disc about (cx, cy) from two half circles that start at the angle given in quarter turns.
Domain disc(float cx, float cy, float r, int quarter, int ccw) {
  const float dx = quarter % 2 == 0 ? r : 0, dy = quarter % 2 == 0 ? 0 : r;
  return {arc(cx + dx, cy + dy, cx, cy, ccw), arc(cx - dx, cy - dy, cx, cy, ccw)};
}

// Nearer to the ring than this the float domain and its flattened copy can't be told apart: the
// centres and radii of flat arcs are large.
float uncertain(const Domain& domain, float tol) {
  float size = 0, reach = 0;
  for (const CDomainEdge& edge : domain) {
    size = std::max({size, std::fabs(edge.start.x), std::fabs(edge.start.y)});
    reach = std::max({reach, std::fabs(edge.centre.x), std::fabs(edge.centre.y)});
  }
  return 2 * tol + size * 2e-5f + reach * 5e-7f;
}

struct Tally {
  int inside = 0, outside = 0;
};

void expect_location(const Domain& domain, const FinePolygon& fine, float x, float y, float tol,
                     Tally& tally, const std::string& what) {
  if (fine.distance(x, y) < fine.error() + uncertain(domain, tol)) return;
  const bool inside = fine.contains(x, y);
  ++(inside ? tally.inside : tally.outside);
  CPointInDomain located;
  ASSERT_EQ(located.Point_Into_Domain(count(domain), domain.data(), x, y, tol), inside)
      << what << " at " << x << ", " << y << " tol " << tol;
  ASSERT_EQ(located.Point_In_Domain(count(domain), domain.data(), x, y, tol), inside)
      << what << " at " << x << ", " << y << " tol " << tol;
}

// Points at random and points level with ends, tops, bottoms and cuts.
void expect_locations(const Domain& domain, std::mt19937& random, Tally& tally,
                      const std::string& what) {
  const FinePolygon fine = flattened(domain);
  CPointInDomain box;
  float left, bottom, right, top;
  box.Get_OutLook_Domain(count(domain), domain.data(), left, bottom, right, top);
  std::uniform_real_distribution<float> any_x(left - 1, right + 1), any_y(bottom - 1, top + 1);
  std::uniform_real_distribution<float> shift(-2, 2);
  for (const float tol : {0.0f, 1e-5f, 1e-3f}) {
    for (int i = 0; i < 6; ++i) {
      expect_location(domain, fine, any_x(random), any_y(random), tol, tally, what);
    }
    for (const CDomainEdge& edge : domain) {
      const float radius = std::hypot(edge.start.x - edge.centre.x, edge.start.y - edge.centre.y);
      for (const float level :
           {edge.start.y, edge.centre.y, edge.centre.y + radius, edge.centre.y - radius}) {
        for (const float y : {level, level + shift(random) * tol}) {
          expect_location(domain, fine, any_x(random), y, tol, tally, what);
          if (::testing::Test::HasFatalFailure()) return;
        }
      }
    }
  }
}

TEST(DomainEdge, ComesFromARegion) {
  CFRegion region;
  region.Add({0, 0, 0});
  region.Add({4, 0, -kPi / 2});
  region.Add({4, 4, kPi / 4});
  const Domain domain = domain_of(region);
  EXPECT_EQ(domain[0].type, 0);
  EXPECT_EQ(domain[0].centre, CFPoint(0, 0, 0));
  EXPECT_EQ(domain[1].type, 1);
  EXPECT_EQ(domain[1].ccw, 1);
  EXPECT_EQ(domain[1].start, CFPoint(4, 0, 0));
  EXPECT_EQ(domain[1].centre, CFPoint(4, 2, 0));
  EXPECT_EQ(domain[2].ccw, 0);
  EXPECT_EQ(domain[2].centre, CFPoint(0, 4, 0));
}

// Rings of any shape, arcs beyond half a turn included; they may cross themselves, which the rule
// of odd crossings doesn't mind. Half of them on a coarse grid, where ends, tops and cuts coincide;
// and discs cut at their sides or at top and bottom.
TEST(DomainLocation, AgreesWithAFineCopyOfAnyRing) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> place(-5, 5), bulge(-2.9f, 2.9f);
  std::uniform_int_distribution<int> grid(-3, 3), vertices(2, 6), quarter(-3, 3), chance(0, 2);
  Tally tally;
  for (int k = 0; k < 8; ++k) {
    expect_locations(disc(3, -2, k < 4 ? 1.0f : 100.0f, k % 2, k / 2 % 2), random, tally, "disc");
  }
  for (int round = 0; round < 60; ++round) {
    CFRegion region;
    const int n = vertices(random);
    const bool coarse = round % 2;
    for (int i = 0; i < n; ++i) {
      CFShoot vertex(place(random), place(random), chance(random) ? bulge(random) : 0);
      if (coarse) {
        vertex = {static_cast<float>(grid(random)), static_cast<float>(grid(random)),
                  static_cast<float>(quarter(random)) * kPi / 4};
      }
      if (round % 5 == 2) vertex.c *= 0.001f;  // nearly straight
      region.Add(vertex);
    }
    expect_locations(domain_of(region), random, tally, "ring " + std::to_string(round));
    if (HasFatalFailure()) return;
  }
  EXPECT_GT(tally.inside, 800);
  EXPECT_GT(tally.outside, 800);
}

struct CutCase {
  const char* name;
  Domain domain;
  float x, y;
  int crossings;
};

TEST(DomainLocation, CountsCrossingsToTheRight) {
  const Domain square{line(0, 0), line(4, 0), line(4, 4), line(0, 4)};
  const Domain diamond{line(0, -2), line(2, 0), line(0, 2), line(-2, 0)};
  const Domain circle = disc(0, 0, 2, 0, 1), turned = disc(0, 0, 2, 1, 1);
  // A slit ring: most of a circle clockwise, both ends right of the centre, one of them level.
  const Domain slit{arc(2, 0, 0, 0, 1), line(1.2f, -1.6f)};
  const Domain slit_back{arc(1.2f, -1.6f, 0, 0, 0), line(2, 0)};
  const CutCase cases[] = {
      {"inside", square, 1, 1, 1},
      {"left of it", square, -1, 1, 2},
      {"right of it", square, 5, 1, 0},
      {"level with the lower edge, which counts as above", square, -1, 0, 0},
      {"level with the upper edge, which counts as above", square, -1, 4, 2},
      {"level with a corner that only touches", diamond, -3, 2, 0},
      {"level with two corners", diamond, -3, 0, 2},
      {"between two corners", diamond, 0, 0, 1},
      {"left of a circle", circle, -3, 1, 2},
      {"inside a circle", circle, 0, 1, 1},
      {"left of a circle, level with its ends", circle, -3, 0, 2},
      {"inside a circle, level with its ends", circle, 0.5f, 0, 1},
      {"a circle cut away from its ends", turned, -3, 0, 2},
      {"inside a circle cut away from its ends", turned, 0, 0.5f, 1},
      {"an end on the axis and the other cut", slit, -3, 0, 2},
      {"the same inside", slit, 0, 0, 1},
      {"the same arc back", slit_back, -3, 0, 2},
      {"the same arc back, inside", slit_back, 0, 0, 1},
  };
  const CPointInDomain located;
  for (const CutCase& c : cases) {
    EXPECT_EQ(located.Find_Cross_Points_H(count(c.domain), c.domain.data(), c.x, c.y, 1e-5f),
              c.crossings)
        << c.name;
  }
}

TEST(DomainLocation, BreaksEdgesInTheirDirection) {
  struct Case {
    const char* name;
    CDomainEdge edge, next;
    std::vector<float> cuts;
  } const cases[] = {
      {"straight", line(0, -1), line(4, 1), {2}},
      {"straight, end on the axis", line(0, -1), line(4, 0), {}},
      {"straight on the axis", line(0, 0), line(4, 0), {}},
      {"from below to below, counter-clockwise", arc(4, -3, 0, 0, 1), line(-4, -3), {5, -5}},
      {"from below to below, clockwise", arc(-4, -3, 0, 0, 0), line(4, -3), {-5, 5}},
      {"from above to above, counter-clockwise", arc(-4, 3, 0, 0, 1), line(4, 3), {-5, 5}},
      {"from above to above, clockwise", arc(4, 3, 0, 0, 0), line(-4, 3), {5, -5}},
      {"short of the axis", arc(4, 3, 0, 0, 1), line(-4, 3), {}},
      {"once, on the left", arc(-4, 3, 0, 0, 1), line(0, -5), {-5}},
      {"once, the long way", arc(-4, 3, 0, 0, 0), line(0, -5), {5}},
      {"start on the axis", arc(5, 0, 0, 0, 1), line(0, -5), {-5}},
      {"end on the axis", arc(0, -5, 0, 0, 0), line(5, 0), {-5}},
      {"both ends on the axis", arc(5, 0, 0, 0, 1), line(-5, 0), {}},
      {"both ends at one cut", arc(5, 0, 0, 0, 1), line(5, -1e-6f), {-5}},
      {"touching from above", arc(-5, 5, 0, 5, 1), line(5, 5), {}},
      {"no radius", arc(1, 0, 1, 0, 1), line(3, 0), {}},
  };
  const CPointInDomain located;
  for (const Case& c : cases) {
    CPtrList list;
    CDomainEdge own = c.edge;
    const POSITION pos = list.AddTail(&own);
    located.Break_The_Edge(pos, c.edge, c.next, &list, 1e-5f);
    list.RemoveHead();
    std::vector<float> cuts;
    while (!list.IsEmpty()) {
      auto* piece = static_cast<CDomainEdge*>(list.RemoveHead());
      cuts.push_back(piece->start.x);
      EXPECT_EQ(piece->start.y, 0) << c.name;
      EXPECT_EQ(piece->type, c.edge.type) << c.name;
      EXPECT_EQ(piece->ccw, c.edge.ccw) << c.name;
      EXPECT_EQ(piece->position, 1) << c.name;
      EXPECT_EQ(piece->centre, c.edge.centre) << c.name;
      delete piece;
    }
    EXPECT_EQ(cuts, c.cuts) << c.name;
  }
}

TEST(DomainLocation, FindsTheSideOfAnEdge) {
  struct Case {
    const char* name;
    CDomainEdge edge, next;
    float tol;
    int position;
  } const cases[] = {
      {"on the axis counts as above", line(0, 0), line(1, 0), 1e-5f, 1},
      {"on the axis without tolerance", line(0, 0), line(1, 0), 0, 0},
      {"from the axis down", line(0, 0), line(1, -1), 1e-5f, -1},
      {"up to the axis", line(0, -1), line(1, 0), 1e-5f, -1},
      {"from the axis up", line(0, 0), line(1, 1), 0, 1},
      {"upper half", arc(1, 0, 0, 0, 1), line(-1, 0), 1e-5f, 1},
      {"lower half", arc(1, 0, 0, 0, 0), line(-1, 0), 1e-5f, -1},
      {"beyond the axis", arc(1, -5, 0, -5, 1), line(-1, -5), 1e-5f, -1},
      {"off the axis", arc(1, 5, 0, 5, 0), line(-1, 5), 1e-5f, 1},
  };
  for (const Case& c : cases) {
    CDomainEdge edge = c.edge;
    edge.position = 7;
    CPointInDomain().Find_SegmentPosition(edge, c.next, c.tol);
    EXPECT_EQ(edge.position, c.position) << c.name;
  }
}

TEST(DomainLocation, TakesItsEdgesIn) {
  const Domain half{line(-2, 0), arc(2, 0, 0, 0, 1)};
  struct Case {
    const char* name;
    float x, y;
    int on_edge, in_domain;
  } const cases[] = {
      {"on the straight edge", 1, 0, 1, 1},
      {"near it", 1, -0.0005f, 1, 1},
      {"too far below", 1, -0.01f, 0, 0},
      {"on the arc", 0, 2, 1, 1},
      {"on the circle beyond the arc", 0, -2, 0, 0},
      {"inside", 0, 1, 0, 1},
      {"in the box only", -1.9f, 1.9f, 0, 0},
      {"at a corner", 2, 0, 1, 1},
  };
  CPointInDomain located;
  for (const Case& c : cases) {
    EXPECT_EQ(located.Point_On_Edge_Domain(2, half.data(), c.x, c.y, 0.001f), c.on_edge) << c.name;
    EXPECT_EQ(located.Point_In_Domain(2, half.data(), c.x, c.y, 0.001f), c.in_domain) << c.name;
  }
  expect_near({located.min_x, located.max_x, located.min_y, located.max_y}, {-2, 2, 0, 2}, 1e-6);
  // An arc that ends at the angle 0, reached from below.
  const CDomainEdge lower = arc(0, -2, 0, 0, 1);
  EXPECT_TRUE(located.Point_On_One_Edge(lower, line(2, 0), 1.41421356f, -1.41421356f, 0.001f));
  EXPECT_FALSE(located.Point_On_One_Edge(lower, line(2, 0), 1.41421356f, 1.41421356f, 0.001f));
}

TEST(DomainMeasures, AgreeWithAFineCopy) {
  std::mt19937 random(11);
  std::uniform_real_distribution<float> radius(2, 6), bulge(-1.2f, 1.2f);
  for (int round = 0; round < 100; ++round) {
    // Star-shaped about the origin, counter-clockwise; every other ring is then reversed.
    CFRegion region;
    constexpr int kVertices = 7;
    for (int i = 0; i < kVertices; ++i) {
      const float angle = 2 * kPi * static_cast<float>(i) / kVertices, r = radius(random);
      region.Add(
          {r * std::cos(angle) + 50, r * std::sin(angle) - 30, i % 3 ? bulge(random) : 0.0f});
    }
    const bool reversed = round % 2;
    if (reversed) region.Mirror(CFPoint(0, 0, 0), CFPoint(1, 0, 0));
    const Domain domain = domain_of(region);
    const FinePolygon fine = flattened(domain);
    const CPointInDomain located;
    const int n = count(domain);
    const auto area = static_cast<double>(fine.area());
    EXPECT_NEAR(located.Get_Area(n, domain.data()), area, 1e-3) << round;
    EXPECT_NEAR(located.Get_ZhouChang(n, domain.data()), static_cast<double>(fine.length()), 1e-3);
    float x, y;
    located.Get_Centroid(n, domain.data(), x, y);
    if (reversed) {
      EXPECT_LT(area, 0);
      EXPECT_NEAR(x * 1e-5 / area, static_cast<double>(fine.centroid().x), 1e-2);
    } else {
      expect_near({x, y}, {fine.centroid().x, fine.centroid().y}, 1e-3);
    }
    float left, bottom, right, top;
    located.Get_OutLook_Domain(n, domain.data(), left, bottom, right, top);
    const FinePolygon::Vertex low = fine.low(), high = fine.high();
    expect_near({left, right, bottom, top}, {low.x, high.x, low.y, high.y}, 1e-4);
  }
}

TEST(DomainMeasures, TellTheSegmentOfAnArc) {
  const CPointInDomain located;
  float area, x, y;
  located.Get_Arc_Para(arc(3, 1, 1, 1, 1), line(-1, 1), area, x, y);
  expect_near({area, x, y}, {2 * kPi, 1, 1 + 8 / (3 * kPi)}, 1e-6);
  located.Get_Arc_Para(arc(-1, 1, 1, 1, 0), line(3, 1), area, x, y);
  expect_near({area, x, y}, {-2 * kPi, 1, 1 + 8 / (3 * kPi)}, 1e-6);
  located.Get_Arc_Para(line(1, 1), line(3, 5), area, x, y);
  expect_equal({area, x, y}, {0, 2, 3});
  located.Get_Tri_Area(line(3, 0), line(0, 6), 0, 0, area, x, y);
  expect_equal({area, x, y}, {9, 1, 2});
}

TEST(DomainOverlap, LooksAtInsideCornersAndBoxes) {
  const Domain half{line(-2, 0), arc(2, 0, 0, 0, 1)};
  CPointInDomain located;
  struct Disc {
    const char* name;
    float x, y, r;
    int result;
  } const discs[] = {
      {"centre inside", 0, 1, 0.1f, 1},
      {"holds a corner", 3, 0, 1.5f, 1},
      {"reaches the box", 1.9f, 1.9f, 0.05f, 1},  // apart from the domain all the same
      {"boxes apart", 5, 5, 1, 0},
  };
  for (const Disc& c : discs) {
    EXPECT_EQ(located.Test_CrossRegon_Domain_Circle(2, half.data(), c.x, c.y, c.r, 1e-4f), c.result)
        << c.name;
  }
  struct Box {
    const char* name;
    float x1, y1, x2, y2;
    int result;
  } const boxes[] = {
      {"corner inside", 0, 1, 9, 9, 1},
      {"holds the domain", -9, -9, 9, 9, 1},
      {"meets its box", 1.8f, 1.8f, 3, 3, 1},  // apart from the domain all the same
      {"boxes apart", 3, 3, 4, 4, 0},
  };
  for (const Box& b : boxes) {
    const float x[] = {b.x1, b.x2, b.x2, b.x1}, y[] = {b.y1, b.y1, b.y2, b.y2};
    EXPECT_EQ(located.Test_CrossRegon_Domain_Rect(2, half.data(), x, y, 1e-4f), b.result) << b.name;
  }
  EXPECT_EQ(located.Test_CrossRegon_Domain_Domain(2, half.data(), 2, half.data(), 1), 0);
}

TEST(DomainScript, WritesEachEdge) {
  const Domain domain{line(-2, 0), arc(2, 0, 0, 0, 1), line(-2, 0), arc(-3, 0, -4, 0, 0)};
  std::FILE* f = std::tmpfile();
  ASSERT_TRUE(f);
  CPointInDomain().Draw_SCR(f, count(domain), domain.data());
  std::rewind(f);
  int lines = 0, arcs = 0;
  for (char text[200]; std::fgets(text, sizeof text, f) != nullptr;) {
    lines += std::string(text).starts_with("line") && std::strstr(text, "2.00") != nullptr;
    arcs += std::string(text).starts_with("arc");
  }
  std::fclose(f);
  EXPECT_EQ(arcs, 2);
  EXPECT_GT(lines, 0);
}

TEST(DomainLocation, SurvivesDegenerateInput) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float huge = std::numeric_limits<float>::max();
  const Domain domains[] = {
      {},
      {arc(1, 1, 1, 1, 1)},
      {arc(1, 0, 0, 0, 1)},
      {arc(nan, 0, 0, nan, 1), arc(1, 0, nan, 0, 0)},
      {line(huge, -huge), arc(-huge, huge, 0, 0, 1), line(nan, nan)},
  };
  for (const Domain& domain : domains) {
    CPointInDomain located;
    const int n = count(domain);
    for (const float tol : {0.0f, nan, huge}) {
      const int in = located.Point_In_Domain(n, domain.data(), 0, 0, tol);
      EXPECT_TRUE(in == 0 || in == 1);
      located.Point_Into_Domain(n, domain.data(), nan, huge, tol);
      located.Test_CrossRegon_Domain_Circle(n, domain.data(), 0, 0, 1, tol);
    }
    float x = 0, y = 0;
    located.Get_Centroid(n, domain.data(), x, y);
    EXPECT_TRUE(n > 1 || (x == 0 && y == 0));
  }
}

TEST(InDomain, LocatesInAPlainPolygon) {
  const std::vector<float> x{0, 4, 4, 2, 0}, y{0, 0, 4, 2, 4};
  struct Case {
    const char* name;
    float x, y;
    int result;
  } const cases[] = {
      {"inside", 1, 1, 1},
      {"outside", 5, 1, 0},
      {"in the notch", 2, 3, 0},
      {"level with the notch, between the ends of an edge that starts there", 1, 2, -5},
      {"level with the notch, beyond it", 3.5f, 2, 1},
      {"left of it, level with the notch", -1, 2, 0},
      {"on a sloping edge", 3, 3, -5},
      {"on the lower edge", 1, 0, -5},
      {"on an upright edge", 4, 1, -5},
      {"first vertex, from the edge that leaves it", 4, 4, 2},
      {"a vertex seen from an upright edge", 4, 0, 6},
      {"above", 1, 9, 0},
  };
  std::vector<CFPoint> points;
  for (std::size_t i = 0; i < x.size(); ++i) points.emplace_back(x[i], y[i], 0.0f);
  for (const Case& c : cases) {
    EXPECT_EQ(in_domain(5, x.data(), y.data(), c.x, c.y), c.result) << c.name;
    EXPECT_EQ(in_domain(5, points.data(), {c.x, c.y, 0}, 0.0001), c.result) << c.name;
  }
  EXPECT_EQ(in_domain(0, x.data(), y.data(), 0, 0), 0);
  EXPECT_EQ(in_domain(1, x.data(), y.data(), 0, 0), 0);
  // A wider tolerance takes a point near an edge for one on it.
  EXPECT_EQ(in_domain(5, points.data(), {4.05f, 1, 0}, 0.1), -5);
}

}  // namespace
}  // namespace brindle
