// Small operations on plain arrays: change of frame, extremes, exchange, insertion in order.
#pragma once

#include "brindle/platform/base/array.h"

namespace brindle {

// shift_coordinate and rotate_coordinate over n points in place. n below 1 does nothing.
void shift_points(float dx, float dy, int n, float* x, float* y);
void shift_points(double dx, double dy, int n, double* x, double* y);
void rotate_points(float a, int n, float* x, float* y);
void rotate_points(double a, int n, double* x, double* y);

// Exchanges two values.
void swap_float(float* a, float* b);
void swap_double(double* a, double* b);
void swap_int(int* a, int* b);

// The extreme of n values; *index (which may be null) is where it stands first, from 0. The two of
// absolute values give the size without its sign. NaN is passed over. Without any value the result
// is 0 and the index -1.
float get_dim_absmax(int n, const float* v, int* index);
double get_dim_absmax(int n, const double* v, int* index);
float get_dim_absmin(int n, const float* v, int* index);
double get_dim_absmin(int n, const double* v, int* index);
float get_dim_max(int n, const float* v, int* index);
double get_dim_max(int n, const double* v, int* index);
float get_dim_min(int n, const float* v, int* index);
double get_dim_min(int n, const double* v, int* index);

// Inserts x into a sorted list at its place, unless a value within `tol` of it (closed) is there.
// The list rises, and falls where `order` is negative. Returns 1 when x was inserted, else 0 (also
// for a null list and for NaN). Linear in the list.
int AddOneX2Array(CArray<float, float>* list, float x, int order, float tol);
int AddOneX2Array(CArray<int, int>* list, int x, int order, float tol);

}  // namespace brindle
