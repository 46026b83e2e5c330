// Selected rows, by number in order of selection.
#include <algorithm>
#include <limits>

#include "brindle/table/table_wnd.h"

namespace brindle {

namespace {

// The list holds 16-bit numbers; rows beyond can't be selected.
bool can_be_listed(int hang) {
  return 0 <= hang && hang <= std::numeric_limits<WORD>::max();
}

}  // namespace

void CTableWnd::ClearSelHang() {
  CWordArray removed;
  removed.Copy(m_arSelHang);
  m_arSelHang.RemoveAll();
  for (const WORD hang : removed) InvalidateHang(hang);
}

BOOL CTableWnd::IfMutiSelection(int hang) {
  const auto gone = [&](WORD row) { return row == 0 || row > m_nHangCount; };
  WORD* const end = std::remove_if(m_arSelHang.begin(), m_arSelHang.end(), gone);
  if (end != m_arSelHang.end()) m_arSelHang.SetSize(end - m_arSelHang.begin());
  return std::find(m_arSelHang.begin(), m_arSelHang.end(), hang) != m_arSelHang.end();
}

void CTableWnd::TangleSelectHang(int hang) {
  if (!m_bMultiSel || !can_be_listed(hang)) return;
  WORD* const place = std::find(m_arSelHang.begin(), m_arSelHang.end(), hang);
  if (place != m_arSelHang.end()) {
    m_arSelHang.RemoveAt(place - m_arSelHang.begin());
  } else {
    m_arSelHang.Add(static_cast<WORD>(hang));
    m_nSelAnchor = hang;
  }
  InvalidateHang(hang);
}

void CTableWnd::RangeSelectHang(int hang) {
  if (!m_bMultiSel || !can_be_listed(hang)) return;
  ClearSelHang();
  if (m_nSelAnchor < 1 || m_nSelAnchor > m_nHangCount) m_nSelAnchor = hang;
  const auto [first, last] = std::minmax(m_nSelAnchor, hang);
  for (int row = first; row <= last; ++row) {
    m_arSelHang.Add(static_cast<WORD>(row));
    InvalidateHang(row);
  }
}

void CTableWnd::DirectSelectHang(int hang) {
  if (!can_be_listed(hang)) return;
  ClearSelHang();
  m_arSelHang.Add(static_cast<WORD>(hang));
  m_nSelAnchor = hang;
  InvalidateHang(hang);
}

}  // namespace brindle
