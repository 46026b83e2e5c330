#include "brindle/table/et_cell_control.h"

namespace brindle {

int CETControl::find_text(const CString& text) const {
  for (INT_PTR i = 0; i < m_arText.GetSize(); ++i) {
    if (m_arText[i] == text) return static_cast<int>(i);
  }
  return -1;
}

const CString& CETControl::stored_text(int index) const {
  return index < m_arValue.GetSize() ? m_arValue[index] : m_arText[index];
}

}  // namespace brindle
