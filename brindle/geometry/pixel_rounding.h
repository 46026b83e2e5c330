// Conversions of floats to device integers that are defined for every value.
#pragma once

#include <limits>

namespace brindle {

// Cut towards zero; what an int can't hold, NaN included, gives the lowest int.
inline int truncate_to_int(float value) {
  constexpr float kLimit = 2147483648.0f;
  if (!(value >= -kLimit && value < kLimit)) return std::numeric_limits<int>::min();
  return static_cast<int>(value);
}

// The pixel of a device coordinate: half up for values from 0, and for negative ones what the two
// truncations give (-0.75 and -1.2 both give 0). Pictures depend on it.
inline int round_to_pixel(float device) {
  return truncate_to_int(2 * device + 1) / 2;
}

}  // namespace brindle
