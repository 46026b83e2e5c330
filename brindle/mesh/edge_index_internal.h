// Finds the place of an edge in a list by its two vertices.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace brindle {

// Entries hang on the higher of the two vertices, in no order: sides that came with the same point
// stand together. An entry whose edge has since changed
// or gone may stay: the caller's check decides which entries hold.
class EdgeIndex {
 public:
  static constexpr std::uint32_t kNone = 0xffffffff;

  explicit EdgeIndex(std::size_t vertices, std::size_t edges = 0) : heads_(vertices, kNone) {
    entries_.reserve(edges);
  }

  void add(std::uint32_t a, std::uint32_t b, std::uint32_t place) {
    const std::uint32_t high = std::max(a, b);
    if (high >= heads_.size()) heads_.resize(high + std::size_t{1}, kNone);
    entries_.push_back({std::min(a, b), heads_[high], place});
    heads_[high] = static_cast<std::uint32_t>(entries_.size() - 1);
  }

  // The lowest place that was added for the edge and that holds(place) agrees to; kNone without
  // one.
  template <class Holds>
  std::uint32_t first(std::uint32_t a, std::uint32_t b, Holds holds) const {
    const std::uint32_t low = std::min(a, b), high = std::max(a, b);
    std::uint32_t found = kNone;
    if (high >= heads_.size()) return found;
    for (std::uint32_t at = heads_[high]; at != kNone; at = entries_[at].next) {
      const Entry& entry = entries_[at];
      if (entry.low == low && entry.place < found && holds(entry.place)) found = entry.place;
    }
    return found;
  }

 private:
  struct Entry {
    std::uint32_t low, next, place;
  };

  std::vector<std::uint32_t> heads_;
  std::vector<Entry> entries_;
};

}  // namespace brindle
