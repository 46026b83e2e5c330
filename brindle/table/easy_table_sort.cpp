#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/platform/base/convert.h"
#include "brindle/table/easy_table_wnd.h"

namespace brindle {
namespace {

// What is no number at all comes before all others, so that there always is an order.
double sorting_number(const CString& text) {
  const double value = parse_double(text);
  return std::isnan(value) ? -std::numeric_limits<double>::infinity() : value;
}

}  // namespace

BOOL CEasyTableWnd::FirstIsLarger(const CPxNode& first, const CPxNode& second) {
  if (first.m_nKind == ETCK_INT) return _wtoi(first.m_strText) > _wtoi(second.m_strText);
  if (first.m_nKind == ETCK_FLOAT) {
    return sorting_number(first.m_strText) > sorting_number(second.m_strText);
  }
  return first.m_strText.Compare(second.m_strText) > 0;
}

void CEasyTableWnd::Add2PxNodeArray(std::vector<CPxNode>& nodes, const CPxNode& node, int down) {
  auto place = nodes.begin();
  if (down) {
    while (place != nodes.end() && FirstIsLarger(*place, node)) ++place;
  } else {
    while (place != nodes.end() && !FirstIsLarger(*place, node)) ++place;
  }
  nodes.insert(place, node);
}

CPxNode CEasyTableWnd::sorting_node(int hang, int lie, int kind) {
  CPxNode node{hang, CString(), kind};
  if (CETCell* const cell = FindCell(hang, lie)) {
    cell->m_pOwner = m_pOwner;
    node.m_strText = cell->GetDispString();
  }
  return node;
}

// The same rows as putting one after the other with Add2PxNodeArray: rows of equal texts stay in
// their order when rising, and turn round when falling.
void CEasyTableWnd::SortCell(int lie) {
  const int columns = column_count();
  if (columns < 1 || m_nEasyHang < 2) return;
  lie = std::clamp(lie, 1, columns);
  int kind = ETCK_STRING;
  if (const CETCell* const cell = FindCell(1, lie); cell && !cell->m_pControl) {
    kind = cell->m_nType == ETCK_DOUBLE ? ETCK_FLOAT : cell->m_nType;
    if (kind == ETCK_SHORT) kind = ETCK_INT;
  }
  std::vector<CPxNode> nodes;
  nodes.reserve(static_cast<std::size_t>(m_nEasyHang));
  const unsigned builds = builds_;
  for (int hang = 1; hang <= m_nEasyHang; ++hang) {
    nodes.push_back(sorting_node(hang, lie, kind));
    if (builds != builds_) return;  // the owner was told of a rebar text and rebuilt the table
  }
  if (m_bSortDown) {
    std::reverse(nodes.begin(), nodes.end());
    std::stable_sort(nodes.begin(), nodes.end(), FirstIsLarger);
  } else {
    std::stable_sort(nodes.begin(), nodes.end(), [](const CPxNode& a, const CPxNode& b) {
      return FirstIsLarger(b, a) != FALSE;
    });
  }
  std::vector<int> new_row(static_cast<std::size_t>(m_nEasyHang) + 1);
  for (std::size_t i = 0; i < nodes.size(); ++i)
    new_row[nodes[i].m_nHang] = static_cast<int>(i) + 1;
  for (void* entry : m_arCell) {
    CETNumber& hang = static_cast<CETCell*>(entry)->m_nHang;
    if (hang >= 1 && hang <= m_nEasyHang) hang = new_row[hang];
  }
}

int CEasyTableWnd::DealTitleClicked(int lie) {
  if (!m_bSort) return 0;
  commit_pending();
  m_nSortLie = lie;
  SortCell(lie);
  refresh_editor();
  if (GetSafeHwnd()) Invalidate();
  return 0;
}

}  // namespace brindle
