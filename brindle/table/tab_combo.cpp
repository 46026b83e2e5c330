#include "brindle/table/tab_combo.h"

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/table/table_bitmaps.h"
#include "brindle/table/table_messages.h"

namespace brindle {

namespace {

bool is_down(UINT key) {
  return GetKeyState(static_cast<int>(key)) < 0;
}

}  // namespace

bool CTabCombo::has_edit_field() const {
  return (GetStyle() & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
}

void CTabCombo::tell_grid(UINT message, WPARAM wParam) {
  if (CWnd* const grid = GetParent()) grid->SendMessage(message, wParam);
}

bool CTabCombo::key_down(UINT key) {
  const bool shift = is_down(VK_SHIFT);
  switch (key) {
    case VK_UP:
    case VK_DOWN:
      if (!shift) return false;
      tell_grid(key == VK_UP ? WM_TABLE_UP : WM_TABLE_DOWN);
      return true;
    case VK_LEFT:
    case VK_RIGHT:
      if (has_edit_field() && (shift || is_down(VK_CONTROL))) return false;
      tell_grid(key == VK_LEFT ? WM_TABLE_PREVIOUS_CELL : WM_TABLE_NEXT_CELL);
      return true;
    case VK_PRIOR:
    case VK_NEXT:
      tell_grid(WM_VSCROLL, key == VK_PRIOR ? SB_PAGEUP : SB_PAGEDOWN);
      return true;
    case VK_ESCAPE:
      tell_grid(WM_TABLE_TYPED, key);
      return false;
    case VK_TAB:
    case VK_RETURN:
      // The row that the dropped list stands on is taken first.
      if (GetDroppedState() && highlighted() != GetCurSel()) SetCurSel(highlighted());
      tell_grid(key == VK_TAB && shift ? WM_TABLE_PREVIOUS_CELL : WM_TABLE_NEXT_CELL);
      return true;
    default:
      return false;
  }
}

// Keys and clicks reach the box here also when they are for its edit field.
BOOL CTabCombo::PreTranslateMessage(MSG* message) {
  if (message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE) {
    if (message->hwnd != m_hWnd) key_down(VK_ESCAPE);  // else OnKeyDown does it
    if (!GetDroppedState()) return CComboBox::PreTranslateMessage(message);
    DispatchMessage(message);  // a dialog around must not be cancelled by closing the list
    return TRUE;
  }
  if (message->message == WM_KEYDOWN && key_down(static_cast<UINT>(message->wParam))) return TRUE;
  if (message->message == WM_RBUTTONDOWN && GetParent() != nullptr) {  // for the row menu
    CPoint at(GET_X_LPARAM(message->lParam), GET_Y_LPARAM(message->lParam));
    CWnd::FromHandle(message->hwnd)->MapWindowPoints(GetParent(), &at, 1);
    GetParent()->SendMessage(WM_RBUTTONDOWN, message->wParam, MAKELPARAM(at.x, at.y));
    return TRUE;
  }
  const bool leaving_char = message->wParam == L'\t' || message->wParam == L'\r';
  if (message->message == WM_CHAR && leaving_char) return TRUE;
  return CComboBox::PreTranslateMessage(message);
}

void CTabCombo::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  if (!key_down(key)) CComboBox::OnKeyDown(key, repeat, flags);
}

void CTabCombo::OnKillFocus(CWnd* new_window) {
  CComboBox::OnKillFocus(new_window);
  const bool inside = new_window != nullptr && IsChild(new_window);
  if (!has_edit_field() && !inside && !GetDroppedState()) tell_grid(WM_TABLE_COMBO_LOST_FOCUS);
}

void CTabCombo::OnLButtonDblClk(UINT flags, CPoint point) {
  CComboBox::OnLButtonDblClk(flags, point);
  tell_grid(WM_TABLE_COMBO_DOUBLE_CLICK);
}

UINT CTabCombo::OnGetDlgCode() {
  return CComboBox::OnGetDlgCode() | DLGC_WANTTAB | DLGC_WANTARROWS;
}

void CTabCombo::OnSelchange() {
  tell_grid(WM_TABLE_COMBO_SELECTED);
}

void CTabCombo::OnCloseup() {
  tell_grid(WM_TABLE_COMBO_CLOSED);
  if (GetSafeHwnd() && (GetStyle() & WS_VISIBLE) != 0) ShowWindow(SW_HIDE);
}

void CTabCombo::OnSelendok() {
  if (!has_edit_field()) return;
  if (GetCurSel() >= 0) {
    CString text;
    GetLBText(GetCurSel(), text);
    SetWindowText(text);
  }
  tell_grid(WM_TABLE_COMBO_LOST_FOCUS);
}

BOOL CTabCombo::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const BOOL done = CComboBox::OnChildNotify(message, wParam, lParam, result);
  if (message != WM_COMMAND) return done;
  switch (HIWORD(wParam)) {
    case CBN_DROPDOWN:
      m_bListOpen = true;
      break;
    case CBN_SELCHANGE:
      OnSelchange();
      break;
    case CBN_CLOSEUP:
      m_bListOpen = false;
      OnCloseup();
      break;
    case CBN_SELENDOK:  // the arrows send it without a list too, which ends nothing
      if (m_bListOpen) OnSelendok();
      break;
    case CBN_KILLFOCUS:
      if (has_edit_field()) tell_grid(WM_TABLE_COMBO_LOST_FOCUS);
      break;
    default:
      break;
  }
  return done;
}

int CTabBmpCombo::AddBitmapItem(UINT id) {
  // The box has no texts: what stands in a text's place is the item's data.
  return AddString(reinterpret_cast<LPCTSTR>(UINT_PTR{id}));
}

void CTabBmpCombo::MeasureItem(LPMEASUREITEMSTRUCT item) {
  const auto picture = find_table_bitmap(static_cast<UINT>(item->itemData));
  if (picture == nullptr) return;
  item->itemWidth = static_cast<UINT>(picture->width());
  item->itemHeight = static_cast<UINT>(picture->height());
}

void CTabBmpCombo::DrawItem(LPDRAWITEMSTRUCT item) {
  CDC dc;
  dc.Attach(item->hDC);
  CRect rect = item->rcItem;
  const bool selected = (item->itemState & ODS_SELECTED) != 0;
  dc.FillSolidRect(&rect, GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  if (item->itemID != 0xFFFFFFFF) {
    draw_table_bitmap(&dc, rect.left, rect.top, static_cast<UINT>(item->itemData));
  }
  dc.Detach();
}

int CTabBmpCombo::CompareItem(LPCOMPAREITEMSTRUCT) {
  return 0;
}

BOOL CTabBmpCombo::OnEraseBkgnd(CDC* dc) {
  CRect client;
  GetClientRect(&client);
  dc->FillSolidRect(&client, GetSysColor(COLOR_WINDOW));
  return TRUE;
}

}  // namespace brindle
