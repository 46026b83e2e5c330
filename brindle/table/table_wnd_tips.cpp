// Tips, and the button that shows a check's state while the editor stands on it.
#include "brindle/table/table_wnd.h"

namespace brindle {

namespace {

constexpr int kTipBelow = 20, kTipAbove = 10;

// A click on it counts as a blank typed in the editor, which keeps the focus: the button would go
// with it. Not at once: touching the check makes the button anew.
class CheckButton : public CButton {
 public:
  explicit CheckButton(CWnd& editor) : editor_(editor) {}

 protected:
  void OnLButtonDown(UINT, CPoint) override { editor_.PostMessage(WM_CHAR, L' '); }
  void OnLButtonDblClk(UINT flags, CPoint point) override { OnLButtonDown(flags, point); }

 private:
  CWnd& editor_;
};

}  // namespace

void CTableWnd::close_tip() {
  delete m_pTip;
  m_pTip = nullptr;
}

void CTableWnd::show_tip(const CString& text, const CString& choices, UINT bitmap, CPoint place,
                         bool above) {
  close_tip();
  if (text.IsEmpty() && choices.IsEmpty() && bitmap == 0) return;
  m_pTip = new CPopupTip;
  m_pTip->SetTip(text, choices, bitmap);
  m_pTip->on_choice([this](const CString& choice) { take_choice(choice); });
  m_pTip->Show(this, place, above);
}

void CTableWnd::Disp_Hint(CPoint point, CString text) {
  if (m_bTableTip) show_tip(text, {}, 0, point, m_bTipAbove);
}

void CTableWnd::Disp_Hint(int hang, int lie) {
  if (!m_bTableTip || !has_window()) return;
  close_tip();
  if (hang < 0 || hang > m_nHangCount || lie < 1 || lie > GetLieCount()) return;
  RECT rect;
  GetHangLieRect(hang, lie, rect);
  CPoint place(rect.left, m_bTipAbove ? rect.top - kTipAbove : rect.bottom + kTipBelow);
  ClientToScreen(&place);
  place.Offset(TiShiShift(hang, lie));
  show_tip(GetHangLieTiShi(hang, lie), GetHangLieSelectList(hang, lie),
           GetHangLieTiShi_Bmp(hang, lie), place, m_bTipAbove);
}

void CTableWnd::Disp_Pick(int, int) {}

CPoint CTableWnd::TiShiShift(int, int) {
  return {0, 0};
}

void CTableWnd::Disp_Button(int hang, int lie) {
  delete m_pCellButton;
  m_pCellButton = nullptr;
  if (!has_window() || !has_cell(hang, lie) || !edit_shown()) return;
  if (!IsCheck(hang, lie) || hang != m_nEditHang || lie != m_nEditLie) return;
  CRect rect;
  m_Edit.GetWindowRect(&rect);
  ScreenToClient(&rect);
  m_pCellButton = new CheckButton(m_Edit);
  m_pCellButton->Create(GetHangLieString(hang, lie), WS_CHILD | BS_PUSHBUTTON, rect, this, 0);
  m_pCellButton->SetFont(&m_CheckFont);
  m_pCellButton->BringWindowToTop();
  m_pCellButton->ShowWindow(SW_SHOWNOACTIVATE);
}

void CTableWnd::ClearDirty(int keepIfMouseInside) {
  if (m_pTip != nullptr && !(keepIfMouseInside && m_pTip->mouse_in_list())) close_tip();
  m_Edit.destroy_helpers();
  delete m_pCellButton;
  m_pCellButton = nullptr;
}

LRESULT CTableWnd::OnTableClearHint(WPARAM, LPARAM) {
  close_tip();
  return 0;
}

}  // namespace brindle
