#include <gtest/gtest.h>

#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/progress_ctrl.h"

namespace brindle {
namespace {

TEST(Wnd, KeepsTextVisibilityAndEnabling) {
  CWnd window;
  window.SetWindowText(L"标题abc");
  CString text;
  window.GetWindowText(text);
  EXPECT_STREQ(text, L"标题abc");
  EXPECT_EQ(window.GetWindowTextLength(), 5);
  wchar_t buffer[4];
  EXPECT_EQ(window.GetWindowText(buffer, 4), 3);
  EXPECT_STREQ(buffer, L"标题a");
  EXPECT_EQ(window.GetWindowText(buffer, 0), 0);
  window.SetWindowText(nullptr);
  EXPECT_EQ(window.GetWindowTextLength(), 0);

  EXPECT_FALSE(window.IsWindowVisible());
  EXPECT_FALSE(window.ShowWindow(SW_SHOW));
  EXPECT_TRUE(window.IsWindowVisible());
  EXPECT_TRUE(window.ShowWindow(SW_HIDE));
  EXPECT_FALSE(window.IsWindowVisible());

  EXPECT_FALSE(window.EnableWindow(FALSE));
  EXPECT_FALSE(window.IsWindowEnabled());
  EXPECT_TRUE(window.EnableWindow());
  EXPECT_TRUE(window.IsWindowEnabled());
}

TEST(Edit, CountsLinesAndScrollsWithinThem) {
  CEdit edit;
  EXPECT_EQ(edit.GetLineCount(), 1);
  edit.SetWindowText(L"a\r\nb\r\n");
  EXPECT_EQ(edit.GetLineCount(), 3);
  edit.LineScroll(1);
  EXPECT_EQ(edit.GetFirstVisibleLine(), 1);
  edit.LineScroll(2147483647);
  EXPECT_EQ(edit.GetFirstVisibleLine(), 2);
  edit.LineScroll(-1);
  EXPECT_EQ(edit.GetFirstVisibleLine(), 1);
  edit.SetWindowText(L"c");
  EXPECT_EQ(edit.GetFirstVisibleLine(), 0);
}

TEST(ProgressCtrl, StaysInItsRange) {
  CProgressCtrl bar;
  EXPECT_EQ(bar.SetPos(150), 0);
  EXPECT_EQ(bar.GetPos(), 100);
  bar.SetRange(40, 20);
  int lower = 0, upper = 0;
  bar.GetRange(lower, upper);
  EXPECT_EQ(lower, 20);
  EXPECT_EQ(upper, 40);
  EXPECT_EQ(bar.GetPos(), 40);
  EXPECT_EQ(bar.SetPos(-1), 40);
  EXPECT_EQ(bar.GetPos(), 20);
  EXPECT_EQ(bar.SetStep(15), 10);
  EXPECT_EQ(bar.StepIt(), 20);
  EXPECT_EQ(bar.GetPos(), 35);
  EXPECT_EQ(bar.StepIt(), 35);
  EXPECT_EQ(bar.GetPos(), 20) << "past the end it starts again";
}

}  // namespace
}  // namespace brindle
