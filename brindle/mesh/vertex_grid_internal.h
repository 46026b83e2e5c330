// Finds the vertex with the highest number in a circle.
#pragma once

#include <cstdint>
#include <vector>

namespace brindle {

// A pyramid of grids over the box of the first vertices: each cell knows the highest number below
// it, so a search leaves out what can't beat the best so far.
class VertexGrid {
 public:
  static constexpr std::int64_t kNone = -1;

  VertexGrid(double min_x, double min_y, double max_x, double max_y, std::size_t expected);

  // Adds the vertex with the next number; numbers count from 0.
  void add(double x, double y);
  // The highest number of a vertex, other than a and b, of which CGeoVertex::IsPtInCircle says that
  // it is in the circle.
  std::int64_t highest_in(double cx, double cy, double r, std::int64_t a, std::int64_t b) const;

 private:
  struct Search {
    double cx, cy, r;
    std::int64_t a, b, best;
    std::int64_t x0, x1, y0, y1;  // range of cells of the finest level
  };

  std::int64_t cell(double place, double low) const;
  void search(int level, std::int64_t column, std::int64_t row, Search& s) const;
  std::size_t at(int level, std::int64_t column, std::int64_t row) const {
    return starts_[static_cast<std::size_t>(level)] +
           static_cast<std::size_t>((row << level) + column);
  }

  double min_x_, min_y_, cells_per_unit_;
  int finest_ = 0;
  std::vector<std::size_t> starts_;    // of the levels in highest_
  std::vector<std::int64_t> highest_;  // in and below the cell
  std::vector<std::int64_t> next_;     // in the cell, the next lower number
  std::vector<double> xs_, ys_;
};

}  // namespace brindle
