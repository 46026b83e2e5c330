#include "brindle/geometry/determinant.h"

#include <algorithm>
#include <vector>

#include "brindle/geometry/determinant_internal.h"

namespace brindle {

double Mat_Det(int n, const double* m) {
  if (n < 1 || m == nullptr) return 0;
  if (n == 4) {  // a size known while compiling is unrolled
    double copy[16];
    std::copy_n(m, 16, copy);
    return lu_determinant(copy, 4);
  }
  if (n < 4) {
    double copy[9];
    std::copy_n(m, n * n, copy);
    return lu_determinant(copy, n);
  }
  std::vector<double> copy(m, m + static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
  return lu_determinant(copy.data(), n);
}

}  // namespace brindle
