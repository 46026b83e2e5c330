// CGeoCDT: what its steps promise one by one. That they equal the plain method is tested beside
// this.
#include "brindle/mesh/triangulation.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "brindle/mesh/point_in_ring_internal.h"
#include "tests/support/expect_numbers.h"

namespace brindle {

// The operations that aren't on the way of Generate.
struct CGeoCDTAccess {
  CGeoCDT& mesh;
  bool add_triangle(long a, long b, long c) { return mesh.Add_Triangle(a, b, c) != nullptr; }
  void new_edge(long a, long b) { mesh.Insert_NewEdge(a, b); }
  int visible(long a, long b) { return mesh.IsPtVisible(mesh.m_Edges, a, b); }
  int empty_circle(long t) { return mesh.IsTriCircumcircleEmpty(t); }
  int encroaches(double x, double y, long a, long b) { return mesh.IsPtEncroachEdge(x, y, a, b); }
  const CGeoCDT::sEdge* find(long a, long b) { return CGeoCDT::FindeEdge(mesh.m_Edges, a, b); }
};

namespace {

void add(CGeoCDT& mesh, const std::vector<std::pair<double, double>>& points, long boundary) {
  for (const auto& [x, y] : points) mesh.Add_Vertex(x, y);
  for (long i = 0; i < boundary; ++i) mesh.Input_Boundary(1, &i);
}

const std::vector<std::pair<double, double>> kSquare = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};

TEST(Triangulation, ReturnsOfTheInput) {
  CGeoCDT two, mesh;
  add(two, {{0, 0}, {1, 0}}, 2);
  expect_equal({two.Generate(), two.NumOfTriangels()}, {0, 0});
  expect_equal({mesh.Add_Edge(0, 1), mesh.Add_Vertex(0, 0), mesh.Add_Vertex(1, 0)}, {-1, 0, 1});
  for (int i = 0; i < 10; ++i) EXPECT_EQ(1, mesh.Add_Edge(0, 1));
  const long ring[] = {0, 1};
  expect_equal({mesh.Add_Hole(2, ring), mesh.Add_Hole(0, ring)}, {1, 2});
  mesh.Input_Boundary(2, ring);
  mesh.Input_Boundary(1, ring);
  EXPECT_EQ((std::vector<long>{0, 1, 0}), mesh.Boundary());
  EXPECT_EQ(1, mesh.Insert_Constrain_Edge());
}

TEST(Triangulation, HolesChangeNothing) {
  CGeoCDT plain, holed;
  for (CGeoCDT* mesh : {&plain, &holed}) {
    add(*mesh, kSquare, 4);
    add(*mesh, {{4, 4}, {6, 4}, {6, 6}, {4, 6}}, 0);
  }
  const long hole[] = {4, 5, 6, 7};
  holed.Add_Hole(4, hole);
  plain.Generate();
  holed.Generate();
  ASSERT_EQ(plain.NumOfTriangels(), holed.NumOfTriangels());
  for (std::size_t t = 0; t < plain.Triangles().size(); ++t) {
    EXPECT_TRUE(
        std::equal(plain.Triangles()[t].v, plain.Triangles()[t].v + 3, holed.Triangles()[t].v));
  }
}

TEST(Triangulation, TellsTheCornersOfItsTriangles) {
  CGeoCDT square;
  add(square, kSquare, 4);
  square.Generate();
  double area = 0;
  for (long t = 0; t < square.NumOfTriangels(); ++t) {
    double x1, y1, x2, y2, x3, y3;
    square.Get_Triangles_Vertex(t, x1, y1, x2, y2, x3, y3);
    area += std::fabs((x2 - x1) * (y3 - y1) - (x3 - x1) * (y2 - y1)) / 2;
  }
  EXPECT_DOUBLE_EQ(100, area);
}

TEST(Triangulation, SplitsEncroachedEdgesOnce) {
  struct {
    double x, y;
    bool splits;
  } cases[] = {{5, 5, true},  {5, 5.000009, true},  {5, 5.00002, false}, {5, 0, true},
               {5, -3, true}, {-0.000009, 0, true}, {10.00002, 0, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.x);
    CGeoCDT mesh;
    add(mesh, {{0, 0}, {10, 0}, {c.x, c.y}}, 0);
    mesh.Add_Edge(0, 1);
    mesh.Prepare();
    EXPECT_EQ(1, mesh.Split_Edge());
    ASSERT_EQ(c.splits ? 2u : 1u, mesh.WorkingEdges().size());
    if (!c.splits) continue;
    const auto& edges = mesh.WorkingEdges();
    expect_equal({edges[0]->b, edges[1]->a, edges[1]->b}, {3, 3, 1});
    expect_equal({mesh.WorkingVertices()[3]->x, mesh.WorkingVertices()[3]->origin}, {5, 1});
  }
}

TEST(Triangulation, CopiesAreDeepAndKeepSharing) {
  CGeoCDT mesh;
  add(mesh, kSquare, 4);
  mesh.Add_Edge(0, 1);
  mesh.Add_Vertex(5, 1);
  mesh.Prepare();
  CGeoCDT copy(mesh), assigned;
  assigned = mesh;
  mesh.Split_Edge();
  for (CGeoCDT* other : {&copy, &assigned}) {
    EXPECT_EQ(5u, other->WorkingVertices().size());
    EXPECT_EQ(1u, other->WorkingEdges().size());
    EXPECT_EQ(1, other->WorkingEdges()[0]->b);
    EXPECT_EQ(other->InputVertices()[0], other->WorkingVertices()[0]);
    EXPECT_NE(mesh.InputVertices()[0], other->InputVertices()[0]);
    EXPECT_EQ(1, other->Generate());
  }
  mesh.Form_Delaunay_P();
  mesh.Refine_Delaunay_T();
  EXPECT_EQ(mesh.NumOfTriangels(), copy.NumOfTriangels());
  EXPECT_EQ(1, mesh.Generate()) << "the input is still there";
}

TEST(Triangulation, SurvivesBadInput) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const std::vector<std::vector<std::pair<double, double>>> cases = {
      {{nan, 0}, {1, nan}, {2, 2}, {0, 0}, {1, 0}, {0, 1}},
      {{0, 0}, {1, 0}, {0, 1}, {nan, nan}, {0.3, 0.3}},
      {{0, 0}, {inf, 0}, {0, -inf}, {1, 1}},
      {{1e308, 1e308}, {-1e308, -1e308}, {0, 1e308}, {5, 5}},
      {{0, 0}, {1e-320, 0}, {0, 1e-320}},
      {{7, 7}, {7, 7}, {7, 7}, {7, 7}}};
  for (const auto& points : cases) {
    CGeoCDT mesh;
    add(mesh, points, static_cast<long>(points.size()));
    for (const long i : {-1L, 0L, 2L, 99L}) mesh.Add_Edge(i, 1);
    const long outside[] = {-5, 1000};
    mesh.Input_Boundary(2, outside);
    EXPECT_EQ(1, mesh.Generate());
    for (const auto& t : mesh.Triangles()) {
      for (const double angle : t.angle) EXPECT_FALSE(std::isnan(angle));
    }
  }
}

TEST(Triangulation, OperationsBesideTheWay) {
  CGeoCDT mesh;
  add(mesh, {{0, 0}, {10, 0}, {5, 8}, {5, 3}, {5, -8}}, 0);
  mesh.Add_Edge(0, 1);
  mesh.Prepare();
  CGeoCDTAccess access{mesh};
  // Touching an end doesn't block.
  expect_equal({access.visible(2, 3), access.visible(2, 4), access.visible(2, 0)}, {1, 0, 1});
  EXPECT_TRUE(access.add_triangle(0, 1, 2));
  EXPECT_EQ(-1, access.find(1, 0)->first) << "one below the triangle's place";
  EXPECT_EQ(0, access.empty_circle(0));
  access.new_edge(4, 0);
  EXPECT_EQ(1, access.find(0, 4)->origin);
  EXPECT_TRUE(access.add_triangle(0, 1, 3) && access.add_triangle(1, 0, 4));
  expect_equal({access.find(0, 1)->first, access.find(0, 1)->second}, {0, 1});
  EXPECT_FALSE(access.add_triangle(0, 1, 4)) << "the edge has two triangles";
  EXPECT_EQ(3, mesh.NumOfTriangels());
  EXPECT_EQ(1, access.empty_circle(1)) << "vertex 4 isn't seen through the edge";
  // Off the circle, no such edge, and one.
  expect_equal(
      {access.encroaches(5, 6, 0, 1), access.encroaches(5, 1, 2, 3), access.encroaches(5, 5, 1, 0)},
      {0, 0, 1});
  expect_equal({access.find(0, 5)->b, access.find(5, 1)->b, access.find(0, 5)->first}, {5, 1, -1});
}

// The index of a ring's edges gives what the polygon gives, also within the tolerance of its edges.
TEST(PointInRing, EqualsThePolygon) {
  std::mt19937 engine(7);
  const auto random = [&](double low, double high) {
    return low + (high - low) * static_cast<double>(engine()) / 4294967296.0;
  };
  const double sizes[] = {1e-4, 1e-2, 1, 1000};
  for (int round = 0; round < 200; ++round) {
    const double size = sizes[round % 4], shift = round % 3 ? 0 : 1e5;
    const bool whole = round % 5 < 2;  // whole coordinates: levels and corners meet exactly
    CGeoPolygon ring;
    const auto coordinate = [&] {
      return shift + (whole ? static_cast<double>(engine() % 6) / 5 : random(0, 1)) * size;
    };
    for (int k = 3 + round % 23; k-- > 0;) {
      const double x = coordinate();
      ring.AddVertex({x, coordinate(), 0.0});
    }
    const PointInRing index(ring);
    for (int k = 0; k < 300; ++k) {
      double x = coordinate(), y = coordinate();
      const CGeoVertex& v = ring.Vertex(k % ring.NumOfVertices());
      const double near = 1e-5 * static_cast<double>(engine() % 5) - 2e-5;
      if (k % 4 == 0) y = v.y + (k % 8 ? near : 0);
      if (k % 6 == 0) x = v.x + near;
      ASSERT_EQ(ring.IsPointIn({x, y, 0.0}), index.contains(x, y)) << round << " " << x << " " << y;
    }
  }
}

}  // namespace
}  // namespace brindle
