// Inversion of matrices and solution of linear equations. Matrices are row-major blocks.
#pragma once

namespace brindle {

// Gauss-Jordan elimination with full pivoting: replaces the n x n matrix `a` by its inverse and the
// n x m right-hand sides `b` (m may be 0, b then null) by the solutions. Returns 1; 0 with nothing
// changed for n below 1, a negative m, or without memory ("Out of memery in gaussj", error 301).
//
// A pivot of exactly zero gives a warning (201), once a call, and the elimination goes on with the
// reciprocal of that pivot taken as 0: then a is such that A a A is A, and b solves the equations
// if anything does, with the unknowns that aren't determined at 0.
int gaussj(float* a, int n, float* b, int m);
int gaussj(double* a, int n, double* b, int m);

// The inverse of the n x n matrix `a`, which is left alone, in `inv`. The rows of both lie m
// elements apart (m at least n, for a plain matrix m is n). Row pivoting; when the largest pivot
// left in a column isn't above `tol` in size the result is 0, after "求逆时发现奇异!" as error 301,
// and inv isn't written; otherwise 1. n below 1 or m below n gives 0 without a message.
int GetInverse(const double* a, double* inv, int n, int m, double tol);

}  // namespace brindle
