// Handing what the user typed over to the derived class, whichever way leads away from a cell.
#include <algorithm>

#include "brindle/table/table_messages.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

bool CTableWnd::has_cell(int hang, int lie) const {
  return 1 <= hang && hang <= m_nHangCount && 1 <= lie && lie <= GetLieCount();
}

// Shown by itself, whether or not the windows around it are: a dialog that is hidden mustn't lose
// what was typed in it.
bool CTableWnd::edit_shown() const {
  return m_Edit.GetSafeHwnd() != nullptr && (m_Edit.GetStyle() & WS_VISIBLE) != 0;
}

CComboBox* CTableWnd::shown_combo() {
  if (!has_cell(m_nEditHang, m_nEditLie)) return nullptr;
  CComboBox* const combo = GetComboPtr(m_nEditHang, m_nEditLie);
  if (combo == nullptr || combo->GetSafeHwnd() == nullptr) return nullptr;
  return (combo->GetStyle() & WS_VISIBLE) != 0 ? combo : nullptr;
}

// What was typed where the editor stands, whether or not it was. A check cell's editor shows
// nothing and so commits nothing.
bool CTableWnd::typed_in_editor(CString& text) const {
  auto& self = const_cast<CTableWnd&>(*this);
  if (!has_cell(m_nEditHang, m_nEditLie) || self.IsCheck(m_nEditHang, m_nEditLie)) return false;
  m_Edit.GetWindowText(text);
  self.DealChangeEditString(m_nEditHang, m_nEditLie, text);
  return true;
}

void CTableWnd::commit(int hang, int lie, CString text, const CString& shown) {
  if (m_nCommitting != 0 || text == shown || !has_cell(hang, lie)) return;
  m_strEditOld = text;
  {
    const Committing guard(*this);
    DealChangeData(hang, lie, text);
  }
  InvalidateCell(hang, lie);
  if (!has_cell(hang, lie)) return;
  m_strEditOld = GetHangLieString(hang, lie);
  // Refused or put right, an editor that stays shows what the cell has now; or it would commit
  // again what it still shows.
  const Committing guard(*this);
  refresh_editor();
}

CString CTableWnd::combo_text(CComboBox& combo) {
  int selection = combo.GetCurSel();
  // In a box with an edit field what stands there counts, chosen or typed.
  if ((combo.GetStyle() & CBS_DROPDOWNLIST) == CBS_DROPDOWN) selection = -1;
  CString text = GetComboText(m_nEditHang, m_nEditLie, selection);
  DealChangeEditString(m_nEditHang, m_nEditLie, text);
  return text;
}

void CTableWnd::commit_pending() {
  if (m_nCommitting != 0) return;
  CString text;
  if (CComboBox* const combo = shown_combo()) {
    commit(m_nEditHang, m_nEditLie, combo_text(*combo), m_strEditOld);
  } else if (edit_shown() && typed_in_editor(text)) {
    commit(m_nEditHang, m_nEditLie, text, m_strEditOld);
  }
}

void CTableWnd::BeforeMoveEditTo(int hang, int lie, int wasVisible) {
  ClearDirty(0);
  m_Edit.SetFont(&m_hFont);
  CString text;
  if (wasVisible && typed_in_editor(text)) commit(m_nEditHang, m_nEditLie, text, m_strEditOld);
  m_strEditOld = GetHangLieString(hang, lie);
}

void CTableWnd::BeforeMoveComboTo(int hang, int lie, int wasVisible) {
  ClearDirty(0);
  CComboBox* const combo = shown_combo();
  if (wasVisible && combo != nullptr) {
    commit(m_nEditHang, m_nEditLie, combo_text(*combo), m_strEditOld);
  }
  m_strEditOld = GetHangLieString(hang, lie);
}

LRESULT CTableWnd::OnEditLostFocus(WPARAM, LPARAM) {
  // The focus went because of the committing itself, to a message box or so.
  if (m_nCommitting != 0 || !edit_shown()) return 0;
  ClearDirty(1);
  CString text;
  if (typed_in_editor(text)) {
    commit(m_nEditHang, m_nEditLie, text, GetHangLieString(m_nEditHang, m_nEditLie));
  }
  m_Edit.ShowWindow(SW_HIDE);
  m_Edit.destroy_helpers();
  return 0;
}

LRESULT CTableWnd::OnComboLostFocus(WPARAM, LPARAM) {
  CComboBox* const combo = shown_combo();
  if (m_nCommitting != 0 || combo == nullptr) return 0;
  combo->ShowDropDown(FALSE);
  commit(m_nEditHang, m_nEditLie, combo_text(*combo), GetHangLieString(m_nEditHang, m_nEditLie));
  // Committing may have rebuilt the table and its boxes.
  if (CComboBox* const left = shown_combo()) hide_combo(*left);
  return 0;
}

void CTableWnd::DealComboCloseUp() {
  OnComboLostFocus(0, 0);
}

LRESULT CTableWnd::OnComboCloseUp(WPARAM, LPARAM) {
  return OnComboLostFocus(0, 0);
}

void CTableWnd::hide_combo(CComboBox& combo) {
  const Committing guard(*this);
  combo.ShowWindow(SW_HIDE);
}

// Hides both without committing; the caller has committed.
void CTableWnd::hide_editors() {
  const Committing guard(*this);
  if (CComboBox* const combo = shown_combo()) combo->ShowWindow(SW_HIDE);
  if (edit_shown()) m_Edit.ShowWindow(SW_HIDE);
  ClearDirty(0);
}

void CTableWnd::refresh_editor() {
  const bool in_editor = edit_shown();
  CComboBox* const combo = shown_combo();
  if (!in_editor && combo == nullptr) return;
  if (!has_cell(m_nEditHang, m_nEditLie) || !CanEdit(m_nEditHang, m_nEditLie) ||
      (combo != nullptr) != (UseCombo(m_nEditHang, m_nEditLie) != FALSE)) {
    hide_editors();
    return;
  }
  m_strEditOld = GetHangLieString(m_nEditHang, m_nEditLie);
  if (combo != nullptr) {
    combo->MoveWindow(combo_rect(m_nEditHang, m_nEditLie));
    set_combo_text(*combo, m_nEditHang, m_nEditLie);
  } else {
    CString now;
    m_Edit.GetWindowText(now);
    const bool check = IsCheck(m_nEditHang, m_nEditLie);
    m_Edit.MoveWindow(editor_rect(m_nEditHang, m_nEditLie));
    if (!check && now != m_strEditOld) m_Edit.SetWindowText(m_strEditOld);
  }
}

// The tool may have new data already, so what was typed is kept in hand and goes to the cell as it
// is afterwards, if it is still there.
void CTableWnd::UpdateTable() {
  CString text;
  CComboBox* const combo = m_nCommitting == 0 ? shown_combo() : nullptr;
  bool typed = false;
  if (combo != nullptr) {
    text = combo_text(*combo);
    typed = text != m_strEditOld;
  } else if (m_nCommitting == 0 && edit_shown() && typed_in_editor(text)) {
    typed = text != m_strEditOld;
  }
  const int hang = m_nEditHang, lie = m_nEditLie;
  {
    const Committing guard(*this);
    InitialAllData();
  }
  if (typed && has_cell(hang, lie) && CanEdit(hang, lie)) {
    commit(hang, lie, text, GetHangLieString(hang, lie));
  }
  m_nCurHang = std::min(std::max(m_nCurHang, 1), m_nHangCount);
  refresh_editor();
  tell_owner(WM_TABLE_ROW_CHANGED, static_cast<WPARAM>(m_nCurHang), reinterpret_cast<LPARAM>(this));
  DealVScrollBarChange();
  DealHScrollBarChange();
  if (has_window()) Invalidate(TRUE);
}

// The editor follows its row; what was typed in it goes to the row under its new number.
void CTableWnd::keep_row(int hang, int shift) {
  if (m_nEditHang < hang) return;
  if (m_nEditHang == hang && shift < 0) {  // its row is gone, and what was typed with it
    hide_editors();
    return;
  }
  CString text;
  const bool in_editor = edit_shown() && typed_in_editor(text);
  CComboBox* const combo = in_editor ? nullptr : shown_combo();
  if (combo != nullptr) text = combo_text(*combo);
  hide_editors();
  m_nEditHang += shift;
  if (in_editor || combo != nullptr) commit(m_nEditHang, m_nEditLie, text, m_strEditOld);
}

void CTableWnd::invalidate_from(int hang) {
  if (!has_window() || GetLieCount() < 1) return;
  RECT rect;
  GetCanScrollRect(rect);
  rect.top = std::max(rect.top, LONG{table_cell_rect(layout(), hang, 1, false).top});
  InvalidateRect(&rect, FALSE);
}

void CTableWnd::UpdateAfterAddHang(int hang) {
  if (hang < 1 || hang > m_nHangCount + 1) return;
  ++m_nHangCount;
  keep_row(hang, 1);
  const int old = m_nCurHang;
  m_nCurHang = hang;
  tell_owner(WM_TABLE_ROW_CHANGED, static_cast<WPARAM>(hang), reinterpret_cast<LPARAM>(this));
  if (old > m_nVPos) InvalidateCell(old, 1);
  if (hang > m_nVPos) InvalidateCell(hang, 1);
  DealVScrollBarChange();
  invalidate_from(hang);
}

void CTableWnd::UpdateAfterDeleteHang(int hang) {
  if (hang < 1 || hang > m_nHangCount) return;
  keep_row(hang, -1);
  --m_nHangCount;
  m_nCurHang = std::min(std::max(m_nCurHang, 1), m_nHangCount);
  tell_owner(WM_TABLE_ROW_CHANGED, static_cast<WPARAM>(m_nCurHang), reinterpret_cast<LPARAM>(this));
  DealVScrollBarChange();
  InvalidateCell(m_nCurHang, 1);  // the row above, when the last one went
  invalidate_from(hang);
}

}  // namespace brindle
