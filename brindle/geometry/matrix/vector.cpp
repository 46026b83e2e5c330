#include "brindle/geometry/matrix/vector.h"

#include <algorithm>
#include <cstddef>

namespace brindle {

CVector::CVector(int n, double v) {
  double* block = new_block(1, n, L"CVector::CVector error:%s");
  std::fill_n(block, static_cast<std::size_t>(n), v);
  replace(block, 1, n);
}

}  // namespace brindle
