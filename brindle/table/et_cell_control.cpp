#include "brindle/table/et_cell_control.h"

#include <algorithm>

#include "brindle/platform/base/convert.h"
#include "brindle/table/tab_combo.h"
#include "brindle/table/table_bitmaps.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

CETControl::CETControl() = default;

CETControl::~CETControl() {
  destroy_combo();
}

void CETControl::destroy_combo() {
  delete m_pCombo;
  m_pCombo = nullptr;
  m_pParent = nullptr;
}

void CETControl::CreateCombo(CTableWnd* parent) {
  const bool stands = m_pCombo && m_pCombo->GetSafeHwnd();
  if (stands && m_pParent == parent) return;
  destroy_combo();
  if (!parent || !parent->GetSafeHwnd()) return;
  constexpr DWORD kStyle = WS_CHILD | WS_VSCROLL | CBS_AUTOHSCROLL;
  const RECT rect{0, 0, 40, 200};
  if (m_nKind == kBitmapList) {
    CTabBmpCombo* const combo = new CTabBmpCombo;
    m_pCombo = combo;
    combo->Create(kStyle | CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE, rect, parent, 0);
    for (int bitmap : m_arBmp) combo->AddBitmapItem(static_cast<UINT>(bitmap));
  } else {
    m_pCombo = new CTabCombo;
    m_pCombo->Create(kStyle | (m_bEditable ? CBS_DROPDOWN : CBS_DROPDOWNLIST), rect, parent, 0);
    for (const CString& text : m_arText) m_pCombo->AddString(text);
  }
  m_pCombo->SetFont(&parent->m_hFont);
  m_pParent = parent;
}

bool CETControl::proposes_numbers() const {
  return m_bEditable && !has_values() &&
         std::all_of(m_arText.begin(), m_arText.end(), [](const CString& text) {
           const wchar_t* end = nullptr;
           parse_double(text, &end);
           return end != text.GetString() && *end == 0;
         });
}

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
