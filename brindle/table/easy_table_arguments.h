// The forms in which a tool hands lists and text variables to the adders of a grid.
#pragma once

#include <type_traits>

#include "brindle/platform/base/pointer_arrays.h"

namespace brindle {

// A list of texts: a pointer with a count beside it, an array that knows its size, or a
// CStringArray. A pointer whose count is below 1 ends at the first empty text.
class TextList {
 public:
  TextList(const CString* texts = nullptr) : texts_(texts) {}
  template <std::size_t N>
  TextList(CString (&texts)[N]) : texts_(texts), size_(static_cast<int>(N)) {}
  TextList(const CStringArray& texts)
      : texts_(texts.GetData()), size_(static_cast<int>(texts.GetSize())) {}

  bool is_given() const { return texts_ != nullptr; }
  // `count` where it is positive, within the size where that is known.
  int size(int count) const;
  const CString& operator[](int index) const { return texts_[index]; }
  // The first size(count) texts.
  void copy_to(CStringArray& texts, int count) const;

 private:
  const CString* texts_;
  int size_ = -1;  // unknown
};

// The same for numbers; a pointer whose count is below 1 ends at -1.
class NumberList {
 public:
  NumberList(const int* numbers = nullptr) : numbers_(numbers) {}
  template <std::size_t N>
  NumberList(int (&numbers)[N]) : numbers_(numbers), size_(static_cast<int>(N)) {}
  NumberList(const CArray<int, int>& numbers)
      : numbers_(numbers.GetData()), size_(static_cast<int>(numbers.GetSize())) {}

  bool is_given() const { return numbers_ != nullptr; }
  int size(int count) const;
  // The first size(count) numbers as texts.
  void copy_to(CStringArray& texts, int count) const;

 private:
  const int* numbers_;
  int size_ = -1;
};

// A text variable of the tool. An array is known with its room and never overrun; behind a plain
// pointer the tool promises room for what its users type.
class TextBuffer {
 public:
  template <class T>
  requires(std::is_same_v<std::remove_extent_t<std::remove_reference_t<T>>, wchar_t> ||
           std::is_same_v<std::remove_cvref_t<T>, wchar_t*>) TextBuffer(T&& buffer)
      : place(buffer) {
    if constexpr (std::is_array_v<std::remove_reference_t<T>>)
      size = static_cast<int>(std::extent_v<std::remove_reference_t<T>>);
  }
  // Of `room` characters, the zero at the end included.
  TextBuffer(wchar_t* buffer, int room) : place(buffer), size(room) {}

  wchar_t* place = nullptr;
  int size = 0;  // 0: unknown
};

}  // namespace brindle
