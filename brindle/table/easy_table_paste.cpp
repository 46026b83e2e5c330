#include "brindle/platform/window/user_interface.h"
#include "brindle/table/easy_table_wnd.h"
#include "brindle/table/paste_cells.h"

namespace brindle {
namespace {

bool takes_number(const CETCell& cell) {
  return cell.m_nType != ETCK_STRING && cell.m_nType != ETCK_TEXT && cell.m_nType != ETCK_CHECK;
}

}  // namespace

// Rows aren't added: what reaches beyond the last row or column is dropped, and so is a value that
// falls on a cell that refuses it. No reactions run; the rules do when the table is next painted.
// The result is 0, since the table needs no rebuilding for it.
int CEasyTableWnd::DealMenuCmdPaste_New() {
  commit_pending();
  const std::wstring clipboard = user_interface().clipboard_text();
  PasteReader reader(clipboard);
  std::vector<CString> values;
  const int first_lie = m_nCurLie;
  for (int hang = m_nCurHang; hang <= m_nEasyHang && reader.next_row(values); ++hang) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      const int lie = first_lie + static_cast<int>(i);
      if (lie > column_count()) break;
      if (values[i] == L"---") continue;  // a blanked cell's, and would close a text cell for ever
      if (!CanEdit(hang, lie) || IsCheck(hang, lie) || IsButton(hang, lie)) continue;
      CETCell* const cell = FindCell(hang, lie);
      if (!cell || cell->m_bComb) continue;
      cell->m_pOwner = m_pOwner;
      cell->DealChangeData(takes_number(*cell) ? plain_number(values[i]) : values[i]);
      AfterDataChange(hang, OldLie(lie));
      SetSameLieValue(hang, lie);
      InvalidateCell(hang, lie);
    }
  }
  refresh_editor();
  if (GetSafeHwnd()) Invalidate();
  return 0;
}

}  // namespace brindle
