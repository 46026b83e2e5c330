#include "brindle/geometry/interpolation.h"

#include <cmath>

#include "brindle/frame/utility/tell_error.h"

namespace brindle {
namespace {

template <class Real>
constexpr Real kSameNode = static_cast<Real>(1e-5);

template <class Real>
Real on_line(Real x1, Real y1, Real x2, Real y2, Real v) {
  return y1 + (y2 - y1) / (x2 - x1) * (v - x1);
}

template <class Real>
Real look_up(const Real* x, const Real* y, int n, Real v) {
  if (n < 1) return 0;
  if (n == 1) return y[0];
  int i = 0;
  if (!(v <= x[0])) {
    while (i < n - 2 && !(x[i] <= v && v <= x[i + 1])) ++i;
  }
  Real width = x[i + 1] - x[i];
  if (std::fabs(width) < static_cast<Real>(1e-20)) {
    tell_error(202, L"线性插值函数发现错误,两点距离太近 !");
    width = static_cast<Real>(1e-20);
  }
  return y[i] + (y[i + 1] - y[i]) / width * (v - x[i]);
}

// `at_node` is yl or yr.
template <class Real>
Real look_up_steps(int n, const Real* x, const Real* yl, const Real* yr, Real v,
                   const Real* at_node) {
  if (n < 1 || v < x[0] || v > x[n - 1]) return 0;
  for (int i = 0; i < n; ++i) {
    if (std::fabs(v - x[i]) <= kSameNode<Real>) return at_node[i];
  }
  for (int i = 0; i + 1 < n; ++i) {
    if (x[i] < v && v < x[i + 1]) return on_line(x[i], yr[i], x[i + 1], yl[i + 1], v);
  }
  return 0;
}

// The nodes of both tables in rising order, one for those that coincide.
template <class Real>
int merge_nodes(int n1, const Real* x1, int n2, const Real* x2, Real* x) {
  int count = 0;
  for (int i = 0, j = 0; i < n1 || j < n2;) {
    const Real node = j >= n2 || (i < n1 && x1[i] <= x2[j]) ? x1[i++] : x2[j++];
    if (count == 0 || !(std::fabs(node - x[count - 1]) <= kSameNode<Real>)) x[count++] = node;
  }
  return count;
}

template <class Real>
int add_tables(int n1, const Real* x1, const Real* y1, int n2, const Real* x2, const Real* y2,
               Real* x, Real* y) {
  const int count = merge_nodes(n1, x1, n2, x2, x);
  for (int i = 0; i < count; ++i) y[i] = look_up(x1, y1, n1, x[i]) + look_up(x2, y2, n2, x[i]);
  return count;
}

template <class Real>
int add_step_tables(int n1, const Real* x1, const Real* yl1, const Real* yr1, int n2,
                    const Real* x2, const Real* yl2, const Real* yr2, Real* x, Real* yl, Real* yr) {
  const int count = merge_nodes(n1, x1, n2, x2, x);
  for (int i = 0; i < count; ++i) {
    yl[i] = look_up_steps(n1, x1, yl1, yr1, x[i], yl1) + look_up_steps(n2, x2, yl2, yr2, x[i], yl2);
    yr[i] = look_up_steps(n1, x1, yl1, yr1, x[i], yr1) + look_up_steps(n2, x2, yl2, yr2, x[i], yr2);
  }
  return count;
}

}  // namespace

float liner_inter(const float* x, const float* y, int n, float v) {
  return look_up(x, y, n, v);
}

double liner_inter(const double* x, const double* y, int n, double v) {
  return look_up(x, y, n, v);
}

float liner_inter_2_left(int n, const float* x, const float* yl, const float* yr, float v) {
  return look_up_steps(n, x, yl, yr, v, yl);
}

double liner_inter_2_left(int n, const double* x, const double* yl, const double* yr, double v) {
  return look_up_steps(n, x, yl, yr, v, yl);
}

float liner_inter_2_right(int n, const float* x, const float* yl, const float* yr, float v) {
  return look_up_steps(n, x, yl, yr, v, yr);
}

double liner_inter_2_right(int n, const double* x, const double* yl, const double* yr, double v) {
  return look_up_steps(n, x, yl, yr, v, yr);
}

int add_segment_function(int n1, const float* x1, const float* y1, int n2, const float* x2,
                         const float* y2, float* x, float* y) {
  return add_tables(n1, x1, y1, n2, x2, y2, x, y);
}

int add_segment_function(int n1, const double* x1, const double* y1, int n2, const double* x2,
                         const double* y2, double* x, double* y) {
  return add_tables(n1, x1, y1, n2, x2, y2, x, y);
}

int add_segment_function_2(int n1, const float* x1, const float* yl1, const float* yr1, int n2,
                           const float* x2, const float* yl2, const float* yr2, float* x, float* yl,
                           float* yr) {
  return add_step_tables(n1, x1, yl1, yr1, n2, x2, yl2, yr2, x, yl, yr);
}

int add_segment_function_2(int n1, const double* x1, const double* yl1, const double* yr1, int n2,
                           const double* x2, const double* yl2, const double* yr2, double* x,
                           double* yl, double* yr) {
  return add_step_tables(n1, x1, yl1, yr1, n2, x2, yl2, yr2, x, yl, yr);
}

float PinMianChaZhi(const float* x, const float* y, const float* z, float px, float py) {
  const float ux = x[1] - x[0], uy = y[1] - y[0], uz = z[1] - z[0];
  const float wx = x[2] - x[0], wy = y[2] - y[0], wz = z[2] - z[0];
  const float a = uy * wz - uz * wy;
  const float b = uz * wx - ux * wz;
  float d = ux * wy - uy * wx;
  if (std::fabs(d) < 1e-5f) d = 1e-5f;
  return (-a / d) * px + (-b / d) * py + (z[0] - (-a / d) * x[0] - (-b / d) * y[0]);
}

}  // namespace brindle
