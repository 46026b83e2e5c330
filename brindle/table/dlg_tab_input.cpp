#include "brindle/table/dlg_tab_input.h"

#include <algorithm>
#include <cstring>

#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/utf16.h"
#include "brindle/platform/window/dialog_template.h"
#include "brindle/table/easy_table_wnd.h"
#include "brindle/table/table_messages.h"

namespace brindle {
namespace {

constexpr int kGridId = 1000;
constexpr int kMargin = 8, kButtonWidth = 75, kButtonHeight = 25;
constexpr int kMostWidth = 1000, kMostHeight = 600;  // of the grid

}  // namespace

WORD* lpwAlign(WORD* place) {
  return reinterpret_cast<WORD*>((reinterpret_cast<UINT_PTR>(place) + 3) & ~UINT_PTR{3});
}

int nCopyAnsiToWideChar(WORD* place, const CString& text) {
  const std::string bytes = to_utf16_bytes(text.view());
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]);
    const auto high = static_cast<unsigned char>(bytes[i + 1]);
    *place++ = static_cast<WORD>(low | high << 8);
  }
  *place = 0;
  return static_cast<int>(bytes.size() / 2) + 1;
}

CDlgTabInput::CDlgTabInput(CTableWnd* table, LPCTSTR title)
    : m_strTitle(title ? title : L"请输入"),
      m_strOk(L"确认"),
      m_strCancel(L"取消"),
      m_pTable(table) {}

const DLGTEMPLATE* CDlgTabInput::GetDlgInputTemplate() {
  const std::size_t texts =
      m_strTitle.view().size() + m_strOk.view().size() + m_strCancel.view().size();
  template_.assign(64 + texts, 0);  // two units a character at most
  DLGTEMPLATE head{};
  head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
  head.cdit = 2;
  head.cx = 200;
  head.cy = 100;
  WORD* place = reinterpret_cast<WORD*>(template_.data());
  std::memcpy(place, &head, sizeof head);
  place += sizeof head / sizeof(WORD);
  *place++ = 0;  // no menu
  *place++ = 0;  // the usual class
  place += nCopyAnsiToWideChar(place, m_strTitle);
  const auto add_button = [&](int id, DWORD style, const CString& text) {
    place = lpwAlign(place);
    DLGITEMTEMPLATE item{};
    item.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | style;
    item.cx = 50;
    item.cy = 14;
    item.id = static_cast<WORD>(id);
    std::memcpy(place, &item, sizeof item);
    place += sizeof item / sizeof(WORD);
    *place++ = 0xFFFF;  // a class by number: the button
    *place++ = 0x0080;
    place += nCopyAnsiToWideChar(place, text);
    *place++ = 0;  // no bytes for the creation
  };
  add_button(IDOK, BS_DEFPUSHBUTTON, m_strOk);
  add_button(IDCANCEL, BS_PUSHBUTTON, m_strCancel);
  return reinterpret_cast<const DLGTEMPLATE*>(template_.data());
}

CRect CDlgTabInput::GetOkPos(CSize client) const {
  const int left = client.cx / 2 - kButtonWidth - kMargin / 2;
  const int top = client.cy - kMargin - kButtonHeight;
  return CRect(left, top, left + kButtonWidth, top + kButtonHeight);
}

CRect CDlgTabInput::GetCancelPos(CSize client) const {
  CRect rect = GetOkPos(client);
  rect.OffsetRect(kButtonWidth + kMargin, 0);
  return rect;
}

INT_PTR CDlgTabInput::DoModal() {
  const DLGTEMPLATE* const bytes = GetDlgInputTemplate();
  if (!InitModalIndirect(bytes, GetActiveWindow(), template_.size() * sizeof(DWORD)))
    return IDCANCEL;
  return CDialog::DoModal();
}

BOOL CDlgTabInput::OnInitDialog() {
  CDialog::OnInitDialog();
  if (!m_pTable) {
    tell_error(201, L"请指定对应的表格!");
    EndDialog(IDCANCEL);
    return FALSE;
  }
  m_pTable->InitialAllData();  // tells the size
  const int width = std::min(m_pTable->GetNeedWidth(), kMostWidth);
  const int height = std::clamp(m_pTable->GetNeedHeight() + 2, 20, kMostHeight);
  m_pTable->Create(CRect(CPoint(kMargin, kMargin), CSize(width, height)), this, kGridId);
  // Bars make the grid larger, also one that comes later with more rows.
  CRect window, inside, grid;
  m_pTable->GetWindowRect(&grid);
  const int to_come = m_pTable->m_bMenu && !m_pTable->m_bVScroll
                          ? std::max(m_pTable->GetSysVScrollWidth() - kMargin, 0)
                          : 0;
  const CSize client(std::max(grid.Width() + to_come, 2 * kButtonWidth + kMargin) + 2 * kMargin,
                     grid.Height() + kButtonHeight + 3 * kMargin);
  GetWindowRect(&window);
  GetClientRect(&inside);
  const int frame_width = window.Width() - inside.Width();
  const int frame_height = window.Height() - inside.Height();
  SetWindowPos(nullptr, m_nX, m_nY, client.cx + frame_width, client.cy + frame_height,
               SWP_NOZORDER | (m_nX < 0 || m_nY < 0 ? SWP_NOMOVE : 0));
  if (m_nX < 0 || m_nY < 0) CenterWindow();
  if (CWnd* const button = GetDlgItem(IDOK)) button->MoveWindow(GetOkPos(client));
  if (CWnd* const button = GetDlgItem(IDCANCEL)) button->MoveWindow(GetCancelPos(client));
  m_pTable->SetWindowPos(&wndTop, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  m_pTable->ShowWindow(SW_SHOW);
  m_pTable->SetFocus();
  // Once all is shown the editor goes to the first cell, so that one can type at once.
  m_pTable->m_nEditHang = m_pTable->m_nEditLie = 1;
  m_pTable->PostMessage(WM_TABLE_NEXT_CELL);
  return FALSE;  // the focus is where it belongs
}

void CDlgTabInput::OnOK() {
  if (m_pTable) m_pTable->commit_pending();
  CDialog::OnOK();
}

BOOL CEasyTableWnd::DoInput(LPCTSTR title, int x, int y, int flags) {
  ReSetCellData();
  CDlgTabInput dialog(this, title);
  dialog.m_nX = x;
  dialog.m_nY = y;
  static_cast<void>(flags);
  return dialog.DoModal() == IDOK;
}

}  // namespace brindle
