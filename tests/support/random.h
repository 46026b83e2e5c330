// Numbers at random, the same for the same seed.
#pragma once

#include <random>

namespace brindle {

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  double operator()(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(engine_);
  }
  // Both ends included.
  int whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }

 private:
  std::mt19937 engine_;
};

}  // namespace brindle
