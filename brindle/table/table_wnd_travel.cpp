// Travel between cells by keyboard.
#include "brindle/table/table_messages.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

void CTableWnd::travel(Travel way, int hang, int lie, int& newHang, int& newLie) {
  const bool vertical = way == Travel::kUp || way == Travel::kDown;
  const CellPlace place =
      travelled({hang, lie}, way, m_nHangCount, GetLieCount(), [&](CellPlace at) -> bool {
        if (!CanEdit(at.hang, at.lie)) return false;
        return vertical || (VisibleHang(at.hang) && VisibleLie(at.lie));
      });
  newHang = place.hang;
  newLie = place.lie;
}

void CTableWnd::GetNextEditPos(int hang, int lie, int& newHang, int& newLie) {
  travel(Travel::kNext, hang, lie, newHang, newLie);
}

void CTableWnd::GetLastEditPos(int hang, int lie, int& newHang, int& newLie) {
  travel(Travel::kPrevious, hang, lie, newHang, newLie);
}

void CTableWnd::GetUpEditPos(int hang, int lie, int& newHang, int& newLie) {
  travel(Travel::kUp, hang, lie, newHang, newLie);
}

void CTableWnd::GetDownEditPos(int hang, int lie, int& newHang, int& newLie) {
  travel(Travel::kDown, hang, lie, newHang, newLie);
}

// What was typed is committed before the way is chosen: it may grey cells, or rebuild the table.
void CTableWnd::go(void (CTableWnd::*find)(int, int, int&, int&)) {
  commit_pending();
  int hang = m_nEditHang, lie = m_nEditLie;
  (this->*find)(m_nEditHang, m_nEditLie, hang, lie);
  if (!has_cell(hang, lie) || !CanEdit(hang, lie)) return;
  bring_into_view(hang, lie);
  move_to(hang, lie);
}

bool CTableWnd::can_travel() {
  int hang = m_nEditHang, lie = m_nEditLie;
  GetNextEditPos(m_nEditHang, m_nEditLie, hang, lie);
  return has_cell(hang, lie) && CanEdit(hang, lie);
}

void CTableWnd::move_to(int hang, int lie) {
  if (UseCombo(hang, lie)) {
    MoveCombo(hang, lie);
  } else {
    MoveEdit(hang, lie);
  }
}

LRESULT CTableWnd::OnEditGetReturn(WPARAM, LPARAM) {
  go(&CTableWnd::GetNextEditPos);
  return 0;
}

LRESULT CTableWnd::OnEditGetShiftTab(WPARAM, LPARAM) {
  go(&CTableWnd::GetLastEditPos);
  return 0;
}

LRESULT CTableWnd::OnEditGetUpKey(WPARAM, LPARAM) {
  if (m_nEditHang == m_nVPos + 1) {
    SendMessage(WM_VSCROLL, SB_LINEUP);
  } else {
    go(&CTableWnd::GetUpEditPos);
  }
  return 0;
}

LRESULT CTableWnd::OnEditGetDownKey(WPARAM, LPARAM) {
  if (m_nEditHang - m_nVPos == GetVPageSize()) {
    SendMessage(WM_VSCROLL, SB_LINEDOWN);
  } else {
    go(&CTableWnd::GetDownEditPos);
  }
  return 0;
}

LRESULT CTableWnd::OnEditGetEscape(WPARAM wParam, LPARAM) {
  const bool check = IsCheck(m_nEditHang, m_nEditLie);
  if (check && wParam == L' ') {
    touch_check(m_nEditHang, m_nEditLie);
  } else {
    ClearDirty(0);
    if (check) Disp_Button(m_nEditHang, m_nEditLie);  // the editor itself would show nothing
  }
  tell_owner(WM_TABLE_TYPED, 0, 0);
  return 0;
}

}  // namespace brindle
