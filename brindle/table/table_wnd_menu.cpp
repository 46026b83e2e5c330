// The row menu and its commands.
#include "brindle/table/table_messages.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

void CTableWnd::fill_row_menu(CMenu& menu) {
  const int row = m_nCurHang;
  const CString& word = m_strHangWord;
  const bool valid = m_nHangCount >= 1 && row >= 1 && row <= m_nHangCount;
  const bool cells =
      (m_bMenuPaste && valid) || (has_cell(row, m_nCurLie) && CanEdit(row, m_nCurLie) != FALSE);
  const auto add = [&](UINT id, bool allowed, const std::wstring& text) {
    menu.AppendMenu(MF_STRING | (allowed ? MF_ENABLED : MF_GRAYED), id, text.c_str());
  };
  menu.CreatePopupMenu();
  add(ID_TABLE_ADD, m_bMenuAdd, wformat(L"新增第%d%s", m_nHangCount + 1, word));
  add(ID_TABLE_DELETE, m_bMenuDel && valid, wformat(L"删除第%d%s", row, word));
  add(ID_TABLE_INSERT, m_bMenuIns && valid, wformat(L"插入一%s到第%d%s前", word, row, word));
  menu.AppendMenu(MF_SEPARATOR);
  add(ID_TABLE_COPY, m_bMenuCopy && valid, wformat(L"拷贝第%d%s到剪贴板", row, word));
  add(ID_TABLE_PASTE, m_bMenuPaste && valid, wformat(L"剪贴板粘贴到第%d%s前", row, word));
  menu.AppendMenu(MF_SEPARATOR);
  add(ID_TABLE_PASTE_CELLS, cells, wformat(L"剪贴板粘贴到第%d%s前(从Excel拷贝)", row, word));
}

void make_table_menu(CMenu& menu) {
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, ID_TABLE_ADD, L"新增");
  menu.AppendMenu(MF_STRING, ID_TABLE_DELETE, L"删除");
  menu.AppendMenu(MF_STRING, ID_TABLE_INSERT, L"插入");
  menu.AppendMenu(MF_SEPARATOR);
  menu.AppendMenu(MF_STRING, ID_TABLE_COPY, L"拷贝");
  menu.AppendMenu(MF_STRING, ID_TABLE_PASTE, L"粘贴");
}

void CTableWnd::OnTableBtnAdd() {
  commit_pending();
  if (DealMenuCmdAdd(m_nHangCount) == 1) UpdateTable();
}

void CTableWnd::OnTableBtnIns() {
  commit_pending();
  if (DealMenuCmdIns(m_nCurHang) == 1) UpdateTable();
}

void CTableWnd::OnTableBtnPaste() {
  commit_pending();
  if (DealMenuCmdPaste(m_nCurHang) == 1) UpdateTable();
}

void CTableWnd::OnTableBtnCopy() {
  commit_pending();
  if (DealMenuCmdCopy(m_nCurHang) == 1) m_bMenuPaste = 1;
}

void CTableWnd::OnTableBtnDel() {
  commit_pending();
  if (DealMenuCmdDel(m_nCurHang) == 1) UpdateTable();
}

void CTableWnd::OnTableBtnPasteNew() {
  commit_pending();
  if (DealMenuCmdPaste_New() == 1) UpdateTable();
}

int CTableWnd::DealMenuCmdAdd(int) {
  return 0;
}

int CTableWnd::DealMenuCmdDel(int) {
  return 0;
}

int CTableWnd::DealMenuCmdIns(int) {
  return 0;
}

int CTableWnd::DealMenuCmdCopy(int) {
  return 0;
}

int CTableWnd::DealMenuCmdPaste(int) {
  return 0;
}

int CTableWnd::DealMenuCmdPaste_New() {
  return 0;
}

int CTableWnd::DealMenuCmdUp(int) {
  return 0;
}

int CTableWnd::DealMenuCmdDown(int) {
  return 0;
}

}  // namespace brindle
