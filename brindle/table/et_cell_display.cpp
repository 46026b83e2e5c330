#include <algorithm>

#include "brindle/platform/base/convert.h"
#include "brindle/platform/window/wnd.h"
#include "brindle/table/et_cell.h"
#include "brindle/table/et_cell_rebar_internal.h"

namespace brindle {

// The variable in the scale of the display; a float is scaled in single precision.
double CETCell::own_number() const {
  switch (m_nType) {
    case ETCK_INT:
    case ETCK_CHECK:
      return *static_cast<const int*>(m_pValue);
    case ETCK_SHORT:
      return *static_cast<const short*>(m_pValue);
    case ETCK_FLOAT:
      return *static_cast<const float*>(m_pValue) * m_fScale;
    case ETCK_DOUBLE:
      return *static_cast<const double*>(m_pValue) * m_fScale;
    default:
      return 0;
  }
}

CString CETCell::number_text(double shown) const {
  if (m_nType == ETCK_INT || m_nType == ETCK_SHORT) {
    return CString(wformat(m_strFormat, static_cast<int>(shown)));
  }
  return CString(wformat(m_strFormat, shown));
}

bool CETCell::is_rebar_text() const {
  return m_nType == ETCK_STRING && m_nGangJinKind == 1 && GetGangJinObj() != nullptr;
}

// The text of the variable alone, list or no list.
CString CETCell::plain_text() {
  switch (m_nType) {
    case ETCK_CHECK:
      return *static_cast<const int*>(m_pValue) ? m_strCheckOn : m_strCheckOff;
    case ETCK_STRING:
      return is_rebar_text() ? rebar_text() : own_text();
    case ETCK_INT:
    case ETCK_SHORT:
    case ETCK_FLOAT:
    case ETCK_DOUBLE:
      return number_text(own_number());
    default:
      return CString();
  }
}

// A text of another family is rebuilt in the variable as well, and the owner told. What nobody can
// read is shown as it stands: the user's text isn't thrown away for being wrong.
CString CETCell::rebar_text() {
  CString text = own_text();
  CGangJinBase& bars = reset_rebar_object(*this);
  bool rewritten = false;
  if (bars.FromString_KnowReinID(text) == -1) {
    text = own_text();
    reset_rebar_object(*this);
    const int groups = bars.FromString(text);
    bars.m_nParam = m_nGangJinParam;
    if (groups == -1) return own_text();
    rewritten = true;
  }
  if (m_nGangJinMax == 1) bars.m_bSingle = 0;
  const CString shown = bars.ToString(0);
  if (rewritten) {
    store_text(shown);
    if (m_pOwner) m_pOwner->SendMessage(0x1610, 0, 0);
  }
  return shown;
}

// A list's item as it would be displayed once it was stored.
double CETCell::number_of_item(int index) const {
  const double scale = m_fScale == 0 ? 1.0 : m_fScale;
  const double stored = parse_double(m_pControl->stored_text(index)) / scale;
  return m_nType == ETCK_FLOAT ? static_cast<float>(stored) * m_fScale : stored * m_fScale;
}

// Index of the list's item that the variable stands for, -1 if there is none.
int CETCell::item_of_variable() const {
  const CETControl& list = *m_pControl;
  const int count = static_cast<int>(list.m_arText.GetSize());
  switch (m_nType) {
    case ETCK_INT:
    case ETCK_SHORT: {
      const int value = static_cast<int>(own_number());
      if (!list.has_values()) return list.proposes_numbers() ? -1 : std::clamp(value, 0, count - 1);
      for (int i = 0; i < count; ++i) {
        if (_wtoi(list.stored_text(i)) == value) return i;
      }
      return -1;
    }
    case ETCK_FLOAT:
    case ETCK_DOUBLE: {
      const CString shown = number_text(own_number());
      for (int i = 0; i < count; ++i) {
        if (number_text(number_of_item(i)) == shown) return i;
      }
      return -1;
    }
    case ETCK_STRING: {
      const std::wstring_view value = own_view();
      for (int i = 0; i < count; ++i) {
        if (list.stored_text(i).view() == value) return i;
      }
      return -1;
    }
    default:
      return -1;
  }
}

CString CETCell::list_text() {
  int item = item_of_variable();
  if (item < 0) {
    if (!m_pControl->is_closed_list()) return plain_text();
    item = 0;
    store_item(item);
  }
  return m_pControl->m_arText[item];
}

CString CETCell::GetDispString() {
  if (!m_pValue) return m_nType == ETCK_TEXT ? m_strFormat : CString();
  if (m_nState == ETCS_NONE) return L"---";
  // Telling the owner of a rebar text may rebuild the table, and this cell is no more.
  const int* const flag = m_pModFlag;
  const bool has_list = m_nType != ETCK_CHECK && m_pControl &&
                        m_pControl->m_nKind == CETControl::kTextList &&
                        !m_pControl->m_arText.IsEmpty();
  // A variable that nobody has given a value shows blank, though it may be put right.
  const CString text = has_list ? list_text() : plain_text();
  return flag && *flag == 0 ? CString() : text;
}

}  // namespace brindle
