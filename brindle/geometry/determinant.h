// The determinant of a square matrix.
#pragma once

namespace brindle {

// The determinant of the n x n row-major matrix `m`, which is left alone: product of the diagonal
// of its LU decomposition with partial pivoting (of equal pivots the first row wins). A singular
// matrix gives 0 or, by rounding, a value near it. n below 1 or a null matrix gives 0. Order n^3;
// matrices of up to 4 rows take no memory from the heap.
double Mat_Det(int n, const double* m);

}  // namespace brindle
