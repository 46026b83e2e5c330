#include "brindle/mesh/vertex_grid_internal.h"

#include <algorithm>
#include <cmath>

#include "brindle/mesh/geo_vertex.h"

namespace brindle {

VertexGrid::VertexGrid(double min_x, double min_y, double max_x, double max_y, std::size_t expected)
    : min_x_(min_x), min_y_(min_y) {
  while (finest_ < 12 && (std::size_t{1} << (2 * finest_)) < expected) ++finest_;
  double size = std::max(max_x - min_x, max_y - min_y);
  if (!(size > 1e-300 && size < 1e300)) size = 1;
  cells_per_unit_ = static_cast<double>(std::int64_t{1} << finest_) / size;
  std::size_t cells = 0;
  for (int level = 0; level <= finest_; ++level) {
    starts_.push_back(cells);
    cells += std::size_t{1} << (2 * level);
  }
  highest_.assign(cells, kNone);
}

// Never falls as the place rises: what lies between two places lies in the cells between theirs.
std::int64_t VertexGrid::cell(double place, double low) const {
  const double at = (place - low) * cells_per_unit_;
  const std::int64_t last = (std::int64_t{1} << finest_) - 1;
  if (!(at > 0)) return 0;
  return at < static_cast<double>(last) ? static_cast<std::int64_t>(at) : last;
}

void VertexGrid::add(double x, double y) {
  const std::int64_t number = static_cast<std::int64_t>(xs_.size());
  xs_.push_back(x);
  ys_.push_back(y);
  std::int64_t column = cell(x, min_x_), row = cell(y, min_y_);
  next_.push_back(highest_[at(finest_, column, row)]);
  for (int level = finest_; level >= 0; --level, column /= 2, row /= 2) {
    highest_[at(level, column, row)] = number;
  }
}

void VertexGrid::search(int level, std::int64_t column, std::int64_t row, Search& s) const {
  const std::int64_t highest = highest_[at(level, column, row)];
  if (highest <= s.best) return;
  const int below = finest_ - level;
  if (((column + 1) << below) <= s.x0 || (column << below) > s.x1 || ((row + 1) << below) <= s.y0 ||
      (row << below) > s.y1) {
    return;
  }
  if (below > 0) {
    for (int k = 0; k < 4; ++k) search(level + 1, 2 * column + k % 2, 2 * row + k / 2, s);
    return;
  }
  for (std::int64_t i = highest; i > s.best; i = next_[static_cast<std::size_t>(i)]) {
    if (i == s.a || i == s.b) continue;
    const std::size_t k = static_cast<std::size_t>(i);
    if (CGeoVertex::IsPtInCircle(xs_[k], ys_[k], s.cx, s.cy, s.r)) s.best = i;
  }
}

std::int64_t VertexGrid::highest_in(double cx, double cy, double r, std::int64_t a,
                                    std::int64_t b) const {
  Search s{cx, cy, r, a, b, kNone, 0, 0, 0, 0};
  // Wider than the test's tolerance and any rounding of it.
  const double reach = (r + 2e-5) * (1 + 1e-9) + 1e-12 * (std::fabs(cx) + std::fabs(cy));
  s.x0 = cell(cx - reach, min_x_);
  s.x1 = cell(cx + reach, min_x_);
  s.y0 = cell(cy - reach, min_y_);
  s.y1 = cell(cy + reach, min_y_);
  if (!std::isfinite(reach)) s.x1 = s.y1 = (std::int64_t{1} << finest_) - 1, s.x0 = s.y0 = 0;
  search(0, 0, 0, s);
  return s.best;
}

}  // namespace brindle
