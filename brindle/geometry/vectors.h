// Vectors of three components and plain products of matrices. Matrices are row-major blocks; an
// output may not overlap an input unless told. A planar use leaves a zero in the third component.
#pragma once

namespace brindle {

// v = p2 - p1; v may be one of the points.
void form_vector(const float* p1, const float* p2, float* v);
void form_vector(const double* p1, const double* p2, double* v);

// The scalar product, always over three components.
float vector_dot_vector(const float* v1, const float* v2);
double vector_dot_vector(const double* v1, const double* v2);

// The length.
float vector_len(const float* v);
double vector_len(const double* v);

// v = v1 x v2, right-handed; v may be one of the factors.
void vector_cross_vector(const float* v1, const float* v2, float* v);
void vector_cross_vector(const double* v1, const double* v2, double* v);

// Cosine (in [-1, 1]) and sine (in [0, 1]) of the angle between two vectors; 0 both where one of
// them has no length.
float vector_cos(const float* v1, const float* v2);
double vector_cos(const double* v1, const double* v2);
float vector_sin(const float* v1, const float* v2);
double vector_sin(const double* v1, const double* v2);

// c = a b, where a is n x m and b is m x l. Nothing is done where n or l is below 1; with m below 1
// c is zero.
void mut_matrix(const float* a, const float* b, float* c, int n, int m, int l);
void mut_matrix(const double* a, const double* b, double* c, int n, int m, int l);

// c = aT b, where a is m x n (its transpose n x m) and b is m x l.
void mut_matrix_1(const float* a, const float* b, float* c, int n, int m, int l);
void mut_matrix_1(const double* a, const double* b, double* c, int n, int m, int l);

// Both-sided products with the n x n matrix t: c = tT a t brings a (say, a stiffness) from the
// local frame into the global one when t has the local axes as its rows; with _1, c = t a tT brings
// it back.
void mut_matrix_lr(const float* t, const float* a, float* c, int n);
void mut_matrix_lr(const double* t, const double* a, double* c, int n);
void mut_matrix_lr_1(const float* t, const float* a, float* c, int n);
void mut_matrix_lr_1(const double* t, const double* a, double* c, int n);

// The transpose: c, m x n, of a, n x m.
void matrix_transfer(const float* a, float* c, int n, int m);
void matrix_transfer(const double* a, double* c, int n, int m);

}  // namespace brindle
