#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/platform/base/convert.h"
#include "brindle/table/et_cell.h"
#include "brindle/table/et_cell_rebar_internal.h"
#include "brindle/table/paste_cells.h"

namespace brindle {
namespace {

template <class Integer>
Integer truncated(double value) {
  using Limits = std::numeric_limits<Integer>;
  return static_cast<Integer>(
      std::clamp(value, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

}  // namespace

// `shown` is in the scale of the display and no NaN.
void CETCell::store_number(double shown) {
  const double scale = m_fScale == 0 ? 1.0 : m_fScale;
  switch (m_nType) {
    case ETCK_INT:
      *static_cast<int*>(m_pValue) = truncated<int>(shown);
      break;
    case ETCK_SHORT:
      *static_cast<short*>(m_pValue) = truncated<short>(shown);
      break;
    case ETCK_FLOAT:
      *static_cast<float*>(m_pValue) = static_cast<float>(shown / scale);
      break;
    case ETCK_DOUBLE:
      *static_cast<double*>(m_pValue) = shown / scale;
      break;
    default:
      break;
  }
}

void CETCell::store_item(int index) {
  const CString& stored = m_pControl->stored_text(index);
  switch (m_nType) {
    case ETCK_INT:
    case ETCK_SHORT:
      store_number(m_pControl->has_values() ? _wtoi(stored) : index);
      break;
    case ETCK_FLOAT:
    case ETCK_DOUBLE: {
      const double value = parse_double(stored);
      store_number(std::isnan(value) ? 0.0 : value);
      break;
    }
    case ETCK_STRING:
      store_text(stored);
      break;
    default:
      break;
  }
}

void CETCell::store_rebar(const CString& text) {
  CGangJinBase& bars = reset_rebar_object(*this);
  CString parsed = text;
  const int groups = bars.FromString_KnowReinID(parsed);
  if (groups == -1 || groups > m_nGangJinMax) return;
  if (m_nGangJinMax == 1) bars.m_bSingle = 0;
  store_text(bars.ToString(0));
}

// A text that isn't one of a list's items.
void CETCell::store_typed(const CString& text) {
  if (m_nType == ETCK_STRING) {
    is_rebar_text() ? store_rebar(text) : store_text(text);
    return;
  }
  if (m_nType == ETCK_CHECK) {
    const bool texts_tell = m_strCheckOn != m_strCheckOff;
    const bool is_text = texts_tell && (text == m_strCheckOn || text == m_strCheckOff);
    *static_cast<int*>(m_pValue) = is_text ? text == m_strCheckOn : parse_double(text) != 0;
    return;
  }
  double value = parse_double(narrow_number(text));
  if (std::isnan(value)) value = 0;
  value = std::max(m_dMin, std::min(m_dMax, value));
  if (is_diameter_known(truncated<int>(value))) store_number(value);
}

// Whether an integer may have the value, as far as the rebar object has a say in it.
bool CETCell::is_diameter_known(int value) const {
  const bool is_integer = m_nType == ETCK_INT || m_nType == ETCK_SHORT;
  return !is_integer || m_nGangJinKind != 2 || !GetGangJinObj() ||
         reset_rebar_object(*this).FindZhiJin(value, m_nGangJinParam) == 1;
}

int CETCell::DealChangeData(const CString& text) {
  if (!m_pValue) return 0;
  const CETControl* list = m_nType == ETCK_CHECK ? nullptr : m_pControl;
  const int item = list && list->m_nKind == CETControl::kTextList ? list->find_text(text) : -1;
  const bool is_integer = m_nType == ETCK_INT || m_nType == ETCK_SHORT;
  if (item >= 0 &&
      (list->is_closed_list() || list->has_values() || (is_integer && !list->proposes_numbers()))) {
    const bool is_index = !list->has_values();
    if (is_index || is_diameter_known(_wtoi(list->stored_text(item)))) store_item(item);
  } else if (!list || !list->is_closed_list()) {
    store_typed(text);
  }
  if (m_pModFlag) *m_pModFlag = 1;
  return 1;
}

}  // namespace brindle
