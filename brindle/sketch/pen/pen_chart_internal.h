// What a chart's grid and its curves share.
#pragma once

#include <algorithm>

namespace brindle {

// The range of an axis, which isn't left empty.
inline float chart_range(float low, float high) {
  constexpr float kLeastRange = 1e-5f;
  return std::max(high - low, kLeastRange);
}

}  // namespace brindle
