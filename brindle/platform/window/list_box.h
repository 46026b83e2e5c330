// CListBox: a list of texts from which one or several are chosen.
#pragma once

#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/list_items.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

// A row out of range gives LB_ERR.
class CListBox : public CWnd {
 public:
  virtual BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  using CWnd::Create;

  int GetCount() const { return list_.count(); }
  int AddString(const wchar_t* text);
  // -1: at the end. Doesn't sort.
  int InsertString(int index, const wchar_t* text);
  int DeleteString(UINT index);
  void ResetContent();
  int GetText(int index, wchar_t* buffer) const;
  void GetText(int index, CString& text) const;
  int GetTextLen(int index) const;
  int FindString(int start_after, const wchar_t* text) const;
  int FindStringExact(int start_after, const wchar_t* text) const;
  int SelectString(int start_after, const wchar_t* text);
  DWORD_PTR GetItemData(int index) const;
  int SetItemData(int index, DWORD_PTR data);
  void* GetItemDataPtr(int index) const { return reinterpret_cast<void*>(GetItemData(index)); }
  int SetItemDataPtr(int index, void* data);

  // The selected row, or with several the row with the focus.
  int GetCurSel() const { return current_; }
  // -1 takes the selection away, and gives LB_ERR as the framework does.
  int SetCurSel(int index);
  int GetSel(int index) const;
  int SetSel(int index, BOOL select = TRUE);  // -1: all rows
  int GetSelCount() const;
  int GetSelItems(int max_items, int* indexes) const;
  int GetCaretIndex() const { return current_; }
  int SetCaretIndex(int index, BOOL scroll = TRUE);
  int GetTopIndex() const { return top_; }
  int SetTopIndex(int index);
  int GetItemRect(int index, LPRECT rect) const;
  UINT ItemFromPoint(CPoint point, BOOL& outside) const;
  int SetItemHeight(int index, UINT height);
  int GetItemHeight(int index) const;
  void SetHorizontalExtent(int width) { extent_ = width; }
  int GetHorizontalExtent() const { return extent_; }

  // Of a list that its owner draws, when the class itself is the owner.
  virtual void DrawItem(LPDRAWITEMSTRUCT item);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT item);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT items);
  virtual void DeleteItem(LPDELETEITEMSTRUCT item);

 protected:
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
  void OnPaint() override;
  void OnSize(UINT type, int cx, int cy) override;
  void OnSetFocus(CWnd* old_window) override;
  void OnKillFocus(CWnd* new_window) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  void OnChar(UINT character, UINT repeat, UINT flags) override;
  void OnLButtonDown(UINT flags, CPoint point) override;
  void OnLButtonUp(UINT flags, CPoint point) override;
  void OnLButtonDblClk(UINT flags, CPoint point) override;
  void OnMouseMove(UINT flags, CPoint point) override;
  BOOL OnMouseWheel(UINT flags, short delta, CPoint screen) override;
  void OnVScroll(UINT code, UINT position, CWnd* bar) override;
  UINT OnGetDlgCode() override;

 private:
  bool several() const { return (GetStyle() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0; }
  bool owner_draws() const {
    return (GetStyle() & (LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE)) != 0;
  }
  int insert(int index, const wchar_t* text);
  void choose(int index, UINT flags, bool by_mouse);
  void changed();
  void update_bar();
  void show_row(int index);
  int rows_in_view() const;
  void notify(UINT code);

  ListItems list_;
  int current_ = -1;
  int anchor_ = -1;
  int top_ = 0;
  int extent_ = 0;
  int height_ = 0;  // of a row, 0: by the font
};

}  // namespace brindle
