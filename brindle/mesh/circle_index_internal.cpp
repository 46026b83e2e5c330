#include "brindle/mesh/circle_index_internal.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace brindle {
namespace {

constexpr int kMaxLevels = 28;  // places in a level take 29 bits of a key
// A dense cell with so many circles passes smaller ones on to the levels below.
constexpr std::uint32_t kCrowd = 24;

std::uint64_t key_of(int level, std::uint32_t column, std::uint32_t row) {
  return (static_cast<std::uint64_t>(level) << 58 | static_cast<std::uint64_t>(column) << 29 |
          row) +
         1;
}

std::size_t spread(std::uint64_t key, std::size_t mask) {
  return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15u) >> 32) & mask;
}

// The cell that a place (in cells, rounding included) lies in.
std::uint32_t clamp_cell(double place, double last) {
  if (!(place > 0)) return 0;
  return static_cast<std::uint32_t>(std::min(place, last));
}

}  // namespace

CircleIndex::CircleIndex(double min_x, double min_y, double max_x, double max_y,
                         std::size_t expected)
    : min_x_(min_x), min_y_(min_y), max_x_(max_x), max_y_(max_y), expected_(expected) {
  const double width = max_x - min_x, height = max_y - min_y;
  size_ = std::max(width, height);
  if (!(size_ > 1e-300 && size_ < 1e300)) size_ = 1;
  slack_ = static_cast<float>(size_ * 0x1p-20);
  const double room = 1.5 * static_cast<double>(expected) + 4;
  for (int k = 0; k < kMaxLevels; ++k) {
    Level level;
    level.cells_per_unit = std::ldexp(1 / size_, k);
    const double columns = std::floor(width * level.cells_per_unit) + 1;
    const double rows = std::floor(height * level.cells_per_unit) + 1;
    level.first_cell = 0;
    level.columns = columns < 1e9 ? static_cast<std::uint32_t>(std::max(columns, 1.0)) : 1;
    level.rows = rows < 1e9 ? static_cast<std::uint32_t>(std::max(rows, 1.0)) : 1;
    if (k == dense_levels_ && static_cast<double>(level.columns) * level.rows <= room) {
      level.first_cell = dense_cells_;
      dense_cells_ += level.columns * level.rows;
      ++dense_levels_;
    }
    levels_.push_back(level);
  }
  cells_.resize(dense_cells_);
  entries_.reserve(4 * expected);
}

std::uint32_t CircleIndex::hashed_cell(int level, std::uint32_t column, std::uint32_t row) const {
  const std::uint64_t key = key_of(level, column, row);
  const std::size_t mask = table_keys_.size() - 1;
  for (std::size_t at = spread(key, mask); table_keys_[at] != 0; at = (at + 1) & mask) {
    if (table_keys_[at] == key) return table_cells_[at];
  }
  return kNowhere;
}

std::uint32_t CircleIndex::make_hashed_cell(int level, std::uint32_t column, std::uint32_t row) {
  if (2 * (cells_.size() - dense_cells_ + 1) > table_keys_.size()) grow_table();
  const std::uint32_t known = hashed_cell(level, column, row);
  if (known != kNowhere) return known;
  const std::uint64_t key = key_of(level, column, row);
  const std::size_t mask = table_keys_.size() - 1;
  std::size_t at = spread(key, mask);
  while (table_keys_[at] != 0) at = (at + 1) & mask;
  table_keys_[at] = key;
  table_cells_[at] = static_cast<std::uint32_t>(cells_.size());
  cells_.emplace_back();
  return table_cells_[at];
}

void CircleIndex::grow_table() {
  const std::size_t size = std::max<std::size_t>(64, 2 * table_keys_.size());
  std::vector<std::uint64_t> keys(size, 0);
  std::vector<std::uint32_t> cells(size, 0);
  for (std::size_t i = 0; i < table_keys_.size(); ++i) {
    if (table_keys_[i] == 0) continue;
    std::size_t at = spread(table_keys_[i], size - 1);
    while (keys[at] != 0) at = (at + 1) & (size - 1);
    keys[at] = table_keys_[i];
    cells[at] = table_cells_[i];
  }
  table_keys_.swap(keys);
  table_cells_.swap(cells);
}

// The cell for a box of that extent around (x, y), measured from the corner.
CircleIndex::Place CircleIndex::cell_for(double x, double y, double extent) {
  // Cells stay a hundredth larger than what they hold, far beyond the rounding of places.
  const double fit = size_ / (extent * 1.01 + size_ * 0x1p-40);
  // The exponent of a number from 1 to 2^40.
  const int exponent = static_cast<int>(std::bit_cast<std::uint64_t>(fit) >> 52) - 1023;
  const int finest = fit >= 1 ? std::min(exponent, kMaxLevels - 1) : 0;
  const int dense = std::min(finest, dense_levels_ - 1);
  const Level& level = levels_[static_cast<std::size_t>(dense)];
  const std::uint32_t cell =
      level.first_cell + clamp_cell(y * level.cells_per_unit, level.rows - 1.0) * level.columns +
      clamp_cell(x * level.cells_per_unit, level.columns - 1.0);
  if (finest == dense || cells_[cell].count < kCrowd) {
    return {cell, 0, static_cast<std::uint32_t>(dense) & 63};
  }
  const Level& deep = levels_[static_cast<std::size_t>(finest)];
  const std::uint32_t column = clamp_cell(x * deep.cells_per_unit, deep.columns - 1.0);
  const std::uint32_t row = clamp_cell(y * deep.cells_per_unit, deep.rows - 1.0);
  return {make_hashed_cell(finest, column, row), 0, static_cast<std::uint32_t>(finest) & 63};
}

std::uint32_t CircleIndex::add_entry(std::uint32_t cell_number, const Entry& entry) {
  Cell& cell = cells_[cell_number];
  const std::uint32_t room = cell.capacity == 0 ? 0 : 2u << cell.capacity;
  if (cell.count == room) {
    const std::uint32_t capacity = cell.capacity + 1;
    std::uint32_t first;
    if (free_blocks_[capacity].empty()) {
      first = static_cast<std::uint32_t>(entries_.size());
      entries_.resize(entries_.size() + (std::size_t{2} << capacity));
    } else {
      first = free_blocks_[capacity].back();
      free_blocks_[capacity].pop_back();
    }
    std::copy_n(entries_.begin() + cell.first, cell.count, entries_.begin() + first);
    if (cell.capacity != 0) free_blocks_[cell.capacity].push_back(cell.first);
    cell.first = first;
    cell.capacity = capacity & 63;
  }
  entries_[cell.first + cell.count] = entry;
  return cell.count++;
}

CircleIndex::Place CircleIndex::insert(std::uint32_t id, double cx, double cy, double radius,
                                       double radius2) {
  // The part of the circle in the box; all roundings are far below `reach`.
  const double reach = 1e-12 * (std::fabs(cx) + std::fabs(cy) + std::fabs(min_x_) +
                                std::fabs(min_y_) + size_ + radius);
  double x0 = cx - radius - reach, x1 = cx + radius + reach;
  double y0 = cy - radius - reach, y1 = cy + radius + reach;
  const double dx = std::max({min_x_ - cx, cx - max_x_, 0.0});
  const double dy = std::max({min_y_ - cy, cy - max_y_, 0.0});
  if (dx > 0 || dy > 0) {
    // What reaches the box of a circle around a centre outside it is no wider than its chord there.
    const double half_x2 = radius2 * (1 + 1e-12) - dy * dy * (1 - 1e-12) + reach * reach;
    const double half_y2 = radius2 * (1 + 1e-12) - dx * dx * (1 - 1e-12) + reach * reach;
    if (half_x2 < 0 || half_y2 < 0) return {kNowhere, 0, 0};
    const double half_x = std::sqrt(half_x2) + reach, half_y = std::sqrt(half_y2) + reach;
    x0 = std::max(x0, cx - half_x);
    x1 = std::min(x1, cx + half_x);
    y0 = std::max(y0, cy - half_y);
    y1 = std::min(y1, cy + half_y);
  }
  x0 = std::max(x0, min_x_);
  x1 = std::min(x1, max_x_);
  y0 = std::max(y0, min_y_);
  y1 = std::min(y1, max_y_);
  if (x0 > x1 || y0 > y1) return {kNowhere, 0, 0};
  Place place =
      cell_for((x0 + x1) / 2 - min_x_, (y0 + y1) / 2 - min_y_, std::max(x1 - x0, y1 - y0));
  if (levels_[place.level].used++ == 0) levels_in_use_ |= std::uint64_t{1} << place.level;
  Entry entry;
  entry.id = id;
  entry.x = static_cast<float>(cx - min_x_);
  entry.y = static_cast<float>(cy - min_y_);
  const float larger =
      (static_cast<float>(radius) + slack_ + (std::fabs(entry.x) + std::fabs(entry.y)) * 0x1p-21f) *
      (1 + 0x1p-20f);
  entry.radius2 = larger * larger;
  place.slot = add_entry(place.cell, entry) & 0x3ffffff;
  return place;
}

std::uint32_t CircleIndex::remove(Place place) {
  Cell& cell = cells_[place.cell];
  if (--levels_[place.level].used == 0) levels_in_use_ &= ~(std::uint64_t{1} << place.level);
  --cell.count;
  if (place.slot == cell.count) return kNowhere;
  Entry& gap = entries_[cell.first + place.slot];
  gap = entries_[cell.first + cell.count];
  return gap.id;
}

}  // namespace brindle
