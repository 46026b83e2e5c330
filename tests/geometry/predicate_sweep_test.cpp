// Every planar predicate, called by its signature: any input comes back, and both families say the
// same wherever the tolerance doesn't decide.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <tuple>
#include <type_traits>

#include "predicate_twins.h"

namespace brindle {
namespace {

// What a call was given and what it wrote.
template <class Real>
struct Call {
  std::array<std::array<Real, 4>, 16> arrays{};  // one for each argument that is a pointer
  int result = 0;
};

// Calls `function` with numbers from `number`, arrays of 4 for pointers and a count from `count`.
template <class Real, class Result, class... Args, class Number, class Count>
Call<Real> call_with(Result (*function)(Args...), Number number, Count count) {
  Call<Real> call;
  for (auto& array : call.arrays) {
    for (Real& v : array) v = number();
  }
  std::size_t next_array = 0;
  const auto argument = [&]<class Arg>(std::type_identity<Arg>) {
    if constexpr (std::is_same_v<Arg, int>) {
      return count();
    } else if constexpr (std::is_pointer_v<Arg>) {
      return static_cast<Arg>(call.arrays[next_array++].data());
    } else {
      return number();
    }
  };
  // A braced list is evaluated from left to right, so that a seed gives the same call everywhere.
  std::tuple<Args...> arguments{argument(std::type_identity<Args>{})...};
  if constexpr (std::is_same_v<Result, int>) {
    call.result = std::apply(function, arguments);
  } else {
    std::apply(function, arguments);
  }
  return call;
}

template <class Real>
void expect_bounded(const char* name, auto function) {
  constexpr Real kValues[] = {0,
                              Real(-0.0),
                              1,
                              1,
                              -1,
                              2,
                              Real(1e-5),
                              Real(-3.5),
                              std::numeric_limits<Real>::max(),
                              std::numeric_limits<Real>::denorm_min(),
                              std::numeric_limits<Real>::infinity(),
                              -std::numeric_limits<Real>::infinity(),
                              std::numeric_limits<Real>::quiet_NaN()};
  constexpr int kCounts[] = {-1, 0, 1, 2, 4};
  std::mt19937 random(11);
  for (int i = 0; i < 2000; ++i) {
    // The first rounds stay with the finite values that coincide.
    const std::size_t values = i < 1000 ? 8 : std::size(kValues);
    const Call<Real> call = call_with<Real>(
        function, [&] { return kValues[random() % values]; },
        [&] { return kCounts[random() % std::size(kCounts)]; });
    ASSERT_TRUE(call.result >= -1 && call.result <= 2) << name << " " << call.result;
  }
}

TEST(PredicateSweep, DegenerateInputComesBack) {
#define SWEEP(name)                                  \
  expect_bounded<float>(#name, +Twins<float>::name); \
  expect_bounded<double>(#name, +Twins<double>::name);
  BRINDLE_TWINS(SWEEP)
  BRINDLE_OVERLOADS(SWEEP)
  SWEEP(TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan)
  SWEEP(TestCross_Domain)
  SWEEP(TestCross_Domain_Ex)
#undef SWEEP
}

// A call whose result is the same at half and at twice the tolerance is far from every border, and
// the float twin must agree with the double one.
void expect_agreement(const char* name, auto in_float, auto in_double) {
  constexpr int kRounds = 800;
  int compared = 0;
  for (unsigned seed = 0; seed < kRounds; ++seed) {
    // The same numbers for all calls. The last one asked for is the tolerance.
    const auto call = [seed]<class Real>(Real, auto function, double tol_factor) {
      std::mt19937 random(seed);
      const auto draw = [&] { return static_cast<float>(random() / 4294967296.0 * 6 + 0.05); };
      // Counts the numbers first, to know the last.
      int numbers = 0, asked = 0;
      call_with<Real>(
          function, [&] { return ++numbers, Real{}; }, [] { return 0; });
      return call_with<Real>(
          function, [&] { return ++asked == numbers ? Real(2e-3 * tol_factor) : Real(draw()); },
          [] { return 4; });
    };
    const auto reference = call(double{}, in_double, 1.0);
    if (call(double{}, in_double, 0.5).result != reference.result) continue;
    if (call(double{}, in_double, 2.0).result != reference.result) continue;
    ++compared;
    const auto got = call(float{}, in_float, 1.0);
    ASSERT_EQ(got.result, reference.result) << name << " " << seed;
    for (std::size_t k = 0; k < 16; ++k) {
      for (std::size_t j = 0; j < 4; ++j) {
        const double v = reference.arrays[k][j];
        // Nearly parallel lines have their point far away and lose figures.
        if (std::fabs(v) < 20) {
          ASSERT_NEAR(got.arrays[k][j], v, 0.05) << name << " " << seed;
        }
      }
    }
  }
  EXPECT_GT(compared, kRounds / 2) << name;
}

TEST(PredicateSweep, BothFamiliesAgree) {
#define AGREE(name) expect_agreement(#name, +Twins<float>::name, +Twins<double>::name);
  BRINDLE_TWINS(AGREE)
  BRINDLE_OVERLOADS(AGREE)
  AGREE(TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan)
  AGREE(TestCross_Domain)
  AGREE(TestCross_Domain_Ex)
#undef AGREE
}

}  // namespace
}  // namespace brindle
