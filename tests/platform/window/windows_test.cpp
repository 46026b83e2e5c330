#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/window_dc.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/window_peer.h"
#include "brindle/platform/window/window_picture.h"

namespace brindle {
namespace {

// Writes down what reaches it.
class Recorder : public CWnd {
 public:
  explicit Recorder(std::vector<std::string>& log, std::string name = {})
      : log_(log), name_(std::move(name)) {}
  BOOL make(CWnd* parent, const CRect& rect, DWORD style = 0, UINT id = 0) {
    return CreateEx(0, nullptr, nullptr, WS_VISIBLE | (parent ? WS_CHILD : 0) | style, rect, parent,
                    id);
  }
  CRect painted;
  std::function<void()> on_kill_focus, on_timer;

 protected:
  void note(const std::string& text) { log_.push_back(name_.empty() ? text : name_ + " " + text); }
  void OnSetFocus(CWnd*) override { note("focus"); }
  void OnKillFocus(CWnd*) override {
    note("unfocus");
    if (on_kill_focus) on_kill_focus();
  }
  void OnLButtonDown(UINT flags, CPoint at) override {
    note("down " + std::to_string(flags) + " " + std::to_string(at.x) + "," + std::to_string(at.y));
  }
  void OnMouseMove(UINT, CPoint at) override {
    note("move " + std::to_string(at.x) + "," + std::to_string(at.y));
  }
  void OnMouseLeave() override { note("leave"); }
  void OnKeyDown(UINT key, UINT, UINT) override { note("key " + std::to_string(key)); }
  void OnChar(UINT c, UINT, UINT) override { note("char " + std::to_string(c)); }
  void OnVScroll(UINT code, UINT position, CWnd*) override {
    note("vscroll " + std::to_string(code) + " " + std::to_string(position));
  }
  BOOL OnMouseWheel(UINT flags, short delta, CPoint at) override {
    note("wheel " + std::to_string(delta));
    return CWnd::OnMouseWheel(flags, delta, at);
  }
  void OnTimer(UINT_PTR id) override {
    note("timer " + std::to_string(id));
    if (on_timer) on_timer();
  }
  void OnDestroy() override { note("destroy"); }
  void OnSize(UINT, int cx, int cy) override {
    note("size " + std::to_string(cx) + "x" + std::to_string(cy));
  }
  void OnPaint() override {
    CPaintDC dc(this);
    painted = dc.m_ps.rcPaint;
    dc.FillSolidRect(0, 0, 1000, 1000, RGB(200, 0, 0));
  }
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
    note("command " + std::to_string(LOWORD(wParam)) + "/" + std::to_string(HIWORD(wParam)));
    return CWnd::OnCommand(wParam, lParam);
  }

 private:
  std::vector<std::string>& log_;
  std::string name_;
};

using Log = std::vector<std::string>;

struct Windows : testing::Test {
  Log log;
  Recorder top{log, "top"}, child{log, "child"};
  void SetUp() override {
    ASSERT_TRUE(top.make(nullptr, CRect(100, 50, 300, 200)));
    ASSERT_TRUE(child.make(&top, CRect(20, 10, 120, 60), WS_BORDER, 7));
    log.clear();
  }
  void TearDown() override { window_system_is_clean(); }
  void window_system_is_clean() {
    child.DestroyWindow();
    top.DestroyWindow();
    EXPECT_EQ(CWnd::GetFocus(), nullptr);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
  }
  Log take() { return std::exchange(log, {}); }
};

TEST_F(Windows, MouseGoesToTheChildUnderItInItsOwnPixels) {
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, CPoint(26, 17));
  EXPECT_EQ(take(), Log{"child down 5 5,6"});  // the border takes one pixel
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(20, 10));
  EXPECT_EQ(take(), Log{});  // on the border
  route_mouse(top, WM_MOUSEMOVE, 0, CPoint(5, 5));
  EXPECT_EQ(take(), (Log{"child leave", "top move 5,5"}));
  child.SetCapture();
  route_mouse(top, WM_MOUSEMOVE, 0, CPoint(5, 5));
  EXPECT_EQ(take(), (Log{"top leave", "child move -16,-6"}));
  ReleaseCapture();
  child.EnableWindow(FALSE);
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(26, 17));
  EXPECT_EQ(take(), (Log{"child leave", "top down 1 26,17"}));
  CPoint at;
  GetCursorPos(&at);
  EXPECT_EQ(at, CPoint(126, 67));
}

TEST_F(Windows, FocusMovesWithNoticesAndLeavesAHiddenWindow) {
  EXPECT_EQ(child.SetFocus(), nullptr);
  route_key_press(top, 'A');
  EXPECT_EQ(take(), (Log{"child focus", "child key 65", "child char 97"}));
  child.ShowWindow(SW_HIDE);
  EXPECT_EQ(take(), (Log{"child unfocus", "top focus"}));
  child.ShowWindow(SW_SHOW);
  child.SetFocus();
  take();
  // A handler that hides the window meanwhile doesn't lead the focus astray.
  child.on_kill_focus = [&] { child.ShowWindow(SW_HIDE); };
  top.SetFocus();
  EXPECT_EQ(CWnd::GetFocus(), &top);
  EXPECT_EQ(take(), (Log{"child unfocus", "top focus"}));
  child.ShowWindow(SW_SHOW);
  child.on_kill_focus = nullptr;
  child.SetFocus();
  route_activate(top, false);
  EXPECT_EQ(CWnd::GetFocus(), nullptr);
  route_activate(top, true);
  EXPECT_EQ(CWnd::GetFocus(), &child);
  EXPECT_FALSE(child.EnableWindow(FALSE));
  EXPECT_EQ(CWnd::GetFocus(), nullptr);
  EXPECT_EQ(child.SetFocus(), nullptr);
  EXPECT_EQ(CWnd::GetFocus(), nullptr);
}

TEST_F(Windows, CommandsFindHandlersAndUnhandledWheelsTheParent) {
  int pressed = 0;
  top.on_command(40, [&] { ++pressed; });
  top.on_control(5, 7, [&] { pressed += 10; });
  top.SendMessage(WM_COMMAND, 40);
  top.SendMessage(WM_COMMAND, MAKEWPARAM(7, 5), reinterpret_cast<LPARAM>(child.m_hWnd));
  EXPECT_EQ(pressed, 11);
  take();
  route_wheel(top, -120, 0, CPoint(30, 20));
  EXPECT_EQ(take(), (Log{"child wheel -120", "top wheel -120"}));
}

TEST_F(Windows, PostedMessagesWaitAndDieWithTheirWindow) {
  top.on_message(WM_USER + 1, [&](WPARAM w, LPARAM) {
    log.push_back("user " + std::to_string(w));
    if (w < 3) top.PostMessage(WM_USER + 1, w + 1);
    return 0;
  });
  EXPECT_TRUE(top.PostMessage(WM_USER + 1, 1));
  EXPECT_TRUE(child.PostMessage(WM_COMMAND, 9));
  EXPECT_EQ(take(), Log{});
  child.DestroyWindow();
  EXPECT_EQ(take(), Log{"child destroy"});
  EXPECT_EQ(dispatch_posted_messages(), 3);
  EXPECT_EQ(take(), (Log{"user 1", "user 2", "user 3"}));
  EXPECT_FALSE(child.PostMessage(WM_COMMAND, 9));
  // Posting for ever holds nobody for ever.
  top.on_message(WM_USER + 2,
                 [&](WPARAM, LPARAM) { return LRESULT{top.PostMessage(WM_USER + 2)}; });
  top.PostMessage(WM_USER + 2);
  EXPECT_EQ(dispatch_posted_messages(), 10000);
}

TEST_F(Windows, TimersGoOffByTheClockInTheirOrder) {
  MemoryWindowBackend& clock = memory_window_backend();
  top.SetTimer(1, 100);
  child.SetTimer(2, 30);
  int calls = 0;
  top.SetTimer(3, 50, [&](CWnd&, UINT_PTR) { ++calls; });
  clock.advance(29);
  EXPECT_EQ(take(), Log{});
  clock.advance(71);
  EXPECT_EQ(take(), (Log{"child timer 2", "child timer 2", "child timer 2", "top timer 1"}));
  EXPECT_EQ(calls, 2);
  child.on_timer = [&] { child.KillTimer(2); };
  clock.advance(60);
  EXPECT_EQ(take(), Log{"child timer 2"});
  EXPECT_TRUE(top.KillTimer(1));
  EXPECT_FALSE(top.KillTimer(1));
  EXPECT_TRUE(top.KillTimer(3));
}

TEST_F(Windows, BarsComeAndGoWithTheirRangeAndSendWhatTheMouseDoes) {
  child.SetScrollRange(SB_VERT, 0, 30);
  CRect client;
  child.GetClientRect(client);
  EXPECT_EQ(client, CRect(0, 0, 81, 48));
  EXPECT_EQ(take(), Log{"child size 81x48"});
  EXPECT_EQ(child.SetScrollPos(SB_VERT, 99), 0);
  EXPECT_EQ(child.GetScrollPos(SB_VERT), 30);
  SCROLLINFO info;
  info.fMask = SIF_PAGE;
  info.nPage = 11;
  child.SetScrollInfo(SB_VERT, &info);
  EXPECT_EQ(child.GetScrollPos(SB_VERT), 20);  // the last page begins there
  take();
  const CPoint bar(20 + 1 + 90, 10 + 1);
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, bar + CSize(0, 3));
  route_mouse(top, WM_LBUTTONUP, 0, bar + CSize(0, 3));
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, bar + CSize(0, 45));
  route_mouse(top, WM_LBUTTONUP, 0, bar + CSize(0, 45));
  EXPECT_EQ(take(), (Log{"child vscroll 0 0", "child vscroll 8 0", "child vscroll 1 0",
                         "child vscroll 8 0"}));
  // The thumb, at the end, is dragged to the start.
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, bar + CSize(0, 28));
  route_mouse(top, WM_MOUSEMOVE, MK_LBUTTON, bar + CSize(0, -40));
  route_mouse(top, WM_LBUTTONUP, 0, bar + CSize(0, -40));
  EXPECT_EQ(take(), (Log{"child vscroll 5 0", "child vscroll 4 0", "child vscroll 8 0"}));
  child.SetScrollRange(SB_VERT, 0, 0);
  EXPECT_EQ(take(), Log{"child size 98x48"});
}

TEST_F(Windows, HeldBarsScrollOnWhileTheMouseStaysThere) {
  child.SetScrollRange(SB_VERT, 0, 30);
  take();
  const CPoint arrow(20 + 1 + 90, 10 + 1 + 45);
  MemoryWindowBackend& backend = memory_window_backend();
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, arrow);
  backend.advance(399);
  EXPECT_EQ(take(), Log{"child vscroll 1 0"});
  backend.advance(1 + 100);
  EXPECT_EQ(take(), Log(3, "child vscroll 1 0"));
  route_mouse(top, WM_MOUSEMOVE, MK_LBUTTON, arrow - CSize(30, 0));
  backend.advance(200);
  EXPECT_EQ(take(), Log());
  route_mouse(top, WM_MOUSEMOVE, MK_LBUTTON, arrow);
  backend.advance(50);
  route_mouse(top, WM_LBUTTONUP, 0, arrow);
  backend.advance(1000);
  EXPECT_EQ(take(), (Log{"child vscroll 1 0", "child vscroll 8 0"}));
  // It may end in the middle.
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, arrow);
  child.DestroyWindow();
  backend.advance(1000);
  route_mouse(top, WM_LBUTTONUP, 0, arrow);
}

TEST_F(Windows, PaintsWhatIsInvalidAndKeepsTheRest) {
  EXPECT_EQ(color_of(window_picture(top).at(1, 1)), RGB(200, 0, 0));
  EXPECT_EQ(top.painted, CRect(0, 0, 200, 150));
  {
    CClientDC dc(&child);
    dc.FillSolidRect(2, 3, 10, 10, RGB(0, 0, 250));
    dc.FillSolidRect(-50, -50, 60, 1000, RGB(0, 0, 250));
  }
  RasterBitmap picture = window_picture(top);
  EXPECT_EQ(color_of(picture.at(21, 30)), RGB(0, 0, 250));
  EXPECT_EQ(color_of(picture.at(20, 30)), RGB(160, 160, 160));  // the border
  EXPECT_EQ(color_of(picture.at(19, 30)), RGB(200, 0, 0));      // the parent, not drawn on
  child.InvalidateRect(CRect(4, 4, 6, 6));
  child.InvalidateRect(CRect(8, 4, 10, 7));
  child.UpdateWindow();
  EXPECT_EQ(child.painted, CRect(4, 4, 10, 7));
  picture = window_picture(top);
  EXPECT_EQ(color_of(picture.at(21 + 5, 11 + 5)), RGB(200, 0, 0));
  EXPECT_EQ(color_of(picture.at(21 + 7, 11 + 5)), RGB(0, 0, 250));  // between the two
  child.ScrollWindow(0, 20);
  child.UpdateWindow();
  EXPECT_EQ(child.painted, CRect(0, 0, 98, 20));
  EXPECT_EQ(color_of(window_picture(top).at(21 + 7, 11 + 25)), RGB(0, 0, 250));
  child.ShowWindow(SW_HIDE);
  EXPECT_EQ(color_of(window_picture(top).at(30, 30)), RGB(200, 0, 0));
}

TEST_F(Windows, CoordinatesAndOrderOfChildren) {
  CPoint at(0, 0);
  child.ClientToScreen(&at);
  EXPECT_EQ(at, CPoint(121, 61));
  CRect frame;
  child.GetWindowRect(frame);
  EXPECT_EQ(frame, CRect(120, 60, 220, 110));
  Recorder second(log, "second");
  second.make(&top, CRect(20, 10, 120, 60), 0, 8);
  EXPECT_EQ(top.GetDlgItem(8), &second);
  EXPECT_EQ(CWnd::WindowFromPoint(CPoint(150, 70)), &child);
  second.BringWindowToTop();
  EXPECT_EQ(CWnd::WindowFromPoint(CPoint(150, 70)), &second);
  EXPECT_EQ(second.GetNextWindow(), &child);
  top.ShowWindow(SW_HIDE);
  EXPECT_FALSE(second.IsWindowVisible());
}

TEST(WindowLife, AWindowMayDieInItsOwnHandlers) {
  struct Fleeting : CWnd {
    explicit Fleeting(int& gone) : gone_(gone) {}
    ~Fleeting() override { ++gone_; }
    void PostNcDestroy() override { delete this; }
    void OnLButtonDown(UINT, CPoint) override { DestroyWindow(); }
    int& gone_;
  };
  int gone = 0;
  CWnd top;
  top.CreateEx(0, nullptr, L"t", WS_VISIBLE, CRect(0, 0, 50, 50), nullptr, 0);
  auto* child = new Fleeting(gone);
  child->Create(nullptr, nullptr, WS_VISIBLE, CRect(0, 0, 20, 20), &top, 1);
  const HWND handle = child->m_hWnd;
  child->SetFocus();
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(5, 5));
  EXPECT_EQ(gone, 1);
  EXPECT_FALSE(IsWindow(handle));
  EXPECT_EQ(CWnd::GetFocus(), &top);
  // Children go before their parent, posted messages with them.
  auto* other = new Fleeting(gone);
  other->Create(nullptr, nullptr, WS_VISIBLE, CRect(0, 0, 20, 20), &top, 1);
  other->PostMessage(WM_LBUTTONDOWN);
  top.DestroyWindow();
  EXPECT_EQ(gone, 2);
  EXPECT_EQ(dispatch_posted_messages(), 0);
}

}  // namespace
}  // namespace brindle
