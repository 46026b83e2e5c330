// CMap: the framework's hash map, and its ready-made kinds with texts as keys.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <vector>

#include "brindle/platform/base/node_blocks.h"
#include "brindle/platform/base/object.h"
#include "brindle/platform/base/serialize_elements.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/base/throw.h"
#include "brindle/platform/base/types.h"

namespace brindle {

// The hash of a key: texts by their characters, numbers and pointers by their value, other types by
// std::hash. Equal keys have equal hashes. Specialise it for a type of your own.
template <class ARG_KEY>
std::size_t HashKey(ARG_KEY key) {
  if constexpr (std::is_convertible_v<ARG_KEY, LPCTSTR>) {
    const LPCTSTR text = static_cast<LPCTSTR>(key);
    return std::hash<std::wstring_view>()(text ? std::wstring_view(text) : std::wstring_view());
  } else {
    return std::hash<std::remove_cvref_t<ARG_KEY>>()(key);
  }
}

// Walking by position meets the entries in the order in which their keys first came in, however
// the table is sized. A POSITION stays valid while other entries come and go; a walk may remove the
// entry that GetNextAssoc has just returned.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
 public:
  struct CPair {
    const KEY key;
    VALUE value;
  };

  explicit CMap(INT_PTR block_size = 10) : m_nodes(sizeof(Node), block_size) {}
  ~CMap() override { RemoveAll(); }

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  // Whether the key is there; only then `value` is set.
  BOOL Lookup(ARG_KEY key, VALUE& value) const {
    const Node* const found = find(key);
    if (found) value = found->value;
    return found != nullptr;
  }
  // The entry, null without one; valid as long as the entry.
  const CPair* PLookup(ARG_KEY key) const { return find(key); }
  CPair* PLookup(ARG_KEY key) { return find(key); }

  // The key's value; a key that isn't there comes in with a value-initialised one.
  VALUE& operator[](ARG_KEY key) {
    Node* const found = find(key);
    return (found ? found : insert(key))->value;
  }
  void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
  // FALSE when the key isn't there.
  BOOL RemoveKey(ARG_KEY key);
  void RemoveAll();

  POSITION GetStartPosition() const { return position(m_first); }
  // The entry at `pos`, which moves on, null after the last. A null `pos` throws
  // CInvalidArgException.
  void GetNextAssoc(POSITION& pos, KEY& key, VALUE& value) const {
    const CPair* const pair = GetNextAssoc(pos);
    key = pair->key;
    value = pair->value;
  }
  const CPair* GetNextAssoc(POSITION& pos) const { return step(pos); }
  CPair* GetNextAssoc(POSITION& pos) { return step(pos); }
  const CPair* PGetFirstAssoc() const { return m_first; }
  CPair* PGetFirstAssoc() { return m_first; }

  UINT GetHashTableSize() const { return static_cast<UINT>(m_table.size()); }
  // A hint: the table starts with so many places and grows with the entries. Only an empty map
  // may be told; the second argument, whether to allocate now, changes nothing.
  void InitHashTable(UINT size, BOOL allocate_now = TRUE);

  BOOL IsSerializable() const override { return TRUE; }
  // The count (CArchive::WriteCount), then key and value of each entry by SerializeElements;
  // loading adds to what is there.
  void Serialize(CArchive& archive) override;

 private:
  struct Node : CPair {
    std::size_t hash;
    Node* chain;  // the next one in its place of the table
    Node* prev;
    Node* next;
  };
  static_assert(alignof(Node) <= NodeBlocks::kAlignment);
  static constexpr std::size_t kDefaultTableSize = 17;

  static POSITION position(Node* node) { return reinterpret_cast<POSITION>(node); }
  static Node* step(POSITION& pos) {
    Node* const here = reinterpret_cast<Node*>(pos);
    if (!here) AfxThrowInvalidArgException();
    pos = position(here->next);
    return here;
  }
  Node* find(ARG_KEY key) const;
  Node* insert(ARG_KEY key);
  void rehash(std::size_t size);

  std::vector<Node*> m_table;
  std::size_t m_initial_size = kDefaultTableSize;
  Node* m_first = nullptr;
  Node* m_last = nullptr;
  INT_PTR m_nCount = 0;
  NodeBlocks m_nodes;
};

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
auto CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::find(ARG_KEY key) const -> Node* {
  if (m_table.empty()) return nullptr;
  const std::size_t hash = HashKey<ARG_KEY>(key);
  Node* here = m_table[hash % m_table.size()];
  while (here && !(here->hash == hash && here->key == key)) here = here->chain;
  return here;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
auto CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::insert(ARG_KEY key) -> Node* {
  if (static_cast<std::size_t>(m_nCount) >= m_table.size()) {
    rehash(m_table.empty() ? m_initial_size : 2 * m_table.size() + 1);
  }
  const std::size_t hash = HashKey<ARG_KEY>(key);
  Node*& place = m_table[hash % m_table.size()];
  void* const piece = m_nodes.take();
  Node* fresh;
  try {
    fresh = ::new (piece) Node{{KEY(key), VALUE()}, hash, place, m_last, nullptr};
  } catch (...) {
    m_nodes.give_back(piece);
    throw;
  }
  place = fresh;
  (m_last ? m_last->next : m_first) = fresh;
  m_last = fresh;
  ++m_nCount;
  return fresh;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::rehash(std::size_t size) {
  std::vector<Node*> table(size, nullptr);
  for (Node* here = m_first; here; here = here->next) {
    Node*& place = table[here->hash % size];
    here->chain = place;
    place = here;
  }
  m_table.swap(table);
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
BOOL CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::RemoveKey(ARG_KEY key) {
  Node* const gone = find(key);
  if (!gone) return FALSE;
  Node** link = &m_table[gone->hash % m_table.size()];
  while (*link != gone) link = &(*link)->chain;
  *link = gone->chain;
  (gone->prev ? gone->prev->next : m_first) = gone->next;
  (gone->next ? gone->next->prev : m_last) = gone->prev;
  std::destroy_at(gone);
  m_nodes.give_back(gone);
  if (--m_nCount == 0) RemoveAll();
  return TRUE;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::RemoveAll() {
  for (Node* here = m_first; here;) {
    Node* const next = here->next;
    std::destroy_at(here);
    here = next;
  }
  m_first = m_last = nullptr;
  m_nCount = 0;
  m_table = {};
  m_nodes.clear();
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::InitHashTable(UINT size, BOOL) {
  if (m_nCount != 0 || size == 0) AfxThrowInvalidArgException();
  m_initial_size = size;
  m_table = {};
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::Serialize(CArchive& archive) {
  const INT_PTR count = serialization::exchange_count(
      archive, m_nCount, serialization::least_bytes<KEY>() + serialization::least_bytes<VALUE>());
  if (serialization::is_storing(archive)) {
    for (Node* here = m_first; here; here = here->next) {
      KEY key = here->key;
      SerializeElements(archive, &key, 1);
      SerializeElements(archive, &here->value, 1);
    }
    return;
  }
  for (INT_PTR i = 0; i < count; ++i) {
    KEY key{};
    VALUE value{};
    SerializeElements(archive, &key, 1);
    SerializeElements(archive, &value, 1);
    (*this)[key] = value;
  }
}

extern template class CMap<CString, LPCTSTR, void*, void*>;
extern template class CMap<CString, LPCTSTR, CObject*, CObject*>;
extern template class CMap<CString, LPCTSTR, CString, LPCTSTR>;

// Maps from a text, exact by character codes. Those of pointers own nothing of what they point to.
class CMapStringToPtr : public CMap<CString, LPCTSTR, void*, void*> {
 public:
  using CMap::CMap;
};

class CMapStringToOb : public CMap<CString, LPCTSTR, CObject*, CObject*> {
 public:
  using CMap::CMap;
};

class CMapStringToString : public CMap<CString, LPCTSTR, CString, LPCTSTR> {
 public:
  using CMap::CMap;
};

}  // namespace brindle
