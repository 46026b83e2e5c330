// A row or column number of a grid cell, and a count of its changes, so that grids can keep an
// index of their cells.
#pragma once

#include <atomic>

namespace brindle {

// An int that tells its changes.
class CETNumber {
 public:
  CETNumber() = default;
  CETNumber(const CETNumber&) = default;
  CETNumber& operator=(const CETNumber& other) { return *this = other.value_; }
  CETNumber& operator=(int value) {
    if (value != value_) tell_change();
    value_ = value;
    return *this;
  }
  CETNumber& operator+=(int value) { return *this = value_ + value; }
  CETNumber& operator-=(int value) { return *this = value_ - value; }
  CETNumber& operator++() { return *this += 1; }
  CETNumber& operator--() { return *this -= 1; }
  int operator++(int) { return *this += 1, value_ - 1; }
  int operator--(int) { return *this -= 1, value_ + 1; }
  operator int() const { return value_; }

  // Of all numbers, and of cells that went, on whatever thread.
  static unsigned changes() { return changes_.load(std::memory_order_relaxed); }
  static void tell_change() { changes_.fetch_add(1, std::memory_order_relaxed); }

 private:
  static std::atomic<unsigned> changes_;

  int value_ = 0;
};

}  // namespace brindle
