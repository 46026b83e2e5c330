// CTabEdit: the editor that a grid moves from cell to cell. Keys that lead away from the cell
// become messages to the grid (table_messages.h).
#pragma once

#include <array>
#include <memory>

#include "brindle/platform/window/button.h"
#include "brindle/platform/window/edit.h"

namespace brindle {

// The small button ">" at the editor's right end.
class CTabEditButton : public CButton {
 public:
  static constexpr int kWidth = 15;
};

// The number pad at the editor's right end, above it or, for want of room, below: digits, "00",
// "+/-" and "ok". A press goes to the editor as text; "ok" leaves the cell.
class CTabEditInputNum : public CWnd {
 public:
  static constexpr int kWidth = 80, kHeight = 50;

  ~CTabEditInputNum() override { DestroyWindow(); }

  // Shows the pad as a sibling of `edit`, which must outlive it.
  BOOL create_pad(CEdit* edit);
  // What a press on a key does; the keys are known by their texts.
  void press(const CString& key);

 protected:
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
  BOOL OnEraseBkgnd(CDC* dc) override;

 private:
  CEdit* m_pEdit = nullptr;
  std::array<CButton, 13> m_arKey;
};

// The arrows and Return stay with the control while m_bMultiLine is set.
class CTabEdit : public CEdit {
 public:
  int m_bMultiLine = 0;
  int m_bHaveBtn = 0;   // CreateButton puts the button ">" up
  int m_bInputNum = 0;  // CreateInputNum puts the number pad up

  // Each takes an older helper away and shows a new one if its flag is set.
  void CreateButton();
  void CreateInputNum();
  void destroy_helpers();
  CTabEditButton* button() const { return m_pButton.get(); }
  CTabEditInputNum* number_pad() const { return m_pInputNum.get(); }

  BOOL PreTranslateMessage(MSG* message) override;
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

 protected:
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  void OnChar(UINT character, UINT repeat, UINT flags) override;
  void OnKillFocus(CWnd* new_window) override;
  void OnLButtonDblClk(UINT flags, CPoint point) override;
  void OnRButtonDown(UINT flags, CPoint point) override;
  UINT OnGetDlgCode() override;

 private:
  // The message that the key stands for, 0 when the control keeps it.
  UINT message_of(UINT key) const;

  std::unique_ptr<CTabEditButton> m_pButton;
  std::unique_ptr<CTabEditInputNum> m_pInputNum;
};

}  // namespace brindle
