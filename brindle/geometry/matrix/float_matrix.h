// CFMatrix: a matrix of floats, row-major, indices from 0, with a text form.
#pragma once

#include <cstdio>
#include <utility>

#include "brindle/platform/base/array.h"

namespace brindle::QxJGFunEx {

// A row or column that doesn't exist is told as "\n取数据有误！" (code 0); the operation then does
// nothing and returns 0. Elements that hold the mark of invalid values are numbers like any other
// to all operations but the product. A range is first..last, last included; a negative `last` is
// the end.
class CFMatrix {
 public:
  CFMatrix() = default;
  CFMatrix(const CFMatrix& other) { *this = other; }
  virtual ~CFMatrix();
  CFMatrix& operator=(const CFMatrix& other);

  // Empty, and 3.4028235e38 is the mark of invalid values.
  virtual void Ini();
  // Reads the text form: a line "rows,cols", then the values, each with a comma behind it. 1; 0
  // with the matrix as it was for a null stream, negative sizes, or fewer values than they promise.
  // Memory follows what was really read. The stream then stands behind the line of the last value.
  virtual int LoadData(std::FILE* fp);
  // Writes the text form, each value in "%f,", a line for each row. 1, or 0 for a null stream or
  // when writing failed.
  virtual int SaveData(std::FILE* fp);

  // Copies rows * cols values; zeros when `data` is null. 1, or 0 with the matrix as it was for
  // negative sizes or without memory.
  int Ini(int rows, int cols, const float* data);

  // The numbers of rows, of columns, and of elements.
  int GetRow() const { return m_nRows; }
  int GetCol() const { return m_nCols; }
  long long GetSize() const { return static_cast<long long>(m_nRows) * m_nCols; }

  // The element. Out of range the message comes, and what is returned is the invalid-value mark; in
  // the writable form as a place of the thread that may be written and is forgotten.
  float& operator()(int row, int col);
  float operator()(int row, int col) const;

  // All elements times the factor; invalid values stay invalid.
  CFMatrix operator*(const float& factor) const;

  // The elements of a row over a range of columns, or the reverse, replace the array's content. 1.
  int GetRowData(int row, CArray<float, float>& values, int first = 0, int last = -1) const;
  int GetColData(int col, CArray<float, float>& values, int first = 0, int last = -1) const;

  // The row at which column `key`, whose values rise from row to row, has the value `at`: linearly
  // between the two nearest rows, prolonged at both ends. With one row only, that row. 1.
  int GetLineInsertRowData(int key, float at, CArray<float, float>& values, int first = 0,
                           int last = -1) const;
  // The same for the column at which row `key` has the value.
  int GetLineInsertColData(int key, float at, CArray<float, float>& values, int first = 0,
                           int last = -1) const;

  void Transpose();
  void GetTransposeMatrix(CFMatrix& transposed) const;

  // Exchanges two rows, or columns. 1.
  int SwapRowData(int row1, int row2);
  int SwapColData(int col1, int col2);

  // Sorts the rows first..last by their element in column `key`, rising; equal ones keep their
  // order, NaN comes last. The same for columns by their element in row `key`. 1.
  int SortRowData(int key, int first = 0, int last = -1);
  int SortColData(int key, int first = 0, int last = -1);

 private:
  bool has_row(int row) const { return row >= 0 && row < m_nRows; }
  bool has_col(int col) const { return col >= 0 && col < m_nCols; }
  const float& at(int row, int col) const;
  float& at(int row, int col) { return const_cast<float&>(std::as_const(*this).at(row, col)); }

  float* m_pData = nullptr;
  int m_nRows = 0;
  int m_nCols = 0;

 public:
  float m_fInvalid = 3.4028235e38f;  // the mark of invalid values
};

}  // namespace brindle::QxJGFunEx
