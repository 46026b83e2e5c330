// The rebar object made ready for a cell.
#pragma once

#include "brindle/table/et_cell.h"

namespace brindle {

// There must be an object. Defaults are copied over it, so that nothing of one cell's text reaches
// the next, then the cell's family and parameter.
inline CGangJinBase& reset_rebar_object(const CETCell& cell) {
  CGangJinBase& bars = *GetGangJinObj();
  bars.CGangJinBase::operator=(CGangJinBase());
  bars.m_nGangJinType = cell.m_nGangJinType;
  bars.m_nParam = cell.m_nGangJinParam;
  return bars;
}

}  // namespace brindle
