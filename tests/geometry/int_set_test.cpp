#include "brindle/geometry/int_set.h"
#include "tests/support/expect_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <set>

namespace brindle {
namespace {

TEST(IntSet, RangesAndWords) {
  const CQxIntSet five(5);
  expect_equal({five.GetHigh(), five.GetSize(), five.GetDwCount(), CQxIntSet(-3).GetHigh()},
               {31, 32, 1, 31});
  expect_equal({CQxIntSet(33).GetDwCount(), CQxIntSet(-10, 53).GetDwCount(),
                CQxIntSet(-10, 54).GetDwCount()},
               {2, 2, 3});
  EXPECT_EQ(CQxIntSet(9, 3).GetCount(), 0);  // a range turned round holds nothing
}

TEST(IntSet, TheHighestValueIsNeverCounted) {
  CQxIntSet set(32);
  set.add(31);
  EXPECT_EQ(set.find(31), 1);
  EXPECT_EQ(set.GetCount(), 0);
  set.fill();
  EXPECT_EQ(set.GetCount(), 31);
  CQxIntSet part(-5, 4);
  part.fill();
  EXPECT_EQ(part.GetDword(0), 0xFFFFFFFFu);  // beyond `high`, too
  EXPECT_EQ(part.GetCount(), 9);
  part.remove(-5);
  EXPECT_EQ(part.GetDword(0), 0xFFFFFFFEu);
  EXPECT_EQ(part.GetCount(), 8);
  part.clear();
  EXPECT_EQ(part.GetCount() + static_cast<int>(part.GetDword(0)), 0);
}

TEST(IntSet, ComparesValuesNotBitsBeyondTheRange) {
  CQxIntSet filled(0, 9), added(0, 9), shifted(-40, 9);
  filled.fill();
  for (int i = 0; i <= 9; ++i) added.add(i), shifted.add(i);
  EXPECT_TRUE(filled == added && filled == shifted && shifted <= filled);
  shifted.add(-1);
  EXPECT_TRUE(shifted != filled && shifted >= filled && !(shifted <= filled));
}

// Against std::set, also for sets whose words differ in number.
TEST(IntSet, AlgebraOfSets) {
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    const int low = static_cast<int>(random() % 100) - 50;
    CQxIntSet a(low, low + static_cast<int>(random() % 150));
    CQxIntSet b(low, low + static_cast<int>(random() % 150));
    std::set<int> in_a, in_b;
    const auto put = [&](CQxIntSet& set, std::set<int>& values) {
      for (int i = 0; i < 60; ++i) {
        const int value = low + static_cast<int>(random() % static_cast<unsigned>(set.GetSize()));
        set.add(value);
        values.insert(value);
      }
    };
    put(a, in_a);
    put(b, in_b);
    const auto expect = [&](const CQxIntSet& set, const std::set<int>& values) {
      for (int i = set.GetLow(); i <= set.GetHigh(); ++i) {
        ASSERT_EQ(set.find(i), values.contains(i) ? 1 : 0) << i;
      }
      std::set<int> counted = values;
      counted.erase(set.GetHigh());
      counted.erase(counted.upper_bound(set.GetHigh()), counted.end());
      ASSERT_EQ(set.GetCount(), static_cast<int>(counted.size()));
    };
    std::set<int> both, either, only_a;
    std::set_union(in_a.begin(), in_a.end(), in_b.begin(), in_b.end(),
                   std::inserter(either, either.end()));
    std::set_intersection(in_a.begin(), in_a.end(), in_b.begin(), in_b.end(),
                          std::inserter(both, both.end()));
    std::set_difference(in_a.begin(), in_a.end(), in_b.begin(), in_b.end(),
                        std::inserter(only_a, only_a.end()));
    expect(a + b, either);
    expect(a * b, both);
    expect(a - b, only_a);
    EXPECT_EQ(a >= b, std::includes(in_a.begin(), in_a.end(), in_b.begin(), in_b.end()));
    EXPECT_TRUE(a >= a * b && a - b <= a && (a - b) * b == CQxIntSet(low, low));
    CArray<int, int> values;
    values.Add(-1);
    a.GetArray(&values);
    ASSERT_TRUE(std::equal(values.begin(), values.end(), in_a.begin(), in_a.end()));
    CQxIntSet again(low, a.GetHigh());
    again.AddArray(&values);
    EXPECT_TRUE(again == a);
    b = a;
    EXPECT_TRUE(b == a && b.GetHigh() == a.GetHigh());
  }
}

}  // namespace
}  // namespace brindle
