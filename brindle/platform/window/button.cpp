#include "brindle/platform/window/button.h"

#include <algorithm>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/window_dc.h"

namespace brindle {
namespace {

constexpr int kMarkSide = 13;

bool is_check(DWORD kind) {
  return kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX || kind == BS_3STATE ||
         kind == BS_AUTO3STATE;
}

bool is_radio(DWORD kind) {
  return kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
}

}  // namespace

BOOL CButton::Create(LPCTSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"BUTTON", text, style, rect, parent, id);
}

BOOL CButton::PreCreateWindow(CREATESTRUCT& create) {
  if ((create.style & BS_TYPEMASK) == BS_GROUPBOX) create.dwExStyle |= WS_EX_TRANSPARENT;
  return CWnd::PreCreateWindow(create);
}

void CButton::SetCheck(int check) {
  if (!is_check(kind()) && !is_radio(kind())) return;
  const int most = kind() == BS_3STATE || kind() == BS_AUTO3STATE ? 2 : 1;
  check_ = std::clamp(check, 0, most);
  Invalidate();
}

UINT CButton::GetState() const {
  return static_cast<UINT>(check_ | (pushed_ ? BST_PUSHED : 0) |
                           (GetFocus() == this ? BST_FOCUS : 0));
}

void CButton::SetState(BOOL pushed) {
  if (pushed_ == (pushed != FALSE)) return;
  pushed_ = pushed != FALSE;
  Invalidate();
}

void CButton::SetButtonStyle(UINT style, BOOL redraw) {
  ModifyStyle(0xFFFF, style & 0xFFFF);
  if (redraw) Invalidate();
}

HBITMAP CButton::SetBitmap(HBITMAP bitmap) {
  Invalidate();
  return std::exchange(bitmap_, bitmap);
}

void CButton::click() {
  const HWND handle = m_hWnd;
  SetState(FALSE);
  switch (kind()) {
    case BS_AUTOCHECKBOX:
      SetCheck(check_ == 0);
      break;
    case BS_AUTO3STATE:
      SetCheck((check_ + 1) % 3);
      break;
    case BS_AUTORADIOBUTTON:
      // The others of its group: back to the one that begins it, on to the next that begins one.
      if (CWnd* first = this) {
        while ((first->GetStyle() & WS_GROUP) == 0 && first->GetWindow(GW_HWNDPREV) != nullptr)
          first = first->GetWindow(GW_HWNDPREV);
        for (CWnd* at = first; at != nullptr; at = at->GetWindow(GW_HWNDNEXT)) {
          if (at != first && (at->GetStyle() & WS_GROUP) != 0) break;
          auto* other = dynamic_cast<CButton*>(at);
          if (other != nullptr && other != this && other->kind() == BS_AUTORADIOBUTTON)
            other->SetCheck(0);
        }
      }
      SetCheck(1);
      break;
    case BS_GROUPBOX:
      return;
  }
  if (handle != nullptr) notify_parent(BN_CLICKED);
}

LRESULT CButton::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case BM_GETCHECK:
      return GetCheck();
    case BM_SETCHECK:
      return SetCheck(static_cast<int>(wParam)), 0;
    case BM_GETSTATE:
      return GetState();
    case BM_SETSTATE:
      return SetState(wParam != 0), 0;
    case BM_SETSTYLE:
      return SetButtonStyle(static_cast<UINT>(wParam), lParam != 0), 0;
    case BM_CLICK:
      if (IsWindowEnabled()) click();
      return 0;
    case WM_ERASEBKGND:
      return TRUE;
  }
  return CWnd::DefWindowProc(message, wParam, lParam);
}

void CButton::OnEnable(BOOL enable) {
  CWnd::OnEnable(enable);
  Invalidate();
}

void CButton::OnSetFocus(CWnd*) {
  Invalidate();
  if ((GetStyle() & BS_NOTIFY) != 0) notify_parent(BN_SETFOCUS);
}

void CButton::OnKillFocus(CWnd*) {
  SetState(FALSE);
  pressing_ = false;
  Invalidate();
  if ((GetStyle() & BS_NOTIFY) != 0) notify_parent(BN_KILLFOCUS);
}

void CButton::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  if (key != VK_SPACE) return CWnd::OnKeyDown(key, repeat, flags);
  pressing_ = true;
  SetState(TRUE);
}

void CButton::OnKeyUp(UINT key, UINT repeat, UINT flags) {
  if (key != VK_SPACE || !pressing_) return CWnd::OnKeyUp(key, repeat, flags);
  pressing_ = false;
  click();
}

void CButton::OnLButtonDown(UINT, CPoint) {
  if (kind() == BS_GROUPBOX) return;
  if (GetFocus() != this) SetFocus();
  if (m_hWnd == nullptr) return;
  SetCapture();
  pressing_ = true;
  SetState(TRUE);
}

void CButton::OnLButtonDblClk(UINT flags, CPoint point) {
  OnLButtonDown(flags, point);
}

void CButton::OnMouseMove(UINT, CPoint point) {
  if (!pressing_ || GetCapture() != this) return;
  CRect client;
  GetClientRect(client);
  SetState(client.PtInRect(point));
}

void CButton::OnLButtonUp(UINT, CPoint point) {
  if (!pressing_) return;
  CRect client;
  GetClientRect(client);
  const bool inside = client.PtInRect(point);
  const HWND handle = m_hWnd;
  pressing_ = false;
  SetState(FALSE);
  if (GetCapture() == this) ReleaseCapture();
  if (inside && IsWindow(handle)) click();
}

void CButton::OnCaptureChanged(CWnd*) {
  if (!pressing_) return;
  pressing_ = false;
  SetState(FALSE);
}

UINT CButton::OnGetDlgCode() {
  if (is_radio(kind())) return DLGC_BUTTON | DLGC_RADIOBUTTON;
  if (kind() == BS_DEFPUSHBUTTON) return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
  if (kind() == BS_PUSHBUTTON) return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
  return kind() == BS_GROUPBOX ? DLGC_STATIC : DLGC_BUTTON;
}

void CButton::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  prepare_control(dc, *this, WM_CTLCOLORBTN, GetSysColor(COLOR_BTNFACE), client);
  if (kind() == BS_OWNERDRAW)
    send_draw_item(dc, *this, ODT_BUTTON, 0,
                   (pushed_ ? ODS_SELECTED : 0) | (GetFocus() == this ? ODS_FOCUS : 0), client, 0);
  else if (kind() == BS_GROUPBOX)
    paint_group(dc, client);
  else if ((is_check(kind()) || is_radio(kind())) && (GetStyle() & BS_PUSHLIKE) == 0)
    paint_mark(dc, client);
  else
    paint_push(dc, client);
}

void CButton::paint_push(CDC& dc, CRect box) {
  const bool down = pushed_ || check_ != 0, focused = GetFocus() == this;
  const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT), dark = GetSysColor(COLOR_BTNSHADOW);
  if (kind() == BS_DEFPUSHBUTTON || focused) {
    const COLORREF frame = GetSysColor(COLOR_WINDOWFRAME);
    dc.Draw3dRect(box, frame, frame);
    box.DeflateRect(1, 1);
  }
  dc.Draw3dRect(box, down ? dark : light, down ? light : dark);
  box.DeflateRect(2, 2);
  CRect words = down ? box + CPoint(1, 1) : box;
  if (bitmap_ != nullptr) {
    draw_control_bitmap(dc, bitmap_, words);
  } else {
    CString text;
    GetWindowText(text);
    dc.DrawText(text, words, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  }
  if (focused) dc.DrawFocusRect(box);
}

void CButton::paint_mark(CDC& dc, const CRect& box) {
  const bool left_text = (GetStyle() & BS_LEFTTEXT) != 0;
  const int x = left_text ? box.right - kMarkSide : box.left;
  const CRect mark(CPoint(x, box.top + (box.Height() - kMarkSide) / 2),
                   CSize(kMarkSide, kMarkSide));
  CPen frame(PS_SOLID, 1, GetSysColor(COLOR_WINDOWFRAME));
  CBrush inside(GetSysColor(pushed_ ? COLOR_BTNFACE : COLOR_WINDOW));
  CPen* old_pen = dc.SelectObject(&frame);
  CBrush* old_brush = dc.SelectObject(&inside);
  const COLORREF ink = dc.GetTextColor();
  if (is_radio(kind())) {
    dc.Ellipse(mark);
    CBrush dot(ink);
    dc.SelectObject(&dot);
    if (check_ != 0) dc.Ellipse(mark.left + 4, mark.top + 4, mark.right - 4, mark.bottom - 4);
    dc.SelectObject(&inside);
  } else {
    dc.Rectangle(mark);
    if (check_ == BST_INDETERMINATE)
      dc.FillSolidRect(mark.left + 3, mark.top + 3, 7, 7, ink);
    else if (check_ != 0)
      for (int i = 0; i < 7; ++i)
        dc.FillSolidRect(mark.left + 3 + i, mark.top + 5 + (i < 3 ? i : 4 - i), 1, 3, ink);
  }
  dc.SelectObject(old_pen);
  dc.SelectObject(old_brush);
  CRect words = box;
  (left_text ? words.right : words.left) += left_text ? -kMarkSide - 4 : kMarkSide + 4;
  CString text;
  GetWindowText(text);
  dc.DrawText(text, words, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
  if (GetFocus() == this) dc.DrawFocusRect(words);
}

void CButton::paint_group(CDC& dc, const CRect& box) {
  CString text;
  GetWindowText(text);
  const CSize size = control_text_extent(*this, static_cast<const wchar_t*>(text));
  CRect frame = box;
  frame.top += control_line_height(*this) / 2;
  const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
  dc.Draw3dRect(frame, shadow, shadow);
  if (text.IsEmpty()) return;
  dc.FillSolidRect(box.left + 7, box.top, size.cx + 4, size.cy, GetSysColor(COLOR_BTNFACE));
  dc.TextOut(box.left + 9, box.top, text);
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message != WM_DRAWITEM || kind() != BS_OWNERDRAW)
    return CWnd::OnChildNotify(message, wParam, lParam, result);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

}  // namespace brindle
