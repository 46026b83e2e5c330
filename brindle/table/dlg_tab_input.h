// CDlgTabInput: runs any grid as a modal dialog, with a title and two buttons, without a resource.
#pragma once

#include "brindle/platform/base/string.h"
#include "brindle/platform/window/dialog.h"

namespace brindle {

class CTableWnd;

// The next address divisible by four.
WORD* lpwAlign(WORD* place);
// Writes a text in 16-bit units with its zero and returns their number.
int nCopyAnsiToWideChar(WORD* place, const CString& text);

class CDlgTabInput : public CDialog {
 public:
  // The grid stays the caller's; its window lives as long as the dialog's.
  explicit CDlgTabInput(CTableWnd* table = nullptr, LPCTSTR title = nullptr);

  // IDOK or IDCANCEL; without a grid a message, and IDCANCEL.
  INT_PTR DoModal() override;
  BOOL OnInitDialog() override;
  void OnOK() override;

  // The dialog's template: title and buttons. Good until the next call.
  const DLGTEMPLATE* GetDlgInputTemplate();
  // Where the buttons stand in a client area of that size.
  CRect GetOkPos(CSize client) const;
  CRect GetCancelPos(CSize client) const;

  CString m_strTitle, m_strOk, m_strCancel;
  CTableWnd* m_pTable = nullptr;
  // Place on the screen; -1 for the middle.
  int m_nX = -1, m_nY = -1;

 private:
  std::vector<DWORD> template_;
};

}  // namespace brindle
