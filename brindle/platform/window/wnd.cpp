#include "brindle/platform/window/wnd.h"

#include <algorithm>
#include <cwchar>

#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {

const CWnd& CWnd::wndTop = *new CWnd;
const CWnd& CWnd::wndBottom = *new CWnd;
const CWnd& CWnd::wndTopMost = *new CWnd;
const CWnd& CWnd::wndNoTopMost = *new CWnd;

// Never destroyed: windows with static storage outlive everything else.
WindowSystem& window_system() {
  static WindowSystem& system = *new WindowSystem;
  return system;
}

CWnd::CWnd() : state_(std::make_unique<WindowState>()) {}

CWnd::~CWnd() {
  if (m_hWnd != nullptr) {
    state_->destroying = true;
    while (!state_->owned.empty()) state_->owned.back()->DestroyWindow();
    while (!state_->children.empty()) state_->children.back()->DestroyWindow();
    mark_changed(*this);
  }
  forget_window(*this);
}

BOOL CWnd::Create(LPCTSTR class_name, LPCTSTR text, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id, void* context) {
  return CreateEx(0, class_name, text, style | WS_CHILD, rect, parent, id, context);
}

BOOL CWnd::CreateEx(DWORD extended_style, LPCTSTR class_name, LPCTSTR text, DWORD style, int x,
                    int y, int width, int height, HWND parent, HMENU id_or_menu, void* parameter) {
  if ((style & WS_CHILD) == 0 && id_or_menu != nullptr) SetMenu(CMenu::FromHandle(id_or_menu));
  if (x == CW_USEDEFAULT) x = y = 0;
  if (width == CW_USEDEFAULT) width = 640, height = 480;
  const UINT id = static_cast<UINT>(reinterpret_cast<UINT_PTR>(id_or_menu));
  return CreateEx(extended_style, class_name, text, style,
                  CRect(CPoint(x, y), CSize(width, height)), FromHandle(parent),
                  (style & WS_CHILD) != 0 ? id : 0, parameter);
}

BOOL CWnd::CreateEx(DWORD extended_style, LPCTSTR class_name, LPCTSTR text, DWORD style,
                    const RECT& rect, CWnd* parent, UINT id, void* parameter) {
  if (m_hWnd != nullptr) return FALSE;
  CREATESTRUCT create;
  create.lpCreateParams = parameter;
  create.hMenu = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id));
  create.hwndParent = reinterpret_cast<HWND>(parent);
  create.x = rect.left;
  create.y = rect.top;
  create.cx = rect.right - rect.left;
  create.cy = rect.bottom - rect.top;
  create.style = style;
  create.lpszName = text;
  create.lpszClass = class_name;
  create.dwExStyle = extended_style;
  if (!PreCreateWindow(create)) return FALSE;

  WindowState& state = *state_;
  m_hWnd = reinterpret_cast<HWND>(this);
  state.style = create.style & ~WS_VISIBLE;
  state.extended_style = create.dwExStyle;
  state.id = static_cast<int>(reinterpret_cast<UINT_PTR>(create.hMenu));
  state.parent = FromHandle(create.hwndParent);
  state.kind = &window_class(create.lpszClass);
  state.rect =
      CRect(CPoint(create.x, create.y), CSize(std::max(create.cx, 0), std::max(create.cy, 0)));
  state.bars[SB_HORZ] = state.bars[SB_VERT] = {};
  {
    WindowSystem& system = window_system();
    const std::lock_guard lock(system.mutex);
    system.live.insert(this);
  }
  if (state.parent != nullptr)
    (state.is_child() ? window_state(*state.parent).children : window_state(*state.parent).owned)
        .push_back(this);
  if (!state.is_child()) {
    state.peer = window_backend().make_peer(*this);
    state.peer->set_bounds(state.rect);
  }
  state.text = create.lpszName != nullptr ? create.lpszName : L"";
  if (state.peer) state.peer->set_title(state.text);
  if (state.menu != nullptr) place_menu_bar(*this);
  WINDOWPOS place{
      m_hWnd, nullptr, state.rect.left, state.rect.top, state.rect.Width(), state.rect.Height(), 0};
  SendMessage(WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
  state.rect = CRect(CPoint(place.x, place.y), CSize(place.cx, place.cy));
  if (SendMessage(WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1) {
    DestroyWindow();
    return FALSE;
  }
  if (m_hWnd == nullptr) return FALSE;
  const CSize client = state.client_size();
  SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.cx, client.cy));
  SendMessage(WM_MOVE, 0, MAKELPARAM(state.rect.left, state.rect.top));
  Invalidate();
  if ((create.style & WS_VISIBLE) != 0) ShowWindow(state.is_child() ? SW_SHOWNA : SW_SHOW);
  return TRUE;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT&) {
  return TRUE;
}

BOOL CWnd::DestroyWindow() {
  if (m_hWnd == nullptr || state_->destroying) return FALSE;
  WindowState& state = *state_;
  state.destroying = true;
  mark_changed(*this);
  state.style &= ~WS_VISIBLE;
  WindowSystem& system = window_system();
  if (system.focus != nullptr && is_inside(system.focus, *this))
    set_focus_window(state.is_child() ? state.parent : nullptr);
  if (state.peer) state.peer->set_visible(false, false);
  SendMessage(WM_DESTROY);
  while (!state.owned.empty()) {
    CWnd* popup = state.owned.back();
    if (!popup->DestroyWindow()) std::erase(state.owned, popup);
  }
  while (!state.children.empty()) {
    CWnd* child = state.children.back();
    if (!child->DestroyWindow()) std::erase(state.children, child);
  }
  SendMessage(WM_NCDESTROY);
  forget_window(*this);
  m_hWnd = nullptr;
  state.peer.reset();
  state.surface.reset();
  state.update = {};
  state.contexts.clear();
  state.parent = nullptr;
  state.destroying = false;
  PostNcDestroy();
  return TRUE;
}

void forget_window(CWnd& window) {
  WindowSystem& system = window_system();
  WindowState& state = window_state(window);
  for (CWnd** place : {&system.focus, &system.capture, &system.active, &system.main,
                       &system.hovered, &system.dragged})
    if (*place == &window) *place = nullptr;
  if (system.popup == &window) {
    system.popup = nullptr;
    system.close_popup = nullptr;
  }
  std::erase_if(system.timers, [&](const Timer& timer) { return timer.window == &window; });
  if (state.parent != nullptr) {
    std::erase(window_state(*state.parent).children, &window);
    std::erase(window_state(*state.parent).owned, &window);
  }
  const std::lock_guard lock(system.mutex);
  system.live.erase(&window);
  std::erase_if(system.queue, [&](const MSG& message) { return message.hwnd == window.m_hWnd; });
  for (const CWnd* other : system.live) {
    WindowState& others = window_state(*other);
    if (others.owner == &window) others.owner = nullptr;
    if (others.last_focus == &window) others.last_focus = nullptr;
  }
}

void CWnd::SetWindowText(const wchar_t* text) {
  state_->text = text ? text : L"";
  if (m_hWnd == nullptr) return;
  if (state_->peer) state_->peer->set_title(state_->text);
  Invalidate();
}

void CWnd::GetWindowText(CString& text) const {
  text = state_->text;
}

int CWnd::GetWindowText(wchar_t* buffer, int size) const {
  if (!buffer || size <= 0) return 0;
  const int count = std::min(size - 1, state_->text.GetLength());
  const wchar_t* text = state_->text;
  std::wmemcpy(buffer, text, static_cast<size_t>(count));
  buffer[count] = 0;
  return count;
}

int CWnd::GetWindowTextLength() const {
  return state_->text.GetLength();
}

void CWnd::SetFont(CFont* font, BOOL redraw) {
  SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw);
}

CFont* CWnd::GetFont() const {
  return state_->font;
}

CWnd* AfxGetMainWnd() {
  return window_system().main;
}

void AfxSetMainWnd(CWnd* window) {
  window_system().main = window;
}

}  // namespace brindle
