// What the desktop gives to windows: colours, font, fine screens, menu bars.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/window/button.h"
#include "brindle/platform/window/combo_box.h"
#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/system_look.h"
#include "brindle/platform/window/window_dc.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/window_peer.h"
#include "brindle/platform/window/window_picture.h"

namespace brindle {
namespace {

// Puts the colours and the font back.
struct Look : testing::Test {
  std::vector<SystemColor> colors;
  LOGFONT font = static_cast<CFont*>(stock_object(DEFAULT_GUI_FONT))->data();
  Look() {
    for (int i = 0; i <= COLOR_MENUBAR; ++i) colors.push_back({i, GetSysColor(i)});
  }
  ~Look() override {
    set_system_colors(colors);
    set_system_font(font);
  }
};

struct Frame : CWnd {
  std::vector<UINT> told;
  explicit Frame(DWORD style = 0) {
    CreateEx(0, nullptr, L"f", WS_VISIBLE | style, CRect(10, 20, 210, 120), nullptr, 0);
  }
  ~Frame() override { DestroyWindow(); }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    told.push_back(message);
    return CWnd::WindowProc(message, wParam, lParam);
  }
  int count(UINT message) const {
    return static_cast<int>(std::count(told.begin(), told.end(), message));
  }
};

TEST_F(Look, ColoursReachOpenWindowsOnce) {
  Frame frame;
  CButton button;
  button.Create(L"", WS_VISIBLE, CRect(0, 0, 50, 30), &frame, 1);
  EXPECT_EQ(color_of(window_picture(frame).at(25, 15)), GetSysColor(COLOR_BTNFACE));
  for (int i = 0; i < 2; ++i)
    set_system_colors({{COLOR_BTNFACE, RGB(50, 51, 52)}, {COLOR_BTNTEXT, RGB(250, 250, 250)}});
  EXPECT_EQ(color_of(window_picture(frame).at(25, 15)), RGB(50, 51, 52));
  EXPECT_EQ(frame.count(WM_SYSCOLORCHANGE), 1);
}

TEST_F(Look, FontChangesTheHeightOfFieldsThatHaveNoneOfTheirOwn) {
  Frame frame;
  CFont own;
  own.CreatePointFont(90, L"宋体");
  CComboBox box, fixed;
  box.Create(WS_VISIBLE | CBS_DROPDOWNLIST, CRect(0, 0, 80, 100), &frame, 1);
  fixed.Create(WS_VISIBLE | CBS_DROPDOWNLIST, CRect(0, 50, 80, 150), &frame, 2);
  fixed.SetFont(&own);
  CRect before, before_fixed, after;
  box.GetWindowRect(before);
  fixed.GetWindowRect(before_fixed);
  LOGFONT larger = font;
  larger.lfHeight = font.lfHeight * 2;
  set_system_font(larger);
  EXPECT_EQ(frame.count(WM_SETTINGCHANGE), 1);
  box.GetWindowRect(after);
  EXPECT_GT(after.Height(), before.Height());
  fixed.GetWindowRect(after);
  EXPECT_EQ(after, before_fixed);
}

TEST_F(Look, TextIsTurnedOnlyWhereItCouldNotBeRead) {
  const struct {
    COLORREF text, background, shown;
  } cases[] = {
      {0x000000, 0xF0F0F0, 0x000000}, {0x808080, 0xF0F0F0, 0x808080},
      {0x646464, 0xC0C0C0, 0x646464}, {0x808080, 0x353535, 0x808080},
      {0x000000, 0x353535, 0xFFFFFF}, {0x646464, 0x353535, 0x9B9B9B},
      {0xFFFFFF, 0xF0F0F0, 0x000000}, {0x404040, 0x404040, 0xBFBFBF},
  };
  for (const auto& test : cases)
    EXPECT_EQ(readable_color(test.text, test.background), test.shown) << std::hex << test.text;
  for (int grey = 0; grey < 256; ++grey)
    EXPECT_NE(readable_color(RGB(grey, grey, grey), RGB(grey, grey, grey)), RGB(grey, grey, grey));
}

TEST(MenuBar, TakesPlaceAboveTheClientAndSendsCommands) {
  CMenu menu;
  menu.CreateMenu();
  CMenu* file = menu.append_popup(L"&File");
  file->AppendMenu(MF_STRING, 11, L"Open");
  menu.AppendMenu(MF_STRING, 12, L"Go");
  menu.AppendMenu(MF_GRAYED, 13, L"Not now");
  Frame frame;
  std::vector<UINT> commands;
  for (const UINT id : {11u, 12u, 13u}) frame.on_command(id, [&, id] { commands.push_back(id); });
  CRect without, with;
  frame.GetClientRect(without);
  ASSERT_TRUE(frame.SetMenu(&menu));
  frame.GetClientRect(with);
  const int bar = without.Height() - with.Height();
  EXPECT_GE(bar, 20);
  CPoint corner;
  frame.ClientToScreen(&corner);
  EXPECT_EQ(corner, CPoint(10, 20 + bar));
  EXPECT_EQ(color_of(window_picture(frame).at(199, bar - 1)), GetSysColor(COLOR_MENUBAR));

  CMenu* asked = nullptr;
  memory_window_backend().menu_answer = [&](CMenu& shown) { return asked = &shown, 11u; };
  for (int x = 0; x < 200; x += 4) route_mouse(frame, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(x, 5));
  memory_window_backend().menu_answer = nullptr;
  EXPECT_EQ(asked, file);
  EXPECT_EQ(frame.count(WM_INITMENUPOPUP), std::count(commands.begin(), commands.end(), 11u));
  EXPECT_GT(std::count(commands.begin(), commands.end(), 12u), 3);
  EXPECT_EQ(std::count(commands.begin(), commands.end(), 13u), 0);
  EXPECT_EQ(frame.count(WM_LBUTTONDOWN), 0);
  frame.SetMenu(nullptr);
  frame.GetClientRect(with);
  EXPECT_EQ(with, without);
}

// Windows on a screen of so many pixels a unit.
class FineBackend : public MemoryWindowBackend {
 public:
  explicit FineBackend(double scale) : scale_(scale), before_(set_window_backend(this)) {}
  ~FineBackend() override { set_window_backend(before_); }
  std::unique_ptr<WindowPeer> make_peer(CWnd& window) override {
    struct Peer : WindowPeer {
      std::unique_ptr<WindowPeer> plain;
      const double* ratio;
      void set_title(const wchar_t*) override {}
      void set_visible(bool, bool) override {}
      void set_enabled(bool) override {}
      void set_bounds(const CRect&) override {}
      void update(const CRect&) override {}
      void flush() override {}
      void activate() override {}
      void set_capture(bool) override {}
      void set_cursor(HCURSOR) override {}
      double scale() const override { return *ratio; }
    };
    auto peer = std::make_unique<Peer>();
    peer->plain = MemoryWindowBackend::make_peer(window);
    peer->ratio = &scale_;
    return peer;
  }
  double scale() override { return scale_; }
  double scale_;

 private:
  WindowBackend* before_;
};

// Lines, boxes and a memory bitmap, all in units, moved down by `shift`.
struct Painter : CWnd {
  int shift = 0, paints = 0;
  void OnPaint() override {
    ++paints;
    CPaintDC dc(this);
    CRect client;
    GetClientRect(client);
    dc.FillSolidRect(client, RGB(255, 255, 255));
    CPen pen(PS_SOLID, 1, RGB(0, 0, 200));
    CPen* old = dc.SelectObject(&pen);
    for (int y = shift % 7 - 7; y < client.bottom; y += 7) {
      dc.FillSolidRect(3, y, 11, 3, RGB(0, 150, 0));
      dc.MoveTo(0, y + 4);
      dc.LineTo(client.right, y + 4);
    }
    dc.Rectangle(20, 8, 31, 17);
    CDC memory;
    memory.CreateCompatibleDC(&dc);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&dc, 9, 9);
    memory.SelectObject(&bitmap);
    memory.FillSolidRect(0, 0, 9, 9, RGB(9, 9, 9));
    memory.FillSolidRect(1, 1, 3, 3, RGB(200, 0, 0));
    dc.BitBlt(40, 12, 9, 9, &memory, 0, 0, SRCCOPY);
    BITMAP size;
    bitmap.GetBitmap(&size);
    EXPECT_EQ(CSize(size.bmWidth, size.bmHeight), CSize(9, 9));
    dc.SelectObject(old);
  }
};

struct Scene {
  explicit Scene(double scale) : backend(scale) {
    top.CreateEx(0, nullptr, L"t", WS_VISIBLE, CRect(0, 0, 100, 60), nullptr, 0);
    inner.CreateEx(0, nullptr, L"i", WS_VISIBLE | WS_CHILD | WS_BORDER, CRect(33, 25, 90, 55), &top,
                   1);
    inner.SetScrollRange(SB_VERT, 0, 5);
  }
  ~Scene() { top.DestroyWindow(); }
  FineBackend backend;
  Painter top, inner;
};

TEST(FineScreen, EachUnitCoversItsPixels) {
  RasterBitmap plain;
  {
    Scene scene(1);
    plain = window_picture(scene.top);
  }
  for (const double scale : {1.25, 1.5, 2.0, 3.0}) {
    Scene scene(scale);
    const RasterBitmap fine = window_picture(scene.top);
    const PixelGrid& grid = fine.grid();
    ASSERT_EQ(fine.width(), static_cast<int>(plain.width() * scale));
    int differing = 0;
    for (int y = 0; y < plain.height(); ++y)
      for (int x = 0; x < plain.width(); ++x)
        for (int row = grid.y(y); row < grid.y(y + 1); ++row)
          for (int column = grid.x(x); column < grid.x(x + 1); ++column)
            differing += fine.at(column, row) != plain.at(x, y);
    EXPECT_EQ(differing, 0) << scale;
  }
}

TEST(FineScreen, ScrolledAndMovedWindowsLookAsPaintedAnew) {
  for (const double scale : {1.25, 1.5, 2.0}) {
    Scene scene(scale);
    window_picture(scene.top);
    for (const int step : {2, 3, 4, 7, -5}) {
      scene.inner.shift += step + 70;
      scene.inner.ScrollWindow(0, step);
      scene.inner.Invalidate(FALSE);
      const CRect memory_and_box(15, 0, 60, 30);
      scene.inner.InvalidateRect(memory_and_box);
      scene.inner.MoveWindow(33 + step, 25 - step, 57, 30);
      const RasterBitmap now = window_picture(scene.top);
      scene.top.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      EXPECT_TRUE(window_picture(scene.top) == now) << scale << " " << step;
    }
  }
}

TEST(FineScreen, AWindowThatComesToAnotherScreenIsPaintedInItsPixels) {
  Scene scene(1);
  window_picture(scene.top);
  const int paints = scene.inner.paints;
  scene.backend.scale_ = 1.5;
  EXPECT_EQ(window_picture(scene.top).width(), 150);
  EXPECT_EQ(scene.inner.paints, paints + 1);
  window_picture(scene.top);
  EXPECT_EQ(scene.inner.paints, paints + 1);
}

}  // namespace
}  // namespace brindle
