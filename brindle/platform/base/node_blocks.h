// Storage for the nodes of lists and maps: equal pieces cut from blocks, given out again after
// their return.
#pragma once

#include <cstddef>

#include "brindle/platform/base/types.h"

namespace brindle {

// Pieces are aligned as plain `new` aligns, as far as their size is a multiple of that. Nothing is
// constructed or destroyed here.
class NodeBlocks {
 public:
  static constexpr std::size_t kAlignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

  // Pieces of `piece_bytes` (at least a pointer's size), `pieces_per_block` (1 if below) at a time.
  NodeBlocks(std::size_t piece_bytes, INT_PTR pieces_per_block)
      : m_piece_bytes(piece_bytes),
        m_pieces_per_block(pieces_per_block > 0 ? pieces_per_block : 1) {}
  NodeBlocks(const NodeBlocks&) = delete;
  NodeBlocks& operator=(const NodeBlocks&) = delete;
  ~NodeBlocks() { clear(); }

  // Throws CMemoryException when there is none left.
  void* take() {
    if (!m_free) add_block();
    Link* const piece = m_free;
    m_free = piece->next;
    return piece;
  }
  void give_back(void* piece) {
    Link* const link = static_cast<Link*>(piece);
    link->next = m_free;
    m_free = link;
  }
  // Frees all blocks, whether their pieces were given back or not.
  void clear();

 private:
  struct Link {
    Link* next;
  };
  void add_block();

  std::size_t m_piece_bytes;
  INT_PTR m_pieces_per_block;
  Link* m_blocks = nullptr;
  Link* m_free = nullptr;
};

}  // namespace brindle
