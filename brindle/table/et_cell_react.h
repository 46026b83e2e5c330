// CETReact: what a change of a cell does beyond the cell.
#pragma once

#include <memory>

#include "brindle/table/rule_expression.h"

namespace brindle {

enum ETCELL_REACT : int {
  ETCR_NONE = 0,
  ETCR_REDRAW_HANG = 1,   // hang: InvalidateHang
  ETCR_REDRAW_LIE = 2,    // lie: InvalidateLie
  ETCR_REDRAW_CELL = 3,   // hang, lie: InvalidateCell
  ETCR_UPDATE_TABLE = 4,  // UpdateTable without sorting; ends all further reactions of this change
  ETCR_MESSAGE = 5,       // message, wparam, lparam: sent to the owner
  ETCR_HANG_STATE = 6,    // hang, -, rule: state of all cells of a row
  ETCR_LIE_STATE = 7,     // lie, -, rule: state of all cells of a column
  ETCR_CELL_STATE = 8,    // hang, lie, rule: state of one cell
};

class CETReact {
 public:
  // Whether the reaction is a rule on states, which runs at each display as well.
  bool is_state_rule() const { return m_nType >= ETCR_HANG_STATE && m_nType <= ETCR_CELL_STATE; }
  // m_strExpr taken apart. Reactions with the same text share the rule.
  const StateRule& rule() const;

  ETCELL_REACT m_nType = ETCR_NONE;
  int m_nParam1 = 0, m_nParam2 = 0, m_nParam3 = 0;  // by m_nType
  CString m_strExpr;                                // the rule

 private:
  mutable std::shared_ptr<const StateRule> m_pRule;
};

}  // namespace brindle
