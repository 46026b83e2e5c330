#include "brindle/platform/window/progress_ctrl.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace brindle {

void CProgressCtrl::SetRange(int lower, int upper) {
  if (upper < lower) std::swap(lower, upper);
  m_nLower = lower;
  m_nUpper = upper;
  SetPos(m_nPos);
}

void CProgressCtrl::GetRange(int& lower, int& upper) const {
  lower = m_nLower;
  upper = m_nUpper;
}

int CProgressCtrl::SetPos(int position) {
  return std::exchange(m_nPos, std::clamp(position, m_nLower, m_nUpper));
}

int CProgressCtrl::SetStep(int step) {
  return std::exchange(m_nStep, step);
}

int CProgressCtrl::StepIt() {
  const int64_t wanted = static_cast<int64_t>(m_nPos) + m_nStep;
  return SetPos(wanted > m_nUpper ? m_nLower
                                  : static_cast<int>(std::max<int64_t>(wanted, m_nLower)));
}

}  // namespace brindle
