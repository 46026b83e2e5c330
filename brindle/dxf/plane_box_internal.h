// A box that grows around points. Not for use outside this folder.
#pragma once

#include <algorithm>
#include <limits>

#include "brindle/geometry/rect.h"

namespace brindle::Varnholt {

struct PlaneBox {
  double left = std::numeric_limits<double>::infinity(), bottom = left;
  double right = -left, top = -left;

  // A coordinate that is no number doesn't count.
  void add(double x, double y) {
    left = std::min(left, x);
    right = std::max(right, x);
    bottom = std::min(bottom, y);
    top = std::max(top, y);
  }
  bool empty() const { return !(left <= right && bottom <= top); }
  // The zero box when no point counted.
  CFRect rect() const {
    if (empty()) return CFRect();
    return CFRect(static_cast<float>(left), static_cast<float>(bottom), static_cast<float>(right),
                  static_cast<float>(top));
  }
};

}  // namespace brindle::Varnholt
