#include "brindle/geometry/linear_algebra.h"

#include <cmath>
#include <cstddef>
#include <new>
#include <utility>
#include <vector>

#include "brindle/frame/utility/tell_error.h"

namespace brindle {
namespace {

struct Place {
  std::size_t row = 0;
  std::size_t column = 0;
};

// The largest element of the rows and columns that were no pivot yet; NaN is never larger.
template <class Real>
Place find_pivot(const Real* a, std::size_t n, const std::vector<char>& used) {
  Place best;
  bool found = false;
  for (std::size_t i = 0; i < n; ++i) {
    if (used[i]) continue;
    for (std::size_t j = 0; j < n; ++j) {
      if (used[j]) continue;
      if (!found || std::fabs(a[i * n + j]) > std::fabs(a[best.row * n + best.column])) {
        best = {i, j};
        found = true;
      }
    }
  }
  return best;
}

template <class Real>
void swap_rows(Real* a, std::size_t columns, std::size_t i, std::size_t k) {
  if (i == k) return;
  for (std::size_t j = 0; j < columns; ++j) std::swap(a[i * columns + j], a[k * columns + j]);
}

// Subtracts `factor` times the row `pivot` from the row `i`.
template <class Real>
void subtract_row(Real* a, std::size_t columns, std::size_t i, std::size_t pivot, Real factor) {
  for (std::size_t j = 0; j < columns; ++j) a[i * columns + j] -= a[pivot * columns + j] * factor;
}

template <class Real>
int gauss_jordan(Real* a, int size, Real* b, int right_sides) {
  if (size < 1 || right_sides < 0) return 0;
  const auto n = static_cast<std::size_t>(size), m = static_cast<std::size_t>(right_sides);
  std::vector<char> used;
  std::vector<Place> pivots;
  try {
    used.resize(n);
    pivots.resize(n);
  } catch (const std::bad_alloc&) {
    tell_error(301, L"Out of memery in gaussj");
    return 0;
  }
  bool warned = false;
  for (Place& pivot : pivots) {
    pivot = find_pivot(a, n, used);
    const std::size_t p = pivot.column;
    used[p] = 1;
    swap_rows(a, n, pivot.row, p);
    swap_rows(b, m, pivot.row, p);
    const Real value = a[p * n + p];
    if (value == 0 && !warned) {
      tell_error(201, L"警告：求逆时发现矩阵有奇异性，计算结果可能有一定误差 !");
      warned = true;
    }
    const Real reciprocal = value == 0 ? Real{0} : 1 / value;
    a[p * n + p] = 1;
    for (std::size_t j = 0; j < n; ++j) a[p * n + j] *= reciprocal;
    for (std::size_t j = 0; j < m; ++j) b[p * m + j] *= reciprocal;
    for (std::size_t i = 0; i < n; ++i) {
      if (i == p) continue;
      const Real factor = std::exchange(a[i * n + p], Real{0});
      subtract_row(a, n, i, p, factor);
      subtract_row(b, m, i, p, factor);
    }
  }
  // The exchanges of rows are undone as exchanges of the inverse's columns, the last one first.
  for (std::size_t k = n; k-- > 0;) {
    if (pivots[k].row == pivots[k].column) continue;
    for (std::size_t i = 0; i < n; ++i) {
      std::swap(a[i * n + pivots[k].row], a[i * n + pivots[k].column]);
    }
  }
  return 1;
}

}  // namespace

int gaussj(float* a, int n, float* b, int m) {
  return gauss_jordan(a, n, b, m);
}

int gaussj(double* a, int n, double* b, int m) {
  return gauss_jordan(a, n, b, m);
}

int GetInverse(const double* a, double* inv, int n, int m, double tol) {
  if (n < 1 || m < n) return 0;
  const auto size = static_cast<std::size_t>(n), apart = static_cast<std::size_t>(m);
  // The matrix and the unit matrix side by side; the first half becomes the unit matrix.
  const std::size_t width = 2 * size;
  std::vector<double> rows(size * width);
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < size; ++j) rows[i * width + j] = a[i * apart + j];
    rows[i * width + size + i] = 1;
  }
  for (std::size_t p = 0; p < size; ++p) {
    std::size_t largest = p;
    for (std::size_t i = p + 1; i < size; ++i) {
      if (std::fabs(rows[i * width + p]) > std::fabs(rows[largest * width + p])) largest = i;
    }
    swap_rows(rows.data(), width, p, largest);
    const double pivot = rows[p * width + p];
    if (!(std::fabs(pivot) > tol) || pivot == 0) {
      tell_error(301, L"求逆时发现奇异!");
      return 0;
    }
    for (std::size_t j = 0; j < width; ++j) rows[p * width + j] /= pivot;
    for (std::size_t i = 0; i < size; ++i) {
      if (i != p) subtract_row(rows.data(), width, i, p, rows[i * width + p]);
    }
  }
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < size; ++j) inv[i * apart + j] = rows[i * width + size + j];
  }
  return 1;
}

}  // namespace brindle
