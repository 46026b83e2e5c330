// CArray: the framework's growing array. Elements lie in one block, indexes count from 0, and an
// index outside the array throws CInvalidArgException.
#pragma once

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "brindle/platform/base/object.h"
#include "brindle/platform/base/serialize_elements.h"
#include "brindle/platform/base/throw.h"
#include "brindle/platform/base/types.h"

namespace brindle {

// ARG_TYPE is how operations take an element: by reference for classes, by value for small types.
// An element of the array itself may be passed. Elements that come up by growing are
// value-initialised (numbers and pointers are 0) and elements move by their move constructor.
// Growing by one is amortised constant time. Arrays are not copied implicitly: use Copy.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
 public:
  CArray() = default;
  ~CArray() override { release(); }

  INT_PTR GetSize() const { return m_nSize; }
  INT_PTR GetCount() const { return m_nSize; }
  BOOL IsEmpty() const { return m_nSize == 0; }
  // The last valid index, -1 when empty.
  INT_PTR GetUpperBound() const { return m_nSize - 1; }
  // Makes the array hold `size` elements; a negative size throws. `grow_by` above 0 is kept as the
  // least number of elements by which later growing enlarges the room, 0 returns to the default.
  void SetSize(INT_PTR size, INT_PTR grow_by = -1);
  // Gives back room that no element takes.
  void FreeExtra() {
    if (m_nMaxSize > m_nSize) reallocate(m_nSize);
  }
  void RemoveAll() { SetSize(0); }

  const TYPE& GetAt(INT_PTR index) const { return m_pData[checked(index)]; }
  TYPE& GetAt(INT_PTR index) { return m_pData[checked(index)]; }
  void SetAt(INT_PTR index, ARG_TYPE element) { m_pData[checked(index)] = element; }
  const TYPE& ElementAt(INT_PTR index) const { return m_pData[checked(index)]; }
  TYPE& ElementAt(INT_PTR index) { return m_pData[checked(index)]; }
  const TYPE& operator[](INT_PTR index) const { return m_pData[checked(index)]; }
  TYPE& operator[](INT_PTR index) { return m_pData[checked(index)]; }
  // The elements in one block; null in an array that never had room, valid until it next grows.
  const TYPE* GetData() const { return m_pData; }
  TYPE* GetData() { return m_pData; }

  // Sets the element, after growing the array when the index lies at or beyond its end.
  void SetAtGrow(INT_PTR index, ARG_TYPE element);
  // Appends; returns the index of the new element.
  INT_PTR Add(ARG_TYPE element);
  // Appends all elements of `other`, which may be this array; returns the old size.
  INT_PTR Append(const CArray& other);
  // Makes this array hold copies of the elements of `other`.
  void Copy(const CArray& other);
  // Inserts `count` copies before `index`; beyond the end the array first grows up to `index`.
  void InsertAt(INT_PTR index, ARG_TYPE element, INT_PTR count = 1);
  // Inserts the elements of `other`, another array, before `start`.
  void InsertAt(INT_PTR start, const CArray* other);
  void RemoveAt(INT_PTR index, INT_PTR count = 1);

  BOOL IsSerializable() const override { return TRUE; }
  // The count (CArchive::WriteCount), then the elements by SerializeElements.
  void Serialize(CArchive& archive) override;

  // For range-based loops.
  TYPE* begin() { return m_pData; }
  TYPE* end() { return m_pData + m_nSize; }
  const TYPE* begin() const { return m_pData; }
  const TYPE* end() const { return m_pData + m_nSize; }

 private:
  static constexpr INT_PTR kMaxSize = std::numeric_limits<INT_PTR>::max() / INT_PTR{sizeof(TYPE)};

  INT_PTR checked(INT_PTR index) const {
    if (index < 0 || index >= m_nSize) AfxThrowInvalidArgException();
    return index;
  }
  // Room for `size` elements at the least.
  void reserve(INT_PTR size);
  // Moves the elements to a block of exactly `room` places.
  void reallocate(INT_PTR room);
  void release();
  // Opens `count` value-initialised places before `index` (at most the size).
  void open_gap(INT_PTR index, INT_PTR count);

  TYPE* m_pData = nullptr;
  INT_PTR m_nSize = 0;
  INT_PTR m_nMaxSize = 0;
  INT_PTR m_nGrowBy = 0;
};

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::release() {
  std::destroy(m_pData, m_pData + m_nSize);
  if (m_pData) std::allocator<TYPE>().deallocate(m_pData, static_cast<std::size_t>(m_nMaxSize));
  m_pData = nullptr;
  m_nSize = m_nMaxSize = 0;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::reallocate(INT_PTR room) {
  TYPE* block = nullptr;
  if (room > 0) {
    if (room > kMaxSize) AfxThrowMemoryException();
    try {
      block = std::allocator<TYPE>().allocate(static_cast<std::size_t>(room));
    } catch (const std::bad_alloc&) {
      AfxThrowMemoryException();
    }
    std::uninitialized_move(m_pData, m_pData + m_nSize, block);
  }
  const INT_PTR size = m_nSize;
  release();
  m_pData = block;
  m_nSize = size;
  m_nMaxSize = room;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::reserve(INT_PTR size) {
  if (size <= m_nMaxSize) return;
  const INT_PTR step = std::max({m_nGrowBy, m_nMaxSize / 2, m_nMaxSize ? INT_PTR{4} : INT_PTR{0}});
  reallocate(m_nMaxSize > kMaxSize - step ? size : std::max(size, m_nMaxSize + step));
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetSize(INT_PTR size, INT_PTR grow_by) {
  if (size < 0) AfxThrowInvalidArgException();
  if (grow_by >= 0) m_nGrowBy = grow_by;
  if (size == 0) {
    release();
  } else if (size <= m_nSize) {
    std::destroy(m_pData + size, m_pData + m_nSize);
    m_nSize = size;
  } else {
    reserve(size);
    std::uninitialized_value_construct(m_pData + m_nSize, m_pData + size);
    m_nSize = size;
  }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetAtGrow(INT_PTR index, ARG_TYPE element) {
  if (index < 0) AfxThrowInvalidArgException();
  if (index < m_nSize) {
    m_pData[index] = element;
    return;
  }
  if (index >= kMaxSize) AfxThrowMemoryException();
  TYPE copy(element);
  SetSize(index + 1);
  m_pData[index] = std::move(copy);
}

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::Add(ARG_TYPE element) {
  if (m_nSize < m_nMaxSize) {
    ::new (static_cast<void*>(m_pData + m_nSize)) TYPE(element);
  } else {
    TYPE copy(element);  // `element` may lie in the block that is about to go
    reserve(m_nSize + 1);
    ::new (static_cast<void*>(m_pData + m_nSize)) TYPE(std::move(copy));
  }
  return m_nSize++;
}

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::Append(const CArray& other) {
  const INT_PTR old_size = m_nSize;
  const INT_PTR count = other.m_nSize;
  if (count > kMaxSize - old_size) AfxThrowMemoryException();
  reserve(old_size + count);
  std::uninitialized_copy(other.m_pData, other.m_pData + count, m_pData + old_size);
  m_nSize = old_size + count;
  return old_size;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Copy(const CArray& other) {
  if (this == &other) return;
  std::destroy(m_pData, m_pData + m_nSize);
  m_nSize = 0;
  Append(other);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::open_gap(INT_PTR index, INT_PTR count) {
  if (count > kMaxSize - std::max(m_nSize, index)) AfxThrowMemoryException();
  const INT_PTR old_size = m_nSize;
  SetSize(std::max(old_size, index) + count);
  if (index < old_size) {
    std::rotate(m_pData + index, m_pData + old_size, m_pData + m_nSize);
  }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR index, ARG_TYPE element, INT_PTR count) {
  if (index < 0 || count < 0) AfxThrowInvalidArgException();
  const TYPE copy(element);
  open_gap(index, count);
  std::fill(m_pData + index, m_pData + index + count, copy);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR start, const CArray* other) {
  if (start < 0 || !other || other == this) AfxThrowInvalidArgException();
  if (other->m_nSize == 0) return;
  open_gap(start, other->m_nSize);
  std::copy(other->begin(), other->end(), m_pData + start);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::RemoveAt(INT_PTR index, INT_PTR count) {
  if (index < 0 || count < 0 || index > m_nSize || count > m_nSize - index) {
    AfxThrowInvalidArgException();
  }
  if (count == 0) return;
  std::move(m_pData + index + count, m_pData + m_nSize, m_pData + index);
  std::destroy(m_pData + m_nSize - count, m_pData + m_nSize);
  m_nSize -= count;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Serialize(CArchive& archive) {
  constexpr INT_PTR kStretch = 4096;  // so that memory follows what really is in the file
  const INT_PTR count =
      serialization::exchange_count(archive, m_nSize, serialization::least_bytes<TYPE>());
  if (serialization::is_storing(archive)) {
    SerializeElements(archive, m_pData, count);
    return;
  }
  if constexpr (std::is_default_constructible_v<TYPE>) {
    SetSize(0);
    for (INT_PTR done = 0; done < count;) {
      const INT_PTR stretch = std::min(kStretch, count - done);
      SetSize(done + stretch);
      SerializeElements(archive, m_pData + done, stretch);
      done += stretch;
    }
  } else {
    AfxThrowNotSupportedException();
  }
}

}  // namespace brindle
