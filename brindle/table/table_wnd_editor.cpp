// The editor and the combo box on their way from cell to cell.
#include <algorithm>
#include <cstdlib>

#include "brindle/table/table_messages.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

namespace {

constexpr int kMostItemsShown = 15;
constexpr int kListBorders = 2;
constexpr UINT kTextMargin = 4;  // the editor's text stands where the cell's does

// By exact text; the box's own search takes no heed of case.
int find_item(const CComboBox& combo, const CString& text) {
  CString item;
  for (int i = 0; i < combo.GetCount(); ++i) {
    combo.GetLBText(i, item);
    if (item == text) return i;
  }
  return -1;
}

}  // namespace

void CTableWnd::tell_owner(UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_pOwner != nullptr) m_pOwner->SendMessage(message, wParam, lParam);
}

void CTableWnd::make_current(int hang, int lie) {
  if (hang <= m_nVPos || !has_cell(hang, lie)) return;
  const int old = m_nCurHang;
  m_nCurHang = hang;
  m_nCurLie = lie;
  tell_owner(WM_TABLE_ROW_CHANGED, static_cast<WPARAM>(hang), reinterpret_cast<LPARAM>(this));
  InvalidateCell(old, 1);
  InvalidateCell(hang, 1);
}

// Committing the cell left may have greyed the one to enter, or taken it away.
bool CTableWnd::still_enterable(int hang, int lie) {
  if (has_cell(hang, lie) && CanEdit(hang, lie)) return true;
  hide_editors();
  if (has_cell(hang, lie)) Disp_Hint(hang, lie);
  return false;
}

CRect CTableWnd::editor_rect(int hang, int lie) {
  CRect rect, client;
  GetHangLieRect(hang, lie, rect);
  GetClientRect(&client);
  rect.left = std::max(rect.left + 1, LONG{covered_width(lie)});
  rect.top = std::max(rect.top + 1, client.top);
  rect.right = std::max(std::min(rect.right - 1, client.right), rect.left);
  rect.bottom = std::min(rect.bottom - 1, client.bottom);
  return rect;
}

// Of the field and the list that drops from it. The field may be higher than its cell; the list
// keeps its height.
CRect CTableWnd::combo_rect(int hang, int lie) {
  CRect rect, client;
  GetHangLieRect(hang, lie, rect);
  GetClientRect(&client);
  rect.left = std::max(rect.left + 1, LONG{covered_width(lie)});
  rect.top = std::max(rect.top + 2, client.top);
  rect.right = std::max(std::min(rect.right - 2, client.right), rect.left);
  const int list = GetComboHeight(hang, lie);
  rect.bottom = std::min(rect.bottom, client.bottom) + list;
  CRect field;
  if (const CComboBox* const combo = GetComboPtr(hang, lie)) combo->GetWindowRect(&field);
  rect.bottom = std::max(rect.bottom, rect.top + field.Height() + list + kListBorders);
  return rect;
}

// A cell-wide button, or a check shown by a picture: the editor stands there unseen.
bool CTableWnd::takes_only_clicks(int hang, int lie) {
  return (IsButton(hang, lie) && GetButtonID(hang, lie) < 0) ||
         (IsCheck(hang, lie) && GetCheckImage(hang, lie, 0) != 0);
}

void CTableWnd::MoveEdit(int hang, int lie) {
  make_current(hang, lie);
  if (!has_cell(hang, lie) || !CanEdit(hang, lie)) {
    Disp_Hint(hang, lie);
    return;
  }
  if (CComboBox* const combo = shown_combo()) {
    commit_pending();
    if (combo == shown_combo()) hide_combo(*combo);
  }
  BeforeMoveEditTo(hang, lie, edit_shown());
  if (!still_enterable(hang, lie)) return;

  const CRect rect = editor_rect(hang, lie);
  const bool check = IsCheck(hang, lie), button = IsButton(hang, lie);
  {
    const Committing guard(*this);  // the editor has the new cell's text from here on
    m_Edit.m_bMultiLine = IsMutiLine(hang, lie);
    m_Edit.ModifyStyle(ES_MULTILINE, m_Edit.m_bMultiLine ? ES_MULTILINE : 0);
    m_Edit.MoveWindow(&rect);
    m_Edit.SetWindowText(check ? L"" : m_strEditOld.GetString());
    m_Edit.SetReadOnly(check);  // nothing that is typed in a check cell could be kept
    m_Edit.m_bHaveBtn = !check && button && GetButtonID(hang, lie) >= 0;
    m_Edit.SetMargins(kTextMargin, m_Edit.m_bHaveBtn ? UINT{CTabEditButton::kWidth} : 0);
    InvalidateCell(m_nEditHang, m_nEditLie);
    m_nEditHang = hang;
    m_nEditLie = lie;
    m_Edit.CreateButton();
    m_Edit.CreateInputNum();
    m_Edit.ShowWindow(SW_SHOW);
    m_Edit.SetFocus();
    m_Edit.SetSel(0, -1);
    if (takes_only_clicks(hang, lie)) m_Edit.ShowWindow(SW_HIDE);
  }
  tell_owner(WM_TABLE_EDIT_ARRIVED, static_cast<WPARAM>(hang), lie);
  if (check) Disp_Button(hang, lie);
  Disp_Hint(hang, lie);
  Disp_Pick(hang, lie);
  SetCursor(LoadCursor(nullptr, IDC_ARROW));
}

int CTableWnd::GetComboHeight(int hang, int lie) {
  CComboBox* const combo = GetComboPtr(hang, lie);
  if (combo == nullptr) return 0;
  return combo->GetItemHeight(0) * std::min(combo->GetCount(), kMostItemsShown);
}

int CTableWnd::GetComboCurSel(int, int) {
  return -1;
}

CString CTableWnd::GetComboText(int hang, int lie, int index) {
  CString text;
  CComboBox* const combo = GetComboPtr(hang, lie);
  if (combo == nullptr) return text;
  if (index < 0) {
    combo->GetWindowText(text);
  } else if (index < combo->GetCount()) {
    combo->GetLBText(index, text);
  }
  return text;
}

// Shows the cell's value in its box; returns whether the box is a list of texts.
bool CTableWnd::set_combo_text(CComboBox& combo, int hang, int lie) {
  const int index = GetComboCurSel(hang, lie);
  if (index >= 0) {
    combo.SetCurSel(index);
    return false;
  }
  const int found = find_item(combo, m_strEditOld);
  combo.SetCurSel(found);
  if (found < 0) combo.SetWindowText(m_strEditOld);  // free text of a box with an edit field
  return true;
}

void CTableWnd::MoveCombo(int hang, int lie) {
  make_current(hang, lie);
  if (!has_cell(hang, lie) || !CanEdit(hang, lie)) {
    Disp_Hint(hang, lie);
    return;
  }
  if (edit_shown()) {
    commit_pending();
    const Committing guard(*this);
    m_Edit.ShowWindow(SW_HIDE);
  }
  CComboBox* const old = shown_combo();
  BeforeMoveComboTo(hang, lie, old != nullptr);
  if (old != nullptr && old == shown_combo()) hide_combo(*old);
  if (!still_enterable(hang, lie)) return;
  CComboBox* const combo = GetComboPtr(hang, lie);
  if (combo == nullptr || combo->GetSafeHwnd() == nullptr) return;

  const CRect rect = combo_rect(hang, lie);
  {
    const Committing guard(*this);
    InvalidateCell(m_nEditHang, m_nEditLie);
    m_nEditHang = hang;
    m_nEditLie = lie;
    combo->MoveWindow(&rect);
    if (set_combo_text(*combo, hang, lie)) {
      int dropped = rect.Width();
      const int height = std::abs(static_cast<int>(m_LogFont.lfHeight));
      for (int i = 0; i < combo->GetCount(); ++i) {
        dropped = std::max(dropped, combo->GetLBTextLen(i) * height / 2 + height / 2);
      }
      combo->SetDroppedWidth(static_cast<UINT>(dropped));
    }
    combo->ShowWindow(SW_SHOW);
    combo->SetFocus();
  }
  tell_owner(WM_TABLE_EDIT_ARRIVED, static_cast<WPARAM>(hang), lie);
  Disp_Hint(hang, lie);
}

void CTableWnd::touch_check(int hang, int lie) {
  if (!IsCheck(hang, lie) || !CanEdit(hang, lie)) return;
  m_bCheckTouched = 1;
  GetCheckImage(hang, lie, 0);
  SetCheck(hang, lie);
  if (!has_cell(hang, lie)) return;
  InvalidateCell(hang, lie);
  Disp_Button(hang, lie);
}

// A choice of the tip's list goes into the editor as if it had been typed.
void CTableWnd::take_choice(const CString& choice) {
  if (!edit_shown()) MoveEdit(m_nEditHang, m_nEditLie);
  if (!edit_shown()) return;
  m_Edit.SetWindowText(choice);
  m_Edit.SetFocus();
  m_Edit.SetSel(0, -1);
}

LRESULT CTableWnd::OnEditLDBClick(WPARAM, LPARAM) {
  Disp_Hint(m_nEditHang, m_nEditLie);
  Disp_Pick(m_nEditHang, m_nEditLie);
  return 0;
}

LRESULT CTableWnd::OnComboLDBClick(WPARAM, LPARAM) {
  if (CComboBox* const combo = shown_combo()) combo->ShowDropDown(TRUE);
  return 0;
}

}  // namespace brindle
