// The searches of a field: its nodes and triangles by place and number, with what the plain walk
// through the lists would find.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "brindle/mesh/chang_array.h"
#include "brindle/mesh/chang_grid_internal.h"
#include "brindle/mesh/chang_hash_internal.h"
#include "brindle/mesh/chang_records.h"

namespace brindle {

// Looks at the lists before each search: what was appended is taken in, what else changed makes it
// start afresh. Indexes are made when first needed.
class ChangSearch {
 public:
  ChangSearch(CChangArray<CChangNode>& nodes, CChangArray<CChangTri>& triangles)
      : nodes_(nodes), triangles_(triangles) {}

  // Indexes from 0, -1 without a result.
  std::ptrdiff_t node_at(float x, float y);
  std::ptrdiff_t triangle_over(const ChangCorners& numbers);
  std::ptrdiff_t triangle_at(float x, float y);
  std::ptrdiff_t nearest_node(float x, float y);

 private:
  void refresh();
  bool changed() const;

  CChangArray<CChangNode>& nodes_;
  CChangArray<CChangTri>& triangles_;
  std::vector<ChangPlace> places_;  // copies of what the indexes were made from
  std::vector<ChangCorners> corners_;
  ChangNodeHash node_hash_;
  ChangTriangleHash triangle_hash_;
  std::unique_ptr<ChangTriangleGrid> triangle_grid_;
  std::unique_ptr<ChangNodeGrid> node_grid_;
};

}  // namespace brindle
