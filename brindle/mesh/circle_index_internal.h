// An index of circles by place: which of them may hold a point. Answers are conservative, never
// short; the caller tests what it gets.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace brindle {

// The points asked for lie in a box that is fixed at construction, so of each circle only the part
// in the box counts. That part's bounding box goes to one cell of a pyramid of grids, of the finest
// level whose cells are at least as large as it; a point then finds it in one of the four cells
// around. Grids are dense down to about one cell a circle; deeper levels, for crowded places only,
// keep the cells that are used in a hash table.
class CircleIndex {
 public:
  struct Place {
    std::uint32_t cell;
    std::uint32_t slot : 26;
    std::uint32_t level : 6;
  };
  // Place::cell of a circle that doesn't reach the box: it isn't stored.
  static constexpr std::uint32_t kNowhere = 0xffffffff;

  // For about `expected` circles; a box without extent, or not finite, is allowed.
  CircleIndex(double min_x, double min_y, double max_x, double max_y, std::size_t expected);

  bool in_box(double x, double y) const {
    return x >= min_x_ && x <= max_x_ && y >= min_y_ && y <= max_y_;
  }

  // Stores circle `id`; radius2 is the square of the radius.
  Place insert(std::uint32_t id, double cx, double cy, double radius, double radius2);
  // Takes a stored circle out. Another circle may move to its place: its id comes back and its
  // Place is now the one given; kNowhere when none moved.
  std::uint32_t remove(Place place);
  // Calls visit(id) for the circles that may hold the point, which must be in the box.
  template <class Visit>
  void visit_around(double x, double y, Visit visit) const;
  // The number of circles that the grids were made for.
  std::size_t expected() const { return expected_; }

 private:
  struct Entry {
    float x, y, radius2;  // of the circle, from the box's corner, the radius a little enlarged
    std::uint32_t id;
  };
  struct Cell {
    std::uint32_t first = 0;  // place of its block in entries_
    std::uint32_t count : 26;
    std::uint32_t capacity : 6;  // the block holds 2 << capacity entries; 0: no block
    Cell() : count(0), capacity(0) {}
  };
  struct Level {
    double cells_per_unit;
    std::uint32_t columns, rows, first_cell;  // of a dense level
    std::uint32_t used = 0;                   // circles stored
  };

  Place cell_for(double x, double y, double extent);
  std::uint32_t hashed_cell(int level, std::uint32_t column, std::uint32_t row) const;
  std::uint32_t make_hashed_cell(int level, std::uint32_t column, std::uint32_t row);
  void grow_table();
  std::uint32_t add_entry(std::uint32_t cell_number, const Entry& entry);

  double min_x_, min_y_, max_x_, max_y_;
  std::size_t expected_;
  double size_;  // of the box's larger side, never 0
  float slack_;  // rounding of an Entry within the box
  int dense_levels_ = 0;
  std::vector<Level> levels_;
  std::vector<Cell> cells_;
  std::uint32_t dense_cells_ = 0;
  std::uint64_t levels_in_use_ = 0;  // a bit a level
  std::vector<Entry> entries_;
  std::vector<std::uint32_t> free_blocks_[32];  // by capacity
  std::vector<std::uint64_t> table_keys_;       // 0: free
  std::vector<std::uint32_t> table_cells_;
};

template <class Visit>
void CircleIndex::visit_around(double x, double y, Visit visit) const {
  const double from_x = x - min_x_, from_y = y - min_y_;
  const float fx = static_cast<float>(from_x), fy = static_cast<float>(from_y);
  const auto scan = [&](std::uint32_t cell) {
    const Entry* entry = entries_.data() + cells_[cell].first;
    for (const Entry* end = entry + cells_[cell].count; entry != end; ++entry) {
      const float dx = fx - entry->x, dy = fy - entry->y;
      // An overflow on either side must let the circle through.
      if (!(dx * dx + dy * dy > entry->radius2)) visit(entry->id);
    }
  };
  for (std::uint64_t bits = levels_in_use_; bits != 0; bits &= bits - 1) {
    const int k = std::countr_zero(bits);
    const Level& level = levels_[static_cast<std::size_t>(k)];
    // What holds the point is centred at most half a cell away.
    const std::uint32_t right = static_cast<std::uint32_t>(from_x * level.cells_per_unit + 0.5);
    const std::uint32_t above = static_cast<std::uint32_t>(from_y * level.cells_per_unit + 0.5);
    const std::uint32_t c0 = right == 0 ? 0 : std::min(right, level.columns) - 1;
    const std::uint32_t c1 = std::min(right, level.columns - 1);
    const std::uint32_t r0 = above == 0 ? 0 : std::min(above, level.rows) - 1;
    const std::uint32_t r1 = std::min(above, level.rows - 1);
    for (std::uint32_t row = r0; row <= r1; ++row) {
      for (std::uint32_t column = c0; column <= c1; ++column) {
        if (k < dense_levels_) {
          scan(level.first_cell + row * level.columns + column);
        } else if (const std::uint32_t cell = hashed_cell(k, column, row); cell != kNowhere) {
          scan(cell);
        }
      }
    }
  }
}

}  // namespace brindle
