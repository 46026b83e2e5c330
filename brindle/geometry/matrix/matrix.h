// CMatrix: a matrix of doubles, row-major, indices from 1.
#pragma once

#include <cstddef>
#include <cstdio>

namespace brindle {

// A bound that fails, a negative count and a lack of memory throw CITE_Exception and leave the
// matrix as it was.
class CMatrix {
 public:
  CMatrix() = default;
  CMatrix(const CMatrix& other) { CopyData(other); }
  // Filled with zeros.
  CMatrix(int rows, int cols) { ReDimension(rows, cols); }
  virtual ~CMatrix() { DestroyData(); }
  CMatrix& operator=(const CMatrix& other) {
    CopyData(other);
    return *this;
  }

  int GetRowCount() const { return m_nRows; }
  int GetColCount() const { return m_nCols; }

  // The element; outside 1..rows, 1..cols throws "CMatrix error: 数组下标越界！".
  double& operator()(int i, int j) { return __getAt(i, j); }
  double operator()(int i, int j) const { return __getAt(i, j); }
  double& __getAt(int i, int j) { return m_pData[place(i, j)]; }
  double __getAt(int i, int j) const { return m_pData[place(i, j)]; }

  // Becomes a copy of the other matrix.
  void CopyData(const CMatrix& other);
  // Becomes empty, 0 x 0.
  void DestroyData();
  // Discards the data: a new matrix of zeros.
  void ReDimension(int rows, int cols);

  // Appends k rows, or k columns, filled with v.
  void RowExtend(int k, double v);
  void ColExtend(int k, double v);
  // Removes row i, from 1.
  void DeleteRow(int i);
  // Allocates a copy of row i, from 1, with new[]; the caller frees it with delete[].
  void GetRow(int i, double*& row) const;

  // The binary dump: rows and columns as 32-bit integers, then the elements row by row as 64-bit
  // reals, little-endian. 1, or 0 when the stream is null or writing failed.
  int Write_Binary(std::FILE* fp) const;
  // Reads a dump and returns 1; a null stream gives 0. Counts that aren't valid, or that promise
  // more than the stream holds, throw "错误行列数" and leave the matrix as it was. Memory follows
  // what was really read.
  int Read_Binary(std::FILE* fp);

  // Does nothing, and is meant to.
  void Display(wchar_t* text, float scale) const;
  // Writes each element times `scale` in a printf format for one real ("%5.2f" if null), and a line
  // end after each row. A null stream takes nothing.
  void Display(std::FILE* fp, const char* format = nullptr, float scale = 1) const;

 protected:
  // Row-major elements, owned, from new[]; null when there are none.
  double* m_pData = nullptr;
  int m_nRows = 0;
  int m_nCols = 0;

  // A zero-filled block of rows x cols, null for none. Throws for a negative count, and when there
  // is no memory with the format, whose %s takes the system's message.
  static double* new_block(int rows, int cols, const wchar_t* no_memory_format);
  // Takes over a block and its size.
  void replace(double* block, int rows, int cols);

 private:
  // Where the element lies in the block, after the check of the bounds.
  std::size_t place(int i, int j) const;
};

}  // namespace brindle
