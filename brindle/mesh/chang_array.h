// The array of a field's nodes or triangles: a CArray that notes which elements a caller may have
// changed, so that the field's searches can keep an index.
#pragma once

#include <cstddef>
#include <vector>

#include "brindle/platform/base/array.h"

namespace brindle {

// Every way to a changeable element is noted once watch() was called. Two ways are not seen: a
// reference kept from before the last search, and the array taken as its base class; who changes
// positions or numbers so calls touch_all().
template <class T>
class CChangArray : public CArray<T, T> {
  using Base = CArray<T, T>;

 public:
  using Base::ElementAt;
  using Base::GetAt;
  using Base::GetData;
  using Base::operator[];

  T& operator[](INT_PTR index) {
    note(index);
    return Base::operator[](index);
  }
  T& GetAt(INT_PTR index) { return (*this)[index]; }
  T& ElementAt(INT_PTR index) { return (*this)[index]; }
  void SetAt(INT_PTR index, T element) { (*this)[index] = element; }
  void SetAtGrow(INT_PTR index, T element) {
    note(index);
    Base::SetAtGrow(index, element);
  }
  T* GetData() { return touch_all(), Base::GetData(); }
  T* begin() { return touch_all(), Base::begin(); }
  T* end() { return touch_all(), Base::end(); }
  const T* begin() const { return Base::begin(); }
  const T* end() const { return Base::end(); }

  void SetSize(INT_PTR size, INT_PTR grow_by = -1) {
    touch_all();
    Base::SetSize(size, grow_by);
  }
  void RemoveAll() { SetSize(0); }
  void Copy(const Base& other) {
    touch_all();
    Base::Copy(other);
  }
  void InsertAt(INT_PTR index, T element, INT_PTR count = 1) {
    touch_all();
    Base::InsertAt(index, element, count);
  }
  void InsertAt(INT_PTR start, const Base* other) {
    touch_all();
    Base::InsertAt(start, other);
  }
  void RemoveAt(INT_PTR index, INT_PTR count = 1) {
    touch_all();
    Base::RemoveAt(index, count);
  }
  void Serialize(CArchive& archive) override {
    touch_all();
    Base::Serialize(archive);
  }

  // --- for the searches: the elements without noting, what was noted, and a fresh start
  const T* data() const { return Base::GetData(); }
  // For changes that aren't of positions or numbers; checked.
  T& unnoted(INT_PTR index) { return Base::operator[](index); }
  bool touched() const { return all_ || !places_.empty(); }
  bool all_touched() const { return all_; }
  const std::vector<INT_PTR>& touched_places() const { return places_; }
  void watch() {
    watched_ = true;
    all_ = false;
    places_.clear();
  }
  void touch_all() { all_ = watched_; }

 private:
  // So many places at most that looking at all elements costs no more than noting did.
  void note(INT_PTR index) {
    if (!watched_ || all_) return;
    if (places_.size() < 64 + static_cast<std::size_t>(this->GetSize()) / 16) {
      places_.push_back(index);
    } else {
      all_ = true;
    }
  }

  std::vector<INT_PTR> places_;
  bool watched_ = false, all_ = false;
};

}  // namespace brindle
