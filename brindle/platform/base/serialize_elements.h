// How the containers store their elements in an archive. It needs no definition of CArchive, so
// that container headers stay light.
#pragma once

#include <cstddef>
#include <type_traits>

#include "brindle/platform/base/throw.h"
#include "brindle/platform/base/types.h"

namespace brindle {

class CArchive;
class CString;

namespace serialization {

bool is_storing(const CArchive& archive);
// Stores `count`, or loads a count and checks that the file can still hold so many elements of
// at least `element_bytes` each (CArchiveException::endOfFile when it can't).
INT_PTR exchange_count(CArchive& archive, INT_PTR count, std::size_t element_bytes);
// `count` numbers of `size` bytes (1, 2, 4 or 8), little-endian in the archive.
void exchange_numbers(CArchive& archive, void* numbers, std::size_t size, std::size_t count);
void exchange_string(CArchive& archive, CString& text);

// A number whose bits mean the same everywhere.
template <class T>
concept PlainNumber = (std::is_arithmetic_v<T> || std::is_enum_v<T>)&&!std::is_same_v<T, bool> &&
                      !std::is_same_v<T, wchar_t> && sizeof(T) <= 8;

template <class T>
concept SelfSerializing = requires(T& element, CArchive& archive) {
  element.Serialize(archive);
};

// The fewest bytes that an element takes in an archive.
template <class T>
constexpr std::size_t least_bytes() {
  return PlainNumber<T> ? sizeof(T) : 1;
}

}  // namespace serialization

// Stores or loads `count` elements. Numbers go little-endian, CString in its archive form, a class
// with Serialize by that; specialise it for other types. Anything else, pointers above all, throws
// CNotSupportedException: their bits would mean nothing on loading.
template <class TYPE>
void SerializeElements(CArchive& archive, TYPE* elements, INT_PTR count) {
  if constexpr (serialization::PlainNumber<TYPE>) {
    serialization::exchange_numbers(archive, elements, sizeof(TYPE),
                                    static_cast<std::size_t>(count));
  } else if constexpr (std::is_same_v<TYPE, bool>) {
    for (INT_PTR i = 0; i < count; ++i) {
      BYTE byte = elements[i];
      serialization::exchange_numbers(archive, &byte, 1, 1);
      elements[i] = byte != 0;
    }
  } else if constexpr (std::is_same_v<TYPE, CString>) {
    for (INT_PTR i = 0; i < count; ++i) serialization::exchange_string(archive, elements[i]);
  } else if constexpr (serialization::SelfSerializing<TYPE>) {
    for (INT_PTR i = 0; i < count; ++i) elements[i].Serialize(archive);
  } else {
    AfxThrowNotSupportedException();
  }
}

}  // namespace brindle
