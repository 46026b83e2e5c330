#include "brindle/platform/window/combo_box.h"
#include "brindle/table/easy_table_wnd.h"

namespace brindle {

CString CEasyTableWnd::GetHangLieString(int hang, int lie) {
  if (hang > m_nEasyHang) return CString();
  CETCell* cell = FindCell(hang, lie);
  if (!cell) return CString();
  // Rules run at each display, so that a value that the tool changed drives the states as well.
  if (!cell->m_arReact.IsEmpty()) {
    run_state_rules(cell);
    cell = FindCell(hang, lie);
    if (!cell) return CString();
  }
  cell->m_pOwner = m_pOwner;
  const bool is_fixed = cell->m_nType == ETCK_TEXT;
  const int state = is_fixed ? ETCS_EDIT : GetSetedCellState(hang, OldLie(lie));
  const CString text = cell->GetDispString();
  if (is_fixed) return text;
  return m_nTableState == ETCS_NONE || state == ETCS_NONE ? CString(L"---") : text;
}

// A row's entry comes before a column's, and either before the cell's own state: a row set to
// ETCS_EDIT speaks for a gray cell in it, unless its column says otherwise.
int CEasyTableWnd::GetSetedCellState(int hang, int lie) {
  if (hang < 1 || lie < 1) return ETCS_EDIT;
  const int row = hang <= m_arHangState.GetSize() ? m_arHangState[hang - 1] : -1;
  if (row != -1 && row != ETCS_EDIT) return row;
  const int column = lie <= m_arLieState.GetSize() ? m_arLieState[lie - 1] : -1;
  if (column != -1) return column;
  if (row != -1) return row;
  const CETCell* const cell = find_tool_cell(hang, lie);
  return cell ? cell->m_nState : ETCS_EDIT;
}

// The colours of a cell depend on CanEdit, which depends on the text: the one that is being drawn
// isn't formed again.
void CEasyTableWnd::DrawACell(CDC* dc, int hang, int lie, const CString& text) {
  struct Restore {
    ~Restore() { drawn = outer; }
    DrawnCell& drawn;
    const DrawnCell outer;
  } const restore{drawn_, drawn_};
  drawn_ = {hang, lie, &text};
  CTableWnd::DrawACell(dc, hang, lie, text);
}

// Whether the cell's text is "---" now. Rules have run afterwards, as when the text is asked for.
bool CEasyTableWnd::shows_dashes(int hang, int lie) {
  const bool is_drawn = drawn_.text && hang == drawn_.hang && lie == drawn_.lie;
  if (!is_drawn || *drawn_.text == L"---") return GetHangLieString(hang, lie) == L"---";
  CETCell* cell = FindCell(hang, lie);
  if (cell && !cell->m_arReact.IsEmpty()) {
    run_state_rules(cell);
    cell = FindCell(hang, lie);
  }
  return m_nTableState == ETCS_NONE || GetSetedCellState(hang, OldLie(lie)) == ETCS_NONE ||
         (cell && cell->m_nState == ETCS_NONE);
}

BOOL CEasyTableWnd::CanEdit(int hang, int lie) {
  if (hang < 1 || lie == 1 || hang > m_nEasyHang) return FALSE;
  const CETCell* cell = FindCell(hang, lie);
  if (!cell || cell->m_nType == ETCK_TEXT || m_nTableState == ETCS_GRAY) return FALSE;
  if (shows_dashes(hang, lie)) return FALSE;
  cell = FindCell(hang, lie);  // asking for the text runs rules
  return cell && cell->m_nState != ETCS_GRAY && GetSetedCellState(hang, OldLie(lie)) != ETCS_GRAY;
}

BOOL CEasyTableWnd::IsCheck(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell && cell->m_nType == ETCK_CHECK;
}

int CEasyTableWnd::GetCheckValue(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  if (!cell || cell->m_nType != ETCK_CHECK || !cell->m_pValue) return 0;
  return *static_cast<const int*>(cell->m_pValue) != 0;
}

// Turns the check over, as a change that was committed. 1 if there is a check.
int CEasyTableWnd::SetCheck(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  if (!cell || cell->m_nType != ETCK_CHECK) return 0;
  const bool on = !GetCheckValue(hang, lie);
  const CString number(on ? L"1" : L"0");
  const bool texts_tell = cell->m_strCheckOn != cell->m_strCheckOff;
  DealChangeData(hang, lie, !texts_tell ? number : on ? cell->m_strCheckOn : cell->m_strCheckOff);
  return 1;
}

BOOL CEasyTableWnd::IsButton(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell && cell->m_bButton && !cell->m_pControl;
}

int CEasyTableWnd::GetButtonID(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell && cell->m_bButton ? cell->m_nButtonID : 0;
}

BOOL CEasyTableWnd::IsTextUnderLine(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell && cell->m_bUnderLine;
}

BOOL CEasyTableWnd::IsTextEscape(int hang, int lie) {
  if (hang == 0) return m_bTitleEscape != 0;
  const CETCell* const cell = FindCell(hang, lie);
  return cell && cell->m_bEscape;
}

BOOL CEasyTableWnd::IsMutiLine(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell && cell->m_bMutiLine;
}

CPoint CEasyTableWnd::TiShiShift(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell ? CPoint(cell->m_nTiShiShiftX, cell->m_nTiShiShiftY) : CPoint(0, 0);
}

CString CEasyTableWnd::GetHangLieTiShi(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell ? cell->m_strTiShi + cell->m_strTiShi3 : CString();
}

UINT CEasyTableWnd::GetHangLieTiShi_Bmp(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell ? cell->m_nTiShiBmp : 0;
}

CString CEasyTableWnd::GetHangLieSelectList(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  return cell ? cell->m_strSelect : CString();
}

COLORREF CEasyTableWnd::GetHangLieBkColor(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  if (cell && cell->m_clrBk != 0xFFFFFFFF) return cell->m_clrBk;
  return CTableWnd::GetHangLieBkColor(hang, lie);
}

COLORREF CEasyTableWnd::GetHangLieTextColor(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  if (cell && cell->m_clrText != 0xFFFFFFFF) return cell->m_clrText;
  if (cell && cell->m_nType == ETCK_TEXT) return lie == 1 ? 0 : 0x646464;
  return CTableWnd::GetHangLieTextColor(hang, lie);
}

CComboBox* CEasyTableWnd::GetComboPtr(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  if (!cell || !cell->m_pControl) return nullptr;
  const CETControl& control = *cell->m_pControl;
  const bool is_known =
      control.m_nKind == CETControl::kTextList || control.m_nKind == CETControl::kBitmapList;
  return is_known && control.m_pCombo && control.m_pCombo->GetSafeHwnd() ? control.m_pCombo
                                                                         : nullptr;
}

// Of a bitmap list the text is the item's index. With nothing chosen and nothing to type in, it is
// what the cell shows already, so that leaving the box changes nothing.
CString CEasyTableWnd::GetComboText(int hang, int lie, int index) {
  const CETCell* const cell = FindCell(hang, lie);
  if (!cell || !cell->m_pControl) return CString();
  const CETControl& control = *cell->m_pControl;
  if (control.m_nKind == CETControl::kBitmapList) {
    const bool exists = index >= 0 && index < control.m_arBmp.GetSize();
    return exists ? CString(wformat(L"%d", index)) : GetHangLieString(hang, lie);
  }
  if (index >= 0 && index < control.m_arText.GetSize()) return control.m_arText[index];
  if (!control.m_bEditable || !control.m_pCombo) return GetHangLieString(hang, lie);
  CString typed;
  control.m_pCombo->GetWindowText(typed);
  return typed;
}

// A bitmap list selects by the variable, which is an index; a text list by the text.
int CEasyTableWnd::GetComboCurSel(int hang, int lie) {
  const CETCell* const cell = FindCell(hang, lie);
  if (!cell || !cell->m_pControl || !cell->m_pValue) return -1;
  if (cell->m_pControl->m_nKind == CETControl::kTextList) return -1;
  if (cell->m_nType == ETCK_INT) return *static_cast<const int*>(cell->m_pValue);
  return cell->m_nType == ETCK_SHORT ? *static_cast<const short*>(cell->m_pValue) : -1;
}

}  // namespace brindle
