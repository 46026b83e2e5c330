// CGeoCDT against the plain method: the same vertices, edges and triangles in the same order.
#include <gtest/gtest.h>

#include <functional>

#include "brindle/mesh/triangulation.h"
#include "tests/mesh/plain_triangulation.h"
#include "tests/support/random.h"

namespace brindle {
namespace {

using testing::PlainTriangulation;

struct Input {
  std::vector<std::pair<double, double>> points;
  std::vector<std::pair<long, long>> edges;
  std::vector<long> boundary;

  long add(double x, double y) {
    points.emplace_back(x, y);
    return static_cast<long>(points.size()) - 1;
  }
  // A closed ring of constraint edges through the points, the boundary too when asked for.
  void add_ring(const std::vector<std::pair<double, double>>& corners, bool is_boundary) {
    const long first = static_cast<long>(points.size()), n = static_cast<long>(corners.size());
    for (long i = 0; i < n; ++i) {
      add(corners[static_cast<std::size_t>(i)].first, corners[static_cast<std::size_t>(i)].second);
      edges.emplace_back(first + i, first + (i + 1) % n);
      if (is_boundary) boundary.push_back(first + i);
    }
  }
};

void add_random(Input& in, int n, double width, double height, unsigned seed) {
  Random random(seed);
  for (int i = 0; i < n; ++i) {
    const double x = random(0, width);
    in.add(x, random(0, height));
  }
}

// In a strip, when it is very flat, most triangles are degenerate: they accept no point and
// pile up to the limit.
Input random_points(int n, double size, unsigned seed, double flatness = 1) {
  Input in;
  add_random(in, n, size, size * flatness, seed);
  return in;
}

// A square whose rim is cut into constraint edges, with random points.
Input rimmed_square(int n, int rim, double size, unsigned seed) {
  Input in;
  std::vector<std::pair<double, double>> corners;
  const auto side = [&](double x, double y, double dx, double dy) {
    for (int i = 0; i < rim; ++i)
      corners.emplace_back(x + dx * i * size / rim, y + dy * i * size / rim);
  };
  side(0, 0, 1, 0);
  side(size, 0, 0, 1);
  side(size, size, -1, 0);
  side(0, size, 0, -1);
  in.add_ring(corners, true);
  add_random(in, n, size, size, seed);
  return in;
}

Input grid(int columns, int rows, double step, bool boundary) {
  Input in;
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < columns; ++c) in.add(c * step, r * step);
  }
  const long last = columns * rows - 1;
  if (boundary) in.boundary = {0, columns - 1, last, last - columns + 1};
  return in;
}

Input rings(int count, int n, bool centre) {
  Input in;
  for (int k = 1; k <= count; ++k) {
    for (int i = 0; i < n; ++i) {
      const double a = 6.283185307179586 * i / n;
      in.add(10 * k * std::cos(a), 10 * k * std::sin(a));
    }
  }
  if (centre) in.add(0, 0);
  return in;
}

Input slivers(int n, double height) {
  Input in;
  add_random(in, n, 1000, height, 5);
  in.add_ring({{0, 0}, {1000, 0}, {1000, height}, {0, height}}, true);
  return in;
}

Input duplicates() {
  Input in = rimmed_square(60, 4, 100, 3);
  const std::size_t n = in.points.size();
  Random random(4);
  for (int i = 0; i < 40; ++i) {
    const auto [x, y] =
        in.points[static_cast<std::size_t>(random.whole(0, static_cast<int>(n) - 1))];
    const double shift[3] = {0, 3e-6, -9e-6};
    in.add(x + shift[i % 3], y + shift[i % 2]);
  }
  return in;
}

Input points_on_constraints() {
  Input in = rimmed_square(80, 2, 100, 9);
  const long a = in.add(10, 10), b = in.add(90, 70), c = in.add(15, 85), d = in.add(85, 15);
  in.edges.insert(in.edges.end(), {{a, b}, {c, d}, {a, d}, {a, b}, {b, a}, {c, c}});
  for (int i = 1; i < 8; ++i) in.add(10 + 10 * i, 10 + 7.5 * i);  // on a b
  for (int i = 0; i < 20; ++i) in.add(5.0 * i, 0);                // on the rim
  in.add(50, 40);
  return in;
}

Input reflex(int n) {
  Input in;
  in.add_ring(
      {{0, 0}, {100, 0}, {100, 40}, {40, 40}, {40, 100}, {0, 100}, {0, 60}, {20, 50}, {0, 40}},
      true);
  add_random(in, n, 100, 100, 21);
  return in;
}

// Points at two scales that differ by 1e5.
Input clusters() {
  Input in = rimmed_square(120, 5, 1e5, 31);
  Random random(32);
  for (int k = 0; k < 5; ++k) {
    const double cx = random(1e4, 9e4), cy = random(1e4, 9e4);
    for (int i = 0; i < 60; ++i) {
      const double x = cx + random(-1, 1);
      in.add(x, cy + random(-1, 1));
    }
  }
  return in;
}

Input shifted(Input in, double dx, double dy) {
  for (auto& [x, y] : in.points) x += dx, y += dy;
  return in;
}

// Coarse coordinates: many points fall together, on common lines and circles.
Input coarse(int n, int cells, double step, unsigned seed) {
  Input in;
  Random random(seed);
  for (int i = 0; i < n; ++i) {
    const double x = random.whole(0, cells - 1) * step;
    in.add(x, random.whole(0, cells - 1) * step);
  }
  for (int i = 0; i < n / 4; ++i)
    in.edges.emplace_back(random.whole(0, n - 1), random.whole(0, n - 1));
  return in;
}

struct Case {
  const char* name;
  std::function<Input()> make;
  bool reaches_limit = false;
};

const Case kCases[] = {
    {"three points", [] { return random_points(3, 10, 1); }},
    {"random", [] { return random_points(500, 1000, 2); }},
    {"rimmed square", [] { return rimmed_square(300, 8, 1000, 3); }},
    {"rimmed square in metres", [] { return rimmed_square(200, 6, 10, 3); }},
    {"grid", [] { return grid(16, 16, 10, true); }},
    {"grid without boundary", [] { return grid(25, 9, 1, false); }},
    {"rings", [] { return rings(5, 40, true); }},
    {"one ring", [] { return rings(1, 64, false); }},
    {"slivers", [] { return slivers(200, 0.5); }},
    {"extreme slivers", [] { return slivers(150, 1e-3); }},
    {"duplicates", duplicates},
    {"points on constraints", points_on_constraints},
    {"reflex corners", [] { return reflex(150); }},
    {"clusters", clusters},
    {"random, shifted", [] { return shifted(rimmed_square(250, 6, 1000, 6), 1e6, -1e6); }},
    {"random in metres, shifted", [] { return shifted(rimmed_square(150, 4, 10, 6), 1e6, 1e6); }},
    {"grid, shifted", [] { return shifted(grid(15, 15, 2.5, true), 1e6, 1e6); }},
    {"slivers, shifted", [] { return shifted(slivers(120, 0.5), -1e6, 1e6); }},
    {"duplicates, shifted", [] { return shifted(duplicates(), 1e6, 1e6); }},
    {"far away", [] { return shifted(random_points(60, 100, 8), 1e9, 1e9); }},
    {"coarse", [] { return coarse(200, 10, 5, 41); }},
    {"coarse and small", [] { return coarse(150, 7, 0.01, 42); }},
    {"all equal", [] { return coarse(12, 1, 5, 43); }},
    {"within the tolerance", [] { return random_points(60, 0.3, 51); }},
    {"limit", [] { return random_points(60, 1, 7, 1e-3); }, true},
    {"limit late", [] { return random_points(150, 0.4, 7, 1e-3); }, true},
    {"huge", [] { return random_points(40, 1e80, 61); }},
};

PlainTriangulation plain_of(const Input& in) {
  PlainTriangulation plain;
  for (const auto& [x, y] : in.points) plain.vertices.push_back({x, y, 0});
  for (const auto& [a, b] : in.edges) plain.add_edge(a, b);
  plain.boundary = in.boundary;
  return plain;
}

void fill(CGeoCDT& fast, const Input& in) {
  for (const auto& [x, y] : in.points) fast.Add_Vertex(x, y);
  for (const auto& [a, b] : in.edges) fast.Add_Edge(a, b);
  fast.Input_Boundary(static_cast<long>(in.boundary.size()), in.boundary.data());
}

void expect_equal(const PlainTriangulation& plain, const CGeoCDT& fast) {
  ASSERT_EQ(plain.vertices.size(), fast.WorkingVertices().size());
  for (std::size_t i = 0; i < plain.vertices.size(); ++i) {
    const auto& p = plain.vertices[i];
    const auto& f = *fast.WorkingVertices()[i];
    ASSERT_TRUE(p.x == f.x && p.y == f.y && p.origin == f.origin) << "vertex " << i;
  }
  ASSERT_EQ(plain.triangles.size(), fast.Triangles().size());
  for (std::size_t i = 0; i < plain.triangles.size(); ++i) {
    for (int k = 0; k < 3; ++k) {
      ASSERT_EQ(plain.triangles[i]->v[k], fast.Triangles()[i].v[k]) << "triangle " << i;
      ASSERT_EQ(plain.triangles[i]->angle[k], fast.Triangles()[i].angle[k]) << "triangle " << i;
    }
  }
  ASSERT_EQ(plain.edges.size(), fast.WorkingEdges().size());
  for (std::size_t i = 0; i < plain.edges.size(); ++i) {
    const auto& p = *plain.edges[i];
    const auto& f = *fast.WorkingEdges()[i];
    ASSERT_TRUE(p.a == f.a && p.b == f.b && p.origin == f.origin && p.first == f.first &&
                p.second == f.second)
        << "edge " << i;
  }
}

TEST(TriangulationEquality, FormDelaunayAlone) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    const Input in = c.make();
    PlainTriangulation plain = plain_of(in);
    CGeoCDT fast;
    fill(fast, in);
    plain.prepare();
    fast.Prepare();
    EXPECT_TRUE(plain.form_delaunay());
    EXPECT_EQ(1, fast.Form_Delaunay_P());
    EXPECT_EQ(c.reaches_limit, plain.limit_reached);
    expect_equal(plain, fast);
  }
}

void expect_equal_meshes(const Input& in) {
  PlainTriangulation plain = plain_of(in);
  CGeoCDT fast;
  fill(fast, in);
  EXPECT_TRUE(plain.generate());
  EXPECT_EQ(1, fast.Generate());
  expect_equal(plain, fast);
}

TEST(TriangulationEquality, WholeGenerate) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    expect_equal_meshes(c.make());
  }
}

// Many small inputs reach more odd configurations than a few large ones.
TEST(TriangulationEquality, ManySmallInputs) {
  const double steps[] = {1e-3, 0.02, 0.3, 5, 1000};
  for (unsigned seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    const double step = steps[seed % 5];
    Input in = seed % 2 ? coarse(4 + static_cast<int>(seed % 37), 3 + static_cast<int>(seed % 9),
                                 step, seed)
                        : rimmed_square(static_cast<int>(seed % 41), 1 + static_cast<int>(seed % 4),
                                        10 * step, seed);
    if (seed % 3 == 0) in = shifted(in, 1e6, -1e5);
    expect_equal_meshes(in);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace brindle
