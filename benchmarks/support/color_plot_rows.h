// The rows on colour plots: 100,000 triangles on a picture of 1600 x 1000 pixels. Include it in one
// benchmark program.
#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "brindle/geometry/coordinate_transform.h"
#include "brindle/mesh/chang98.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "tests/mesh/plain_field.h"

namespace brindle::color_plot_rows {

constexpr int kWidth = 1600, kHeight = 1000, kTriangles = 100000;

// The best of a few plots of a square mesh that fills the picture; the legend is in the time.
template <class Field, class Set>
double best_plot(float units, Set set) {
  double best = HUGE_VAL;
  Field field;
  const auto waves = [](float x, float y) { return std::sin(x * 0.9f) * std::cos(y * 0.7f); };
  testing::fill_square(field, static_cast<int>(std::sqrt(kTriangles / 2.0)), 10, waves);
  for (CChangNode& node : field.m_arrayNode) node.x *= 1.6f;
  set(field);
  CFCoor coor;
  coor.Init(CFPoint(0, 10 * units, 0), 100 / units, TRUE);
  CRect area(0, 0, kWidth, kHeight);
  for (int round = 0; round < 5; ++round) {
    RasterDevice device(kWidth, kHeight);
    CDC dc(device);
    const auto start = std::chrono::steady_clock::now();
    field.Draw_CaiSeTu(&dc, &area, &coor, 1, 1);
    best = std::min(
        best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    if (device.bitmap().at(kWidth / 2, kHeight / 2) == 0xffffffff) std::abort();
  }
  return best;
}

template <class Print>
void print_color_plots(Print print) {
  std::printf("colour plots, %d triangles on %d x %d pixels\n", kTriangles, kWidth, kHeight);
  print("CChang, smooth", best_plot<CChang>(1, [](CChang&) {}), "<= 400");
  print("CChang, 19 bands", best_plot<CChang>(1, [](CChang& f) { f.m_bLevel19 = 1; }), "<= 400");
  print("CChang, by range",
        best_plot<CChang>(1,
                          [](CChang& f) {
                            f.m_bUseRange = 1;
                            f.m_fRangeMin = -1;
                            f.m_fRangeMax = 1;
                          }),
        "<= 400");
  print("CChang, by ten mode ranges",
        best_plot<CChang>(1,
                          [](CChang& f) {
                            f.m_bUseModeRange = 1;
                            for (int k = 0; k < 10; ++k) {
                              const float low = -1 + 0.2f * static_cast<float>(k);
                              f.AddModeRange(low, low + 0.2f, k + 1);
                            }
                          }),
        "<= 400");
  print("CChang98, gradient triangles", best_plot<CChang98>(1000, [](CChang98&) {}), "<= 400");
}

}  // namespace brindle::color_plot_rows
