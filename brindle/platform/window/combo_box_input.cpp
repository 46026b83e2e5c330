// Keys, mouse and picture of a combo box and its list.
#include <algorithm>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/combo_list_internal.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/owner_draw_internal.h"
#include "brindle/platform/window/window_dc.h"

namespace brindle {

void CComboBox::key_in_list(UINT key) {
  const int page = dropped_ ? std::max(dropped_->rows() - 1, 1) : 5;
  const int last = GetCount() - 1;
  const bool dropped = GetDroppedState();
  int to = current_;
  switch (key) {
    case VK_F4:
      return ShowDropDown(!dropped);
    case VK_ESCAPE:
      if (!dropped) return;
      if (current_ != before_drop_) SetCurSel(before_drop_);
      return close_list(false);
    case VK_RETURN:
      return close_list(true);
    case VK_UP:
      to = current_ - 1;
      break;
    case VK_DOWN:
      if (extended_ && !dropped) return ShowDropDown();
      to = current_ + 1;
      break;
    case VK_PRIOR:
      to = current_ - page;
      break;
    case VK_NEXT:
      to = current_ + page;
      break;
    case VK_HOME:
      to = 0;
      break;
    case VK_END:
      to = last;
      break;
  }
  if (last < 0) return;
  to = std::clamp(to, 0, last);
  if (to == current_) return;
  const HWND handle = m_hWnd;
  if (!dropped) notify_parent(CBN_SELENDOK);
  if (m_hWnd == handle) user_select(to);
}

void CComboBox::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  switch (key) {
    case VK_LEFT:
      return key_in_list(VK_UP);
    case VK_RIGHT:
      return key_in_list(VK_DOWN);
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_HOME:
    case VK_END:
    case VK_F4:
    case VK_ESCAPE:
    case VK_RETURN:
      return key_in_list(key);
  }
  CWnd::OnKeyDown(key, repeat, flags);
}

void CComboBox::OnChar(UINT character, UINT repeat, UINT flags) {
  if (character <= 0x20) return CWnd::OnChar(character, repeat, flags);
  const wchar_t text[] = {static_cast<wchar_t>(character), 0};
  const int row = FindString(current_, text);
  if (row >= 0) user_select(row);
}

void CComboBox::OnLButtonDown(UINT, CPoint point) {
  // A press on the field closed the list already, as every press outside of the list does.
  const bool was_dropped = GetDroppedState();
  if (GetFocus() != this && (!edit_ || GetFocus() != edit_.get())) SetFocus();
  if (m_hWnd == nullptr) return;
  CRect client;
  GetClientRect(client);
  if (client.PtInRect(point)) ShowDropDown(!was_dropped);
}

BOOL CComboBox::OnMouseWheel(UINT, short delta, CPoint) {
  key_in_list(delta > 0 ? VK_UP : VK_DOWN);
  return TRUE;
}

void CComboBox::OnSetFocus(CWnd*) {
  Invalidate();
  if (edit_) {
    edit_->SetFocus();
    edit_->SetSel(0, -1);
  } else {
    notify_parent(CBN_SETFOCUS);
  }
}

void CComboBox::OnKillFocus(CWnd* new_window) {
  Invalidate();
  if (edit_ && new_window == edit_.get()) return;
  const HWND handle = m_hWnd;
  close_list(false);
  if (m_hWnd == handle && !edit_) notify_parent(CBN_KILLFOCUS);
}

UINT CComboBox::OnGetDlgCode() {
  UINT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
  if (GetDroppedState()) code |= DLGC_WANTALLKEYS;
  return code;
}

BOOL CComboBox::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (!edit_ || reinterpret_cast<HWND>(lParam) != edit_->m_hWnd)
    return CWnd::OnCommand(wParam, lParam);
  switch (HIWORD(wParam)) {
    case EN_CHANGE: {
      CString text;
      edit_->GetWindowText(text);
      CWnd::SetWindowText(text);
      current_ = text.IsEmpty() ? -1 : FindStringExact(-1, text);
      notify_parent(CBN_EDITCHANGE);
      break;
    }
    case EN_UPDATE:
      notify_parent(CBN_EDITUPDATE);
      break;
    case EN_SETFOCUS:
      notify_parent(CBN_SETFOCUS);
      break;
    case EN_KILLFOCUS: {
      const HWND handle = m_hWnd;
      if (GetFocus() == this) break;
      close_list(false);
      if (m_hWnd == handle) notify_parent(CBN_KILLFOCUS);
      break;
    }
  }
  return TRUE;
}

void CComboBox::OnSize(UINT type, int cx, int cy) {
  CWnd::OnSize(type, cx, cy);
  layout();
}

void CComboBox::layout() {
  if (!edit_ || edit_->m_hWnd == nullptr) return;
  CRect client;
  GetClientRect(client);
  if (is_simple()) {
    const int field = std::min<int>(field_height(), client.Height());
    edit_->MoveWindow(2, 2, std::max(client.Width() - 4, 0), std::max(field - 4, 0));
    dropped_->MoveWindow(0, field, client.Width(), client.Height() - field);
    dropped_->fit();
    return;
  }
  const int button = std::min<int>(GetSystemMetrics(SM_CXVSCROLL), client.Width() / 2);
  edit_->MoveWindow(2, 2, std::max(client.Width() - button - 3, 0),
                    std::max(client.Height() - 4, 0));
}

void CComboBox::draw_row(CDC& dc, int index, const CRect& box, bool selected, bool in_field) {
  if (owner_draws()) {
    const DWORD_PTR data = list_.good(index) ? list_.items[static_cast<size_t>(index)].data : 0;
    send_draw_item(dc, *this, ODT_COMBOBOX, static_cast<UINT>(index),
                   (selected ? ODS_SELECTED : 0) | (in_field ? ODS_COMBOBOXEDIT : 0), box, data);
    return;
  }
  const COLORREF plain = dc.GetTextColor();
  if (selected) {
    dc.FillSolidRect(box, GetSysColor(COLOR_HIGHLIGHT));
    dc.SetTextColor(GetSysColor(COLOR_HIGHLIGHTTEXT));
  }
  if (list_.good(index)) {
    const std::wstring& text = list_.items[static_cast<size_t>(index)].text;
    CRect words(box.left + 2, box.top, box.right, box.bottom);
    dc.DrawText(text.c_str(), static_cast<int>(text.size()), words,
                DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  }
  dc.SetTextColor(plain);
}

void CComboBox::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  const bool enabled = IsWindowEnabled();
  prepare_control(dc, *this, WM_CTLCOLOREDIT, GetSysColor(enabled ? COLOR_WINDOW : COLOR_BTNFACE),
                  client);
  const COLORREF frame = GetSysColor(COLOR_BTNSHADOW);
  if (is_simple()) client.bottom = std::min<LONG>(client.bottom, field_height());
  dc.Draw3dRect(client, frame, frame);
  if (is_simple()) return;
  client.DeflateRect(1, 1);
  CRect button = client;
  button.left = button.right - std::min<int>(GetSystemMetrics(SM_CXVSCROLL), client.Width() / 2);
  dc.FillSolidRect(button, GetSysColor(COLOR_BTNFACE));
  const CPoint middle = button.CenterPoint();
  const COLORREF arrow = GetSysColor(enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
  for (int i = 0; i < 4; ++i)
    dc.FillSolidRect(middle.x - 3 + i, middle.y - 1 + i, 7 - 2 * i, 1, arrow);
  client.right = button.left;
  client.DeflateRect(1, 1);
  if (!edit_) draw_row(dc, current_, client, GetFocus() == this && !GetDroppedState(), true);
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (owner_draws() && ask_list_itself(*this, message, lParam, result)) return TRUE;
  return CWnd::OnChildNotify(message, wParam, lParam, result);
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT) {
  return 0;
}
void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}

void ComboList::open(const CRect& screen, int visible_rows) {
  int height = 2;
  const int room = screen.Height() - 2;
  rows_ = 0;
  for (int row = 0; row < visible_rows; ++row) {
    const int row_height = box_.GetItemHeight(row);
    if (rows_ > 0 && height - 2 + row_height / 2 > room) break;  // half a row is shown whole
    height += row_height;
    ++rows_;
  }
  CRect place(screen.left, screen.top, screen.right, screen.top + height);
  const int screen_height = GetSystemMetrics(SM_CYSCREEN);
  CRect field;
  box_.GetWindowRect(field);
  if (place.bottom > screen_height && field.top - height >= 0)
    place.OffsetRect(0, field.top - height - place.top);
  if (m_hWnd == nullptr)
    CreateEx(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST, nullptr, nullptr,
             WS_POPUP | WS_BORDER, place, &box_, 0);
  else
    MoveWindow(place);
  top = 0;
  set_highlight(box_.GetCurSel(), true);
  set_top(top);
  ShowWindow(SW_SHOWNOACTIVATE);
}

void ComboList::fit() {
  CRect client;
  GetClientRect(client);
  rows_ = std::max(static_cast<int>(client.Height()) / std::max(box_.GetItemHeight(0), 1), 1);
  set_top(top);
}

void ComboList::set_highlight(int row, bool bring_into_view) {
  highlight = row;
  if (bring_into_view && row >= 0) set_top(std::clamp(top, std::max(row - rows_ + 1, 0), row));
  Invalidate();
}

void ComboList::set_top(int row) {
  top = std::clamp(row, 0, std::max(box_.GetCount() - rows_, 0));
  SCROLLINFO info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(box_.GetCount() - 1, 0);
  info.nPage = static_cast<UINT>(rows_);
  info.nPos = top;
  SetScrollInfo(SB_VERT, &info);
  Invalidate();
}

CRect ComboList::row_rect(int row) const {
  CRect client;
  GetClientRect(client);
  int y = 0;
  for (int i = top; i < row; ++i) y += box_.GetItemHeight(i);
  return {0, y, client.right, y + box_.GetItemHeight(row)};
}

int ComboList::row_at(CPoint point) const {
  CRect client;
  GetClientRect(client);
  if (!client.PtInRect(point)) return -1;
  for (int row = top, y = 0; row < box_.GetCount(); ++row) {
    y += box_.GetItemHeight(row);
    if (point.y < y) return row;
  }
  return -1;
}

void ComboList::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  prepare_control(dc, box_, WM_CTLCOLORLISTBOX, GetSysColor(COLOR_WINDOW), client);
  for (int row = top; row < box_.GetCount(); ++row) {
    const CRect box = row_rect(row);
    if (box.top >= client.bottom) break;
    box_.draw_row(dc, row, box, row == highlight, false);
  }
}

void ComboList::OnLButtonDown(UINT flags, CPoint point) {
  if (!box_.is_simple()) return CWnd::OnLButtonDown(flags, point);
  const int row = row_at(point);
  box_.SetFocus();
  if (row >= 0) box_.user_select(row);
}

void ComboList::OnMouseMove(UINT, CPoint point) {
  if (box_.is_simple()) return;  // a row is chosen by a press
  const int row = row_at(point);
  if (row >= 0 && row != highlight) set_highlight(row, false);
}

void ComboList::OnLButtonUp(UINT, CPoint point) {
  if (box_.is_simple()) return;
  const int row = row_at(point);
  if (row < 0) return;
  highlight = row;
  box_.close_list(true);
}

BOOL ComboList::OnMouseWheel(UINT, short delta, CPoint) {
  set_top(top + (delta > 0 ? -3 : 3));
  return TRUE;
}

void ComboList::OnVScroll(UINT code, UINT position, CWnd*) {
  switch (code) {
    case SB_LINEUP:
      return set_top(top - 1);
    case SB_LINEDOWN:
      return set_top(top + 1);
    case SB_PAGEUP:
      return set_top(top - rows_);
    case SB_PAGEDOWN:
      return set_top(top + rows_);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return set_top(static_cast<int>(position));
  }
}

void ComboField::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  const bool dropped = box_.GetDroppedState();
  const bool for_list = key == VK_UP || key == VK_DOWN || key == VK_F4 || key == VK_PRIOR ||
                        key == VK_NEXT || (dropped && (key == VK_RETURN || key == VK_ESCAPE));
  if (for_list) return box_.key_in_list(key);
  CEdit::OnKeyDown(key, repeat, flags);
}

BOOL ComboField::OnMouseWheel(UINT, short delta, CPoint) {
  box_.key_in_list(delta > 0 ? VK_UP : VK_DOWN);
  return TRUE;
}

}  // namespace brindle
