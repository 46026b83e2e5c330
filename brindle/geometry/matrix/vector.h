// CVector: a matrix of one row.
#pragma once

#include "brindle/geometry/matrix/matrix.h"

namespace brindle {

class CVector : public CMatrix {
 public:
  CVector() = default;
  // n entries of v. A lack of memory throws "CVector::CVector error:%s" with the system's message.
  explicit CVector(int n, double v = 0);

  int GetLength() const { return m_nCols; }
  // Discards the data: n zeros.
  void SetLength(int n) { ReDimension(1, n); }

  // The entry i, from 1; outside throws as CMatrix does.
  double& operator[](int i) { return __getAt(1, i); }
  double operator[](int i) const { return __getAt(1, i); }
};

}  // namespace brindle
