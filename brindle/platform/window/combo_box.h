// CComboBox: a field with a list that drops down.
#pragma once

#include <memory>

#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/list_items.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

class ComboList;

// The rectangle given to Create and MoveWindow spans field and dropped list, as in the framework;
// the window itself is as high as the field. CBS_DROPDOWN has an edit field, CBS_DROPDOWNLIST none;
// CBS_SIMPLE has one and shows its list below it always, within the window.
// A row out of range gives CB_ERR.
class CComboBox : public CWnd {
 public:
  CComboBox();
  ~CComboBox() override;

  virtual BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  using CWnd::Create;
  void SetWindowText(const wchar_t* text) override;
  BOOL EnableWindow(BOOL enable = TRUE) override;

  int GetCount() const { return list_.count(); }
  int AddString(const wchar_t* text);
  // -1: at the end. Doesn't sort.
  int InsertString(int index, const wchar_t* text);
  int DeleteString(UINT index);
  void ResetContent();
  int GetLBText(int index, wchar_t* buffer) const;
  void GetLBText(int index, CString& text) const;
  int GetLBTextLen(int index) const;
  int FindString(int start_after, const wchar_t* text) const;
  int FindStringExact(int start_after, const wchar_t* text) const;
  int SelectString(int start_after, const wchar_t* text);
  DWORD_PTR GetItemData(int index) const;
  int SetItemData(int index, DWORD_PTR data);
  void* GetItemDataPtr(int index) const { return reinterpret_cast<void*>(GetItemData(index)); }
  int SetItemDataPtr(int index, void* data);

  int GetCurSel() const { return current_; }
  // -1 takes the selection away and empties the field. No notification goes out.
  int SetCurSel(int index);
  // With the list dropped: the row that the keys or the mouse stand on; else the selection.
  int highlighted() const;

  void ShowDropDown(BOOL show = TRUE);
  BOOL GetDroppedState() const;
  void GetDroppedControlRect(LPRECT screen) const;
  int SetDroppedWidth(UINT width);
  int GetDroppedWidth() const;
  // -1: of the field.
  int SetItemHeight(int index, UINT height);
  int GetItemHeight(int index) const;
  int GetTopIndex() const;
  int SetTopIndex(int index);
  void SetExtendedUI(BOOL extended = TRUE) { extended_ = extended; }
  BOOL GetExtendedUI() const { return extended_; }
  // Null without an edit field.
  CEdit* edit_control() const { return edit_.get(); }
  BOOL LimitText(int characters);
  DWORD GetEditSel() const;
  BOOL SetEditSel(int start, int end);
  void Copy();
  void Cut();
  void Paste();
  void Clear();

  // Of a box that its owner draws, when the class itself is the owner.
  virtual void DrawItem(LPDRAWITEMSTRUCT item);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT item);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT items);
  virtual void DeleteItem(LPDELETEITEMSTRUCT item);

 protected:
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
  int OnCreate(LPCREATESTRUCT create) override;
  void OnDestroy() override;
  void OnPaint() override;
  void OnSize(UINT type, int cx, int cy) override;
  void OnSetFocus(CWnd* old_window) override;
  void OnKillFocus(CWnd* new_window) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  void OnChar(UINT character, UINT repeat, UINT flags) override;
  void OnLButtonDown(UINT flags, CPoint point) override;
  BOOL OnMouseWheel(UINT flags, short delta, CPoint screen) override;
  UINT OnGetDlgCode() override;

 private:
  friend class ComboList;
  friend class ComboField;

  bool is_simple() const { return (GetStyle() & 3) == CBS_SIMPLE; }
  bool has_edit() const { return (GetStyle() & 3) != CBS_DROPDOWNLIST; }
  bool owner_draws() const {
    return (GetStyle() & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
  }
  int insert(int index, const wchar_t* text);
  // Moves the selection as the user did, with CBN_SELCHANGE.
  void user_select(int index);
  // Ends the list: with the row taken or not.
  void close_list(bool take);
  void key_in_list(UINT key);
  void show_selection();
  void layout();
  void draw_row(CDC& dc, int index, const CRect& box, bool selected, bool in_field);
  int field_height() const;
  // Gives the window the height of its field, after the font changed.
  void fit_field();

  ListItems list_;
  std::unique_ptr<CEdit> edit_;
  std::unique_ptr<ComboList> dropped_;
  int current_ = -1;
  int before_drop_ = -1;
  int item_height_ = 0;
  int field_item_height_ = 0;
  int list_height_ = 0;  // of field and list together
  int dropped_width_ = 0;
  BOOL extended_ = FALSE;
};

}  // namespace brindle
