// CQxIntSet: a set of whole numbers of a fixed range, one bit each, with the algebra of sets.
#pragma once

#include <cassert>
#include <vector>

#include "brindle/platform/base/array.h"

namespace brindle {

// The range runs from low to high, both included. Bit i - low stands in 32-bit words, lowest first.
// A value outside the range is the caller's fault: it is not checked, but for an assertion.
class CQxIntSet {
 public:
  // The range 0 to max(size, 32) - 1.
  explicit CQxIntSet(int size);
  CQxIntSet(int low, int high);

  void add(int i) { word_of(i) |= mask_of(i); }
  void remove(int i) { word_of(i) &= ~mask_of(i); }
  int find(int i) const { return (word_of(i) & mask_of(i)) != 0; }
  void clear();
  // Sets all bits of all words, those beyond `high` in the last word too.
  void fill();

  // How many values the set holds, not counting `high` itself: a full set of 0..31 has 31. Meant.
  int GetCount() const;
  // The index-th word; the index is below GetDwCount.
  DWORD GetDword(int index) const;
  int GetDwCount() const { return static_cast<int>(m_words.size()); }
  int GetHigh() const { return m_high; }
  int GetLow() const { return m_low; }
  // How many values the range has.
  int GetSize() const { return static_cast<int>(static_cast<long long>(m_high) - m_low + 1); }

  // Word by word over this set's words, the first with the first: both sets should have one `low`.
  // Words that the other set lacks count as empty.
  void unionset(const CQxIntSet* other);
  void difference(const CQxIntSet* other);
  void intersection(const CQxIntSet* other);

  CQxIntSet& operator+=(const CQxIntSet& other);
  CQxIntSet& operator-=(const CQxIntSet& other);
  CQxIntSet& operator*=(const CQxIntSet& other);
  // Union, difference, intersection with the left set's range.
  friend CQxIntSet operator+(CQxIntSet a, const CQxIntSet& b) { return a += b; }
  friend CQxIntSet operator-(CQxIntSet a, const CQxIntSet& b) { return a -= b; }
  friend CQxIntSet operator*(CQxIntSet a, const CQxIntSet& b) { return a *= b; }

  // Whether this set has every value of the other. Values are compared, in their ranges: the ranges
  // themselves may differ, and bits beyond `high` don't matter.
  bool operator>=(const CQxIntSet& other) const;
  bool operator<=(const CQxIntSet& other) const { return other >= *this; }
  bool operator==(const CQxIntSet& other) const { return *this >= other && *this <= other; }
  bool operator!=(const CQxIntSet& other) const { return !(*this == other); }

  // Replaces the array by the values of the set, ascending, `high` included.
  void GetArray(CArray<int, int>* values) const;
  // Adds every value of the array.
  void AddArray(const CArray<int, int>* values);

 private:
  unsigned bit_of(int i) const { return static_cast<unsigned>(i) - static_cast<unsigned>(m_low); }
  DWORD mask_of(int i) const { return DWORD{1} << (bit_of(i) & 31); }
  const DWORD& word_of(int i) const { return m_words[index_of(i)]; }
  DWORD& word_of(int i) { return m_words[index_of(i)]; }
  std::size_t index_of(int i) const {
    assert((bit_of(i) >> 5) < m_words.size());
    return bit_of(i) >> 5;
  }
  // The index-th word without the bits beyond `high`; empty beyond the last word.
  DWORD values_in_word(std::size_t index) const;
  template <class Operation>
  void combine(const CQxIntSet& other, Operation operation);
  // Calls `visit` with every value, ascending, for as long as it returns true; whether it always
  // did.
  template <class Visit>
  bool all_values(Visit visit) const;

  int m_high;
  int m_low;
  std::vector<DWORD> m_words;
};

}  // namespace brindle
