// CETControl: one combo box, shared by all cells of a grid that have the same list.
#pragma once

#include <memory>

#include "brindle/platform/base/pointer_arrays.h"

namespace brindle {

class CComboBox;
class CTableWnd;
class CWnd;

class CETControl {
 public:
  enum Kind : int { kTextList = 1, kBitmapList = 2 };

  CETControl();
  ~CETControl();
  CETControl(const CETControl&) = delete;
  CETControl& operator=(const CETControl&) = delete;

  // Makes the window, hidden, with the items and the grid's font. A window that stands in the same
  // grid already is kept, one in another grid is destroyed first.
  void CreateCombo(CTableWnd* parent);
  // Destroys the window, if there is one.
  void destroy_combo();

  // Whether values of their own stand behind the texts.
  bool has_values() const { return !m_arValue.IsEmpty(); }
  // Whether the list's items are all that a cell can hold.
  bool is_closed_list() const {
    return m_nKind == kTextList && !m_bEditable && !m_arText.IsEmpty();
  }
  // Whether the box takes other texts and its items are numbers without values: numbers for
  // an integer, not its index.
  bool proposes_numbers() const;
  // Index of an item, -1 if there is none.
  int find_text(const CString& text) const;
  // What is stored for an item: its value, or its text when it has none.
  const CString& stored_text(int index) const;

  int m_nKind = kTextList;
  CComboBox* m_pCombo = nullptr;  // owned
  CStringArray m_arText;          // items
  CStringArray m_arValue;         // stored in place of the texts; empty: the text or its index
  CArray<int, int> m_arBmp;       // bitmap ids of a bitmap list
  int m_bEditable = 0;            // the box has an edit field; other texts are welcome

 private:
  CWnd* m_pParent = nullptr;  // where m_pCombo stands
};

}  // namespace brindle
