// The arithmetic of Mat_Det, inline for callers that know the size of their matrix.
#pragma once

#include <cmath>

namespace brindle {

// Decomposes the n x n matrix in place. Every size goes through these operations in this order, so
// that a determinant has the same digits whoever asks for it.
inline double lu_determinant(double* a, int n) {
  double sign = 1;
  for (int k = 0; k < n; ++k) {
    int pivot = k;
    for (int i = k + 1; i < n; ++i) {
      if (std::fabs(a[i * n + k]) > std::fabs(a[pivot * n + k])) pivot = i;
    }
    if (a[pivot * n + k] == 0) return 0;
    if (pivot != k) {
      for (int j = k; j < n; ++j) {
        const double held = a[k * n + j];
        a[k * n + j] = a[pivot * n + j];
        a[pivot * n + j] = held;
      }
      sign = -sign;
    }
    for (int i = k + 1; i < n; ++i) {
      const double factor = a[i * n + k] / a[k * n + k];
      for (int j = k + 1; j < n; ++j) a[i * n + j] -= factor * a[k * n + j];
    }
  }
  double product = sign;
  for (int k = 0; k < n; ++k) product *= a[k * n + k];
  return product;
}

}  // namespace brindle
