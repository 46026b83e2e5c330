#include "brindle/geometry/arrays.h"

#include <cmath>
#include <utility>

#include "brindle/geometry/helpers.h"

namespace brindle {
namespace {

template <class Real>
void shift_all(Real dx, Real dy, int n, Real* x, Real* y) {
  for (int i = 0; i < n; ++i) shift_coordinate(dx, dy, &x[i], &y[i]);
}

template <class Real>
void rotate_all(Real a, int n, Real* x, Real* y) {
  for (int i = 0; i < n; ++i) rotate_coordinate(a, &x[i], &y[i]);
}

// The value of the largest key(v[i]), as value(v[i]).
template <class Real, class Key, class Value>
Real extreme(int n, const Real* v, int* index, Key key, Value value) {
  int best = -1;
  for (int i = 0; i < n; ++i) {
    if (std::isnan(v[i])) continue;
    if (best < 0 || key(v[i]) > key(v[best])) best = i;
  }
  if (index) *index = best;
  return best < 0 ? Real{0} : value(v[best]);
}

constexpr auto kSame = [](auto v) { return v; };
constexpr auto kOpposite = [](auto v) { return -v; };
constexpr auto kSize = [](auto v) { return std::fabs(v); };
constexpr auto kOppositeSize = [](auto v) { return -std::fabs(v); };

template <class Value>
int insert_sorted(CArray<Value, Value>* list, Value x, int order, float tol) {
  if (!list || x != x) return 0;
  INT_PTR place = 0;
  for (INT_PTR i = 0; i < list->GetSize(); ++i) {
    const Value there = list->GetAt(i);
    if (std::fabs(static_cast<double>(x) - static_cast<double>(there)) <= double{tol} || x == there)
      return 0;
    if (order < 0 ? there > x : there < x) place = i + 1;
  }
  list->InsertAt(place, x);
  return 1;
}

}  // namespace

void shift_points(float dx, float dy, int n, float* x, float* y) {
  shift_all(dx, dy, n, x, y);
}

void shift_points(double dx, double dy, int n, double* x, double* y) {
  shift_all(dx, dy, n, x, y);
}

void rotate_points(float a, int n, float* x, float* y) {
  rotate_all(a, n, x, y);
}

void rotate_points(double a, int n, double* x, double* y) {
  rotate_all(a, n, x, y);
}

void swap_float(float* a, float* b) {
  std::swap(*a, *b);
}

void swap_double(double* a, double* b) {
  std::swap(*a, *b);
}

void swap_int(int* a, int* b) {
  std::swap(*a, *b);
}

float get_dim_absmax(int n, const float* v, int* index) {
  return extreme(n, v, index, kSize, kSize);
}

double get_dim_absmax(int n, const double* v, int* index) {
  return extreme(n, v, index, kSize, kSize);
}

float get_dim_absmin(int n, const float* v, int* index) {
  return extreme(n, v, index, kOppositeSize, kSize);
}

double get_dim_absmin(int n, const double* v, int* index) {
  return extreme(n, v, index, kOppositeSize, kSize);
}

float get_dim_max(int n, const float* v, int* index) {
  return extreme(n, v, index, kSame, kSame);
}

double get_dim_max(int n, const double* v, int* index) {
  return extreme(n, v, index, kSame, kSame);
}

float get_dim_min(int n, const float* v, int* index) {
  return extreme(n, v, index, kOpposite, kSame);
}

double get_dim_min(int n, const double* v, int* index) {
  return extreme(n, v, index, kOpposite, kSame);
}

int AddOneX2Array(CArray<float, float>* list, float x, int order, float tol) {
  return insert_sorted(list, x, order, tol);
}

int AddOneX2Array(CArray<int, int>* list, int x, int order, float tol) {
  return insert_sorted(list, x, order, tol);
}

}  // namespace brindle
