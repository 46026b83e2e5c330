// An index of circles by place: which of them may hold a point. Answers are conservative, never
// short; the caller tests what it gets.
#pragma once

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
  // Appends the ids of the circles that may hold the point, which must be in the box.
  void collect(double x, double y, std::vector<std::uint32_t>& ids) const;

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
  void scan(const Cell& cell, float x, float y, std::vector<std::uint32_t>& ids) const;

  double min_x_, min_y_, max_x_, max_y_;
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

}  // namespace brindle
