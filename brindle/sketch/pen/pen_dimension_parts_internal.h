// What both kinds of dimensions, of loose lines and as entities, share.
#pragma once

#include <algorithm>
#include <cmath>

#include "brindle/geometry/helpers.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_placing_internal.h"

namespace brindle {

// The same direction in [0, 360) degrees.
inline float folded_angle(float angle) {
  angle = std::fmod(angle, 360.0f);
  if (angle < 0) angle += 360;
  return angle < 360 ? angle : 0;
}

inline float line_angle_deg(float x1, float y1, float x2, float y2) {
  return static_cast<float>(get_line_angle(x1, y1, x2, y2) / kRadiansOfDegree);
}

// Prints a length with so many decimals, none below 0, into the pen's text of the last dimension,
// and gives it.
inline const wchar_t* print_dimension(CBase_SGT& pen, int decimals, float length) {
  brindle::swprintf(pen.m_szDimFormat, L"%%.%df", std::max(decimals, 0));
  brindle::swprintf(pen.m_szDimText, pen.m_szDimFormat, length);
  return pen.m_szDimText;
}

// Calls draw(x1, y1, x2, y2) for each pair of neighbours, its ends swapped when `reverse` isn't 0.
template <class Draw>
void for_each_pair(int n, const float* x, const float* y, int reverse, Draw draw) {
  for (int i = 0; i + 1 < n; ++i) {
    const int from = reverse != 0 ? i + 1 : i, to = reverse != 0 ? i : i + 1;
    draw(x[from], y[from], x[to], y[to]);
  }
}

}  // namespace brindle
