// CTabCombo: the list of a cell; CTabBmpCombo: a list of bitmaps. Keys that lead away from the cell
// become messages to the grid (table_messages.h).
#pragma once

#include "brindle/platform/window/combo_box.h"

namespace brindle {

// Left and Right leave the box whatever stands in its edit field: the caret moves by Home and End,
// or with Shift or Control.
class CTabCombo : public CComboBox {
 public:
  ~CTabCombo() override { DestroyWindow(); }

  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  void OnKillFocus(CWnd* new_window) override;
  void OnLButtonDblClk(UINT flags, CPoint point) override;
  UINT OnGetDlgCode() override;

  // What the user did in the list: the grid is told of a new selection; a list that closed ends the
  // editing, and the box hides; a row that was taken goes into the edit field, if there is one,
  // which ends the editing too.
  void OnSelchange();
  void OnCloseup();
  void OnSelendok();

 private:
  bool has_edit_field() const;
  bool m_bListOpen = false;  // from CBN_DROPDOWN to CBN_CLOSEUP
  // Whether the key went to the grid and needs nothing more.
  bool key_down(UINT key);
  void tell_grid(UINT message, WPARAM wParam = 0);
};

// Items are bitmaps of table_bitmaps.h, each as high as its item. The item data is the number.
class CTabBmpCombo : public CTabCombo {
 public:
  // Returns the item's index.
  int AddBitmapItem(UINT id);
  void MeasureItem(LPMEASUREITEMSTRUCT item) override;
  void DrawItem(LPDRAWITEMSTRUCT item) override;
  // The items keep the order in which they were added.
  int CompareItem(LPCOMPAREITEMSTRUCT items) override;

 protected:
  BOOL OnEraseBkgnd(CDC* dc) override;
};

}  // namespace brindle
