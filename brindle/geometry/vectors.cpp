#include "brindle/geometry/vectors.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace brindle {
namespace {

template <class Real>
Real dot(const Real* v1, const Real* v2) {
  return v1[0] * v2[0] + v1[1] * v2[1] + v1[2] * v2[2];
}

template <class Real>
void cross(const Real* v1, const Real* v2, Real* v) {
  const Real x = v1[1] * v2[2] - v1[2] * v2[1];
  const Real y = v1[2] * v2[0] - v1[0] * v2[2];
  const Real z = v1[0] * v2[1] - v1[1] * v2[0];
  v[0] = x;
  v[1] = y;
  v[2] = z;
}

// Cosine and sine through unit vectors in double, so that no product leaves the range of a width.
template <class Real>
bool to_unit(const Real* v, double* unit) {
  const double largest =
      std::max({std::fabs(double{v[0]}), std::fabs(double{v[1]}), std::fabs(double{v[2]})});
  if (largest == 0) return false;
  for (int i = 0; i < 3; ++i) unit[i] = v[i] / largest;
  const double length = std::sqrt(dot(unit, unit));
  for (int i = 0; i < 3; ++i) unit[i] /= length;
  return true;
}

template <class Real>
Real cosine(const Real* v1, const Real* v2) {
  double u1[3], u2[3];
  if (!to_unit(v1, u1) || !to_unit(v2, u2)) return 0;
  return static_cast<Real>(std::clamp(dot(u1, u2), -1.0, 1.0));
}

template <class Real>
Real sine(const Real* v1, const Real* v2) {
  double u1[3], u2[3];
  if (!to_unit(v1, u1) || !to_unit(v2, u2)) return 0;
  cross(u1, u2, u1);
  return static_cast<Real>(std::min(std::sqrt(dot(u1, u1)), 1.0));
}

// c (n x l) is the product of a and b; a is taken as it lies (n x m) or turned over (m x n).
template <class Real>
void multiply(const Real* a, bool turn_a, const Real* b, bool turn_b, Real* c, int n, int m,
              int l) {
  const auto at = [](int i, int width, int j) {
    return static_cast<std::size_t>(i) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(j);
  };
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < l; ++j) {
      Real sum = 0;
      for (int k = 0; k < m; ++k) {
        sum +=
            (turn_a ? a[at(k, n, i)] : a[at(i, m, k)]) * (turn_b ? b[at(j, m, k)] : b[at(k, l, j)]);
      }
      c[at(i, l, j)] = sum;
    }
  }
}

template <class Real>
void transform(const Real* t, const Real* a, Real* c, int n, bool back) {
  if (n < 1) return;
  std::vector<Real> half(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
  multiply(t, !back, a, false, half.data(), n, n, n);
  multiply(half.data(), false, t, back, c, n, n, n);
}

template <class Real>
void transpose(const Real* a, Real* c, int n, int m) {
  for (std::ptrdiff_t i = 0; i < n; ++i) {
    for (std::ptrdiff_t j = 0; j < m; ++j) c[j * n + i] = a[i * m + j];
  }
}

template <class Real>
void subtract(const Real* p1, const Real* p2, Real* v) {
  for (int i = 0; i < 3; ++i) v[i] = p2[i] - p1[i];
}

}  // namespace

void form_vector(const float* p1, const float* p2, float* v) {
  subtract(p1, p2, v);
}

void form_vector(const double* p1, const double* p2, double* v) {
  subtract(p1, p2, v);
}

float vector_dot_vector(const float* v1, const float* v2) {
  return dot(v1, v2);
}

double vector_dot_vector(const double* v1, const double* v2) {
  return dot(v1, v2);
}

float vector_len(const float* v) {
  return std::sqrt(dot(v, v));
}

double vector_len(const double* v) {
  return std::sqrt(dot(v, v));
}

void vector_cross_vector(const float* v1, const float* v2, float* v) {
  cross(v1, v2, v);
}

void vector_cross_vector(const double* v1, const double* v2, double* v) {
  cross(v1, v2, v);
}

float vector_cos(const float* v1, const float* v2) {
  return cosine(v1, v2);
}

double vector_cos(const double* v1, const double* v2) {
  return cosine(v1, v2);
}

float vector_sin(const float* v1, const float* v2) {
  return sine(v1, v2);
}

double vector_sin(const double* v1, const double* v2) {
  return sine(v1, v2);
}

void mut_matrix(const float* a, const float* b, float* c, int n, int m, int l) {
  multiply(a, false, b, false, c, n, m, l);
}

void mut_matrix(const double* a, const double* b, double* c, int n, int m, int l) {
  multiply(a, false, b, false, c, n, m, l);
}

void mut_matrix_1(const float* a, const float* b, float* c, int n, int m, int l) {
  multiply(a, true, b, false, c, n, m, l);
}

void mut_matrix_1(const double* a, const double* b, double* c, int n, int m, int l) {
  multiply(a, true, b, false, c, n, m, l);
}

void mut_matrix_lr(const float* t, const float* a, float* c, int n) {
  transform(t, a, c, n, false);
}

void mut_matrix_lr(const double* t, const double* a, double* c, int n) {
  transform(t, a, c, n, false);
}

void mut_matrix_lr_1(const float* t, const float* a, float* c, int n) {
  transform(t, a, c, n, true);
}

void mut_matrix_lr_1(const double* t, const double* a, double* c, int n) {
  transform(t, a, c, n, true);
}

void matrix_transfer(const float* a, float* c, int n, int m) {
  transpose(a, c, n, m);
}

void matrix_transfer(const double* a, double* c, int n, int m) {
  transpose(a, c, n, m);
}

}  // namespace brindle
