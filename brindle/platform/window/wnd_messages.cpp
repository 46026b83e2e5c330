// How a message finds its handler, and what a window does by itself.
#include <algorithm>

#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

CPoint point_of(LPARAM value) {
  return {GET_X_LPARAM(value), GET_Y_LPARAM(value)};
}

CWnd* window_of(WPARAM handle) {
  return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}

// A context that stands for a handle as long as a handler runs.
class BorrowedDC {
 public:
  explicit BorrowedDC(HDC hdc) { dc_.Attach(hdc); }
  ~BorrowedDC() { dc_.Detach(); }
  CDC* operator&() { return &dc_; }

 private:
  CDC dc_;
};

bool is_reflected(UINT message) {
  return message == WM_DRAWITEM || message == WM_MEASUREITEM || message == WM_COMPAREITEM ||
         message == WM_DELETEITEM;
}

CWnd* sender_of(const CWnd& parent, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_DRAWITEM:
      return CWnd::FromHandle(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)->hwndItem);
    case WM_COMPAREITEM:
      return CWnd::FromHandle(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam)->hwndItem);
    case WM_DELETEITEM:
      return CWnd::FromHandle(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam)->hwndItem);
    default:
      return parent.GetDlgItem(static_cast<int>(wParam));
  }
}

BOOL fill_background(CWnd& window, HDC hdc, const BrushData& data) {
  BorrowedDC dc(hdc);
  CBrush brush;
  brush.set_data(data);
  CRect area;
  window.GetClientRect(area);
  (&dc)->FillRect(area, &brush);
  return TRUE;
}

}  // namespace

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return WindowProc(message, wParam, lParam);
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam) {
  for (CWnd* child : std::vector<CWnd*>(state_->children)) {
    if (std::find(state_->children.begin(), state_->children.end(), child) ==
        state_->children.end())
      continue;
    child->SendMessageToDescendants(message, wParam, lParam);
    child->SendMessage(message, wParam, lParam);
  }
}

void CWnd::on_message(UINT message, std::function<LRESULT(WPARAM, LPARAM)> handler) {
  state_->message_handlers[message] = std::move(handler);
}

void CWnd::on_control(UINT code, UINT id, std::function<void()> handler) {
  state_->control_handlers[{code, id}] = std::move(handler);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  MessageFrame*& top = window_system().frame;
  MessageFrame frame{this, message, wParam, lParam, top};
  struct Scope {
    MessageFrame*& place;
    MessageFrame* outer;
    ~Scope() { place = outer; }
  } scope{top, top};
  top = &frame;
  LRESULT result = 0;
  if (OnWndMsg(message, wParam, lParam, &result)) return result;
  return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::Default() {
  const MessageFrame* frame = window_system().frame;
  if (frame == nullptr || frame->window != this) return 0;
  return DefWindowProc(frame->message, frame->wParam, frame->lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (const auto known = state_->message_handlers.find(message);
      known != state_->message_handlers.end()) {
    const auto handler = known->second;  // it may take itself away
    *result = handler(wParam, lParam);
    return TRUE;
  }
  const UINT flags = static_cast<UINT>(wParam);
  const UINT key = static_cast<UINT>(wParam);
  const UINT repeat = LOWORD(static_cast<UINT_PTR>(lParam));
  const UINT key_flags = HIWORD(static_cast<UINT_PTR>(lParam));
  *result = 0;
  if (is_reflected(message)) {
    CWnd* sender = sender_of(*this, message, wParam, lParam);
    if (sender != nullptr && sender->OnChildNotify(message, wParam, lParam, result)) return TRUE;
  }
  switch (message) {
    case WM_CREATE:
      return *result = OnCreate(reinterpret_cast<LPCREATESTRUCT>(lParam)), TRUE;
    case WM_DESTROY:
      return OnDestroy(), TRUE;
    case WM_NCDESTROY:
      return OnNcDestroy(), TRUE;
    case WM_CLOSE:
      return OnClose(), TRUE;
    case WM_MOVE:
      return OnMove(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)), TRUE;
    case WM_SIZE:
      return OnSize(flags, LOWORD(static_cast<UINT_PTR>(lParam)),
                    HIWORD(static_cast<UINT_PTR>(lParam))),
             TRUE;
    case WM_SHOWWINDOW:
      return OnShowWindow(wParam != 0, static_cast<UINT>(lParam)), TRUE;
    case WM_ENABLE:
      return OnEnable(wParam != 0), TRUE;
    case WM_ACTIVATE:
      return OnActivate(LOWORD(wParam), reinterpret_cast<CWnd*>(lParam), FALSE), TRUE;
    case WM_SETFOCUS:
      return OnSetFocus(window_of(wParam)), TRUE;
    case WM_KILLFOCUS:
      return OnKillFocus(window_of(wParam)), TRUE;
    case WM_CAPTURECHANGED:
      return OnCaptureChanged(FromHandle(reinterpret_cast<HWND>(lParam))), TRUE;
    case WM_PAINT:
      return OnPaint(), TRUE;
    case WM_ERASEBKGND: {
      BorrowedDC dc(reinterpret_cast<HDC>(wParam));
      return *result = OnEraseBkgnd(&dc), TRUE;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC: {
      BorrowedDC dc(reinterpret_cast<HDC>(wParam));
      CWnd* control = FromHandle(reinterpret_cast<HWND>(lParam));
      *result = reinterpret_cast<LRESULT>(OnCtlColor(&dc, control, message - WM_CTLCOLOREDIT + 1));
      return TRUE;
    }
    case WM_SETCURSOR:
      return *result = OnSetCursor(window_of(wParam), LOWORD(static_cast<UINT_PTR>(lParam)),
                                   HIWORD(static_cast<UINT_PTR>(lParam))),
             TRUE;
    case WM_GETDLGCODE:
      return *result = OnGetDlgCode(), TRUE;
    case WM_KEYDOWN:
      return OnKeyDown(key, repeat, key_flags), TRUE;
    case WM_KEYUP:
      return OnKeyUp(key, repeat, key_flags), TRUE;
    case WM_CHAR:
      return OnChar(key, repeat, key_flags), TRUE;
    case WM_SYSKEYDOWN:
      return OnSysKeyDown(key, repeat, key_flags), TRUE;
    case WM_MOUSEMOVE:
      return OnMouseMove(flags, point_of(lParam)), TRUE;
    case WM_MOUSELEAVE:
      return OnMouseLeave(), TRUE;
    case WM_LBUTTONDOWN:
      return OnLButtonDown(flags, point_of(lParam)), TRUE;
    case WM_LBUTTONUP:
      return OnLButtonUp(flags, point_of(lParam)), TRUE;
    case WM_LBUTTONDBLCLK:
      return OnLButtonDblClk(flags, point_of(lParam)), TRUE;
    case WM_RBUTTONDOWN:
      return OnRButtonDown(flags, point_of(lParam)), TRUE;
    case WM_RBUTTONUP:
      return OnRButtonUp(flags, point_of(lParam)), TRUE;
    case WM_RBUTTONDBLCLK:
      return OnRButtonDblClk(flags, point_of(lParam)), TRUE;
    case WM_MBUTTONDOWN:
      return OnMButtonDown(flags, point_of(lParam)), TRUE;
    case WM_MBUTTONUP:
      return OnMButtonUp(flags, point_of(lParam)), TRUE;
    case WM_MOUSEWHEEL:
      return *result =
                 OnMouseWheel(LOWORD(wParam), static_cast<short>(HIWORD(wParam)), point_of(lParam)),
             TRUE;
    case WM_CONTEXTMENU:
      return OnContextMenu(window_of(wParam), point_of(lParam)), TRUE;
    case WM_HSCROLL:
      return OnHScroll(LOWORD(wParam), static_cast<UINT>(wParam >> 16),
                       FromHandle(reinterpret_cast<HWND>(lParam))),
             TRUE;
    case WM_VSCROLL:
      return OnVScroll(LOWORD(wParam), static_cast<UINT>(wParam >> 16),
                       FromHandle(reinterpret_cast<HWND>(lParam))),
             TRUE;
    case WM_TIMER:
      return OnTimer(wParam), TRUE;
    case WM_DRAWITEM:
      return OnDrawItem(static_cast<int>(wParam), reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)), TRUE;
    case WM_MEASUREITEM:
      return OnMeasureItem(static_cast<int>(wParam), reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)),
             TRUE;
    case WM_COMPAREITEM:
      return *result = OnCompareItem(static_cast<int>(wParam),
                                     reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam)),
             TRUE;
    case WM_DELETEITEM:
      return OnDeleteItem(static_cast<int>(wParam), reinterpret_cast<LPDELETEITEMSTRUCT>(lParam)),
             TRUE;
    case WM_INITMENUPOPUP:
      return OnInitMenuPopup(CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)),
                             LOWORD(static_cast<UINT_PTR>(lParam)),
                             HIWORD(static_cast<UINT_PTR>(lParam))),
             TRUE;
    case WM_COMMAND:
      return OnCommand(wParam, lParam);
    case WM_NOTIFY:
      return OnNotify(wParam, lParam, result);
  }
  return FALSE;
}

LRESULT CWnd::text_message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETTEXT:
      return SetWindowText(reinterpret_cast<const wchar_t*>(lParam)), TRUE;
    case WM_GETTEXT:
      return GetWindowText(reinterpret_cast<wchar_t*>(lParam), static_cast<int>(wParam));
    default:
      return GetWindowTextLength();
  }
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CLOSE:
      return DestroyWindow(), 0;
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
      return text_message(message, wParam, lParam);
    case WM_SETFONT:
      state_->font = reinterpret_cast<CFont*>(wParam);
      if (lParam != 0) Invalidate();
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(state_->font);
    case WM_SETREDRAW:
      state_->redraw = wParam != 0;
      if (wParam != 0) mark_changed(*this);
      return 0;
    case WM_PAINT: {
      PAINTSTRUCT paint;
      BeginPaint(&paint);
      EndPaint(&paint);
      return 0;
    }
    case WM_ERASEBKGND:
      if (!state_->kind->erases) return FALSE;
      return fill_background(*this, reinterpret_cast<HDC>(wParam), state_->kind->background);
    case WM_SETCURSOR:
      if (state_->is_child() && state_->parent->SendMessage(WM_SETCURSOR, wParam, lParam) != 0)
        return TRUE;
      if (window_of(wParam) != this) return FALSE;
      brindle::SetCursor(LOWORD(static_cast<UINT_PTR>(lParam)) == HTCLIENT
                             ? state_->kind->cursor
                             : LoadCursor(nullptr, IDC_ARROW));
      return FALSE;
    case WM_RBUTTONUP: {
      CPoint at(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
      ClientToScreen(&at);
      return SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_hWnd), MAKELPARAM(at.x, at.y));
    }
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
      return state_->is_child() ? state_->parent->SendMessage(message, wParam, lParam) : 0;
    case WM_SYSCHAR:
    case WM_SYSKEYDOWN:
      return 0;
  }
  return 0;
}

BOOL CWnd::PreTranslateMessage(MSG*) {
  return FALSE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  CWnd* control = FromHandle(reinterpret_cast<HWND>(lParam));
  LRESULT result = 0;
  if (control != nullptr && control->OnChildNotify(WM_COMMAND, wParam, lParam, &result))
    return TRUE;
  return OnCmdMsg(LOWORD(wParam), HIWORD(wParam), nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
  CWnd* control = header != nullptr ? FromHandle(header->hwndFrom) : nullptr;
  return control != nullptr && control->OnChildNotify(WM_NOTIFY, wParam, lParam, result);
}

BOOL CWnd::OnCmdMsg(UINT id, int code, void*, void*) {
  const auto known = state_->control_handlers.find({static_cast<UINT>(code), id});
  if (known == state_->control_handlers.end()) return FALSE;
  const auto handler = known->second;
  handler();
  return TRUE;
}

BOOL CWnd::OnChildNotify(UINT, WPARAM, LPARAM, LRESULT*) {
  return FALSE;
}

LRESULT CWnd::notify_parent(UINT code) {
  if (m_hWnd == nullptr || state_->parent == nullptr) return 0;
  return state_->parent->SendMessage(WM_COMMAND, MAKEWPARAM(state_->id, static_cast<int>(code)),
                                     reinterpret_cast<LPARAM>(m_hWnd));
}

int CWnd::OnCreate(LPCREATESTRUCT) {
  return static_cast<int>(Default());
}
void CWnd::OnDestroy() {
  Default();
}
void CWnd::OnNcDestroy() {
  Default();
}
void CWnd::PostNcDestroy() {}
void CWnd::OnClose() {
  Default();
}
void CWnd::OnMove(int, int) {
  Default();
}
void CWnd::OnSize(UINT, int, int) {
  Default();
}
void CWnd::OnShowWindow(BOOL, UINT) {
  Default();
}
void CWnd::OnEnable(BOOL) {
  Default();
}
void CWnd::OnActivate(UINT, CWnd*, BOOL) {
  Default();
}
void CWnd::OnSetFocus(CWnd*) {
  Default();
}
void CWnd::OnKillFocus(CWnd*) {
  Default();
}
void CWnd::OnCaptureChanged(CWnd*) {
  Default();
}
void CWnd::OnPaint() {
  Default();
}
BOOL CWnd::OnEraseBkgnd(CDC*) {
  return Default() != 0;
}
HBRUSH CWnd::OnCtlColor(CDC*, CWnd*, UINT) {
  return reinterpret_cast<HBRUSH>(Default());
}
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT) {
  return Default() != 0;
}
UINT CWnd::OnGetDlgCode() {
  return static_cast<UINT>(Default());
}
void CWnd::OnKeyDown(UINT, UINT, UINT) {
  Default();
}
void CWnd::OnKeyUp(UINT, UINT, UINT) {
  Default();
}
void CWnd::OnChar(UINT, UINT, UINT) {
  Default();
}
void CWnd::OnSysKeyDown(UINT, UINT, UINT) {
  Default();
}
void CWnd::OnMouseMove(UINT, CPoint) {
  Default();
}
void CWnd::OnMouseLeave() {
  Default();
}
void CWnd::OnLButtonDown(UINT, CPoint) {
  Default();
}
void CWnd::OnLButtonUp(UINT, CPoint) {
  Default();
}
void CWnd::OnLButtonDblClk(UINT, CPoint) {
  Default();
}
void CWnd::OnRButtonDown(UINT, CPoint) {
  Default();
}
void CWnd::OnRButtonUp(UINT, CPoint) {
  Default();
}
void CWnd::OnRButtonDblClk(UINT, CPoint) {
  Default();
}
void CWnd::OnMButtonDown(UINT, CPoint) {
  Default();
}
void CWnd::OnMButtonUp(UINT, CPoint) {
  Default();
}
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) {
  return Default() != 0;
}
void CWnd::OnContextMenu(CWnd*, CPoint) {
  Default();
}
void CWnd::OnHScroll(UINT, UINT, CWnd*) {
  Default();
}
void CWnd::OnVScroll(UINT, UINT, CWnd*) {
  Default();
}
void CWnd::OnTimer(UINT_PTR) {
  Default();
}
void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT) {
  Default();
}
void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT) {
  Default();
}
int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT) {
  return static_cast<int>(Default());
}
void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT) {
  Default();
}
void CWnd::OnInitMenuPopup(CMenu*, UINT, BOOL) {
  Default();
}

}  // namespace brindle
