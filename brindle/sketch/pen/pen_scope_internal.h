// Scopes of the pen's symbols: the environment comes back at their end, also when drawing throws.
#pragma once

#include "brindle/sketch/pen/base_sgt.h"

namespace brindle {

// Saves the pen's environment for the life of the object.
class EnvironmentScope {
 public:
  explicit EnvironmentScope(CBase_SGT& pen) : pen_(pen), pushed_(pen.Push_ENV()) {}
  ~EnvironmentScope() {
    if (pushed_ != 0) pen_.Pop_ENV();
  }
  EnvironmentScope(const EnvironmentScope&) = delete;
  EnvironmentScope& operator=(const EnvironmentScope&) = delete;

 private:
  CBase_SGT& pen_;
  int pushed_;
};

// Pen points become drawing points. Factors on texts and widths stay.
inline void reset_frame(CBase_SGT& pen) {
  pen.m_fOrgX = pen.m_fOrgY = 0;
  pen.m_fScaleXY = 1;
  pen.m_fRotate = 0;
}

// The same, with the factors 1: for a symbol that keeps its paper size. Its anchor points are
// converted before.
inline void reset_transform(CBase_SGT& pen) {
  reset_frame(pen);
  pen.m_fScaleText = pen.m_fScaleWidth = 1;
}

}  // namespace brindle
