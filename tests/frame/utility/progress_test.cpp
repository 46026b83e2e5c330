#include "brindle/frame/utility/progress.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "brindle/frame/utility/speed_bench.h"
#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/progress_ctrl.h"
#include "tests/support/recorded_messages.h"

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

TEST(Progress, InformationBoxGrowsByLinesAndScrollsToTheLast) {
  Show_JsInfo(L"x");  // without a box
  CEdit box;
  g_pJsInfo = &box;
  Show_JsInfo(L"第一");
  Show_JsInfo(L"");
  Show_JsInfo(L"third");
  CString text;
  box.GetWindowText(text);
  EXPECT_STREQ(text, L"第一\r\n\r\nthird");
  EXPECT_EQ(box.GetFirstVisibleLine(), 2);
  g_pJsInfo = nullptr;
}

TEST(SpeedBench, TimeText) {
  using namespace std::chrono_literals;
  EXPECT_STREQ(CSpeedBench::time_text(L"网格", 0ms), L"网格 0时0分0.000秒\t");
  EXPECT_STREQ(CSpeedBench::time_text(nullptr, 59999ms), L" 0时0分59.999秒\t");
  EXPECT_STREQ(CSpeedBench::time_text(L"x", 25h + 2min + 3s + 45ms), L"x 25时2分3.045秒\t");
}

TEST(SpeedBench, SumsItsSpans) {
  using namespace std::chrono_literals;
  CSpeedBench bench;
  bench.End();
  EXPECT_EQ(bench.Run(), 0.0);
  for (int span = 1; span <= 2; ++span) {
    bench.Start();
    std::this_thread::sleep_for(12ms);
    EXPECT_GE(bench.Run(), 12.0 * span) << "counts while it runs";
    bench.End();
  }
  const double measured = bench.Run();
  std::this_thread::sleep_for(5ms);
  EXPECT_EQ(bench.Run(), measured) << "stands still between the spans";

  RecordedMessages recorded;
  bench.full_time_show(L"t");
  ASSERT_EQ(recorded.messages.size(), 1u);
  EXPECT_EQ(recorded.messages[0].code, 0);
  EXPECT_EQ(CString(recorded.messages[0].text),
            CSpeedBench::time_text(L"t", std::chrono::milliseconds(static_cast<int>(measured))));
}

}  // namespace
}  // namespace brindle
