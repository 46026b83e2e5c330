#include "brindle/geometry/matrix/float_matrix.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <numeric>
#include <vector>

#include "brindle/geometry/matrix/messages.h"

namespace brindle::QxJGFunEx {
namespace {

int tell_wrong_access() {
  TellError(0, L"\n取数据有误！");
  return 0;
}

// Makes the range first..last of `count` places plain; false when it isn't within them. An empty
// range of no places is fine.
bool settle_range(int count, int first, int& last) {
  if (last < 0) last = count - 1;
  return first >= 0 && last < count && first <= last + 1;
}

}  // namespace

CFMatrix::~CFMatrix() {
  delete[] m_pData;
}

CFMatrix& CFMatrix::operator=(const CFMatrix& other) {
  if (&other == this) return *this;
  Ini(other.m_nRows, other.m_nCols, other.m_pData);
  m_fInvalid = other.m_fInvalid;
  return *this;
}

void CFMatrix::Ini() {
  delete[] m_pData;
  m_pData = nullptr;
  m_nRows = m_nCols = 0;
  m_fInvalid = 3.4028235e38f;
}

int CFMatrix::Ini(int rows, int cols, const float* data) {
  if (rows < 0 || cols < 0) return 0;
  const std::size_t count = static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols);
  constexpr std::size_t kMost = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(float);
  float* block = nullptr;
  if (count > kMost) return 0;
  if (count > 0) {
    block = new (std::nothrow) float[count]();
    if (!block) return 0;
    if (data) std::copy_n(data, count, block);
  }
  delete[] m_pData;
  m_pData = block;
  m_nRows = rows;
  m_nCols = cols;
  return 1;
}

const float& CFMatrix::at(int row, int col) const {
  return m_pData[static_cast<std::ptrdiff_t>(row) * m_nCols + col];
}

float& CFMatrix::operator()(int row, int col) {
  if (has_row(row) && has_col(col)) return at(row, col);
  thread_local float nowhere;
  nowhere = m_fInvalid;
  tell_wrong_access();
  return nowhere;
}

float CFMatrix::operator()(int row, int col) const {
  if (has_row(row) && has_col(col)) return at(row, col);
  tell_wrong_access();
  return m_fInvalid;
}

CFMatrix CFMatrix::operator*(const float& factor) const {
  CFMatrix product(*this);
  for (long long i = 0; i < product.GetSize(); ++i) {
    if (product.m_pData[i] != m_fInvalid) product.m_pData[i] *= factor;
  }
  return product;
}

int CFMatrix::GetRowData(int row, CArray<float, float>& values, int first, int last) const {
  if (!has_row(row) || !settle_range(m_nCols, first, last)) return tell_wrong_access();
  values.SetSize(last + 1 - first);
  for (int j = first; j <= last; ++j) values[j - first] = at(row, j);
  return 1;
}

int CFMatrix::GetColData(int col, CArray<float, float>& values, int first, int last) const {
  if (!has_col(col) || !settle_range(m_nRows, first, last)) return tell_wrong_access();
  values.SetSize(last + 1 - first);
  for (int i = first; i <= last; ++i) values[i - first] = at(i, col);
  return 1;
}

int CFMatrix::GetLineInsertRowData(int key, float at_value, CArray<float, float>& values, int first,
                                   int last) const {
  if (m_nRows < 1 || !has_col(key) || !settle_range(m_nCols, first, last)) {
    return tell_wrong_access();
  }
  if (m_nRows == 1) return GetRowData(0, values, first, last);
  int below = 0;
  while (below < m_nRows - 2 && at_value > at(below + 1, key)) ++below;
  const float low = at(below, key), width = at(below + 1, key) - low;
  // Two rows with one key leave no line: the lower one stands for both.
  const float part = width == 0 ? 0 : (at_value - low) / width;
  values.SetSize(last + 1 - first);
  for (int j = first; j <= last; ++j) {
    values[j - first] = at(below, j) + part * (at(below + 1, j) - at(below, j));
  }
  return 1;
}

int CFMatrix::GetLineInsertColData(int key, float at_value, CArray<float, float>& values, int first,
                                   int last) const {
  CFMatrix transposed;
  GetTransposeMatrix(transposed);
  return transposed.GetLineInsertRowData(key, at_value, values, first, last);
}

void CFMatrix::GetTransposeMatrix(CFMatrix& transposed) const {
  CFMatrix turned;
  turned.m_fInvalid = m_fInvalid;
  if (!turned.Ini(m_nCols, m_nRows, nullptr)) return;
  for (int i = 0; i < m_nRows; ++i) {
    for (int j = 0; j < m_nCols; ++j) turned.at(j, i) = at(i, j);
  }
  transposed = turned;
}

void CFMatrix::Transpose() {
  GetTransposeMatrix(*this);
}

int CFMatrix::SwapRowData(int row1, int row2) {
  if (!has_row(row1) || !has_row(row2)) return tell_wrong_access();
  for (int j = 0; j < m_nCols; ++j) std::swap(at(row1, j), at(row2, j));
  return 1;
}

int CFMatrix::SwapColData(int col1, int col2) {
  if (!has_col(col1) || !has_col(col2)) return tell_wrong_access();
  for (int i = 0; i < m_nRows; ++i) std::swap(at(i, col1), at(i, col2));
  return 1;
}

int CFMatrix::SortRowData(int key, int first, int last) {
  if (!has_col(key) || !settle_range(m_nRows, first, last)) return tell_wrong_access();
  std::vector<int> order(static_cast<std::size_t>(last + 1 - first));
  std::iota(order.begin(), order.end(), first);
  std::stable_sort(order.begin(), order.end(), [&](int i, int k) {
    const float a = at(i, key), b = at(k, key);
    return a < b || (std::isnan(b) && !std::isnan(a));
  });
  const CFMatrix before(*this);
  for (int i = first; i <= last; ++i) {
    const int from = order[static_cast<std::size_t>(i - first)];
    for (int j = 0; j < m_nCols; ++j) at(i, j) = before.at(from, j);
  }
  return 1;
}

int CFMatrix::SortColData(int key, int first, int last) {
  CFMatrix transposed;
  GetTransposeMatrix(transposed);
  if (!transposed.SortRowData(key, first, last)) return 0;
  transposed.GetTransposeMatrix(*this);
  return 1;
}

}  // namespace brindle::QxJGFunEx
