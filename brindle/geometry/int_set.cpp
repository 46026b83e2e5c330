#include "brindle/geometry/int_set.h"

#include <algorithm>
#include <bit>
#include <cassert>

namespace brindle {
namespace {

// A range turned round has one word, so that there is always a last one.
std::size_t word_count(int low, int high) {
  const long long span = static_cast<long long>(high) - low;
  return static_cast<std::size_t>(std::max(span, 0LL) >> 5) + 1;
}

}  // namespace

CQxIntSet::CQxIntSet(int size) : CQxIntSet(0, std::max(size, 32) - 1) {}

CQxIntSet::CQxIntSet(int low, int high)
    : m_high(high), m_low(low), m_words(word_count(low, high), 0) {}

void CQxIntSet::clear() {
  std::fill(m_words.begin(), m_words.end(), 0);
}

void CQxIntSet::fill() {
  std::fill(m_words.begin(), m_words.end(), ~DWORD{0});
}

DWORD CQxIntSet::values_in_word(std::size_t index) const {
  if (index >= m_words.size() || m_high < m_low) return 0;
  const DWORD word = m_words[index];
  if (index + 1 < m_words.size()) return word;
  return word & (~DWORD{0} >> (31 - (bit_of(m_high) & 31)));
}

int CQxIntSet::GetCount() const {
  if (m_high < m_low) return 0;
  int count = 0;
  for (std::size_t k = 0; k < m_words.size(); ++k) count += std::popcount(values_in_word(k));
  return count - find(m_high);
}

DWORD CQxIntSet::GetDword(int index) const {
  assert(index >= 0 && index < GetDwCount());
  return m_words[static_cast<std::size_t>(index)];
}

template <class Operation>
void CQxIntSet::combine(const CQxIntSet& other, Operation operation) {
  for (std::size_t k = 0; k < m_words.size(); ++k) {
    m_words[k] = operation(m_words[k], k < other.m_words.size() ? other.m_words[k] : 0);
  }
}

void CQxIntSet::unionset(const CQxIntSet* other) {
  combine(*other, [](DWORD a, DWORD b) { return a | b; });
}

void CQxIntSet::difference(const CQxIntSet* other) {
  combine(*other, [](DWORD a, DWORD b) { return a & ~b; });
}

void CQxIntSet::intersection(const CQxIntSet* other) {
  combine(*other, [](DWORD a, DWORD b) { return a & b; });
}

CQxIntSet& CQxIntSet::operator+=(const CQxIntSet& other) {
  unionset(&other);
  return *this;
}

CQxIntSet& CQxIntSet::operator-=(const CQxIntSet& other) {
  difference(&other);
  return *this;
}

CQxIntSet& CQxIntSet::operator*=(const CQxIntSet& other) {
  intersection(&other);
  return *this;
}

template <class Visit>
bool CQxIntSet::all_values(Visit visit) const {
  for (std::size_t k = 0; k < m_words.size(); ++k) {
    for (DWORD rest = values_in_word(k); rest; rest &= rest - 1) {
      const auto bit = static_cast<long long>(k * 32) + std::countr_zero(rest);
      if (!visit(static_cast<int>(m_low + bit))) return false;
    }
  }
  return true;
}

bool CQxIntSet::operator>=(const CQxIntSet& other) const {
  if (m_low != other.m_low) {
    return other.all_values([this](int i) { return i >= m_low && i <= m_high && find(i); });
  }
  for (std::size_t k = 0; k < other.m_words.size(); ++k) {
    if (other.values_in_word(k) & ~values_in_word(k)) return false;
  }
  return true;
}

void CQxIntSet::GetArray(CArray<int, int>* values) const {
  values->RemoveAll();
  all_values([values](int i) {
    values->Add(i);
    return true;
  });
}

void CQxIntSet::AddArray(const CArray<int, int>* values) {
  for (const int i : *values) add(i);
}

}  // namespace brindle
