#include "brindle/platform/base/node_blocks.h"

#include <limits>
#include <new>
#include <utility>

#include "brindle/platform/base/throw.h"

namespace brindle {

void NodeBlocks::add_block() {
  constexpr std::size_t kHeader = kAlignment;  // holds the link to the next block
  static_assert(kHeader >= sizeof(Link));
  const auto count = static_cast<std::size_t>(m_pieces_per_block);
  if (count > (std::numeric_limits<std::size_t>::max() - kHeader) / m_piece_bytes) {
    AfxThrowMemoryException();
  }
  void* const block = ::operator new(kHeader + count * m_piece_bytes, std::nothrow);
  if (!block) AfxThrowMemoryException();
  m_blocks = ::new (block) Link{m_blocks};
  // Given back from the last to the first, so that they are taken in the order of their addresses.
  char* const first = static_cast<char*>(block) + kHeader;
  for (std::size_t i = count; i-- > 0;) give_back(first + i * m_piece_bytes);
}

void NodeBlocks::clear() {
  while (m_blocks) ::operator delete(std::exchange(m_blocks, m_blocks->next));
  m_free = nullptr;
}

}  // namespace brindle
