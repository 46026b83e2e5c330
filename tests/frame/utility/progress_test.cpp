#include "brindle/frame/utility/progress.h"

#include <gtest/gtest.h>

#include <thread>

#include "brindle/frame/utility/speed_bench.h"
#include "brindle/platform/window/progress_ctrl.h"

namespace brindle {
namespace {

TEST(Progress, BarIsClamped) {
  Show_JsProgress(50);  // without a bar
  CProgressCtrl bar;
  g_pJsProgress = &bar;
  const int cases[][2] = {{0, 1}, {-7, 1}, {1, 1}, {42, 42}, {100, 100}, {500, 100}};
  for (const auto& [percent, position] : cases) {
    Show_JsProgress(percent);
    EXPECT_EQ(bar.GetPos(), position) << percent;
  }
  g_pJsProgress = nullptr;
}

TEST(SpeedBench, SumsItsSpans) {
  using namespace std::chrono_literals;
  EXPECT_STREQ(CSpeedBench::time_text(L"x", 25h + 2min + 3s + 45ms), L"x 25时2分3.045秒\t");
  CSpeedBench bench;
  for (int span = 1; span <= 2; ++span) {
    bench.Start();
    std::this_thread::sleep_for(12ms);
    EXPECT_GE(bench.Run(), 12.0 * span) << "counts while it runs";
    bench.End();
  }
  const double measured = bench.Run();
  std::this_thread::sleep_for(5ms);
  EXPECT_EQ(bench.Run(), measured) << "stands still between the spans";
}

}  // namespace
}  // namespace brindle
