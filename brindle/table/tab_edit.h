// CTabEdit: the editor that a grid moves from cell to cell. Keys that lead away from the cell
// become messages to the grid (table_messages.h).
#pragma once

#include <memory>

#include "brindle/platform/window/button.h"
#include "brindle/platform/window/edit.h"

namespace brindle {

// The small button ">" at the editor's right end.
class CTabEditButton : public CButton {
 public:
  static constexpr int kWidth = 15;
};

// The number pad at the editor's right end, above it: digits, "00", "+/-" and "ok". A press goes to
// the editor as text; "ok" leaves the cell.
class CTabEditInputNum : public CWnd {
 public:
  static constexpr int kWidth = 80, kHeight = 50;

  // Shows the pad for `edit`, which must outlive it.
  BOOL create_pad(CEdit* edit, CWnd* parent);
  // What a press on a key does; the keys are named by their texts.
  void press(const CString& key);

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  CEdit* m_pEdit = nullptr;
  std::unique_ptr<CButton> m_arKey[13];
};

// Up, Down and Return stay with the control while m_bMultiLine is set.
class CTabEdit : public CEdit {
 public:
  int m_bMultiLine = 0;
  int m_bHaveBtn = 0;   // CreateButton puts the button ">" up
  int m_bInputNum = 0;  // CreateInputNum puts the number pad up

  // Each shows its helper when its flag is set, and takes an older one away in any case.
  void CreateButton();
  void CreateInputNum();
  void destroy_helpers();
  CTabEditButton* button() const { return m_pButton.get(); }
  CTabEditInputNum* number_pad() const { return m_pInputNum.get(); }

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // Whether the key is done with.
  bool key_down(UINT key);
  bool character(UINT code);

  std::unique_ptr<CTabEditButton> m_pButton;
  std::unique_ptr<CTabEditInputNum> m_pInputNum;
};

}  // namespace brindle
