// The mouse: clicks in cells and titles, dragged column boundaries, small buttons.
#include <cstdlib>

#include "brindle/table/table_messages.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

namespace {

constexpr int kGrip = 4;      // a boundary is taken from nearer than this
constexpr int kClosest = 15;  // a boundary stays farther than this from its neighbours
constexpr int kSmallButtonWidth = 10;

LPARAM packed(int low, int high) {
  return MAKELPARAM(low, high);
}

}  // namespace

// Whether a cell lies there that can be clicked: the last row of a shifted column has none.
bool CTableWnd::cell_at(CPoint point, int& hang, int& lie) {
  hang = lie = -1;
  if (GetLieCount() > 0) PointInWhichHangLie(point, hang, lie);
  return has_cell(hang, lie);
}

bool CTableWnd::small_button_rect(int hang, int lie, CRect& rect) {
  if (!m_bCellBtn || !has_cell(hang, lie) || !IsButton(hang, lie)) return false;
  if (GetButtonID(hang, lie) < 0) return false;  // the cell is a button as a whole
  GetHangLieRect(hang, lie, rect);
  rect.DeflateRect(0, 2, 2, 1);
  rect.left = rect.right - kSmallButtonWidth;
  return true;
}

// How far a boundary stands from its unscrolled place: as the column before it does, which a
// derived class may hold fast.
int CTableWnd::boundary_shift(int i) {
  const bool one_a_column = m_arDragLie.IsEmpty() && m_arTitlePos.GetSize() == GetLieCount() + 1;
  if (!one_a_column || i < 1) return m_nLieShift;
  RECT rect;
  GetHangLieRect(0, i, rect);
  return rect.left - table_cell_rect(layout(), 0, i, false).left + m_nLieShift;
}

// After a drag the editor goes to where its cell is now.
void CTableWnd::place_editor() {
  commit_pending();
  refresh_editor();
}

bool CTableWnd::start_title_drag(CPoint point) {
  if (!m_bTitleDragEnabled) return false;
  for (int i = 1; i < m_arTitlePos.GetSize(); ++i) {
    const int x = point.x - boundary_shift(i);
    if (x <= 0 || std::abs(x - m_arTitlePos[i]) >= kGrip) continue;
    if (point.x < covered_width(i)) continue;  // it isn't seen there
    m_bTitleDrag = 1;
    m_nDragIndex = i;
    SetCapture();
    return true;
  }
  return false;
}

// A derived class may sort its rows now, so what was typed goes to its row before.
void CTableWnd::click_title(CPoint point) {
  int hang = -1, lie = -1;
  if (GetLieCount() > 0) PointInWhichHangLie(point, hang, lie);
  if (hang != 0) return;
  commit_pending();
  DealTitleClicked(lie);
  refresh_editor();
}

void CTableWnd::select_by_click(int hang, int lie, UINT flags) {
  if (lie != 1 && m_bSelByHead) return;
  // Committing may copy a value to all selected rows: those from before the click.
  commit_pending();
  if ((flags & MK_CONTROL) != 0) {
    TangleSelectHang(hang);
  } else if ((flags & MK_SHIFT) != 0) {
    RangeSelectHang(hang);
  } else {
    DirectSelectHang(hang);
  }
}

void CTableWnd::OnLButtonDown(UINT flags, CPoint point) {
  if (point.y < m_nTitleHeight) {
    if (!start_title_drag(point)) click_title(point);
    return;
  }
  int hang, lie;
  if (!cell_at(point, hang, lie)) {
    Invalidate(FALSE);
    return;
  }
  if (hang == m_nHangCount && IsLieShifted(lie)) return;
  select_by_click(hang, lie, flags);
  if (UseCombo(hang, lie)) {
    MoveCombo(hang, lie);
  } else {
    MoveEdit(hang, lie);
    const bool wide = has_cell(hang, lie) && IsButton(hang, lie) && GetButtonID(hang, lie) < 0;
    if (wide && CanEdit(hang, lie)) {
      m_bBtnDown = 1;
      m_nBtnHang = hang;
      m_nBtnLie = lie;
      SetCapture();
      InvalidateCell(hang, lie);
    }
  }
  // Committing the cell left may have taken this one away.
  if (!has_cell(hang, lie)) return;
  if (HitCheckString(hang, lie, point)) touch_check(hang, lie);
  CRect button;
  if (small_button_rect(hang, lie, button) && PointInRECT(point, button)) {
    PostMessage(WM_TABLE_BUTTON, static_cast<WPARAM>(packed(lie, hang)), GetButtonID(hang, lie));
  }
  Invalidate(FALSE);
}

void CTableWnd::OnLButtonDblClk(UINT flags, CPoint point) {
  OnLButtonDown(flags, point);
}

void CTableWnd::OnLButtonUp(UINT, CPoint) {
  const bool dragged = m_bTitleDrag, held = m_bBtnDown;
  m_bTitleDrag = m_bBtnDown = 0;
  if ((dragged || held) && GetCapture() == this) ReleaseCapture();
  if (dragged) place_editor();
  if (!held || !has_cell(m_nBtnHang, m_nBtnLie)) return;
  InvalidateCell(m_nBtnHang, m_nBtnLie);
  press_wide_button(m_nBtnHang, m_nBtnLie);
}

void CTableWnd::press_wide_button(int hang, int lie) {
  const int id = GetButtonID(hang, lie);
  // Hang in the low word, lie in the high one: not as OnTableButtonClick, and meant so.
  tell_owner(WM_TABLE_BUTTON, static_cast<WPARAM>(packed(hang, lie)), id);
  DealTableButtonClick(id);
}

LRESULT CTableWnd::OnTableButtonClick(WPARAM wParam, LPARAM lParam) {
  int lie = LOWORD(wParam), hang = HIWORD(wParam);
  if (wParam == 0 && lParam == -1) {  // the button in the editor
    hang = m_nEditHang;
    lie = m_nEditLie;
  }
  if (!has_cell(hang, lie)) return 0;
  commit_pending();
  if (!has_cell(hang, lie)) return 0;
  const int id = GetButtonID(hang, lie);
  tell_owner(WM_TABLE_BUTTON, static_cast<WPARAM>(packed(lie, hang)), id);
  DealTableButtonClick(id);
  return 0;
}

void CTableWnd::drag_title(CPoint point) {
  const int i = m_nDragIndex, count = static_cast<int>(m_arTitlePos.GetSize());
  const int x = point.x - boundary_shift(i);
  if (i < 1 || i >= count - 1 || x - m_arTitlePos[i - 1] <= kClosest ||
      m_arTitlePos[i + 1] - x <= kClosest) {
    m_bTitleDrag = 0;
    if (GetCapture() == this) ReleaseCapture();
    place_editor();
    return;
  }
  m_arTitlePos[i] = x;
  const bool grouped = !m_arDragLie.IsEmpty();
  const int boundaries = grouped ? static_cast<int>(m_arDragLie.GetSize()) : count;
  const auto boundary = [&](int k) { return m_arTitlePos[grouped ? m_arDragLie[k] : k]; };
  m_arLieWidth.RemoveAll();
  for (int k = 1; k < boundaries; ++k) {
    m_arLieWidth.Add(static_cast<UINT>(boundary(k) - boundary(k - 1)));
  }
  Invalidate(TRUE);
}

void CTableWnd::OnMouseMove(UINT, CPoint point) {
  CRect client;
  GetClientRect(&client);
  if (m_bTitleDrag && 0 <= point.x && point.x < client.right) {
    drag_title(point);
    return;
  }
  if (!m_bCellBtn) return;
  int hang, lie;
  CRect button;
  const bool hot = point.y >= m_nTitleHeight && cell_at(point, hang, lie) &&
                   small_button_rect(hang, lie, button) && PointInRECT(point, button);
  const int hot_hang = hot ? hang : -1, hot_lie = hot ? lie : -1;
  if (hot_hang != m_nHotHang || hot_lie != m_nHotLie) {
    const int old_hang = m_nHotHang, old_lie = m_nHotLie;
    m_bCellBtnHot = hot;
    m_nHotHang = hot_hang;
    m_nHotLie = hot_lie;
    InvalidateCell(old_hang, old_lie);
    InvalidateCell(hot_hang, hot_lie);
  }
  SetCursor(LoadCursor(nullptr, hot ? IDC_HAND : IDC_ARROW));
}

// A message box or another program took the mouse away in the middle of it.
void CTableWnd::OnCaptureChanged(CWnd*) {
  m_bTitleDrag = 0;
  if (!m_bBtnDown) return;
  m_bBtnDown = 0;
  InvalidateCell(m_nBtnHang, m_nBtnLie);
}

BOOL CTableWnd::OnSetCursor(CWnd* window, UINT hit_test, UINT message) {
  if (window != this || hit_test != static_cast<UINT>(HTCLIENT)) {
    return CWnd::OnSetCursor(window, hit_test, message);
  }
  SetCursor(LoadCursor(nullptr, m_bCellBtnHot ? IDC_HAND : IDC_ARROW));
  return TRUE;
}

void CTableWnd::OnRButtonDown(UINT flags, CPoint point) {
  if (point.y < m_nTitleHeight) return;
  int hang, lie;
  const bool on_cell = cell_at(point, hang, lie);
  if (on_cell) {
    if (hang == m_nHangCount && IsLieShifted(lie)) return;
    if (lie == 1) select_by_click(hang, lie, flags);
    move_to(hang, lie);
  }
  if (!m_bMenu) return;
  // A command works on the tool's rows: they have to have what was typed.
  commit_pending();
  CMenu menu;
  fill_row_menu(menu);
  ClientToScreen(&point);
  menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, point.x, point.y, this);
}

BOOL CTableWnd::HitCheckString(int hang, int lie, CPoint point) {
  RECT rect;
  GetHangLieRect(hang, lie, rect);
  return PointInRECT(point, rect);
}

int CTableWnd::DealTableButtonClick(int) {
  return 0;
}

int CTableWnd::DealTitleClicked(int) {
  return 0;
}

}  // namespace brindle
