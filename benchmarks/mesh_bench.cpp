// The triangulation, measured against the plain method and CGAL in the same run.
//
//   bench_mesh [COUNT]    points of the smaller row, 10,000 without an argument; the larger has ten
//                         times as many
//
// The points are random in a square of 1000 by 1000 whose rim is cut into constraint edges, four
// times as many as the square root of the count. CGAL's Delaunay_triangulation_2 (exact predicates,
// inexact constructions) gets the same points one by one, in the same order, as a method must that
// keeps the order of triangles; its own sorting of the points beforehand is not used, and it
// neither clips nor lists edges. A number is the least of several rounds in which all sides take
// turns; the plain method, which needs seconds, has one.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <vector>

#ifdef BRINDLE_BENCH_CGAL
#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#endif

#include "benchmarks/support/child_run.h"
#include "benchmarks/support/quad_tree_rows.h"
#include "brindle/mesh/triangulation.h"
#include "tests/mesh/plain_triangulation.h"

namespace {

using brindle::CGeoCDT;
using brindle::benchmarks::seconds_now;
using brindle::testing::PlainTriangulation;

struct Point {
  double x, y;
};

struct Site {
  std::vector<Point> points;  // the ring comes first
  long ring = 0;
};

Site make_site(int count) {
  constexpr double kSize = 1000;
  Site site;
  const int steps = std::max(1, static_cast<int>(std::sqrt(count)));
  for (int side = 0; side < 4; ++side) {
    for (int i = 0; i < steps; ++i) {
      const double t = kSize * i / steps;
      const Point on_side[4] = {{t, 0}, {kSize, t}, {kSize - t, kSize}, {0, kSize - t}};
      site.points.push_back(on_side[side]);
    }
  }
  site.ring = static_cast<long>(site.points.size());
  std::mt19937_64 engine(5);
  const auto random = [&] { return static_cast<double>(engine() >> 11) * 0x1p-53 * kSize; };
  while (site.points.size() < static_cast<std::size_t>(count)) {
    const double x = random();
    site.points.push_back({x, random()});
  }
  return site;
}

std::unique_ptr<CGeoCDT> fill(const Site& site) {
  auto mesh = std::make_unique<CGeoCDT>();
  for (const Point& p : site.points) mesh->Add_Vertex(p.x, p.y);
  for (long i = 0; i < site.ring; ++i) {
    mesh->Add_Edge(i, (i + 1) % site.ring);
    mesh->Input_Boundary(1, &i);
  }
  return mesh;
}

double timed(const std::function<void()>& work) {
  const double start = seconds_now();
  work();
  return seconds_now() - start;
}

// Each on a fresh object: a mesh that is there would be continued.
double time_form(const Site& site) {
  const auto mesh = fill(site);
  mesh->Prepare();
  return timed([&] { mesh->Form_Delaunay_P(); });
}

double time_generate(const Site& site) {
  const auto mesh = fill(site);
  return timed([&] { mesh->Generate(); });
}

#ifdef BRINDLE_BENCH_CGAL
constexpr bool kHasCgal = true;
double time_cgal(const Site& site) {
  using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
  CGAL::Delaunay_triangulation_2<Kernel> mesh;
  return timed([&] {
    for (const Point& p : site.points) mesh.insert(Kernel::Point_2(p.x, p.y));
  });
}
#else
constexpr bool kHasCgal = false;
double time_cgal(const Site&) {
  return NAN;
}
#endif

struct PlainTimes {
  double insertion, clipping, edges;
  double all() const { return insertion + clipping + edges; }
};

// Runs the plain method once and sees that the mesh is the same.
bool time_plain(const Site& site, PlainTimes& times) {
  PlainTriangulation plain;
  for (const Point& p : site.points) plain.vertices.push_back({p.x, p.y, 0});
  for (long i = 0; i < site.ring; ++i) {
    plain.boundary.push_back(i);
    plain.add_edge(i, (i + 1) % site.ring);
  }
  plain.prepare();
  times.insertion = timed([&] { plain.insert_all(); });
  times.clipping = timed([&] { plain.clip(); });
  times.edges = timed([&] { plain.list_edges(); });
  const auto mesh = fill(site);
  mesh->Prepare();
  mesh->Form_Delaunay_P();
  bool same = mesh->Triangles().size() == plain.triangles.size();
  for (std::size_t t = 0; same && t < plain.triangles.size(); ++t) {
    same = std::equal(plain.triangles[t]->v, plain.triangles[t]->v + 3, mesh->Triangles()[t].v);
  }
  return same;
}

struct Times {
  double form = HUGE_VAL, generate = HUGE_VAL, cgal = HUGE_VAL;
};

Times measure(const Site& site, int rounds, bool with_generate) {
  Times best;
  for (int k = 0; k < rounds; ++k) {
    best.form = std::min(best.form, time_form(site));
    if (kHasCgal) best.cgal = std::min(best.cgal, time_cgal(site));
    if (with_generate) best.generate = std::min(best.generate, time_generate(site));
  }
  return best;
}

void print_time(const char* what, double seconds) {
  std::printf("  %-58s %11.2f ms\n", what, seconds * 1e3);
}

void print_ratio(const char* what, double ratio, const char* wanted) {
  std::printf("  %-58s %11.2f     %s\n", what, ratio, wanted);
}

bool print_triangulation(int count) {
  const Site small = make_site(count), large = make_site(10 * count);
  const Times few = measure(small, 9, true);
  const Times many = measure(large, 3, false);
  PlainTimes plain{};
  if (!time_plain(small, plain)) {
    std::fprintf(stderr, "the plain method's mesh differs\n");
    return false;
  }

  std::printf("%d points, %ld of them on the rim\n", count, small.ring);
  print_time("plain method: insertion", plain.insertion);
  print_time("plain method: insertion, clipping, list of edges", plain.all());
  if (kHasCgal) print_time("CGAL, one by one", few.cgal);
  print_time("Form_Delaunay_P", few.form);
  print_time("Generate, with splitting and both refinements", few.generate);
  print_ratio("plain method's insertion / Form_Delaunay_P", plain.insertion / few.form, ">= 100");
  print_ratio("plain method / Form_Delaunay_P", plain.all() / few.form, ">= 100");
  if (kHasCgal) print_ratio("Form_Delaunay_P / CGAL", few.form / few.cgal, "<= 3");
  print_ratio("Generate / Form_Delaunay_P", few.generate / few.form, "<= 10");

  std::printf("%d points, %ld of them on the rim\n", 10 * count, large.ring);
  if (kHasCgal) print_time("CGAL, one by one", many.cgal);
  print_time("Form_Delaunay_P", many.form);
  if (kHasCgal) print_ratio("Form_Delaunay_P / CGAL", many.form / many.cgal, "<= 1");
  print_ratio("cost for a point against the smaller row", many.form / few.form / 10, "<= 2");
  if (!kHasCgal) std::printf("CGAL (libcgal-dev) isn't installed: its rows are left out\n");
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 10000;
  if (count < 4) {
    std::fprintf(stderr, "usage: bench_mesh [COUNT]\n");
    return 2;
  }
  if (!print_triangulation(count)) return 1;
  // Searches in a million boxes, against another library's tree built by inserts: at most 4 times.
  int one = 1;
  benchmark::Initialize(&one, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
