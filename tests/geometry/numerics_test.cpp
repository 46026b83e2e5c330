// Integration, roots, polynomials, tables and linear equations.
#include "brindle/geometry/numerics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "brindle/geometry/interpolation.h"
#include "brindle/geometry/linear_algebra.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
using Messages = std::vector<std::wstring>;
constexpr float kNanF = std::numeric_limits<float>::quiet_NaN();

std::mt19937 random_engine(23);
double random_number() {
  return std::uniform_real_distribution<double>(-1, 1)(random_engine);
}

// The stop is an estimate: a kink or a peak costs some more than the tenth of a percent.
TEST(Integration, RombergOfKnownIntegrals) {
  constexpr double kSmooth = 1e-3, kRough = 3e-3;
  const struct {
    float (*f)(float);
    float a, b;
    double value, precision;
  } cases[] = {
      {[](float x) { return std::sin(x); }, 0, 3.1415927f, 2, kSmooth},
      {[](float x) { return std::exp(x); }, 0, 2, std::exp(2.0) - 1, kSmooth},
      {[](float x) { return std::sqrt(x); }, 0, 1, 2.0 / 3, kRough},
      {[](float x) { return 1 / (1 + 25 * x * x); }, -1, 1, 0.4 * std::atan(5.0), kRough},
      {[](float x) { return x * x * x; }, 3, -1, -20, kSmooth},
      {[](float x) { return std::fabs(x - 0.3f); }, 0, 1, 0.29, kRough},
      {[](float) { return 1e-4f; }, 0, 1, 1e-4, kSmooth},
  };
  for (const auto& c : cases) {
    RecordedMessages said;
    EXPECT_NEAR(integeration_romberg(c.f, c.a, c.b), c.value, c.precision * std::fabs(c.value));
    EXPECT_TRUE(said.messages.empty());
  }
}

TEST(Integration, RombergGivesUpAfterTwentyStages) {
  RecordedMessages said;
  EXPECT_TRUE(std::isnan(integeration_romberg([](float) { return kNanF; }, 0, 1)));
  EXPECT_EQ(take(said), Messages{L"0 龙贝格积分函数中跌代次数大于20"});
}

TEST(Integration, TrapezoidStagesHalveTheStep) {
  const auto square = [](float x) { return x * x; };
  for (int stage = 1; stage <= 12; ++stage) {
    const float h = 2.0f / static_cast<float>(1 << (stage - 1));
    // The rule's error for x^2 is exactly (b - a) h^2 / 6.
    EXPECT_NEAR(trapzd(square, 0, 2, stage), 8.0 / 3 + 2 * (stage == 1 ? 4 : h * h) / 6, 1e-5);
  }
  EXPECT_EQ(trapzd(square, 0, 2, 1), 4);  // starts afresh
}

TEST(Polynomials, NevilleHitsAPolynomialOfItsDegree) {
  const double xa[] = {-2, -0.5, 1, 1.5, 4};
  double ya[5], y, dy;
  const auto value = [](double x) { return 3 - x + 2 * x * x * x - 0.25 * x * x * x * x; };
  for (int i = 0; i < 5; ++i) ya[i] = value(xa[i]);
  for (double x = -3; x < 5; x += 0.37) {
    polint(xa, ya, 5, x, &y, &dy);
    EXPECT_NEAR(y, value(x), 1e-11);
    double before, unused;
    polint(xa, ya, 4, x, &before, &unused);
    EXPECT_NEAR(before - value(x), 0.25 * (x + 2) * (x + 0.5) * (x - 1) * (x - 1.5), 1e-11);
  }
  polint(xa, ya, 0, 1, &y, &dy);
  EXPECT_EQ(y, 0);
  float equal[] = {1, 1, 1}, fy, fdy;
  polint(equal, equal, 3, 2, &fy, &fdy);  // divides by zero, no more
  EXPECT_FALSE(std::isfinite(fy));
}

TEST(Roots, Bisection) {
  EXPECT_NEAR(two_divide_equ(static_cast<double (*)(double)>(std::cos), 0.0, 3.0), std::acos(0.0),
              1e-15);
  const auto less_one = [](double x) { return x - 1; };
  expect_near({two_divide_equ(less_one, 1.0, 5.0), two_divide_equ(less_one, -5.0, 1.0),
               two_divide_equ(less_one, 1e308, -1e308)},
              {1, 1, 1}, 1e-15);
  EXPECT_NEAR(two_divide_equ([](float x) { return 2 - x * x; }, 0.0f, 2.0f), std::sqrt(2.0f), 2e-7);
  // A jump from one sign to the other is found too.
  EXPECT_NEAR(two_divide_equ([](double x) { return x < 0.7 ? -1.0 : 1.0; }, 0.0, 1.0), 0.7, 1e-15);
  RecordedMessages said;
  EXPECT_EQ(two_divide_equ([](double x) { return x * x + 1; }, 0.0, 1.0), 0);
  EXPECT_EQ(two_divide_equ([](float) { return kNanF; }, 0.0f, 1.0f), 0);
  EXPECT_EQ(take(said), Messages(2, L"301 No result in Two_divide_equ !"));
}

TEST(Tables, LookUp) {
  const double x[] = {1, 2, 4}, y[] = {10, 20, 0};
  const struct {
    double v, want;
  } cases[] = {{0, 0}, {1, 10}, {1.5, 15}, {2, 20}, {3, 10}, {4, 0}, {6, -20}};
  for (const auto& c : cases) {
    EXPECT_EQ(liner_inter(x, y, 3, c.v), c.want);
    const float fx[] = {1, 2, 4}, fy[] = {10, 20, 0};
    EXPECT_EQ(liner_inter(fx, fy, 3, static_cast<float>(c.v)), c.want);
  }
  expect_equal({liner_inter(x, y, 1, 9.0), liner_inter(x, y, 0, 9.0), liner_inter(x, y, -2, 9.0),
                liner_inter(x, y, 3, kNan)},
               {10, 0, 0, kNan});
  RecordedMessages said;
  const double same[] = {3, 3};
  EXPECT_EQ(liner_inter(same, y, 2, 3.0), 10);
  EXPECT_EQ(liner_inter(same, y, 2, 4.0), 10 + 10 / 1e-20);
  EXPECT_EQ(take(said), Messages(2, L"202 线性插值函数发现错误,两点距离太近 !"));
}

TEST(Tables, StepsHaveTwoSides) {
  const double x[] = {0, 2, 5}, left[] = {0, 3, -1}, right[] = {1, -2, 0};
  const struct {
    double v, from_left, from_right;
  } cases[] = {{0, 0, 1},  {1, 2, 2},   {2, 3, -2},   {2.000009, 3, -2}, {3.5, -1.5, -1.5},
               {5, -1, 0}, {5.1, 0, 0}, {-0.1, 0, 0}, {kNan, 0, 0}};
  for (const auto& c : cases) {
    EXPECT_NEAR(liner_inter_2_left(3, x, left, right, c.v), c.from_left, 1e-12) << c.v;
    EXPECT_NEAR(liner_inter_2_right(3, x, left, right, c.v), c.from_right, 1e-12) << c.v;
  }
  EXPECT_EQ(liner_inter_2_left(0, x, left, right, 0.0), 0);
  EXPECT_EQ(liner_inter_2_right(-1, x, left, right, 0.0), 0);
}

// The sum's value is the sum of values, everywhere.
TEST(Tables, SumsOfTables) {
  struct Table {
    std::vector<double> x, left, right;
    int n = 0;
    double at(double v) const { return liner_inter(x.data(), left.data(), n, v); }
    double right_at(double v) const {
      return liner_inter_2_right(n, x.data(), left.data(), right.data(), v);
    }
  };
  for (int trial = 0; trial < 100; ++trial) {
    const auto table = [](int n, double from) {
      Table t;
      for (t.n = 0; t.n < n; ++t.n) {
        t.x.push_back(from + t.n + 0.4 * random_number());
        t.left.push_back(t.n == 0 ? 0 : random_number());
        t.right.push_back(t.n == n - 1 ? 0 : random_number());
      }
      return t;
    };
    const bool shared = trial % 2 == 0;
    const Table f = table(2 + trial % 4, 0);
    Table g = table(2 + trial % 3, 1), sum;
    if (shared) g.x[0] = f.x[1];
    sum.x.resize(9), sum.left.resize(9), sum.right.resize(9);
    sum.n = add_segment_function(f.n, f.x.data(), f.left.data(), g.n, g.x.data(), g.left.data(),
                                 sum.x.data(), sum.left.data());
    ASSERT_EQ(sum.n, f.n + g.n - (shared ? 1 : 0));
    for (double v = -2; v < 8; v += 0.13) EXPECT_NEAR(sum.at(v), f.at(v) + g.at(v), 1e-9);
    sum.n = add_segment_function_2(f.n, f.x.data(), f.left.data(), f.right.data(), g.n, g.x.data(),
                                   g.left.data(), g.right.data(), sum.x.data(), sum.left.data(),
                                   sum.right.data());
    ASSERT_EQ(sum.n, f.n + g.n - (shared ? 1 : 0));
    for (double v = -2; v < 8; v += 0.13) {
      EXPECT_NEAR(sum.right_at(v), f.right_at(v) + g.right_at(v), 1e-9);
    }
  }
  float x[4], y[4];
  const float one[] = {1, 2}, two[] = {5, 6};
  EXPECT_EQ(add_segment_function(0, one, two, 2, one, two, x, y), 2);
  EXPECT_EQ(y[1], 6);
  EXPECT_EQ(add_segment_function(-1, one, two, 0, one, two, x, y), 0);
}

TEST(Tables, PlaneThroughThreePoints) {
  const float x[] = {1, 4, 2}, y[] = {1, 2, 5}, z[] = {3, 4, 9};
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(PinMianChaZhi(x, y, z, x[i], y[i]), z[i], 1e-5);
  EXPECT_NEAR(PinMianChaZhi(x, y, z, 7.0f / 3, 8.0f / 3), 16.0 / 3, 1e-5);
  const float flat_x[] = {0, 1, 2}, flat_y[] = {0, 0, 0}, flat_z[] = {5, 5, 6};
  EXPECT_EQ(PinMianChaZhi(flat_x, flat_y, flat_z, 0.5f, 0), 5);
  // The small negative area is replaced as well, and the sign of the slope goes with it.
  const float thin_y[] = {0, 0, -1e-6f};
  EXPECT_NEAR(PinMianChaZhi(flat_x, thin_y, flat_z, 0, 1e-5f), 5 + 1e-5 * 1 / 1e-5, 1e-3);
}

template <class T>
std::vector<T> product(const std::vector<T>& a, const std::vector<T>& b, std::size_t n,
                       std::size_t m) {
  std::vector<T> c(n * m);
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < m; ++j) {
      long double sum = 0;
      for (std::size_t k = 0; k < n; ++k)
        sum += static_cast<long double>(a[i * n + k]) * b[k * m + j];
      c[i * m + j] = static_cast<T>(sum);
    }
  }
  return c;
}

template <class T>
std::vector<T> random_matrix(std::size_t rows, std::size_t cols) {
  std::vector<T> m(rows * cols);
  for (T& v : m) v = static_cast<T>(random_number());
  return m;
}

template <class T>
void check_gaussj(std::size_t n, double eps) {
  auto a = random_matrix<T>(n, n);
  for (std::size_t i = 0; i < n; ++i) a[i * n + (i + 1) % n] += 3;  // pivots off the diagonal
  const auto x = random_matrix<T>(n, 2);
  auto inverse = a, b = product(a, x, n, 2);
  ASSERT_EQ(gaussj(inverse.data(), static_cast<int>(n), b.data(), 2), 1);
  const auto unit = product(a, inverse, n, n);
  for (std::size_t i = 0; i < n * n; ++i) EXPECT_NEAR(unit[i], i % (n + 1) == 0, eps);
  for (std::size_t i = 0; i < n * 2; ++i) EXPECT_NEAR(b[i], x[i], eps);
}

TEST(Equations, GaussJordanInvertsAndSolves) {
  RecordedMessages said;
  for (std::size_t n = 1; n < 13; ++n) {
    check_gaussj<double>(n, 1e-12);
    check_gaussj<float>(n, 1e-4);
  }
  EXPECT_TRUE(said.messages.empty());
}

TEST(Equations, GaussJordanGoesOnAtAZeroPivot) {
  // Rank 2, and all quotients are exact, so that the last pivot is a true zero.
  const std::vector<double> a = {4, 2, 0, 2, 1, 0, 0, 0, 2}, x = {0.5, 1, 3};
  auto inverse = a, b = product(a, x, 3, 1);
  const auto right = b;
  RecordedMessages said;
  EXPECT_EQ(gaussj(inverse.data(), 3, b.data(), 1), 1);
  EXPECT_EQ(take(said), Messages{L"201 警告：求逆时发现矩阵有奇异性，计算结果可能有一定误差 !"});
  EXPECT_EQ(product(product(a, inverse, 3, 3), a, 3, 3), a);
  EXPECT_EQ(product(a, b, 3, 1), right);
  std::vector<double> zero(16), none(16);
  EXPECT_EQ(gaussj(zero.data(), 4, nullptr, 0), 1);
  EXPECT_EQ(zero, none);
  EXPECT_EQ(said.messages.size(), 1u);  // four zero pivots, one warning
  std::vector<float> nan(9, kNanF);
  expect_equal({gaussj(nan.data(), 3, nullptr, 0), gaussj(nan.data(), 0, nullptr, 0),
                gaussj(nan.data(), 3, nullptr, -1)},
               {1, 0, 0});
}

TEST(Equations, GetInverse) {
  for (std::size_t n = 1; n < 9; ++n) {
    const auto a = random_matrix<double>(n, n);
    std::vector<double> inverse(n * n);
    const int order = static_cast<int>(n);
    ASSERT_EQ(GetInverse(a.data(), inverse.data(), order, order, 1e-12), 1);
    const auto unit = product(a, inverse, n, n);
    for (std::size_t i = 0; i < n * n; ++i) EXPECT_NEAR(unit[i], i % (n + 1) == 0, 1e-9);
  }
  // A part of a wider block; the rest stays.
  const double wide[] = {0, 2, 77, 4, 0, 88};
  double out[] = {9, 9, 9, 9, 9, 9};
  EXPECT_EQ(GetInverse(wide, out, 2, 3, 0), 1);
  expect_equal({out[0], out[1], out[2], out[3], out[4], out[5]}, {0, 0.25, 9, 0.5, 0, 9});
  RecordedMessages said;
  const double singular[] = {1, 2, 2, 4}, none[] = {kNan, 0, 0, 1}, small[] = {1e-6, 0, 0, 1};
  expect_equal({GetInverse(singular, out, 2, 2, 1e-9), GetInverse(none, out, 2, 2, 1e-9),
                GetInverse(small, out, 2, 2, 1e-5)},
               {0, 0, 0});
  ASSERT_EQ(said.messages.size(), 3u);
  EXPECT_EQ(said.messages[0].text, L"求逆时发现奇异!");
  expect_equal({out[1], GetInverse(small, out, 2, 2, 1e-7), GetInverse(small, out, 2, 1, 1e-7),
                GetInverse(small, out, 0, 2, 1e-7)},
               {0.25, 1, 0, 0});
}

}  // namespace
}  // namespace brindle
