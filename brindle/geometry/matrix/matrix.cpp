#include "brindle/geometry/matrix/matrix.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>

#include "brindle/geometry/matrix/ite_exception.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/stream.h"

namespace brindle {
namespace {

constexpr const wchar_t* kWrongSize = L"错误行列数";
constexpr const wchar_t* kOutOfBounds = L"CMatrix error: 数组下标越界！";
constexpr const wchar_t* kNoMemory = L"CMatrix::CMatrix error:%s";

std::size_t area(int rows, int cols) {
  return static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols);
}

}  // namespace

double* CMatrix::new_block(int rows, int cols, const wchar_t* no_memory_format) {
  if (rows < 0 || cols < 0) throw_ite_exception(kWrongSize);
  const std::size_t count = area(rows, cols);
  if (count == 0) return nullptr;
  constexpr std::size_t kMost = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(double);
  double* block = count > kMost ? nullptr : new (std::nothrow) double[count]();
  if (!block) throw_ite_no_memory(no_memory_format);
  return block;
}

void CMatrix::replace(double* block, int rows, int cols) {
  delete[] m_pData;
  m_pData = block;
  m_nRows = rows;
  m_nCols = cols;
}

std::size_t CMatrix::place(int i, int j) const {
  if (i < 1 || i > m_nRows || j < 1 || j > m_nCols) throw_ite_exception(kOutOfBounds);
  return area(i - 1, m_nCols) + static_cast<std::size_t>(j - 1);
}

void CMatrix::CopyData(const CMatrix& other) {
  if (&other == this) return;
  double* block = new_block(other.m_nRows, other.m_nCols, kNoMemory);
  std::copy_n(other.m_pData, area(other.m_nRows, other.m_nCols), block);
  replace(block, other.m_nRows, other.m_nCols);
}

void CMatrix::DestroyData() {
  replace(nullptr, 0, 0);
}

void CMatrix::ReDimension(int rows, int cols) {
  replace(new_block(rows, cols, kNoMemory), rows, cols);
}

void CMatrix::RowExtend(int k, double v) {
  if (k < 0 || k > std::numeric_limits<int>::max() - m_nRows) throw_ite_exception(kWrongSize);
  double* block = new_block(m_nRows + k, m_nCols, kNoMemory);
  std::fill_n(std::copy_n(m_pData, area(m_nRows, m_nCols), block), area(k, m_nCols), v);
  replace(block, m_nRows + k, m_nCols);
}

void CMatrix::ColExtend(int k, double v) {
  if (k < 0 || k > std::numeric_limits<int>::max() - m_nCols) throw_ite_exception(kWrongSize);
  double* block = new_block(m_nRows, m_nCols + k, kNoMemory);
  double* end = block;
  if (block) {
    for (int i = 0; i < m_nRows; ++i) {
      end = std::copy_n(m_pData + area(i, m_nCols), static_cast<std::size_t>(m_nCols), end);
      end = std::fill_n(end, static_cast<std::size_t>(k), v);
    }
  }
  replace(block, m_nRows, m_nCols + k);
}

void CMatrix::DeleteRow(int i) {
  if (i < 1 || i > m_nRows) throw_ite_exception(kOutOfBounds);
  double* block = new_block(m_nRows - 1, m_nCols, kNoMemory);
  const std::size_t before = area(i - 1, m_nCols), after = area(m_nRows - i, m_nCols);
  if (block) {
    std::copy_n(m_pData + area(i, m_nCols), after, std::copy_n(m_pData, before, block));
  }
  replace(block, m_nRows - 1, m_nCols);
}

void CMatrix::GetRow(int i, double*& row) const {
  if (i < 1 || i > m_nRows) throw_ite_exception(kOutOfBounds);
  double* copy = new_block(1, m_nCols, L"CMatrix::GetRow error:%s");
  if (copy) {
    std::copy_n(m_pData + area(i - 1, m_nCols), static_cast<std::size_t>(m_nCols), copy);
  }
  row = copy;
}

void CMatrix::Display(wchar_t*, float) const {}

void CMatrix::Display(std::FILE* fp, const char* format, float scale) const {
  if (!fp) return;
  const std::wstring wide = ansi_code_page().decode(format ? format : "%5.2f");
  for (int i = 1; i <= m_nRows; ++i) {
    for (int j = 1; j <= m_nCols; ++j) {
      brindle::fwprintf(fp, wide.c_str(), __getAt(i, j) * double{scale});
    }
    brindle::fputws(L"\n", fp);
  }
}

}  // namespace brindle
