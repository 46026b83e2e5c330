#include "brindle/platform/base/wide_text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>

namespace brindle {

namespace {

using detail::TextBlock;

static_assert(sizeof(WText<2>) == sizeof(void*));
static_assert(sizeof(TextBlock) % alignof(wchar_t) == 0);

std::uint32_t hash_of(std::wstring_view text) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
  std::uint64_t hash = text.size() * kFactor;
  const char* bytes = reinterpret_cast<const char*>(text.data());
  std::size_t left = text.size() * sizeof(wchar_t);
  for (; left >= 8; bytes += 8, left -= 8) {
    std::uint64_t part;
    std::memcpy(&part, bytes, 8);
    hash = (hash ^ part) * kFactor;
    hash ^= hash >> 29;
  }
  std::uint64_t part = 0;
  std::memcpy(&part, bytes, left);
  hash = (hash ^ part) * kFactor;
  hash ^= hash >> 32;
  hash *= kFactor;
  return static_cast<std::uint32_t>(hash >> 32);
}

// Open addressing with linear probing. The hashes stand in an array of their own, so that growing
// never touches the blocks and a probe reads one only when the whole hash agrees. Removal moves
// the followers up instead of leaving marks: a table that lives for days doesn't silt up.
class TextTable {
 public:
  TextBlock* find_or_add(std::wstring_view text, std::uint32_t hash) {
    const std::lock_guard lock(mutex_);
    if ((count_ + 1) * 4 > size_ * 3) grow();
    std::size_t slot = home(hash);
    for (; blocks_[slot] != nullptr; slot = next(slot)) {
      if (hashes_[slot] != hash) continue;
      TextBlock* block = blocks_[slot];
      if (block->length == text.size() &&
          std::memcmp(block->text(), text.data(), text.size() * sizeof(wchar_t)) == 0) {
        block->references.fetch_add(1, std::memory_order_relaxed);
        return block;
      }
    }
    TextBlock* block = make_block(text, hash);
    blocks_[slot] = block;
    hashes_[slot] = hash;
    ++count_;
    return block;
  }

  // Gives back what may be the last reference. Only here a count falls to zero, and only under the
  // lock a text can be found again, so a block is never revived while it is being freed.
  void release_last(TextBlock* block) {
    {
      const std::lock_guard lock(mutex_);
      if (block->references.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
      erase(block);
    }
    std::free(block);
  }

  std::size_t count() {
    const std::lock_guard lock(mutex_);
    return count_;
  }

 private:
  static TextBlock* make_block(std::wstring_view text, std::uint32_t hash) {
    const std::size_t bytes = text.size() * sizeof(wchar_t);
    void* memory = std::malloc(sizeof(TextBlock) + bytes + sizeof(wchar_t));
    if (memory == nullptr) throw std::bad_alloc();
    TextBlock* block = new (memory) TextBlock{{1}, hash, static_cast<std::uint32_t>(text.size())};
    wchar_t* characters = reinterpret_cast<wchar_t*>(block + 1);
    std::memcpy(characters, text.data(), bytes);
    characters[text.size()] = L'\0';
    return block;
  }

  std::size_t home(std::uint32_t hash) const { return hash & (size_ - 1); }
  std::size_t next(std::size_t slot) const { return (slot + 1) & (size_ - 1); }

  void grow() { resize(std::max<std::size_t>(256, size_ * 2)); }

  void resize(std::size_t new_size) {
    auto new_blocks = std::make_unique<TextBlock*[]>(new_size);
    auto new_hashes = std::make_unique<std::uint32_t[]>(new_size);
    const std::size_t old_size = size_;
    blocks_.swap(new_blocks);
    hashes_.swap(new_hashes);
    size_ = new_size;
    for (std::size_t i = 0; i < old_size; ++i) {
      if (new_blocks[i] == nullptr) continue;
      std::size_t slot = home(new_hashes[i]);
      while (blocks_[slot] != nullptr) slot = next(slot);
      blocks_[slot] = new_blocks[i];
      hashes_[slot] = new_hashes[i];
    }
  }

  void erase(const TextBlock* block) {
    std::size_t hole = home(block->hash);
    while (blocks_[hole] != block) hole = next(hole);
    for (std::size_t slot = next(hole); blocks_[slot] != nullptr; slot = next(slot)) {
      // An entry may move up when its home isn't between the hole and itself.
      const std::size_t distance = (slot - home(hashes_[slot])) & (size_ - 1);
      if (distance < ((slot - hole) & (size_ - 1))) continue;
      blocks_[hole] = blocks_[slot];
      hashes_[hole] = hashes_[slot];
      hole = slot;
    }
    blocks_[hole] = nullptr;
    --count_;
  }

  std::mutex mutex_;
  std::unique_ptr<TextBlock*[]> blocks_;
  std::unique_ptr<std::uint32_t[]> hashes_;
  std::size_t size_ = 0;
  std::size_t count_ = 0;
};

// Never destroyed: static text fields of any file may end after it.
TextTable& table() {
  static TextTable& instance = *new TextTable;
  return instance;
}

}  // namespace

detail::TextBlock* detail::intern_text(std::wstring_view text) {
  if (text.empty()) return nullptr;
  return table().find_or_add(text, hash_of(text));
}

void detail::release_text(TextBlock* block) {
  std::uint32_t count = block->references.load(std::memory_order_relaxed);
  while (count > 1) {
    if (block->references.compare_exchange_weak(count, count - 1, std::memory_order_acq_rel,
                                                std::memory_order_relaxed)) {
      return;
    }
  }
  table().release_last(block);
}

std::size_t interned_text_count() {
  return table().count();
}

}  // namespace brindle
