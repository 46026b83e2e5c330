// Several numbers in one expectation.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <source_location>
#include <string>
#include <type_traits>

namespace brindle {

// A number of any width.
struct AnyNumber {
  template <class T>
  requires std::is_arithmetic_v<T> AnyNumber(T v) : value(static_cast<double>(v)) {}
  double value;
};

// Each number of `got` within `eps` of the one in its place; NaN equals NaN.
inline void expect_near(std::initializer_list<AnyNumber> got,
                        std::initializer_list<AnyNumber> wanted, double eps,
                        const std::string& what = {},
                        std::source_location at = std::source_location::current()) {
  bool same = got.size() == wanted.size();
  for (auto g = got.begin(), w = wanted.begin(); same && g != got.end(); ++g, ++w) {
    same = g->value == w->value || std::fabs(g->value - w->value) <= eps ||
           (std::isnan(g->value) && std::isnan(w->value));
  }
  if (same) return;
  std::string text = what + " got";
  for (const AnyNumber& n : got) text += " " + ::testing::PrintToString(n.value);
  text += ", wanted";
  for (const AnyNumber& n : wanted) text += " " + ::testing::PrintToString(n.value);
  ADD_FAILURE_AT(at.file_name(), static_cast<int>(at.line())) << text;
}

// The same, to the last bit.
inline void expect_equal(std::initializer_list<AnyNumber> got,
                         std::initializer_list<AnyNumber> wanted, const std::string& what = {},
                         std::source_location at = std::source_location::current()) {
  expect_near(got, wanted, 0, what, at);
}

}  // namespace brindle
