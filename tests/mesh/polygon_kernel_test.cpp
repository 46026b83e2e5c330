// Vertex, edge and polygon of the double-precision kernel, and the determinant under them.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "brindle/geometry/determinant.h"
#include "brindle/mesh/geo_edge.h"
#include "brindle/mesh/geo_polygon.h"
#include "tests/support/expect_numbers.h"

namespace brindle {
namespace {

using Points = std::vector<std::pair<double, double>>;

CGeoPolygon polygon(const Points& points) {
  std::vector<CGeoVertex> vertices;
  for (const auto& [x, y] : points) vertices.emplace_back(x, y, 0.0);
  return CGeoPolygon(static_cast<int>(vertices.size()), vertices.data());
}

const Points kSquare = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
const Points kClockwise = {{0, 10}, {10, 10}, {10, 0}, {0, 0}};
const Points kMiddle = {{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}};
const Points kHook = {{0, 0}, {10, 0}, {10, 4}, {4, 4}, {4, 10}, {0, 10}};
// A comb: its teeth have concave corners and its floor is on one line.
const Points kComb = {{0, 0}, {12, 0}, {12, 8}, {10, 8}, {10, 2}, {7, 2},
                      {7, 8}, {5, 8},  {5, 2},  {2, 2},  {2, 8},  {0, 8}};
const Points kBowTie = {{0, 0}, {10, 10}, {10, 0}, {0, 10}};

// Of a product of triangles with whole numbers, its rows turned round.
TEST(Determinant, AgreesWithIntegers) {
  std::mt19937 engine(1);
  for (int round = 0; round < 300; ++round) {
    const int n = 1 + round % 6, turns = round % 5;
    const auto draw = [&] { return static_cast<double>(engine() % 7) - 3; };
    double low[6][6] = {}, high[6][6] = {}, wanted = turns % 2 && n % 2 == 0 ? -1 : 1;
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j < n; ++j) (j < i ? low : high)[i][j] = draw();
      low[i][i] = 1;
      wanted *= high[i][i];
    }
    std::vector<double> m(static_cast<std::size_t>(n * n));
    for (int i = 0; i < n * n; ++i) {
      for (int k = 0; k < n; ++k) {
        m[static_cast<std::size_t>(i)] += low[(i / n + turns) % n][k] * high[k][i % n];
      }
    }
    const std::vector<double> kept = m;
    // A step of the rows is n - 1 exchanges.
    EXPECT_NEAR(Mat_Det(n, m.data()), wanted, 1e-7) << round;
    EXPECT_EQ(m, kept);
  }
  const double singular[] = {1, 2, 3, 2, 4, 6, 1, 1, 1};
  expect_near(
      {Mat_Det(3, singular), Mat_Det(0, singular), Mat_Det(-1, singular), Mat_Det(2, nullptr)},
      {0, 0, 0, 0}, 1e-15);
}

// Which digits the elimination gives decides what lies on a circle: the circle test must take its
// decision from the determinant of the four rows.
TEST(CircleTest, TakesItsSideFromTheDeterminant) {
  std::mt19937 engine(2);
  int seen[3] = {0, 0, 0};
  for (int round = 0; round < 20000; ++round) {
    // Near the unit of the tolerance, so that all three answers come.
    const double size = round % 2 ? 0.1 : 3;
    double p[4][2];
    for (auto& q : p) {
      for (double& v : q) v = static_cast<double>(engine() % 7) * size + (round % 3 ? 0 : 1e-6 * v);
    }
    double rows[16];
    for (int i = 0; i < 4; ++i) {
      const double x = p[i][0], y = p[i][1];
      const double row[4] = {1, x, y, x * x + y * y};
      std::copy(row, row + 4, rows + 4 * i);
    }
    const double z =
        (p[2][0] - p[0][0]) * (p[1][1] - p[0][1]) - (p[2][1] - p[0][1]) * (p[1][0] - p[0][0]);
    const double d = Mat_Det(4, rows);
    int expected = std::fabs(d) < 1e-5 ? 0 : ((d > 1e-5) == (z < -1e-5) ? -1 : 1);
    if (std::fabs(z) <= 1e-5) expected = -1;
    ASSERT_EQ(expected, CGeoVertex::IsPtIn3PCircle(p[3][0], p[3][1], p[0][0], p[0][1], p[1][0],
                                                   p[1][1], p[2][0], p[2][1]));
    ++seen[expected + 1];
  }
  for (const int count : seen) EXPECT_GT(count, 100);
}

TEST(CircleTest, ThreePoints) {
  struct {
    double x, y;
    int side;
  } cases[] = {{5, 5, 1}, {10, 10, 0}, {0, 0, 0}, {10, 10.1, -1}, {-3, 5, -1}, {9.99, 9.99, 1}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.side, CGeoVertex::IsPtIn3PCircle(c.x, c.y, 0, 0, 10, 0, 0, 10)) << c.x;
    EXPECT_EQ(c.side, CGeoVertex::IsPtIn3PCircle(c.x, c.y, 0, 10, 10, 0, 0, 0)) << c.x;
    EXPECT_EQ(c.side >= 0, CGeoPolygon::IsInCircle_New({c.x, c.y, 0.0}, {0.0, 0.0, 0.0},
                                                       {10.0, 0.0, 0.0}, {0.0, 10.0, 0.0}));
  }
  EXPECT_EQ(-1, CGeoVertex::IsPtIn3PCircle(1, 0, 0, 0, 1, 0, 2, 0));
  EXPECT_EQ(0, CGeoPolygon::IsInCircle_New({1.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0},
                                           {2.0, 0.0, 0.0}));
  double r = -1, cx = -1, cy = -1;
  EXPECT_EQ(0, CGeoVertex::Get_3P_Circle(0, 0, 1, 1, 2, 2, r, cx, cy));
  EXPECT_EQ(-1, r);
  std::mt19937 engine(3);
  for (int round = 0; round < 500; ++round) {
    double p[6];
    for (double& v : p) v = static_cast<double>(engine() % 2000) / 10 - 100;
    if (!CGeoVertex::Get_3P_Circle(p[0], p[1], p[2], p[3], p[4], p[5], r, cx, cy)) continue;
    for (int k = 0; k < 6; k += 2) {
      EXPECT_NEAR(std::hypot(p[k] - cx, p[k + 1] - cy), r, 1e-9 * r * r);
      EXPECT_TRUE(CGeoVertex::IsPtInCircle(p[k], p[k + 1], cx, cy, r + 1e-9 * r * r));
    }
    // The bisector form agrees wherever the point is clearly on one side.
    const CGeoVertex a(p[0], p[1], 0.0), b(p[2], p[3], 0.0), c(p[4], p[5], 0.0);
    const CGeoVertex at(static_cast<double>(engine() % 200) - 100, 7.5, 0.0);
    const double gap = std::hypot(at.x - cx, at.y - cy) - r;
    if (r < 1e4 && std::fabs(gap) > 1e-3) {
      EXPECT_EQ(gap < 0, CGeoPolygon::IsInCircle(at, a, b, c));
      EXPECT_EQ(gap < 0, CGeoPolygon::IsInCircle_New(at, a, b, c));
    }
  }
}

TEST(GeoVector, ProductsAndLength) {
  const CGeoVector x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), v(3.0, 4.0, 12.0);
  CGeoVector tiny(3e-6, 4e-6, 0.0), unit(v);
  tiny.Normalize();
  unit.Normalize();
  expect_near({(x ^ y).z, v.Length(), v * x, tiny.x, unit.Length()}, {1, 13, 3, 3e-6, 1}, 1e-15);
  CGeoVertex sum = (CGeoVertex(1.0f, 2.0f, 3.0f) + v) * 2.0 / 4.0;
  sum -= CGeoVertex(2.0, 3.0, 7.5);
  EXPECT_TRUE(sum == CGeoVertex(0.0, 0.0, 9e-6));
  EXPECT_TRUE(sum != CGeoVertex(0.0, 0.0, 1.1e-5));
  float fx, fy, fz;
  v.Get(fx, fy, fz);
  EXPECT_EQ(12.0f, fz);
}

TEST(GeoEdge, SidesAndPoints) {
  const CGeoEdge2D edge({0.0, 0.0, 5.0}, {10.0, 0.0, 7.0});
  EXPECT_EQ(0, edge.GetMaxZ());
  EXPECT_TRUE(edge.IsHorizontal());
  EXPECT_FALSE(edge.IsVertical());
  struct {
    double x, y, z;
    int on, inner, left;
  } cases[] = {{5, 0, 0, 1, 1, 1},       {0, 0, 0, 1, 0, 1},    {10, 9e-6, 0, 1, 0, 1},
               {5, 9e-7, 0, 1, 1, 1},    {5, 2e-6, 0, 0, 0, 1}, {5, 1, 0, 0, 0, 1},
               {5, -1, 0, 0, 0, 0},      {11, 0, 0, 0, 0, 1},   {5, 0, 1e-3, 0, 0, 1},
               {10.00001, 0, 0, 1, 0, 1}};
  for (const auto& c : cases) {
    const CGeoVertex v(c.x, c.y, c.z);
    EXPECT_EQ(c.on, edge.IsVertexOn_InCludeNode(v)) << c.x << " " << c.y;
    EXPECT_EQ(c.inner, edge.IsVertexOn_ExCludeNode(v)) << c.x << " " << c.y;
    EXPECT_EQ(c.left, edge.IsOnLeft(v)) << c.x << " " << c.y;
  }
}

TEST(GeoEdge, Intersections) {
  struct {
    double x1, y1, x2, y2;
    int proper, any;
  } cases[] = {{5, -1, 5, 1, 1, 1},   {5, 0, 5, 1, 0, 1},  {0, 0, 0, 5, 0, 1},
               {11, -1, 11, 1, 0, 0}, {5, 1, 5, 2, 0, 0},  {2, 0, 20, 0, 0, 1},
               {-5, 0, -1, 0, 0, 0},  {10, 0, 15, 3, 0, 1}};
  const CGeoEdge2D edge({0.0, 0.0, 0.0}, {10.0, 0.0, 0.0});
  for (const auto& c : cases) {
    const CGeoEdge2D other({c.x1, c.y1, 0.0}, {c.x2, c.y2, 0.0});
    EXPECT_EQ(c.proper, edge.IsIntersectProp(other)) << c.x1;
    EXPECT_EQ(c.proper, other.IsIntersectProp(edge)) << c.x1;
    EXPECT_EQ(c.any, edge.IsIntersect(other)) << c.x1;
    EXPECT_EQ(c.any, other.IsIntersect(edge)) << c.x1;
  }
}

TEST(GeoPolygon, Classifies) {
  struct {
    const char* name;
    Points points;
    double area;
    int type, direction;
  } cases[] = {{"empty", {}, 0, 0, 0},         {"two", {{0, 0}, {1, 1}}, 0, 0, 2},
               {"square", kSquare, 100, 1, 2}, {"clockwise", kClockwise, -100, 1, 1},
               {"middle", kMiddle, 100, 1, 2}, {"hook", kHook, 64, 2, 2},
               {"bow-tie", kBowTie, 0, 2, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CGeoPolygon p = polygon(c.points);
    EXPECT_DOUBLE_EQ(c.area, p.Area());
    EXPECT_EQ(c.type, p.PolygonType());
    EXPECT_EQ(c.direction, p.PolygonDirection());
    p.ReversePolygonDirection();
    EXPECT_DOUBLE_EQ(-c.area, p.Area());
    p.SetCountclockwizeDir();
    EXPECT_EQ(2, p.PolygonDirection());
  }
  const CGeoPolygon middle = polygon(kMiddle), hook = polygon(kHook);
  EXPECT_EQ(CGeoPolygon::VERTEX_CONCAVE, middle.PolygonVertexType(1));
  EXPECT_EQ(CGeoPolygon::VERTEX_CONVEX, middle.PolygonVertexType(2));
  EXPECT_EQ(CGeoPolygon::VERTEX_CONCAVE, hook.PolygonVertexType(3));
  EXPECT_EQ(CGeoPolygon::VERTEX_UNKNOWN, hook.PolygonVertexType(6));
  expect_equal({hook.PreviousVertex(0), hook.NextVertex(5), hook.Diagonal(0, 3),
                hook.Diagonal(1, 4), CGeoPolygon().Diagonal(0, 1)},
               {5, 0, 1, 0, 0});
}

TEST(GeoPolygon, AddVertexRefusesAnyEqualOne) {
  CGeoPolygon p = polygon(kSquare);
  EXPECT_EQ(0, p.AddVertex({9e-6, -9e-6, 0.0}));
  EXPECT_EQ(5, p.AddVertex({2e-5, 0.0, 0.0}));
  CGeoPolygon copy = p;
  copy.Vertex(0).x = 99;
  EXPECT_EQ(0, p.Vertex(0).x);
  p.Triangulate_CutEar();
  p.Clear();
  EXPECT_EQ(0, p.NumOfVertices());
  EXPECT_GT(p.NumOfTriangles(), 0);
}

TEST(GeoPolygon, IsPointIn) {
  struct {
    Points ring;
    double x, y;
    int in;
  } cases[] = {{kSquare, 5, 5, 1},    {kSquare, 0, 0, 1},         {kSquare, 10, 10, 1},
               {kSquare, 10, 5, 1},   {kSquare, 5, 10, 1},        {kSquare, 10.1, 5, 0},
               {kSquare, -0.1, 0, 0}, {kSquare, 15, 0, 0},        {kSquare, 15, 10, 0},
               {kHook, 7, 7, 0},      {kHook, 4, 7, 1},           {kHook, 2, 4, 1},
               {kHook, 7, 4, 1},      {kHook, 10.5, 4, 0},        {kComb, 6, 5, 1},
               {kComb, 3.5, 5, 0},    {kComb, 11, 2, 1},          {kComb, 8.5, 2, 1},
               {kComb, 8.5, 8, 0},    {{{0, 0}, {1, 1}}, 0, 0, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.in, polygon(c.ring).IsPointIn({c.x, c.y, 0.0})) << c.x << " " << c.y;
  }
}

// Every triangle counter-clockwise, all areas together the polygon's, none across the outline.
void expect_covers(const CGeoPolygon& p, double area) {
  double sum = 0;
  for (int k = 0; k < p.NumOfTriangles(); ++k) {
    CGeoVertex corner[3];
    for (int c = 0; c < 3; ++c) corner[c] = p.Vertex(p.TriangleVertex(k, c));
    const CGeoPolygon triangle(3, corner);
    sum += std::fabs(triangle.Area());
    EXPECT_TRUE(p.IsPointIn((corner[0] + corner[1] + corner[2]) / 3.0));
  }
  EXPECT_NEAR(area, sum, 1e-9 * area);
}

TEST(GeoPolygon, Triangulations) {
  struct {
    const char* name;
    Points points;
    int ears;
  } cases[] = {{"triangle", {{0, 0}, {4, 0}, {0, 3}}, 1},
               {"square", kSquare, 2},
               {"clockwise", kClockwise, 2},
               {"middle", kMiddle, 3},
               {"hook", kHook, 4},
               {"comb", kComb, 10}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CGeoPolygon p = polygon(c.points);
    const double area = std::fabs(p.Area());
    EXPECT_EQ(1, p.Triangulate_CutEar());
    EXPECT_EQ(c.ears, p.NumOfTriangles());
    expect_covers(p, area);
    EXPECT_EQ(1, p.Triangulate_Delauney());
    expect_covers(p, area);
  }
  CGeoPolygon three = polygon({{0, 0}, {4, 0}, {0, 3}}), tie = polygon(kBowTie);
  three.Triangulate_CutEar();
  expect_equal({three.TriangleVertex(0, 0), three.TriangleVertex(0, 1), three.TriangleVertex(0, 2)},
               {2, 0, 1});
  CGeoPolygon two = polygon({{0, 0}, {1, 0}});
  expect_equal({tie.Triangulate_CutEar(), tie.NumOfTriangles(), two.Triangulate_CutEar(),
                two.Triangulate_Delauney()},
               {0, 0, 0, 0});
  // No ear is left in a flat ring: it ends all the same.
  CGeoPolygon flat = polygon({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}});
  flat.SetCountclockwizeDir();
  expect_equal({flat.Triangulate_CutEar(), flat.NumOfTriangles()}, {1, 0});
}

}  // namespace
}  // namespace brindle
