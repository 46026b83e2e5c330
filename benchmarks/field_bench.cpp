// Fields: contours beside another tracer's times, and the searches of a mesh, each with the figure
// to reach. Times are the best of a few rounds on one core.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "benchmarks/support/color_plot_rows.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/mesh/chang.h"
#include "brindle/platform/base/stream.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "tests/mesh/plain_field.h"

namespace {

using namespace brindle;
using namespace brindle::testing;

constexpr int kLevels = 20;

template <class F>
double timed(F f) {
  const auto start = std::chrono::steady_clock::now();
  f();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

template <class F>
double best_of(int rounds, F f) {
  double best = HUGE_VAL;
  for (int k = 0; k < rounds; ++k) best = std::min(best, f());
  return best;
}

void print(const char* what, double seconds, const char* wanted = "") {
  std::printf("  %-62s %10.2f ms    %s\n", what, seconds * 1e3, wanted);
}

void print_ratio(const char* what, double ratio, const char* wanted) {
  std::printf("  %-62s %10.2f       %s\n", what, ratio, wanted);
}

// Hills and hollows with heights from -1 to 1.
float hills(float x, float y) {
  return std::sin(x * 0.9f + 0.3f) * std::cos(y * 0.7f + 0.2f);
}

std::unique_ptr<CChang> make_field(int triangles) {
  auto field = std::make_unique<CChang>();
  fill_square(*field, static_cast<int>(std::sqrt(triangles / 2.0)), 10, hills);
  return field;
}

float level(int k) {
  return -0.95f + 0.1f * static_cast<float>(k);
}

// Another tracer's times for as many triangles and levels, seen once on a machine of this kind:
// warm, and what it takes to build its list of neighbours, where that was told apart.
struct Seen {
  int triangles;
  double warm, building;
};
constexpr Seen kSeenMatplotlib[] = {
    {20000, 0.0024, 0}, {200000, 0.023, 0}, {2000000, 0.223, 0.394}};

// All in one call, the triangles looked at once; value by value; with drawing.
struct ContourTimes {
  double together = HUGE_VAL, one_by_one = HUGE_VAL, drawn = HUGE_VAL;
  std::size_t points = 0;
};

ContourTimes time_contours(int triangles, int rounds) {
  ContourTimes best;
  const auto field = make_field(triangles);
  for (int k = 0; k < kLevels; ++k) field->AddDengGaoZhi(level(k), 0, 0.2f, 3);
  for (int round = 0; round < rounds; ++round) {
    best.together =
        std::min(best.together, timed([&] { field->Trace(static_cast<CBase_SGT*>(nullptr), 1); }));
    best.points = 0;
    best.one_by_one = std::min(
        best.one_by_one, timed([&] {
          for (int k = 0; k < kLevels; ++k) {
            field->TraceOne(level(k));
            for (const void* line : field->m_arrayDGX) {
              best.points += static_cast<std::size_t>(static_cast<const Line*>(line)->GetSize());
            }
          }
        }));
    const std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
    best.drawn = std::min(best.drawn, timed([&] { field->Trace(pen.get(), 1); }));
  }
  return best;
}

double time_plain_contours(int triangles) {
  const auto field = make_field(triangles);
  return timed([&] {
    for (int k = 0; k < kLevels; ++k) plain_trace(*field, level(k));
  });
}

void print_contours() {
  for (const Seen& seen : kSeenMatplotlib) {
    const ContourTimes ours = time_contours(seen.triangles, seen.triangles > 1000000 ? 5 : 9);
    std::printf("contours, %d levels, %d triangles, %zu points\n", kLevels, seen.triangles,
                ours.points);
    print("matplotlib, warm (seen)", seen.warm);
    if (seen.building > 0) print("matplotlib, building its neighbours (seen)", seen.building);
    print("Trace without a pen, index building included", ours.together);
    print("TraceOne value by value, index building included", ours.one_by_one);
    print("Trace with the lines and labels drawn", ours.drawn);
    if (seen.triangles == 20000) {
      const double plain = time_plain_contours(seen.triangles);
      print("plain method", plain);
      print_ratio("plain method / Trace", plain / ours.together, ">= 100");
      print_ratio("plain method / TraceOne", plain / ours.one_by_one, ">= 100");
    } else {
      const double theirs = seen.warm + seen.building;
      const char* const wanted = seen.building > 0 ? "<= 1.5" : "<= 2";
      print_ratio("Trace / matplotlib", ours.together / theirs, wanted);
      print_ratio("TraceOne / matplotlib", ours.one_by_one / theirs, wanted);
    }
  }
}

double time_adding(const CChang& mesh) {
  CChang field;
  const double seconds = timed([&] {
    for (const CChangTri& t : mesh.m_arrayTri) {
      CFPoint p[3];
      int k = 0;
      for (const std::int64_t number : {t.n1, t.n2, t.n3}) {
        const CChangNode& n = mesh.m_arrayNode[static_cast<INT_PTR>(number) - 1];
        p[k++] = {n.x, n.y, n.values[0]};
      }
      field.AddTri(p);
    }
  });
  if (field.m_arrayTri.GetSize() != mesh.m_arrayTri.GetSize()) std::abort();
  return seconds;
}

// `low` and `high` bound the points; a fresh field each time, so that its index is in the time.
double time_values(int triangles, float low, float high) {
  const auto field = make_field(triangles);
  std::mt19937 random(7);
  std::uniform_real_distribution<float> at(low, high);
  std::vector<float> places(200000);
  for (float& place : places) place = at(random);
  float sum = 0;
  const double seconds = timed([&] {
    for (std::size_t k = 0; k < places.size(); k += 2) {
      sum += field->Get_Value(places[k], places[k + 1]);
    }
  });
  if (std::isnan(sum)) std::abort();
  return seconds;
}

void print_searches() {
  const auto mesh = make_field(100000);
  std::printf("searches, 100,000 triangles\n");
  print("AddTri with its AddNode of all", best_of(5, [&] { return time_adding(*mesh); }), "<= 300");
  print("Get_Value of 100,000 points", best_of(5, [] { return time_values(100000, 0, 10); }),
        "<= 300");
  print("Get_Value of 100,000 points, most of them outside",
        best_of(5, [] { return time_values(100000, -10, 20); }), "<= 300");
  CFCoor coor;
  coor.m_Angle1 = 0.5f;
  coor.m_Angle2 = 0.6f;
  CPtrArray order;
  print("SortTriByDeep",
        best_of(5, [&] { return timed([&] { mesh->SortTriByDeep(order, &coor); }); }), "<= 100");
}

void print_file() {
  const auto field = make_field(200000);
  const std::wstring path = from_path("/tmp/brindle_bench_" + std::to_string(std::rand()) + ".chg");
  std::printf("file of 100,000 nodes, 200,000 triangles\n");
  print("SaveData", best_of(3, [&] { return timed([&] { field->SaveData(path.c_str()); }); }));
  print("LoadData",
        best_of(5,
                [&] {
                  CChang copy;
                  const double seconds = timed([&] { copy.LoadData(path.c_str()); });
                  if (copy.m_arrayTri.GetSize() != field->m_arrayTri.GetSize()) std::abort();
                  return seconds;
                }),
        "<= 300");
  _wremove(path.c_str());
}

}  // namespace

int main() {
  print_contours();
  print_searches();
  print_file();
  color_plot_rows::print_color_plots(print);
}
