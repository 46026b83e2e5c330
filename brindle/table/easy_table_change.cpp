#include "brindle/table/easy_table_wnd.h"

namespace brindle {

void CEasyTableWnd::AfterDataChange(int, int) {}

bool CEasyTableWnd::stands(const CETCell* cell, int hang, int lie, unsigned builds) {
  // A rebuilt table may have a new cell at the old one's address.
  return builds == builds_ && FindCell(hang, lie) == cell;
}

void CEasyTableWnd::DealChangeData(int hang, int lie, CString text) {
  if (text == L"---" || hang > m_nEasyHang) return;
  CETCell* cell = FindCell(hang, lie);
  if (!cell) return;
  cell->m_pOwner = m_pOwner;
  cell->DealChangeData(text);
  AfterDataChange(hang, OldLie(lie));
  cell = FindCell(hang, lie);
  if (!cell) return;
  SetSameLieValue(hang, lie);
  const unsigned builds = builds_;
  for (INT_PTR i = 0; i < m_arReact.GetSize(); ++i) {
    if (DealReact(static_cast<CETReact*>(m_arReact[i]), nullptr) == 2) return;
    if (!stands(cell, hang, lie, builds)) return;
  }
  for (INT_PTR i = 0; i < cell->m_arReact.GetSize(); ++i) {
    const CETReact* const react = static_cast<CETReact*>(cell->m_arReact[i]);
    const ETCELL_REACT type = react->m_nType;
    const int a = react->m_nParam1, b = react->m_nParam2;
    if (DealReact(react, cell) == 2) return;
    redraw_targets(type, a, b);
    if (!stands(cell, hang, lie, builds)) return;
  }
}

// What a rule has greyed shows at once. Not while painting: rules that contradict each other would
// keep the grid painting for ever.
void CEasyTableWnd::redraw_targets(ETCELL_REACT type, int a, int b) {
  if (type == ETCR_HANG_STATE) InvalidateHang(a);
  if (type == ETCR_LIE_STATE) InvalidateLie(a);
  if (type == ETCR_CELL_STATE) InvalidateCell(a, b);
}

void CEasyTableWnd::SetSameLieValue(int hang, int lie) {
  if (!m_bSameLieValue || !m_bMultiSel || m_arSelHang.GetSize() < 2) return;
  const CETCell* const from = FindCell(hang, lie);
  if (!from) return;
  for (WORD row : m_arSelHang) {
    CETCell* const cell = row == hang ? nullptr : FindCell(row, lie);
    if (!cell) continue;
    cell->CopyValue(*from);
    InvalidateHang(row);
  }
}

// Whether there was a state to set. With -1 the reaction isn't looked at, which may be gone after
// the message about a bad rule.
bool CEasyTableWnd::set_states(const CETReact& react, int state) {
  if (state == -1) return false;
  const auto set = [&](int hang, int lie) {
    if (CETCell* const cell = FindCell(hang, lie))
      cell->m_nState = static_cast<ETCELL_STATE>(state);
  };
  if (react.m_nType == ETCR_CELL_STATE) set(react.m_nParam1, react.m_nParam2);
  if (react.m_nType == ETCR_HANG_STATE) {
    const int columns = column_count();
    for (int lie = 1; lie <= columns; ++lie) set(react.m_nParam1, lie);
  }
  if (react.m_nType == ETCR_LIE_STATE) {
    for (int hang = 1; hang <= m_nEasyHang; ++hang) set(hang, react.m_nParam1);
  }
  return true;
}

int CEasyTableWnd::DealReact(const CETReact* react, CETCell* cell) {
  // The table, and the reaction with it, may be rebuilt before this returns.
  const int a = react->m_nParam1, b = react->m_nParam2, c = react->m_nParam3;
  switch (react->m_nType) {
    case ETCR_REDRAW_HANG:
      InvalidateHang(a);
      return 1;
    case ETCR_REDRAW_LIE:
      InvalidateLie(a);
      return 1;
    case ETCR_REDRAW_CELL:
      InvalidateCell(a, b);
      return 1;
    case ETCR_UPDATE_TABLE: {
      // Off even when ReSetCellData is where the tool asks for sorting.
      const int sorts = m_bSort;
      m_bSort = 0;
      ++sorting_off_;
      UpdateTable();
      --sorting_off_;
      m_bSort = sorts;
      return 2;
    }
    case ETCR_MESSAGE:
      if (!m_pOwner) return 0;
      m_pOwner->SendMessage(static_cast<UINT>(a), static_cast<WPARAM>(b), c);
      return 1;
    case ETCR_HANG_STATE:
    case ETCR_LIE_STATE:
    case ETCR_CELL_STATE:
      return cell && set_states(*react, cell->GetResponseReact(react->rule()));
    case ETCR_NONE:
      break;
  }
  return 0;
}

void CEasyTableWnd::run_state_rules(CETCell* cell) {
  const unsigned builds = builds_;
  for (INT_PTR i = 0; i < cell->m_arReact.GetSize(); ++i) {
    const CETReact* const react = static_cast<CETReact*>(cell->m_arReact[i]);
    if (react->is_state_rule()) DealReact(react, cell);
    // A message about a bad rule lets other messages run.
    if (builds != builds_) return;
  }
}

// No text is formed for the rules' sake.
void CEasyTableWnd::ask_rows(int first, int last) {
  rule_list_.update(m_arCell, m_nEasyHang, column_count(), m_arLieXu, cell_index_);
  const unsigned version = rule_list_.version(), builds = builds_;
  for (const auto& [cell, react] : rule_list_.of_rows(first, last)) {
    DealReact(react, cell);
    // A message about a bad rule lets other messages run.
    if (version != rule_list_.version() || builds != builds_) return;
  }
}

}  // namespace brindle
