#include "brindle/geometry/matrix/matrix_functions.h"

#include <limits>
#include <string>

#include "brindle/frame/utility/tell_error.h"
#include "brindle/geometry/matrix/ite_exception.h"

namespace brindle {
namespace {

constexpr const wchar_t* kWrongSize = L"错误行列数";

void check_row(const CMatrix& m, int row, const wchar_t* text) {
  if (row < 1 || row > m.GetRowCount()) throw_ite_exception(text);
}

// Adds `sign` times b to `sum`.
void accumulate(CMatrix& sum, double sign, const CMatrix& b) {
  if (sum.GetRowCount() != b.GetRowCount() || sum.GetColCount() != b.GetColCount()) {
    throw_ite_exception(kWrongSize);
  }
  for (int i = 1; i <= sum.GetRowCount(); ++i) {
    for (int j = 1; j <= sum.GetColCount(); ++j) sum(i, j) += sign * b(i, j);
  }
}

// Has the access of a matrix's own code to its block, for the message that appending has.
class Appender : public CMatrix {
 public:
  Appender(const CMatrix& above, const CMatrix& below) {
    const bool fresh = above.GetRowCount() == 0 || above.GetColCount() == 0;
    const int kept = fresh ? 0 : above.GetRowCount();
    if ((!fresh && above.GetColCount() != below.GetColCount()) ||
        below.GetRowCount() > std::numeric_limits<int>::max() - kept) {
      throw_ite_exception(kWrongSize);
    }
    const int rows = kept + below.GetRowCount(), cols = below.GetColCount();
    replace(new_block(rows, cols, L"MatrixAppendRow error:%s"), rows, cols);
    for (int i = 1; i <= rows; ++i) {
      for (int j = 1; j <= cols; ++j) __getAt(i, j) = i <= kept ? above(i, j) : below(i - kept, j);
    }
  }

  void give_to(CMatrix& m) { m = *this; }
};

}  // namespace

CMatrix operator+(const CMatrix& a, const CMatrix& b) {
  CMatrix sum(a);
  accumulate(sum, 1, b);
  return sum;
}

CMatrix operator-(const CMatrix& a, const CMatrix& b) {
  CMatrix difference(a);
  accumulate(difference, -1, b);
  return difference;
}

CMatrix operator*(const CMatrix& a, const CMatrix& b) {
  if (a.GetColCount() != b.GetRowCount()) throw_ite_exception(kWrongSize);
  CMatrix product(a.GetRowCount(), b.GetColCount());
  for (int i = 1; i <= a.GetRowCount(); ++i) {
    for (int j = 1; j <= b.GetColCount(); ++j) {
      for (int k = 1; k <= a.GetColCount(); ++k) product(i, j) += a(i, k) * b(k, j);
    }
  }
  return product;
}

CVector operator+(const CVector& a, const CVector& b) {
  CVector sum(a);
  accumulate(sum, 1, b);
  return sum;
}

CVector operator-(const CVector& a, const CVector& b) {
  CVector difference(a);
  accumulate(difference, -1, b);
  return difference;
}

CVector GetVectorByRow(const CMatrix& m, int row) {
  check_row(m, row, L"取向量时下裱越界");
  CVector v(m.GetColCount());
  for (int j = 1; j <= v.GetLength(); ++j) v[j] = m(row, j);
  return v;
}

void MatrixAppendRow(CMatrix& m, const CVector& v) {
  Appender(m, v).give_to(m);
}

void MatrixAppendMatrix(CMatrix& m, const CMatrix& other) {
  if (other.GetRowCount() == 0) return;
  Appender(m, other).give_to(m);
}

void SetVector(CMatrix& m, const CVector& v, int row) {
  check_row(m, row, L"SetVector行号错误！");
  if (v.GetLength() != m.GetColCount()) throw_ite_exception(L"SetVector列数错误！");
  for (int j = 1; j <= v.GetLength(); ++j) m(row, j) = v[j];
}

void SetVector(CMatrix& m, const CArray<float, float>& v, int row) {
  SetVector(m, ConvertFromFloatArray(v), row);
}

CVector ConvertFromFloatArray(const CArray<float, float>& values) {
  if (values.GetSize() > std::numeric_limits<int>::max()) throw_ite_exception(kWrongSize);
  CVector v(static_cast<int>(values.GetSize()));
  for (int j = 1; j <= v.GetLength(); ++j) v[j] = double{values[j - 1]};
  return v;
}

int IsZeroVector(const CVector& v) {
  for (int j = 1; j <= v.GetLength(); ++j) {
    if (v[j] != 0) return 0;
  }
  return 1;
}

CVector ToVector(const CMatrix& m) {
  const long long count = static_cast<long long>(m.GetRowCount()) * m.GetColCount();
  if (count > std::numeric_limits<int>::max()) throw_ite_exception(kWrongSize);
  CVector v(static_cast<int>(count));
  int place = 0;
  for (int i = 1; i <= m.GetRowCount(); ++i) {
    for (int j = 1; j <= m.GetColCount(); ++j) v[++place] = m(i, j);
  }
  return v;
}

CMatrix ToColVector(const CVector& v) {
  CMatrix m(v.GetLength(), 1);
  for (int j = 1; j <= v.GetLength(); ++j) m(j, 1) = v[j];
  return m;
}

void DisplayMatrixElement(const CMatrix& m) {
  for (int i = 1; i <= m.GetRowCount(); ++i) {
    std::wstring line;
    for (int j = 1; j <= m.GetColCount(); ++j) line += wformat(L"%10.4f ", m(i, j));
    tell_error(0, line.c_str());
  }
}

}  // namespace brindle
