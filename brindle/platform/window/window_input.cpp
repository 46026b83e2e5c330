#include "brindle/platform/window/window_input.h"

#include <algorithm>

#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

bool is_press(UINT message) {
  return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
         message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDBLCLK || message == WM_MBUTTONDBLCLK;
}

// Lets the window and those around it look at the message before it is sent.
bool pre_translate(CWnd* window, MSG& message) {
  const HWND target = message.hwnd;
  while (window != nullptr) {
    if (window->PreTranslateMessage(&message) || !IsWindow(target)) return true;
    window = window_state(*window).is_child() ? window->GetParent() : nullptr;
  }
  return false;
}

bool deliver(CWnd* window, UINT message, WPARAM wParam, LPARAM lParam) {
  MSG whole{window->m_hWnd, message, wParam, lParam, GetTickCount(), window_system().mouse};
  if (pre_translate(window, whole)) return true;
  window->SendMessage(whole.message, whole.wParam, whole.lParam);
  return false;
}

void scroll(CWnd& window, int bar, UINT code, int position = 0) {
  if (window.m_hWnd == nullptr) return;
  const WPARAM packed = code | static_cast<WPARAM>(static_cast<DWORD>(position)) << 16;
  window.SendMessage(bar == SB_VERT ? WM_VSCROLL : WM_HSCROLL, packed);
}

constexpr UINT_PTR kHeldTimer = 0xFFF8;  // of the system, beside the window's own
constexpr UINT kFirstRepeatMs = 400, kRepeatMs = 50;

// What a press there does: SB_LINEUP to SB_PAGEDOWN, SB_THUMBTRACK on the thumb, -1 for nothing.
int bar_code_at(const CWnd& window, int bar, CPoint at) {
  const BarLayout layout = bar_layout(window, bar);
  if (layout.thumb.IsRectEmpty() || !layout.box.PtInRect(at)) return -1;
  if (layout.first.PtInRect(at)) return SB_LINEUP;
  if (layout.last.PtInRect(at)) return SB_LINEDOWN;
  if (layout.thumb.PtInRect(at)) return SB_THUMBTRACK;
  const bool before = bar == SB_VERT ? at.y < layout.thumb.top : at.x < layout.thumb.left;
  return before ? SB_PAGEUP : SB_PAGEDOWN;
}

// Scrolls again and again while the button is held on what was pressed.
void repeat_held(CWnd& window, UINT_PTR) {
  WindowSystem& system = window_system();
  if (system.dragged != &window || system.held_code < 0) {
    window.KillTimer(kHeldTimer);
    return;
  }
  const HWND handle = window.m_hWnd;
  window.SetTimer(kHeldTimer, kRepeatMs, repeat_held);
  CRect frame;
  window.GetWindowRect(frame);
  const int code = bar_code_at(window, system.dragged_bar, CPoint(system.mouse - frame.TopLeft()));
  if (code == system.held_code) scroll(window, system.dragged_bar, static_cast<UINT>(code));
  if (IsWindow(handle) && !bar_shown(window, system.dragged_bar)) window.KillTimer(kHeldTimer);
}

// A press on a scroll bar, at a point of the window's own pixels.
void press_bar(CWnd& window, int bar, CPoint at) {
  const int code = bar_code_at(window, bar, at);
  if (code < 0) return;
  WindowSystem& system = window_system();
  system.dragged = &window;
  system.dragged_bar = bar;
  system.held_code = code == static_cast<int>(SB_THUMBTRACK) ? -1 : code;
  if (WindowPeer* peer = window_state(top_level(window)).peer.get()) peer->set_capture(true);
  ScrollBar& values = window_state(window).bars[bar];
  values.track = values.position;
  if (system.held_code >= 0) {
    window.SetTimer(kHeldTimer, kFirstRepeatMs, repeat_held);
    return scroll(window, bar, static_cast<UINT>(code));
  }
  const CRect thumb = bar_layout(window, bar).thumb;
  system.drag_offset = bar == SB_VERT ? at.y - thumb.top : at.x - thumb.left;
}

void end_drag() {
  WindowSystem& system = window_system();
  CWnd& window = *std::exchange(system.dragged, nullptr);
  const int bar = system.dragged_bar;
  const HWND handle = window.m_hWnd;
  if (WindowPeer* peer = window_state(top_level(window)).peer.get()) peer->set_capture(false);
  if (std::exchange(system.held_code, -1) >= 0)
    window.KillTimer(kHeldTimer);
  else
    scroll(window, bar, SB_THUMBPOSITION, window_state(window).bars[bar].track);
  if (!IsWindow(handle)) return;
  scroll(window, bar, SB_ENDSCROLL);
  if (IsWindow(handle)) mark_changed(window);
}

// `at` in the window's own pixels.
void drag_bar(UINT message, UINT flags, CPoint at) {
  WindowSystem& system = window_system();
  CWnd& window = *system.dragged;
  const int bar = system.dragged_bar;
  // The release may have gone to somebody else, as when a handler asked a question.
  if (message == WM_LBUTTONUP || (message == WM_MOUSEMOVE && (flags & MK_LBUTTON) == 0))
    return end_drag();
  if (message != WM_MOUSEMOVE || system.held_code >= 0) return;
  ScrollBar& values = window_state(window).bars[bar];
  const int start = (bar == SB_VERT ? at.y : at.x) - system.drag_offset;
  const int position = bar_position_at(window, bar, start);
  if (position == values.track) return;
  values.track = position;
  mark_changed(window);
  scroll(window, bar, SB_THUMBTRACK, position);
}

void hover(CWnd* window) {
  WindowSystem& system = window_system();
  CWnd* before = system.hovered;
  if (before == window) return;
  system.hovered = window;
  if (before != nullptr) before->SendMessage(WM_MOUSELEAVE);
}

CWnd* keyboard_target(CWnd& top) {
  WindowSystem& system = window_system();
  // A popup that doesn't take the focus passes its keys on.
  if (system.focus != nullptr) return takes_input(*system.focus) ? system.focus : nullptr;
  CWnd* last = window_state(top).last_focus;
  CWnd* target = last != nullptr && is_inside(last, top) ? last : &top;
  return takes_input(*target) ? target : nullptr;
}

}  // namespace

WindowHit hit_window(CWnd& top, CPoint at) {
  CWnd* window = &top;
  for (;;) {
    const WindowState& state = window_state(*window);
    for (const int bar : {SB_VERT, SB_HORZ})
      if (bar_shown(*window, bar) && bar_layout(*window, bar).box.PtInRect(at))
        return {window, bar == SB_VERT ? HTVSCROLL : HTHSCROLL};
    const CSize inset = state.inset();
    if (state.menu_height > 0 && at.y >= inset.cy - state.menu_height && at.y < inset.cy)
      return {window, HTMENU};
    const CPoint inside(at.x - inset.cx, at.y - inset.cy);
    if (!CRect(CPoint(), state.client_size()).PtInRect(inside)) return {window, HTBORDER};
    const auto under = [&](const CWnd* child) {
      const WindowState& below = window_state(*child);
      return below.has(WS_VISIBLE) && !below.has(WS_DISABLED) &&
             (below.extended_style & WS_EX_TRANSPARENT) == 0 && below.rect.PtInRect(inside);
    };
    const auto child = std::find_if(state.children.begin(), state.children.end(), under);
    if (child == state.children.end()) return {window, HTCLIENT};
    at = CPoint(inside - window_state(**child).rect.TopLeft());
    window = *child;
  }
}

void route_mouse(CWnd& top, UINT message, UINT flags, CPoint at) {
  WindowSystem& system = window_system();
  if (top.m_hWnd == nullptr) return;
  CRect frame;
  top.GetWindowRect(frame);
  system.mouse = at + frame.TopLeft();
  set_key_state(VK_LBUTTON, (flags & MK_LBUTTON) != 0);
  set_key_state(VK_RBUTTON, (flags & MK_RBUTTON) != 0);
  set_key_state(VK_SHIFT, (flags & MK_SHIFT) != 0);
  set_key_state(VK_CONTROL, (flags & MK_CONTROL) != 0);
  if (system.dragged != nullptr) {
    system.dragged->GetWindowRect(frame);
    return drag_bar(message, flags, CPoint(system.mouse - frame.TopLeft()));
  }
  if (system.popup != nullptr && is_press(message) && &top != system.popup) {
    const HWND handle = top.m_hWnd;
    const auto close = std::exchange(system.close_popup, nullptr);
    system.popup = nullptr;
    if (close) close();
    if (!IsWindow(handle)) return;
  }
  if (!takes_input(top)) return;
  const WindowHit hit = hit_window(top, at);
  CWnd* target = system.capture != nullptr ? system.capture : hit.window;
  const int area = system.capture != nullptr ? HTCLIENT : hit.area;
  const HWND handle = target->m_hWnd;
  hover(target);
  if (!IsWindow(handle)) return;
  if (is_press(message) && (window_state(top).extended_style & WS_EX_NOACTIVATE) == 0)
    set_active_window(&top);
  if (!IsWindow(handle)) return;
  if (system.capture == nullptr)
    target->SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(handle),
                        MAKELPARAM(area, static_cast<int>(message)));
  if (!IsWindow(handle)) return;
  if (area == HTVSCROLL || area == HTHSCROLL) {
    if (message != WM_LBUTTONDOWN && message != WM_LBUTTONDBLCLK) return;
    target->GetWindowRect(frame);
    return press_bar(*target, area == HTVSCROLL ? SB_VERT : SB_HORZ,
                     CPoint(system.mouse - frame.TopLeft()));
  }
  if (area == HTMENU && message == WM_LBUTTONDOWN) {
    target->GetWindowRect(frame);
    return press_menu_bar(*target, CPoint(system.mouse - frame.TopLeft()));
  }
  if (area != HTCLIENT) return;
  CPoint inside = system.mouse;
  target->ScreenToClient(&inside);
  deliver(target, message, flags, MAKELPARAM(inside.x, inside.y));
}

void route_wheel(CWnd& top, int delta, UINT flags, CPoint at) {
  WindowSystem& system = window_system();
  if (top.m_hWnd == nullptr || !takes_input(top)) return;
  CRect frame;
  top.GetWindowRect(frame);
  system.mouse = at + frame.TopLeft();
  CWnd* target = system.focus != nullptr && is_inside(system.focus, top)
                     ? system.focus
                     : hit_window(top, at).window;
  deliver(target, WM_MOUSEWHEEL, MAKEWPARAM(static_cast<int>(flags), delta),
          MAKELPARAM(system.mouse.x, system.mouse.y));
}

void route_mouse_leave(CWnd& top) {
  const CWnd* hovered = window_system().hovered;
  if (hovered != nullptr && is_inside(hovered, top)) hover(nullptr);
}

bool route_key(CWnd& top, UINT key, bool down, UINT repeat) {
  set_key_state(static_cast<int>(key), down);
  CWnd* target = top.m_hWnd != nullptr ? keyboard_target(top) : nullptr;
  if (target == nullptr) return true;
  const bool system_key = GetKeyState(VK_MENU) < 0 && GetKeyState(VK_CONTROL) >= 0;
  const UINT message =
      system_key ? (down ? WM_SYSKEYDOWN : WM_SYSKEYUP) : (down ? WM_KEYDOWN : WM_KEYUP);
  return deliver(target, message, key, static_cast<LPARAM>(repeat));
}

void route_char(CWnd& top, wchar_t character) {
  CWnd* target = top.m_hWnd != nullptr ? keyboard_target(top) : nullptr;
  if (target == nullptr) return;
  const bool system_key = GetKeyState(VK_MENU) < 0 && GetKeyState(VK_CONTROL) >= 0;
  deliver(target, system_key ? WM_SYSCHAR : WM_CHAR, static_cast<WPARAM>(character), 1);
}

void route_key_press(CWnd& top, UINT key) {
  const HWND handle = top.m_hWnd;
  wchar_t character = 0;
  if (key == VK_BACK || key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE || key == VK_SPACE ||
      (key >= '0' && key <= '9'))
    character = static_cast<wchar_t>(key);
  else if (key >= 'A' && key <= 'Z')
    character = static_cast<wchar_t>(GetKeyState(VK_CONTROL) < 0 ? key - 'A' + 1
                                     : GetKeyState(VK_SHIFT) < 0 ? key
                                                                 : key - 'A' + 'a');
  const bool taken = route_key(top, key, true);
  if (!taken && character != 0 && IsWindow(handle)) route_char(top, character);
  if (IsWindow(handle)) route_key(top, key, false);
  set_key_state(static_cast<int>(key), false);
}

void route_activate(CWnd& top, bool active) {
  WindowSystem& system = window_system();
  if (top.m_hWnd == nullptr) return;
  if (!active) {
    if (system.active != &top) return;
    set_focus_window(nullptr);
    if (system.active == &top) set_active_window(nullptr);
    return;
  }
  const HWND handle = top.m_hWnd;
  set_active_window(&top);
  if (!IsWindow(handle) || (system.focus != nullptr && is_inside(system.focus, top))) return;
  CWnd* last = window_state(top).last_focus;
  (last != nullptr && is_inside(last, top) && last->IsWindowVisible() ? last : &top)->SetFocus();
}

void route_bounds(CWnd& top, const CRect& screen) {
  WindowState& state = window_state(top);
  if (top.m_hWnd == nullptr || state.rect == screen) return;
  const CRect before = std::exchange(state.rect, screen);
  const HWND handle = top.m_hWnd;
  if (before.Size() != screen.Size()) size_changed(top);
  if (IsWindow(handle) && before.TopLeft() != screen.TopLeft())
    top.SendMessage(WM_MOVE, 0, MAKELPARAM(screen.left, screen.top));
}

void route_close(CWnd& top) {
  if (top.m_hWnd != nullptr && takes_input(top)) top.SendMessage(WM_CLOSE);
}

}  // namespace brindle
