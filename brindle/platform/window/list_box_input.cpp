// Keys, mouse and picture of a list box.
#include <algorithm>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/list_box.h"
#include "brindle/platform/window/owner_draw_internal.h"
#include "brindle/platform/window/window_dc.h"

namespace brindle {

void CListBox::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  const int page = std::max(rows_in_view() - 1, 1), last = GetCount() - 1;
  const UINT held = (GetKeyState(VK_SHIFT) < 0 ? MK_SHIFT : 0);
  int to = current_;
  switch (key) {
    case VK_UP:
    case VK_LEFT:
      to = current_ - 1;
      break;
    case VK_DOWN:
    case VK_RIGHT:
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
    case VK_SPACE:
      if ((GetStyle() & LBS_MULTIPLESEL) != 0) choose(current_, 0, true);
      return;
    default:
      return CWnd::OnKeyDown(key, repeat, flags);
  }
  if (last >= 0) choose(std::clamp(to, 0, last), held, false);
}

void CListBox::OnChar(UINT character, UINT repeat, UINT flags) {
  if (character <= 0x20) return CWnd::OnChar(character, repeat, flags);
  const wchar_t text[] = {static_cast<wchar_t>(character), 0};
  const int row = FindString(current_, text);
  if (row >= 0) choose(row, 0, false);
}

void CListBox::OnLButtonDown(UINT flags, CPoint point) {
  if (GetFocus() != this) SetFocus();
  if (m_hWnd == nullptr) return;
  BOOL outside = FALSE;
  const UINT row = ItemFromPoint(point, outside);
  if (!outside) choose(static_cast<int>(row), flags, true);
}

void CListBox::OnLButtonUp(UINT, CPoint) {}

void CListBox::OnMouseMove(UINT flags, CPoint point) {
  if ((flags & MK_LBUTTON) == 0 || several() || GetFocus() != this) return;
  BOOL outside = FALSE;
  const UINT row = ItemFromPoint(point, outside);
  if (!outside) choose(static_cast<int>(row), 0, false);
}

void CListBox::OnLButtonDblClk(UINT, CPoint point) {
  BOOL outside = FALSE;
  ItemFromPoint(point, outside);
  if (!outside) notify(LBN_DBLCLK);
}

BOOL CListBox::OnMouseWheel(UINT, short delta, CPoint) {
  if (GetCount() > 0) SetTopIndex(std::clamp(top_ + (delta > 0 ? -3 : 3), 0, GetCount() - 1));
  return TRUE;
}

void CListBox::OnVScroll(UINT code, UINT position, CWnd*) {
  const int page = std::max(rows_in_view() - 1, 1);
  int to = top_;
  switch (code) {
    case SB_LINEUP:
      --to;
      break;
    case SB_LINEDOWN:
      ++to;
      break;
    case SB_PAGEUP:
      to -= page;
      break;
    case SB_PAGEDOWN:
      to += page;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      to = static_cast<int>(position);
      break;
  }
  if (GetCount() > 0) SetTopIndex(std::clamp(to, 0, GetCount() - 1));
}

void CListBox::OnSize(UINT type, int cx, int cy) {
  CWnd::OnSize(type, cx, cy);
  update_bar();
}

void CListBox::OnSetFocus(CWnd*) {
  Invalidate();
  notify(LBN_SETFOCUS);
}

void CListBox::OnKillFocus(CWnd*) {
  Invalidate();
  notify(LBN_KILLFOCUS);
}

UINT CListBox::OnGetDlgCode() {
  return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

void CListBox::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  prepare_control(dc, *this, WM_CTLCOLORLISTBOX, GetSysColor(COLOR_WINDOW), client);
  const bool focused = GetFocus() == this;
  const COLORREF plain = dc.GetTextColor();
  for (int row = top_; row < GetCount(); ++row) {
    CRect box;
    GetItemRect(row, box);
    if (box.top >= client.bottom) break;
    const ListItems::Item& item = list_.items[static_cast<size_t>(row)];
    const bool selected = several() ? item.selected : row == current_;
    if (owner_draws()) {
      send_draw_item(dc, *this, ODT_LISTBOX, static_cast<UINT>(row),
                     (selected ? ODS_SELECTED : 0) | (focused && row == current_ ? ODS_FOCUS : 0),
                     box, item.data);
      continue;
    }
    if (selected) dc.FillSolidRect(box, GetSysColor(COLOR_HIGHLIGHT));
    dc.SetTextColor(selected ? GetSysColor(COLOR_HIGHLIGHTTEXT) : plain);
    dc.TextOut(2, box.top, item.text.c_str(), static_cast<int>(item.text.size()));
    if (focused && row == current_) dc.DrawFocusRect(box);
  }
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (owner_draws() && ask_list_itself(*this, message, lParam, result)) return TRUE;
  return CWnd::OnChildNotify(message, wParam, lParam, result);
}

void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CListBox::CompareItem(LPCOMPAREITEMSTRUCT) {
  return 0;
}
void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}

}  // namespace brindle
