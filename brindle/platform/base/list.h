// CList: the framework's doubly linked list with POSITION, and its ready-made kinds.
#pragma once

#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "brindle/platform/base/node_blocks.h"
#include "brindle/platform/base/object.h"
#include "brindle/platform/base/serialize_elements.h"
#include "brindle/platform/base/throw.h"
#include "brindle/platform/base/types.h"

namespace brindle {

// A POSITION names a node. It stays valid while other nodes come and go and dies with its own. A
// null POSITION where a node is needed, and the head or tail of an empty list, throw
// CInvalidArgException. Nodes come from blocks of block_size; a removed node is used again by the
// next insertion, and the blocks go when the list becomes empty.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject {
 public:
  // A block size of 0 or less counts as 1.
  explicit CList(INT_PTR block_size = 10) : m_nodes(sizeof(Node), block_size) {}
  ~CList() override { RemoveAll(); }

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  TYPE& GetHead() { return node_or_throw(m_pHead)->data; }
  const TYPE& GetHead() const { return node_or_throw(m_pHead)->data; }
  TYPE& GetTail() { return node_or_throw(m_pTail)->data; }
  const TYPE& GetTail() const { return node_or_throw(m_pTail)->data; }

  // Removes the element and returns it.
  TYPE RemoveHead();
  TYPE RemoveTail();
  // Each returns the new element's position.
  POSITION AddHead(ARG_TYPE element) { return position(insert(nullptr, m_pHead, element)); }
  POSITION AddTail(ARG_TYPE element) { return position(insert(m_pTail, nullptr, element)); }
  // Adds copies of all elements of another list, which keep their order.
  void AddHead(CList* other);
  void AddTail(CList* other);
  void RemoveAll();

  // Null for an empty list.
  POSITION GetHeadPosition() const { return position(m_pHead); }
  POSITION GetTailPosition() const { return position(m_pTail); }
  // The element at `pos`, which then moves on to the next (previous) one, null at the end.
  TYPE& GetNext(POSITION& pos) { return step(pos, &Node::next)->data; }
  const TYPE& GetNext(POSITION& pos) const { return step(pos, &Node::next)->data; }
  TYPE& GetPrev(POSITION& pos) { return step(pos, &Node::prev)->data; }
  const TYPE& GetPrev(POSITION& pos) const { return step(pos, &Node::prev)->data; }

  TYPE& GetAt(POSITION pos) { return node_or_throw(node(pos))->data; }
  const TYPE& GetAt(POSITION pos) const { return node_or_throw(node(pos))->data; }
  void SetAt(POSITION pos, ARG_TYPE element) { node_or_throw(node(pos))->data = element; }
  void RemoveAt(POSITION pos) { remove(node_or_throw(node(pos))); }
  // Each returns the new element's position; a null `pos` means the head (the tail).
  POSITION InsertBefore(POSITION pos, ARG_TYPE element);
  POSITION InsertAfter(POSITION pos, ARG_TYPE element);

  // The first position after `start_after` (null: from the head) whose element equals `value`, else
  // null. Linear.
  POSITION Find(ARG_TYPE value, POSITION start_after = nullptr) const;
  // The position of the element `index`, counted from 0; null when there is none. Linear.
  POSITION FindIndex(INT_PTR index) const;

  BOOL IsSerializable() const override { return TRUE; }
  // The count (CArchive::WriteCount), then the elements by SerializeElements; loading appends.
  void Serialize(CArchive& archive) override;

 private:
  struct Node {
    Node* next;
    Node* prev;
    TYPE data;
  };
  static_assert(alignof(TYPE) <= NodeBlocks::kAlignment);

  static POSITION position(Node* node) { return reinterpret_cast<POSITION>(node); }
  static Node* node(POSITION pos) { return reinterpret_cast<Node*>(pos); }
  static Node* node_or_throw(Node* node) {
    if (!node) AfxThrowInvalidArgException();
    return node;
  }
  static Node* step(POSITION& pos, Node* Node::*direction) {
    Node* const here = node_or_throw(node(pos));
    pos = position(here->*direction);
    return here;
  }
  Node* insert(Node* before, Node* after, ARG_TYPE element);
  void remove(Node* node);

  Node* m_pHead = nullptr;
  Node* m_pTail = nullptr;
  INT_PTR m_nCount = 0;
  NodeBlocks m_nodes;
};

template <class TYPE, class ARG_TYPE>
auto CList<TYPE, ARG_TYPE>::insert(Node* before, Node* after, ARG_TYPE element) -> Node* {
  void* const place = m_nodes.take();
  Node* fresh;
  try {
    fresh = ::new (place) Node{after, before, element};
  } catch (...) {
    m_nodes.give_back(place);
    throw;
  }
  (before ? before->next : m_pHead) = fresh;
  (after ? after->prev : m_pTail) = fresh;
  ++m_nCount;
  return fresh;
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::remove(Node* node) {
  (node->prev ? node->prev->next : m_pHead) = node->next;
  (node->next ? node->next->prev : m_pTail) = node->prev;
  std::destroy_at(node);
  m_nodes.give_back(node);
  if (--m_nCount == 0) m_nodes.clear();
}

template <class TYPE, class ARG_TYPE>
TYPE CList<TYPE, ARG_TYPE>::RemoveHead() {
  TYPE element = std::move(GetHead());
  remove(m_pHead);
  return element;
}

template <class TYPE, class ARG_TYPE>
TYPE CList<TYPE, ARG_TYPE>::RemoveTail() {
  TYPE element = std::move(GetTail());
  remove(m_pTail);
  return element;
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::AddHead(CList* other) {
  if (!other) AfxThrowInvalidArgException();
  INT_PTR count = other->m_nCount;  // counted, so that a list may be added to itself
  for (Node* from = other->m_pTail; count > 0; --count, from = from->prev) {
    insert(nullptr, m_pHead, from->data);
  }
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::AddTail(CList* other) {
  if (!other) AfxThrowInvalidArgException();
  INT_PTR count = other->m_nCount;
  for (Node* from = other->m_pHead; count > 0; --count, from = from->next) {
    insert(m_pTail, nullptr, from->data);
  }
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::RemoveAll() {
  if constexpr (!std::is_trivially_destructible_v<TYPE>) {
    for (Node* here = m_pHead; here;) std::destroy_at(std::exchange(here, here->next));
  }
  m_pHead = m_pTail = nullptr;
  m_nCount = 0;
  m_nodes.clear();
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::InsertBefore(POSITION pos, ARG_TYPE element) {
  if (!pos) return AddHead(element);
  return position(insert(node(pos)->prev, node(pos), element));
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::InsertAfter(POSITION pos, ARG_TYPE element) {
  if (!pos) return AddTail(element);
  return position(insert(node(pos), node(pos)->next, element));
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::Find(ARG_TYPE value, POSITION start_after) const {
  for (Node* here = start_after ? node(start_after)->next : m_pHead; here; here = here->next) {
    if (here->data == value) return position(here);
  }
  return nullptr;
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::FindIndex(INT_PTR index) const {
  if (index < 0 || index >= m_nCount) return nullptr;
  Node* here = m_pHead;
  while (index-- > 0) here = here->next;
  return position(here);
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::Serialize(CArchive& archive) {
  const INT_PTR count =
      serialization::exchange_count(archive, m_nCount, serialization::least_bytes<TYPE>());
  if (serialization::is_storing(archive)) {
    for (Node* here = m_pHead; here; here = here->next) SerializeElements(archive, &here->data, 1);
  } else if constexpr (std::is_default_constructible_v<TYPE>) {
    for (INT_PTR i = 0; i < count; ++i) {
      TYPE element{};
      SerializeElements(archive, &element, 1);
      AddTail(element);
    }
  } else {
    AfxThrowNotSupportedException();
  }
}

// Lists of pointers own nothing of what they point to. A node of CPtrList takes 24 bytes. The code
// of these two is compiled once, in containers.cpp.
extern template class CList<void*, void*>;
extern template class CList<CObject*, CObject*>;

class CPtrList : public CList<void*, void*> {
 public:
  using CList::CList;
};

class CObList : public CList<CObject*, CObject*> {
 public:
  using CList::CList;
};

// CPtrList or CObList with elements of type TYPE, a pointer. Elements come back by value: what
// stands at a position is changed with SetAt.
template <class BASE, class TYPE>
class CTypedPtrList : public BASE {
 public:
  using BASE::BASE;

  TYPE GetHead() const { return static_cast<TYPE>(BASE::GetHead()); }
  TYPE GetTail() const { return static_cast<TYPE>(BASE::GetTail()); }
  TYPE RemoveHead() { return static_cast<TYPE>(BASE::RemoveHead()); }
  TYPE RemoveTail() { return static_cast<TYPE>(BASE::RemoveTail()); }
  POSITION AddHead(TYPE element) { return BASE::AddHead(element); }
  POSITION AddTail(TYPE element) { return BASE::AddTail(element); }
  void AddHead(CTypedPtrList* other) { BASE::AddHead(static_cast<BASE*>(other)); }
  void AddTail(CTypedPtrList* other) { BASE::AddTail(static_cast<BASE*>(other)); }
  TYPE GetNext(POSITION& pos) const { return static_cast<TYPE>(BASE::GetNext(pos)); }
  TYPE GetPrev(POSITION& pos) const { return static_cast<TYPE>(BASE::GetPrev(pos)); }
  TYPE GetAt(POSITION pos) const { return static_cast<TYPE>(BASE::GetAt(pos)); }
  void SetAt(POSITION pos, TYPE element) { BASE::SetAt(pos, element); }
  POSITION InsertBefore(POSITION pos, TYPE element) { return BASE::InsertBefore(pos, element); }
  POSITION InsertAfter(POSITION pos, TYPE element) { return BASE::InsertAfter(pos, element); }
};

}  // namespace brindle
