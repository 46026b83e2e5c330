// What a window keeps, and what all windows share.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_set>
#include <utility>
#include <vector>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/region_data.h"
#include "brindle/platform/window/window_peer.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

struct WindowClass {
  UINT style = 0;
  HCURSOR cursor = nullptr;
  bool erases = true;
  BrushData background;
};
// The class of a registered name; for other names, null too, one with the arrow on white.
const WindowClass& window_class(LPCTSTR name);

struct ScrollBar {
  int min = 0, max = 100, position = 0, track = 0;
  UINT page = 0;

  // The last position: with a page the end of the range is what the last page shows.
  int last() const;
  bool scrolls() const { return last() > min; }
};

struct WindowState {
  CString text;
  DWORD style = 0, extended_style = 0;
  CRect rect;  // of the whole window, in the parent's client area or on the screen
  int id = 0;
  CWnd* parent = nullptr;  // of a popup: its owner
  CWnd* owner = nullptr;
  std::vector<CWnd*> children;  // topmost first
  std::vector<CWnd*> owned;     // popups
  const WindowClass* kind = &window_class(nullptr);
  CFont* font = nullptr;
  CMenu* menu = nullptr;
  int menu_height = 0;       // of the bar, above the client area
  bool paints_menu = false;  // the toolkit doesn't show the bar
  ScrollBar bars[2];
  std::shared_ptr<RasterBitmap> surface;  // of the client area; made when it is first drawn on
  RegionData update;
  bool erase = false;
  bool redraw = true;
  bool destroying = false;
  std::unique_ptr<WindowPeer> peer;
  CWnd* last_focus = nullptr;  // of a top-level window
  std::map<UINT, std::function<LRESULT(WPARAM, LPARAM)>> message_handlers;
  std::map<std::pair<UINT, UINT>, std::function<void()>> control_handlers;
  std::vector<std::unique_ptr<CDC>> contexts;  // of GetDC and BeginPaint

  bool is_child() const { return (style & WS_CHILD) != 0 && parent != nullptr; }
  bool has(DWORD bits) const { return (style & bits) == bits; }
  int border() const;
  // From the window's corner to the client area's.
  CSize inset() const { return {border(), border() + menu_height}; }
  CSize client_size() const;
};

inline WindowState& window_state(const CWnd& window) {
  return *window.state_;
}

struct Timer {
  CWnd* window;
  UINT_PTR id;
  UINT elapse;
  ULONGLONG due;
  CWnd::TimerFunction function;
};

// The message that a window deals with just now.
struct MessageFrame {
  const CWnd* window;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  MessageFrame* outer;
};

struct WindowSystem {
  CWnd *focus = nullptr, *capture = nullptr, *active = nullptr, *main = nullptr;
  CWnd* hovered = nullptr;
  HCURSOR cursor = nullptr;
  CPoint mouse;  // on the screen
  bool keys[256] = {};
  std::vector<Timer> timers;
  MessageFrame* frame = nullptr;
  // A dropped list or the like, and who is told of a press outside of it.
  CWnd* popup = nullptr;
  std::function<void()> close_popup;
  // The scroll bar that the mouse drags.
  CWnd* dragged = nullptr;
  int dragged_bar = 0, drag_offset = 0;
  int held_code =
      -1;  // SB_LINEUP to SB_PAGEDOWN while an arrow or the way beside the thumb is held
  bool quit = false;
  int exit_code = 0;

  std::mutex mutex;  // of what follows: messages may be posted by other threads
  std::deque<MSG> queue;
  std::unordered_set<const CWnd*> live;
};
WindowSystem& window_system();

// Gives the focus to `window`, may be null.
void set_focus_window(CWnd* window);
void set_active_window(CWnd* top);
// `window` or one of its parents, children of it in the second place.
bool is_inside(const CWnd* window, const CWnd& of);
CWnd& top_level(const CWnd& window);
bool takes_input(const CWnd& window);  // enabled, and all around it
// Forgets everything that points at the window.
void forget_window(CWnd& window);

// The upper left corner of the client area in the picture of the top-level window, or on the
// screen.
CPoint origin_in_top(const CWnd& window);
CPoint screen_origin(const CWnd& window);
// Tells the peer that pixels of the client area (null: of the whole window) changed.
void mark_changed(CWnd& window, const CRect* area = nullptr);
// Pixels of the screen for a unit: of the window's screen, or the one that it would come to.
double window_scale(const CWnd& window);
// For measuring text as on a screen of that scale.
std::unique_ptr<PaintDevice> make_measuring_device(double scale);
// The bitmap of the client area, made if need be. When it has to be made anew for another scale or
// place on the screen's pixels, all of it is invalid.
const std::shared_ptr<RasterBitmap>& window_surface(CWnd& window);
void size_changed(CWnd& window);

// Scroll bars as figures, in the window's own pixels.
struct BarLayout {
  CRect box, first, last, thumb;  // `thumb` is empty when there is nothing to scroll
  int travel = 0;                 // pixels that the thumb can move
};
bool bar_shown(const CWnd& window, int bar);
BarLayout bar_layout(const CWnd& window, int bar);
int bar_position_at(const CWnd& window, int bar, int thumb_start);
void paint_bars(CDC& dc, const CWnd& window, CPoint at);

// The bar of a window whose toolkit has none.
void place_menu_bar(CWnd& window);
void paint_menu_bar(CDC& dc, const CWnd& window, CPoint at);
// A press, at a point of the window's own pixels.
void press_menu_bar(CWnd& window, CPoint at);

// A hit on a window of the tree below `top`, by a point of its picture.
struct WindowHit {
  CWnd* window = nullptr;
  int area = 0;  // HTCLIENT, HTMENU, HTVSCROLL, HTHSCROLL, HTBORDER
};
WindowHit hit_window(CWnd& top, CPoint at);

}  // namespace brindle
