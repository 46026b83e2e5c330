// Finds nodes by place and triangles by corners, always the first of the list.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace brindle {

struct ChangPlace {
  float x, y;
  bool operator==(const ChangPlace& p) const { return x == p.x && y == p.y; }
};
using ChangCorners = std::array<std::int64_t, 3>;

// Chains of numbers in buckets; the buckets grow with them.
class ChangBuckets {
 public:
  static constexpr std::uint32_t kEnd = 0xffffffff;

  // Makes room for one more; true when everything has to be put in again, by the new mask.
  bool outgrown() {
    if (next_.size() < heads_.size()) return false;
    heads_.assign(heads_.empty() ? 1024 : heads_.size() * 2, kEnd);
    next_.clear();
    return true;
  }
  std::uint32_t head(std::uint64_t hash) const {
    return heads_.empty() ? kEnd : heads_[hash & (heads_.size() - 1)];
  }
  std::uint32_t next(std::uint32_t i) const { return next_[i]; }
  std::size_t size() const { return next_.size(); }
  // The next number; put() puts it into a bucket, skip() into none.
  void put(std::uint64_t hash) {
    std::uint32_t& head = heads_[hash & (heads_.size() - 1)];
    next_.push_back(head);
    head = static_cast<std::uint32_t>(next_.size() - 1);
  }
  void skip() { next_.push_back(kEnd); }

 private:
  std::vector<std::uint32_t> heads_, next_;
};

// Nodes by cells a little wider than the tolerance of equal places.
class ChangNodeHash {
 public:
  static constexpr float kTolerance = 0.0001f;

  // Takes in the places that it doesn't know yet.
  void extend(const std::vector<ChangPlace>& places);
  // The first node within the tolerance, -1 without one.
  std::ptrdiff_t find(const std::vector<ChangPlace>& places, float x, float y) const;

 private:
  void add(const std::vector<ChangPlace>& places);

  ChangBuckets buckets_;
};

// Triangles by their corners in their turn.
class ChangTriangleHash {
 public:
  void extend(const std::vector<ChangCorners>& corners);
  std::ptrdiff_t find(const std::vector<ChangCorners>& corners, const ChangCorners& wanted) const;

 private:
  std::ptrdiff_t find(const std::vector<ChangCorners>& corners, const ChangCorners& first_turn,
                      std::uint64_t hash) const;

  ChangBuckets buckets_;
};

}  // namespace brindle
