// Cells over the plane with lists of numbers in rising order, and the two searches of a field by
// place: the first triangle that holds a point, the nearest node.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "brindle/mesh/chang_array.h"
#include "brindle/mesh/chang_hash_internal.h"
#include "brindle/mesh/chang_records.h"

namespace brindle {

// Equal cells over a box; what lies outside counts to the cells at the rim. The cell of a place
// never falls as the place rises.
struct ChangCells {
  struct Range {
    std::int32_t column0, row0, column1, row1;
    std::size_t count() const {
      return static_cast<std::size_t>(column1 - column0 + 1) *
             static_cast<std::size_t>(row1 - row0 + 1);
    }
  };

  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
  std::int32_t columns = 1, rows = 1;
  std::vector<std::size_t> starts;  // of the cells in `entries`, row by row, and the end
  std::vector<std::uint32_t> entries;

  // So many cells each way as fit, `most` in all.
  void divide(double wanted_columns, double wanted_rows, double most);
  static std::int32_t cell(double v, double low, double high, std::int32_t cells);
  std::int32_t column(double x) const { return cell(x, x0, x1, columns); }
  std::int32_t row(double y) const { return cell(y, y0, y1, rows); }
  std::size_t at(std::int32_t column, std::int32_t row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
           static_cast<std::size_t>(column);
  }
  // Fills the lists: number i stands in the cells of range(i), in none if that is empty.
  template <class RangeOf>
  void fill(std::size_t count, RangeOf range);
};

// Whether the triangle holds the point, by the rule of CChang::Get_Value.
bool chang_triangle_holds(const CChangNode& a, const CChangNode& b, const CChangNode& c, float x,
                          float y);

// The first triangle that holds a point.
class ChangTriangleGrid {
 public:
  ChangTriangleGrid(const std::vector<ChangPlace>& places,
                    const std::vector<ChangCorners>& corners);

  // As the plain search from the first triangle on: its index, -1 without one. A triangle with a
  // node number outside the mesh throws CInvalidArgException when the search comes to it.
  std::ptrdiff_t find(const CChangNode* nodes, std::size_t node_count, const CChangTri* triangles,
                      std::size_t count, float x, float y) const;
  // Whether it is better to build a new one for so many nodes and triangles.
  bool outdated(std::size_t node_count, std::size_t count) const {
    return count - count_ > 64 + count_ / 4 || (last_ < count_ && node_count != node_count_);
  }

 private:
  struct Box {
    double x0, y0, x1, y1;
  };
  enum class Reach { kNone, kBox, kAnywhere };

  // Where the triangle may hold points, rounding of the rule's arithmetic included.
  Reach reach_of(const ChangPlace& a, const ChangPlace& b, const ChangPlace& c, Box& box) const;
  void set_bounds(const std::vector<ChangPlace>& places);
  void build(const std::vector<ChangPlace>& places, const std::vector<ChangCorners>& corners);

  std::size_t node_count_, count_;
  std::size_t last_;  // the first triangle with a bad node number, or the count
  double size_ = 0;   // of the largest coordinate
  ChangCells cells_;
  std::vector<std::uint32_t> anywhere_;  // triangles that may hold points anywhere
};

// The node nearest to a point.
class ChangNodeGrid {
 public:
  explicit ChangNodeGrid(const std::vector<ChangPlace>& places);

  // As the plain search from the first node on: the first of the nearest, -1 without one within
  // 1e10.
  std::ptrdiff_t find(const std::vector<ChangPlace>& places, float x, float y) const;
  bool outdated(std::size_t count) const { return count - count_ > 64 + count_ / 4; }

 private:
  struct Best {
    float distance;
    std::ptrdiff_t node;
  };

  void look_at_cell(const std::vector<ChangPlace>& places, std::int32_t column, std::int32_t row,
                    float x, float y, Best& best) const;
  // A bound below of the distance to all cells that are `ring` or more from the cell of the point.
  double bound(double x, double y, std::int32_t column, std::int32_t row, std::int32_t ring) const;

  std::size_t count_;
  ChangCells cells_;
};

}  // namespace brindle
