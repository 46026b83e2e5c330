#include "brindle/geometry/numerics.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "brindle/frame/utility/tell_error.h"

namespace brindle {
namespace {

float running_sum = 0;  // of trapzd, from stage to stage

template <class Real>
void neville(const Real* xa, const Real* ya, int n, Real x, Real* y, Real* dy) {
  *y = *dy = 0;
  if (n < 1) return;
  int nearest = 0;
  for (int i = 1; i < n; ++i) {
    if (std::fabs(x - xa[i]) < std::fabs(x - xa[nearest])) nearest = i;
  }
  std::vector<Real> c(ya, ya + n), d(ya, ya + n);
  *y = ya[nearest];
  int below = nearest - 1;
  for (int level = 1; level < n; ++level) {
    for (int i = 0; i < n - level; ++i) {
      const Real left = xa[i] - x, right = xa[i + level] - x;
      const Real factor = (c[i + 1] - d[i]) / (left - right);
      d[i] = right * factor;
      c[i] = left * factor;
    }
    // The shortest way through the triangle of differences: down while there is room, else up.
    *dy = 2 * (below + 1) < n - level ? c[below + 1] : d[below--];
    *y += *dy;
  }
}

template <class Real>
Real halve(Real (*f)(Real), Real a, Real b) {
  const Real at_a = f(a), at_b = f(b);
  if (at_a == 0) return a;
  if (at_b == 0) return b;
  if (!((at_a < 0 && at_b > 0) || (at_a > 0 && at_b < 0))) {
    tell_error(301, L"No result in Two_divide_equ !");
    return 0;
  }
  constexpr int kMostHalvings = 2200;  // from the largest double to the smallest
  for (int i = 0; i < kMostHalvings; ++i) {
    const Real middle = a / 2 + b / 2;
    if (middle == a || middle == b) break;
    const Real value = f(middle);
    if (value == 0) return middle;
    if ((value < 0) == (at_a < 0)) {
      a = middle;
    } else {
      b = middle;
    }
  }
  return a / 2 + b / 2;
}

}  // namespace

float trapzd(float (*f)(float), float a, float b, int n) {
  if (n <= 1) {
    running_sum = 0.5f * (b - a) * (f(a) + f(b));
    return running_sum;
  }
  const int points = 1 << std::min(n - 2, 29);
  const double step = (double{b} - a) / points;
  double sum = 0;
  for (int i = 0; i < points; ++i) sum += f(static_cast<float>(a + (i + 0.5) * step));
  running_sum = static_cast<float>(0.5 * (running_sum + step * sum));
  return running_sum;
}

void polint(const float* xa, const float* ya, int n, float x, float* y, float* dy) {
  neville(xa, ya, n, x, y, dy);
}

void polint(const double* xa, const double* ya, int n, double x, double* y, double* dy) {
  neville(xa, ya, n, x, y, dy);
}

float integeration_romberg(float (*f)(float), float a, float b) {
  constexpr int kStages = 20, kUsed = 5;
  float s[kStages + 2] = {}, h[kStages + 2] = {};
  float value = 0, error = 0;
  h[1] = 1;
  for (int j = 1; j <= kStages; ++j) {
    s[j] = trapzd(f, a, b, j);
    if (j >= kUsed) {
      polint(&h[j - kUsed + 1], &s[j - kUsed + 1], kUsed, 0, &value, &error);
      if (std::fabs(error) <= 0.001f * std::fabs(value) || std::fabs(value) < 0.001f) return value;
    }
    s[j + 1] = s[j];
    h[j + 1] = 0.25f * h[j];
  }
  tell_error(0, L"龙贝格积分函数中跌代次数大于20");
  return value;
}

float two_divide_equ(float (*f)(float), float a, float b) {
  return halve(f, a, b);
}

double two_divide_equ(double (*f)(double), double a, double b) {
  return halve(f, a, b);
}

}  // namespace brindle
