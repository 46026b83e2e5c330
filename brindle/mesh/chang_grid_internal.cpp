#include "brindle/mesh/chang_grid_internal.h"

#include <algorithm>
#include <cmath>

#include "brindle/geometry/helpers.h"
#include "brindle/geometry/polygons.h"
#include "brindle/platform/base/throw.h"

namespace brindle {
namespace {

constexpr float kAreaTolerance = 1e-5f;
constexpr float kFarthest = 1e10f;

bool is_finite(const ChangPlace& p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

// Sets the box of the cells around the finite places; false without one.
bool span(ChangCells& cells, const std::vector<ChangPlace>& places) {
  bool any = false;
  for (const ChangPlace& p : places) {
    if (!is_finite(p)) continue;
    const double x = p.x, y = p.y;
    if (!any) cells.x0 = cells.x1 = x, cells.y0 = cells.y1 = y;
    any = true;
    cells.x0 = std::min(cells.x0, x);
    cells.x1 = std::max(cells.x1, x);
    cells.y0 = std::min(cells.y0, y);
    cells.y1 = std::max(cells.y1, y);
  }
  return any;
}

double at_least_one(double v) {
  return v > 1 ? v : 1;  // also for NaN
}

}  // namespace

void ChangCells::divide(double wanted_columns, double wanted_rows, double most) {
  double c = std::min(at_least_one(wanted_columns), 1e9);
  double r = std::min(at_least_one(wanted_rows), 1e9);
  most = at_least_one(most);
  if (c * r > most) {
    const double shrink = std::sqrt(c * r / most);
    c = std::min(at_least_one(c / shrink), most);
    r = at_least_one(std::min(r / shrink, most / c));
  }
  columns = static_cast<std::int32_t>(c);
  rows = static_cast<std::int32_t>(r);
}

std::int32_t ChangCells::cell(double v, double low, double high, std::int32_t cells) {
  const double place = (v - low) / (high - low) * cells;
  if (!(place > 0)) return 0;
  return place < cells ? static_cast<std::int32_t>(place) : cells - 1;
}

template <class RangeOf>
void ChangCells::fill(std::size_t count, RangeOf range) {
  starts.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) + 2, 0);
  const auto each = [&](std::size_t i, auto act) {
    const Range r = range(i);
    for (std::int32_t y = r.row0; y <= r.row1; ++y) {
      for (std::int32_t x = r.column0; x <= r.column1; ++x) act(at(x, y));
    }
  };
  for (std::size_t i = 0; i < count; ++i) each(i, [&](std::size_t cell) { ++starts[cell + 2]; });
  for (std::size_t k = 1; k < starts.size(); ++k) starts[k] += starts[k - 1];
  entries.resize(starts.back());
  for (std::size_t i = 0; i < count; ++i) {
    each(i, [&](std::size_t cell) { entries[starts[cell + 1]++] = static_cast<std::uint32_t>(i); });
  }
  starts.pop_back();
}

bool chang_triangle_holds(const CChangNode& a, const CChangNode& b, const CChangNode& c, float x,
                          float y) {
  const float d1 = det_tri(a.x, a.y, b.x, b.y, x, y);
  const float d2 = det_tri(b.x, b.y, c.x, c.y, x, y);
  const float d3 = det_tri(c.x, c.y, a.x, a.y, x, y);
  if (det_tri(a.x, a.y, b.x, b.y, c.x, c.y) > kAreaTolerance) {
    return d1 >= -kAreaTolerance && d2 >= -kAreaTolerance && d3 >= -kAreaTolerance;
  }
  return d1 <= kAreaTolerance && d2 <= kAreaTolerance && d3 <= kAreaTolerance;
}

ChangTriangleGrid::ChangTriangleGrid(const std::vector<ChangPlace>& places,
                                     const std::vector<ChangCorners>& corners)
    : node_count_(places.size()), count_(corners.size()), last_(corners.size()) {
  const auto nodes = static_cast<std::int64_t>(node_count_);
  for (std::size_t i = 0; i < count_ && last_ == count_; ++i) {
    for (const std::int64_t n : corners[i]) {
      if (n < 1 || n > nodes) last_ = i;
    }
  }
  if (span(cells_, places)) {
    for (const double v : {cells_.x0, cells_.x1, cells_.y0, cells_.y1}) {
      size_ = std::max(size_, std::fabs(v));
    }
  }
  build(places, corners);
}

// The rule compares barycentric coordinates times twice the area with the tolerance; so the points
// lie in a triangle about the same centre, larger by a factor or, for a small one that counts as
// turned the other way, upside down.
ChangTriangleGrid::Reach ChangTriangleGrid::reach_of(const ChangPlace& a, const ChangPlace& b,
                                                     const ChangPlace& c, Box& box) const {
  const double sum = double{a.x} + a.y + b.x + b.y + c.x + c.y;
  if (std::isnan(sum) && !(std::isinf(a.x) || std::isinf(a.y) || std::isinf(b.x) ||
                           std::isinf(b.y) || std::isinf(c.x) || std::isinf(c.y))) {
    return Reach::kNone;  // two of the three comparisons are with NaN
  }
  const double twice_area =
      det_tri(double{a.x}, double{a.y}, double{b.x}, double{b.y}, double{c.x}, double{c.y});
  // Rounding for points up to four times as far from the origin as the mesh.
  const double rounding = 2e-14 * size_ * size_;
  const double area = std::fabs(twice_area);
  if (!(area > 4 * rounding) || !std::isfinite(area)) return Reach::kAnywhere;
  double s = (1.001e-5 + rounding) / (area - rounding) * (1 + 1e-6);
  const double pad = 1e-12 * (1 + s) * size_;
  const bool counter_clockwise = static_cast<float>(twice_area) > kAreaTolerance;
  if (!counter_clockwise && twice_area > 0) s = -s;
  const double sum_x = double{a.x} + b.x + c.x, sum_y = double{a.y} + b.y + c.y;
  const double grow = 1 + 3 * s;
  const auto [low_x, high_x] = std::minmax({a.x * grow, b.x * grow, c.x * grow});
  const auto [low_y, high_y] = std::minmax({a.y * grow, b.y * grow, c.y * grow});
  box = {low_x - s * sum_x - pad, low_y - s * sum_y - pad, high_x - s * sum_x + pad,
         high_y - s * sum_y + pad};
  return Reach::kBox;
}

void ChangTriangleGrid::build(const std::vector<ChangPlace>& places,
                              const std::vector<ChangCorners>& corners) {
  std::vector<Box> boxes(last_);
  std::vector<Reach> reaches(last_);
  double width = 0, height = 0, boxed = 0;
  for (std::size_t i = 0; i < last_; ++i) {
    const auto place = [&](int k) -> const ChangPlace& {
      return places[static_cast<std::size_t>(corners[i][static_cast<std::size_t>(k)] - 1)];
    };
    Box& box = boxes[i];
    reaches[i] = reach_of(place(0), place(1), place(2), box);
    if (reaches[i] == Reach::kAnywhere) anywhere_.push_back(static_cast<std::uint32_t>(i));
    if (reaches[i] != Reach::kBox) continue;
    width += std::max(0.0, std::min(box.x1, cells_.x1) - std::max(box.x0, cells_.x0));
    height += std::max(0.0, std::min(box.y1, cells_.y1) - std::max(box.y0, cells_.y0));
    ++boxed;
  }
  cells_.divide((cells_.x1 - cells_.x0) / (width / boxed),
                (cells_.y1 - cells_.y0) / (height / boxed), 2 * boxed);
  const auto range = [&](std::size_t i) -> ChangCells::Range {
    if (reaches[i] != Reach::kBox) return {0, 0, -1, -1};
    const Box& b = boxes[i];
    return {cells_.column(b.x0), cells_.row(b.y0), cells_.column(b.x1), cells_.row(b.y1)};
  };
  // A few triangles that cover much of the others would fill the lists.
  while (cells_.columns > 1 || cells_.rows > 1) {
    std::size_t entries = 0;
    for (std::size_t i = 0; i < last_; ++i) entries += range(i).count();
    if (entries <= 32 * last_ + 1024) break;
    cells_.columns = (cells_.columns + 1) / 2;
    cells_.rows = (cells_.rows + 1) / 2;
  }
  cells_.fill(last_, range);
}

std::ptrdiff_t ChangTriangleGrid::find(const CChangNode* nodes, std::size_t node_count,
                                       const CChangTri* triangles, std::size_t count, float x,
                                       float y) const {
  const auto numbers = static_cast<std::int64_t>(node_count);
  const auto holds = [&](std::size_t i) {
    const CChangTri& t = triangles[i];
    for (const std::int64_t n : {t.n1, t.n2, t.n3}) {
      if (n < 1 || n > numbers) AfxThrowInvalidArgException();
    }
    return chang_triangle_holds(nodes[t.n1 - 1], nodes[t.n2 - 1], nodes[t.n3 - 1], x, y);
  };
  std::size_t plain_from = 0;
  if (std::fabs(x) <= 4 * size_ && std::fabs(y) <= 4 * size_) {
    std::size_t found = last_;
    const std::size_t cell = cells_.at(cells_.column(x), cells_.row(y));
    for (std::size_t k = cells_.starts[cell]; k < cells_.starts[cell + 1]; ++k) {
      if (!holds(cells_.entries[k])) continue;
      found = cells_.entries[k];
      break;
    }
    for (const std::uint32_t i : anywhere_) {
      if (i >= found) break;
      if (holds(i)) found = i;
    }
    if (found < last_) return static_cast<std::ptrdiff_t>(found);
    plain_from = last_;  // a bad triangle there throws
  }
  for (std::size_t i = plain_from; i < count; ++i) {
    if (holds(i)) return static_cast<std::ptrdiff_t>(i);
  }
  return -1;
}

ChangNodeGrid::ChangNodeGrid(const std::vector<ChangPlace>& places) : count_(places.size()) {
  span(cells_, places);
  const double width = cells_.x1 - cells_.x0, height = cells_.y1 - cells_.y0;
  const double wanted = static_cast<double>(count_) / 2;
  const double columns = std::sqrt(wanted * width / height);
  cells_.divide(height > 0 ? columns : wanted, height > 0 ? wanted / at_least_one(columns) : 1,
                wanted);
  cells_.fill(count_, [&](std::size_t i) -> ChangCells::Range {
    if (!is_finite(places[i])) return {0, 0, -1, -1};
    const std::int32_t column = cells_.column(places[i].x), row = cells_.row(places[i].y);
    return {column, row, column, row};
  });
}

void ChangNodeGrid::look_at_cell(const std::vector<ChangPlace>& places, std::int32_t column,
                                 std::int32_t row, float x, float y, Best& best) const {
  if (column < 0 || row < 0 || column >= cells_.columns || row >= cells_.rows) return;
  const std::size_t cell = cells_.at(column, row);
  for (std::size_t k = cells_.starts[cell]; k < cells_.starts[cell + 1]; ++k) {
    const auto i = static_cast<std::ptrdiff_t>(cells_.entries[k]);
    const ChangPlace& p = places[cells_.entries[k]];
    const float distance = get_dist(p.x, p.y, x, y);
    if (distance < best.distance || (distance == best.distance && i < best.node)) {
      best = {distance, i};
    }
  }
}

double ChangNodeGrid::bound(double x, double y, std::int32_t column, std::int32_t row,
                            std::int32_t ring) const {
  const double width = (cells_.x1 - cells_.x0) / cells_.columns;
  const double height = (cells_.y1 - cells_.y0) / cells_.rows;
  // How far the point is outside the box, for the cells that lie across.
  const double out_x = std::max({0.0, cells_.x0 - x, x - cells_.x1});
  const double out_y = std::max({0.0, cells_.y0 - y, y - cells_.y1});
  const double slack = 1e-9 * (std::fabs(x) + std::fabs(y) + std::fabs(cells_.x0) +
                               std::fabs(cells_.x1) + std::fabs(cells_.y0) + std::fabs(cells_.y1));
  double nearest = HUGE_VAL;
  const auto side = [&](double ahead, double across) {
    nearest = std::min(nearest, std::hypot(std::max(0.0, ahead - slack), across));
  };
  if (column - ring >= 0) side(x - (cells_.x0 + (column - ring + 1) * width), out_y);
  if (column + ring < cells_.columns) side(cells_.x0 + (column + ring) * width - x, out_y);
  if (row - ring >= 0) side(y - (cells_.y0 + (row - ring + 1) * height), out_x);
  if (row + ring < cells_.rows) side(cells_.y0 + (row + ring) * height - y, out_x);
  return nearest;
}

std::ptrdiff_t ChangNodeGrid::find(const std::vector<ChangPlace>& places, float x, float y) const {
  Best best{kFarthest, -1};
  if (std::isnan(x) || std::isnan(y)) return best.node;
  const std::int32_t column = cells_.column(x), row = cells_.row(y);
  for (std::int32_t ring = 0; ring < std::max(cells_.columns, cells_.rows); ++ring) {
    // Distances are rounded to float: what is a little farther may count as equal.
    if (bound(x, y, column, row, ring) * (1 - 1e-5) - 1e-18 > double{best.distance}) break;
    for (std::int32_t c = column - ring; c <= column + ring; ++c) {
      const bool at_side = c == column - ring || c == column + ring;
      for (std::int32_t r = row - ring; r <= row + ring; r += at_side || ring == 0 ? 1 : 2 * ring) {
        look_at_cell(places, c, r, x, y, best);
      }
    }
  }
  for (std::size_t i = count_; i < places.size(); ++i) {
    const float distance = get_dist(places[i].x, places[i].y, x, y);
    if (distance < best.distance) best = {distance, static_cast<std::ptrdiff_t>(i)};
  }
  return best.node;
}

}  // namespace brindle
