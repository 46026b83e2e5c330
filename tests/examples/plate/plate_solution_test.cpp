// The solution against textbook plates, and a slab with everything on it.
#include "examples/plate/plate_solution.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/support/recorded_messages.h"

namespace brindle::plate {
namespace {

PlateInput rectangle(double a, double b, double size, Edge edge) {
  PlateInput plate;
  plate.thickness_mm = 120;
  plate.modulus = 30000;
  plate.poisson = 0.3;
  plate.load = 10;
  plate.mesh_size = size;
  plate.outline = {{{0, 0}, {a, 0}, {a, b}, {0, b}}, {edge, edge, edge, edge}};
  return plate;
}

struct Solved {
  PlateMesh mesh;
  std::vector<NodeResult> results;

  explicit Solved(const PlateInput& plate) {
    EXPECT_TRUE(make_plate_mesh(plate, &mesh));
    results = solve_plate(plate, mesh);
    EXPECT_EQ(results.size(), mesh.nodes.size());
  }
  const NodeResult& nearest(Point p) const {
    size_t best = 0;
    const auto far = [&](size_t n) {
      return std::hypot(mesh.nodes[n].x - p.x, mesh.nodes[n].y - p.y);
    };
    for (size_t n = 1; n < results.size(); ++n) best = far(n) < far(best) ? n : best;
    return results.at(best);
  }
};

// Timoshenko and Woinowsky-Krieger, Theory of Plates and Shells, tables 8 and 35 (Poisson's ratio
// 0.3): w = alpha q a^4 / D, moments = beta q a^2, in the middle.
TEST(PlateSolution, AgreesWithTheTextbook) {
  struct Case {
    const char* name;
    double b;
    Edge edge;
    double alpha, beta_x, beta_y, edge_beta;
  };
  const Case cases[] = {
      {"simply supported square", 4, Edge::kSimple, 0.00406, 0.0479, 0.0479, 0},
      {"simply supported, b/a = 1.5", 6, Edge::kSimple, 0.00772, 0.0812, 0.0498, 0},
      {"simply supported, b/a = 2", 8, Edge::kSimple, 0.01013, 0.1017, 0.0464, 0},
      {"clamped square", 4, Edge::kFixed, 0.00126, 0.0231, 0.0231, -0.0513},
  };
  constexpr double a = 4;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const PlateInput plate = rectangle(a, c.b, 0.2, c.edge);
    const Solved solved(plate);
    const NodeResult& middle = solved.nearest({a / 2, c.b / 2});
    const double w = 1000 * plate.load * std::pow(a, 4) / plate.stiffness();
    const double m = plate.load * a * a;
    EXPECT_NEAR(middle.deflection_mm / w, c.alpha, 0.01 * c.alpha);
    EXPECT_NEAR(middle.mx / m, c.beta_x, 0.02 * c.beta_x);
    EXPECT_NEAR(middle.my / m, c.beta_y, 0.03 * c.beta_y);
    EXPECT_NEAR(solved.nearest({0, c.b / 2}).mx / m, c.edge_beta, 0.004);
  }
}

// Pure bending: a strip on two opposite walls deflects like a beam.
TEST(PlateSolution, StripIsABeam) {
  PlateInput plate = rectangle(5, 2, 0.2, Edge::kFree);
  plate.poisson = 0;
  plate.outline.edges[1] = plate.outline.edges[3] = Edge::kSimple;
  const Solved solved(plate);
  const NodeResult& middle = solved.nearest({2.5, 1});
  EXPECT_NEAR(middle.deflection_mm, 5000.0 / 384 * 10 * 625 / plate.stiffness(), 0.1);
  EXPECT_NEAR(middle.mx, 10 * 25 / 8.0, 0.3);
  EXPECT_NEAR(middle.my, 0, 0.3);
}

TEST(PlateSolution, FillsReflexCornersAndOpeningsAndHoldsColumns) {
  PlateInput plate = rectangle(9, 7, 0.4, Edge::kFree);
  plate.outline = {
      {{0, 0}, {9, 0}, {9, 4}, {6, 4}, {6, 7}, {0, 7}},
      {Edge::kSimple, Edge::kFree, Edge::kFree, Edge::kFree, Edge::kFixed, Edge::kSimple}};
  plate.openings = {{{{1.5, 4}, {1.5, 5.5}, {3, 5.5}, {3, 4}},
                     {Edge::kFree, Edge::kFree, Edge::kFree, Edge::kFree}}};
  plate.columns = {{{6, 4}, 0.4, 0.4}, {{9, 4}, 0.4, 0.4}, {{4.5, 3}, 0.5, 0.5}};
  for (int i = 0; i < 40; ++i) {  // the mesh checks itself
    plate.mesh_size = 0.25 + 0.0125 * i;
    PlateMesh mesh;
    EXPECT_TRUE(make_plate_mesh(plate, &mesh)) << plate.mesh_size;
  }
  plate.mesh_size = 0.4;
  const Solved solved(plate);
  for (const Point held : {Point{6, 4}, Point{9, 4}, Point{4.25, 2.75}}) {
    EXPECT_NEAR(solved.nearest(held).deflection_mm, 0, 1e-3);
  }
  EXPECT_NEAR(solved.nearest({0, 3}).deflection_mm, 0, 1e-3);
  EXPECT_GT(solved.nearest({2, 2}).deflection_mm, 0.5);
  EXPECT_LT(solved.nearest({4.5, 3}).mx, 0);
}

TEST(PlateSolution, TellsASlabWithoutSupport) {
  RecordedMessages recorded;
  const PlateInput plate = rectangle(4, 4, 1, Edge::kFree);
  PlateMesh mesh;
  ASSERT_TRUE(make_plate_mesh(plate, &mesh));
  EXPECT_TRUE(solve_plate(plate, mesh).empty());
  ASSERT_EQ(recorded.messages.size(), 1u);
}

}  // namespace
}  // namespace brindle::plate
