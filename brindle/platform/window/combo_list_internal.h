// The two windows inside a combo box: the list that drops down, the field that is typed in.
#pragma once

#include "brindle/platform/window/combo_box.h"

namespace brindle {

// A popup that never takes the focus: the box keeps it and passes the keys on.
class ComboList : public CWnd {
 public:
  explicit ComboList(CComboBox& box) : box_(box) {}

  int highlight = -1;
  int top = 0;

  void open(const CRect& screen, int visible_rows);
  // Of a box that shows its list always: after its size or the rows changed.
  void fit();
  void set_highlight(int row, bool bring_into_view);
  void set_top(int row);
  int rows() const { return rows_; }
  CRect row_rect(int row) const;
  int row_at(CPoint point) const;

 protected:
  void OnPaint() override;
  void OnMouseMove(UINT flags, CPoint point) override;
  void OnLButtonDown(UINT flags, CPoint point) override;
  void OnLButtonUp(UINT flags, CPoint point) override;
  BOOL OnMouseWheel(UINT flags, short delta, CPoint screen) override;
  void OnVScroll(UINT code, UINT position, CWnd* bar) override;

 private:
  CComboBox& box_;
  int rows_ = 1;
};

class ComboField : public CEdit {
 public:
  explicit ComboField(CComboBox& box) : box_(box) {}

 protected:
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  BOOL OnMouseWheel(UINT flags, short delta, CPoint screen) override;

 private:
  CComboBox& box_;
};

}  // namespace brindle
