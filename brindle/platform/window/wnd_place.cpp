// Place, size, visibility, focus and capture of a window.
#include <algorithm>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {

int WindowState::border() const {
  if ((extended_style & WS_EX_CLIENTEDGE) != 0) return 2;
  // The frame around a caption is the toolkit's.
  return (style & WS_CAPTION) == WS_BORDER ? 1 : 0;
}

CSize WindowState::client_size() const {
  const int bar_width = has(WS_VSCROLL) ? GetSystemMetrics(SM_CXVSCROLL) : 0;
  const int bar_height = has(WS_HSCROLL) ? GetSystemMetrics(SM_CYHSCROLL) : 0;
  return {std::max(rect.Width() - 2 * border() - bar_width, 0),
          std::max(rect.Height() - 2 * border() - menu_height - bar_height, 0)};
}

CPoint origin_in_top(const CWnd& window) {
  const WindowState& state = window_state(window);
  const CPoint inside = CPoint() + state.inset();
  if (!state.is_child()) return inside;
  return origin_in_top(*state.parent) + state.rect.TopLeft() + inside;
}

CPoint screen_origin(const CWnd& window) {
  const WindowState& state = window_state(window);
  const CPoint corner = state.rect.TopLeft() + state.inset();
  return state.is_child() ? screen_origin(*state.parent) + corner : corner;
}

void mark_changed(CWnd& window, const CRect* area) {
  CWnd& top = top_level(window);
  WindowState& state = window_state(top);
  if (window.m_hWnd == nullptr || !state.peer) return;
  const CPoint origin = origin_in_top(window);
  const CRect whole(origin - window_state(window).inset(), window_state(window).rect.Size());
  state.peer->update(area != nullptr ? *area + origin : whole);
}

void CWnd::GetClientRect(LPRECT rect) const {
  *rect = CRect(CPoint(), state_->client_size());
}

void CWnd::GetWindowRect(LPRECT rect) const {
  *rect = state_->is_child() ? state_->rect + screen_origin(*state_->parent) : state_->rect;
}

void CWnd::ClientToScreen(LPPOINT point) const {
  *point = screen_origin(*this) + *point;
}

void CWnd::ClientToScreen(LPRECT rect) const {
  *rect = CRect(*rect) + screen_origin(*this);
}

void CWnd::ScreenToClient(LPPOINT point) const {
  *point = CPoint(CPoint(*point) - screen_origin(*this));
}

void CWnd::ScreenToClient(LPRECT rect) const {
  *rect = CRect(*rect) - screen_origin(*this);
}

void CWnd::MapWindowPoints(CWnd* to, LPPOINT points, UINT count) const {
  for (UINT i = 0; i < count; ++i) {
    ClientToScreen(&points[i]);
    if (to != nullptr) to->ScreenToClient(&points[i]);
  }
}

void CWnd::MapWindowPoints(CWnd* to, LPRECT rect) const {
  ClientToScreen(rect);
  if (to != nullptr) to->ScreenToClient(rect);
}

CWnd* CWnd::ChildWindowFromPoint(POINT point) const {
  for (CWnd* child : state_->children)
    if (window_state(*child).rect.PtInRect(point)) return child;
  return CRect(CPoint(), state_->client_size()).PtInRect(point) ? const_cast<CWnd*>(this) : nullptr;
}

CWnd* CWnd::WindowFromPoint(POINT screen) {
  std::vector<const CWnd*> tops;
  {
    WindowSystem& system = window_system();
    const std::lock_guard lock(system.mutex);
    tops.assign(system.live.begin(), system.live.end());
  }
  CWnd* found = nullptr;
  for (const CWnd* top : tops) {
    const WindowState& state = window_state(*top);
    if (state.is_child() || !state.has(WS_VISIBLE) || !state.rect.PtInRect(screen)) continue;
    // A popup stands before its owner.
    if (found != nullptr && !state.has(WS_POPUP)) continue;
    found =
        hit_window(*const_cast<CWnd*>(top), CPoint(CPoint(screen) - state.rect.TopLeft())).window;
  }
  return found;
}

void CWnd::CenterWindow(CWnd* other) {
  if (other == nullptr) other = state_->parent;
  CRect around(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
  if (other != nullptr) {
    if (state_->is_child())
      other->GetClientRect(around);
    else
      other->GetWindowRect(around);
  }
  const CSize size = state_->rect.Size();
  SetWindowPos(nullptr, around.left + (around.Width() - size.cx) / 2,
               around.top + (around.Height() - size.cy) / 2, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint) {
  MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
  SetWindowPos(nullptr, x, y, width, height,
               SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0 : SWP_NOREDRAW));
}

BOOL CWnd::SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags) {
  WindowState& state = *state_;
  WINDOWPOS place{m_hWnd,
                  nullptr,
                  (flags & SWP_NOMOVE) != 0 ? state.rect.left : x,
                  (flags & SWP_NOMOVE) != 0 ? state.rect.top : y,
                  (flags & SWP_NOSIZE) != 0 ? state.rect.Width() : std::max(width, 0),
                  (flags & SWP_NOSIZE) != 0 ? state.rect.Height() : std::max(height, 0),
                  flags};
  if (m_hWnd != nullptr && (flags & SWP_NOSIZE) == 0)
    SendMessage(WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
  const CRect to(CPoint(place.x, place.y), CSize(place.cx, place.cy));
  if (m_hWnd == nullptr) {
    state.rect = to;
    return TRUE;
  }
  if ((flags & SWP_NOZORDER) == 0 && state.is_child()) {
    std::vector<CWnd*>& siblings = window_state(*state.parent).children;
    std::erase(siblings, this);
    auto where = siblings.begin();
    if (after == &wndBottom)
      where = siblings.end();
    else if (after != nullptr && after != &wndTop && after != &wndTopMost && after != &wndNoTopMost)
      if (const auto found = std::find(siblings.begin(), siblings.end(), after);
          found != siblings.end())
        where = found + 1;
    siblings.insert(where, this);
    mark_changed(*this);
  } else if ((flags & (SWP_NOZORDER | SWP_NOACTIVATE)) == 0 && state.peer &&
             state.has(WS_VISIBLE)) {
    set_active_window(this);
  }
  const CRect before = state.rect;
  if (to != before) {
    mark_changed(*this);
    state.rect = to;
    mark_changed(*this);
    if (state.peer) state.peer->set_bounds(to);
    if (to.Size() != before.Size()) size_changed(*this);
    if (m_hWnd != nullptr && to.TopLeft() != before.TopLeft())
      SendMessage(WM_MOVE, 0, MAKELPARAM(to.left, to.top));
  }
  if (m_hWnd != nullptr && (flags & SWP_HIDEWINDOW) != 0) ShowWindow(SW_HIDE);
  if (m_hWnd != nullptr && (flags & SWP_SHOWWINDOW) != 0)
    ShowWindow((flags & SWP_NOACTIVATE) != 0 ? SW_SHOWNA : SW_SHOW);
  return TRUE;
}

void size_changed(CWnd& window) {
  if (window.m_hWnd == nullptr) return;
  const CSize client = window_state(window).client_size();
  mark_changed(window);
  window.Invalidate();
  window.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.cx, client.cy));
}

BOOL CWnd::ShowWindow(int command) {
  WindowState& state = *state_;
  const BOOL before = state.has(WS_VISIBLE);
  const bool show = command != SW_HIDE;
  if (m_hWnd == nullptr || show == (before != FALSE)) {
    state.style = show ? state.style | WS_VISIBLE : state.style & ~WS_VISIBLE;
    if (m_hWnd != nullptr && show && state.peer && command != SW_SHOWNA &&
        command != SW_SHOWNOACTIVATE)
      set_active_window(this);
    return before;
  }
  SendMessage(WM_SHOWWINDOW, show);
  if (m_hWnd == nullptr) return before;
  if (!show) mark_changed(*this);
  state.style = show ? state.style | WS_VISIBLE : state.style & ~WS_VISIBLE;
  const bool activates = show && command != SW_SHOWNA && command != SW_SHOWNOACTIVATE &&
                         (state.extended_style & WS_EX_NOACTIVATE) == 0;
  if (show) Invalidate();
  if (state.peer) {
    state.peer->set_visible(show, activates);
    if (activates) set_active_window(this);
  }
  WindowSystem& system = window_system();
  if (!show && system.focus != nullptr && is_inside(system.focus, *this))
    set_focus_window(state.is_child() ? state.parent : nullptr);
  if (m_hWnd == nullptr || show) return before;
  if (system.capture != nullptr && is_inside(system.capture, *this))
    system.capture->SendMessage(WM_CAPTURECHANGED), system.capture = nullptr;
  if (system.active == this)
    set_active_window(!state.is_child() && state.parent ? &top_level(*state.parent) : nullptr);
  return before;
}

BOOL CWnd::IsWindowVisible() const {
  const CWnd* window = this;
  for (;;) {
    const WindowState& state = window_state(*window);
    if (!state.has(WS_VISIBLE)) return FALSE;
    if (!state.is_child() || state.parent->m_hWnd == nullptr) return TRUE;
    window = state.parent;
  }
}

BOOL CWnd::EnableWindow(BOOL enable) {
  WindowState& state = *state_;
  const BOOL was_disabled = state.has(WS_DISABLED);
  state.style = enable ? state.style & ~WS_DISABLED : state.style | WS_DISABLED;
  if (m_hWnd == nullptr || was_disabled == !enable) return was_disabled;
  if (!enable && window_system().focus == this) set_focus_window(nullptr);
  if (state.peer) state.peer->set_enabled(enable);
  SendMessage(WM_ENABLE, enable);
  return was_disabled;
}

BOOL CWnd::IsWindowEnabled() const {
  return !state_->has(WS_DISABLED);
}

bool takes_input(const CWnd& window) {
  const CWnd* at = &window;
  for (;; at = at->GetParent()) {
    if (!at->IsWindowEnabled()) return false;
    if (!window_state(*at).is_child()) return true;
  }
}

void set_active_window(CWnd* top) {
  WindowSystem& system = window_system();
  CWnd* before = system.active;
  if (before == top) return;
  system.active = top;
  if (before != nullptr)
    before->SendMessage(WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(top));
  if (top == nullptr || system.active != top) return;
  if (window_state(*top).peer) window_state(*top).peer->activate();
  if (system.active != top) return;
  top->SendMessage(WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(before));
}

void set_focus_window(CWnd* window) {
  WindowSystem& system = window_system();
  CWnd* before = system.focus;
  if (before == window) return;
  system.focus = window;
  if (window != nullptr) {
    CWnd& top = top_level(*window);
    window_state(top).last_focus = window;
    set_active_window(&top);
  }
  if (before != nullptr && before->m_hWnd != nullptr)
    before->SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(window ? window->m_hWnd : nullptr));
  if (window == nullptr || system.focus != window) return;
  {
    const std::lock_guard lock(system.mutex);
    if (before != nullptr && !system.live.contains(before)) before = nullptr;
  }
  window->SendMessage(WM_SETFOCUS, reinterpret_cast<WPARAM>(before ? before->m_hWnd : nullptr));
}

CWnd* CWnd::SetFocus() {
  CWnd* before = window_system().focus;
  if (m_hWnd == nullptr || state_->destroying || !takes_input(*this)) return nullptr;
  set_focus_window(this);
  return before;
}

CWnd* CWnd::GetFocus() {
  return window_system().focus;
}

CWnd* CWnd::SetCapture() {
  WindowSystem& system = window_system();
  CWnd* before = system.capture;
  if (before == this || m_hWnd == nullptr) return before;
  system.capture = this;
  if (WindowPeer* peer = window_state(top_level(*this)).peer.get()) peer->set_capture(true);
  if (before != nullptr)
    before->SendMessage(WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(m_hWnd));
  return before;
}

CWnd* CWnd::GetCapture() {
  return window_system().capture;
}

BOOL ReleaseCapture() {
  WindowSystem& system = window_system();
  CWnd* before = std::exchange(system.capture, nullptr);
  if (before == nullptr) return TRUE;
  if (WindowPeer* peer = window_state(top_level(*before)).peer.get()) peer->set_capture(false);
  before->SendMessage(WM_CAPTURECHANGED);
  return TRUE;
}

CWnd* CWnd::SetActiveWindow() {
  CWnd* before = window_system().active;
  if (m_hWnd != nullptr) set_active_window(&top_level(*this));
  return before;
}

CWnd* CWnd::GetActiveWindow() {
  return window_system().active;
}

BOOL CWnd::SetForegroundWindow() {
  SetActiveWindow();
  return m_hWnd != nullptr;
}

}  // namespace brindle
