// Arithmetic of CMatrix and CVector, and rows going in and out. Rows and columns count from 1; what
// doesn't fit throws CITE_Exception and leaves the arguments as they were.
#pragma once

#include "brindle/geometry/matrix/matrix.h"
#include "brindle/geometry/matrix/vector.h"
#include "brindle/platform/base/array.h"

namespace brindle {

// Sizes that don't fit throw "错误行列数".
CMatrix operator+(const CMatrix& a, const CMatrix& b);
CMatrix operator-(const CMatrix& a, const CMatrix& b);
CMatrix operator*(const CMatrix& a, const CMatrix& b);
CVector operator+(const CVector& a, const CVector& b);
CVector operator-(const CVector& a, const CVector& b);

// A copy of the row; out of range throws "取向量时下裱越界".
CVector GetVectorByRow(const CMatrix& m, int row);

// Appends the vector, or the rows of `other`, to m. An empty m takes any width; else the widths
// must agree ("错误行列数"). A lack of memory throws "MatrixAppendRow error:%s" with the system's
// message.
void MatrixAppendRow(CMatrix& m, const CVector& v);
void MatrixAppendMatrix(CMatrix& m, const CMatrix& other);

// Writes the values into a row. A wrong row throws "SetVector行号错误！", a number of values that
// isn't the number of columns "SetVector列数错误！".
void SetVector(CMatrix& m, const CVector& v, int row);
void SetVector(CMatrix& m, const CArray<float, float>& v, int row);

CVector ConvertFromFloatArray(const CArray<float, float>& values);

// Whether every entry is exactly 0; so is an empty vector.
int IsZeroVector(const CVector& v);

// All elements, row by row, as one vector; and a vector as a matrix of one column.
CVector ToVector(const CMatrix& m);
CMatrix ToColVector(const CVector& v);

// Shows the elements in the prompt window (code 0), a line for each row.
void DisplayMatrixElement(const CMatrix& m);

}  // namespace brindle
