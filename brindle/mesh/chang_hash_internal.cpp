#include "brindle/mesh/chang_hash_internal.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "brindle/geometry/helpers.h"

namespace brindle {
namespace {

// Ten tolerances wide, and away from the round numbers that coordinates like to be.
constexpr double kCellsPerUnit = 1000;
constexpr double kShift = 0.37;
// A little more than the tolerance in cells.
constexpr double kReach = 0.11;
// So many equal places are looked for when a node is put in.
constexpr int kLook = 32;

std::uint64_t mix(std::uint64_t a, std::uint64_t b) {
  std::uint64_t h = a * 0x9e3779b97f4a7c15u ^ std::rotl(b * 0xc2b2ae3d27d4eb4fu, 31);
  h ^= h >> 32;
  h *= 0xd6e8feb86659fd93u;
  return h ^ h >> 29;
}

double in_cells(float v) {
  return double{v} * kCellsPerUnit + kShift;
}

std::uint64_t hash_cell(double column, double row) {
  return mix(std::bit_cast<std::uint64_t>(column + 0.0), std::bit_cast<std::uint64_t>(row + 0.0));
}

// The rotation that compares lowest.
ChangCorners first_turn_of(const ChangCorners& c) {
  return std::min({c, ChangCorners{c[1], c[2], c[0]}, ChangCorners{c[2], c[0], c[1]}});
}

std::uint64_t hash_corners(const ChangCorners& c) {
  return mix(mix(static_cast<std::uint64_t>(c[0]), static_cast<std::uint64_t>(c[1])),
             static_cast<std::uint64_t>(c[2]));
}

}  // namespace

void ChangNodeHash::extend(const std::vector<ChangPlace>& places) {
  while (buckets_.size() < places.size()) {
    buckets_.outgrown();
    add(places);
  }
}

void ChangNodeHash::add(const std::vector<ChangPlace>& places) {
  const ChangPlace& p = places[buckets_.size()];
  if (!std::isfinite(p.x) || !std::isfinite(p.y)) return buckets_.skip();  // near nothing
  const std::uint64_t hash = hash_cell(std::floor(in_cells(p.x)), std::floor(in_cells(p.y)));
  std::uint32_t i = buckets_.head(hash);
  for (int k = 0; k < kLook && i != ChangBuckets::kEnd; ++k, i = buckets_.next(i)) {
    if (places[i] == p) return buckets_.skip();  // the earlier one is always found instead
  }
  buckets_.put(hash);
}

std::ptrdiff_t ChangNodeHash::find(const std::vector<ChangPlace>& places, float x, float y) const {
  const double u = in_cells(x), v = in_cells(y);
  const double column = std::floor(u), row = std::floor(v);
  const int left = u - column < kReach ? -1 : 0, right = u - column > 1 - kReach ? 1 : 0;
  const int below = v - row < kReach ? -1 : 0, above = v - row > 1 - kReach ? 1 : 0;
  std::uint32_t found = ChangBuckets::kEnd;
  for (int r = below; r <= above; ++r) {
    for (int c = left; c <= right; ++c) {
      for (std::uint32_t i = buckets_.head(hash_cell(column + c, row + r)); i != ChangBuckets::kEnd;
           i = buckets_.next(i)) {
        if (i < found && get_dist(places[i].x, places[i].y, x, y) < kTolerance) found = i;
      }
    }
  }
  return found == ChangBuckets::kEnd ? -1 : static_cast<std::ptrdiff_t>(found);
}

void ChangTriangleHash::extend(const std::vector<ChangCorners>& corners) {
  while (buckets_.size() < corners.size()) {
    buckets_.outgrown();
    const ChangCorners turn = first_turn_of(corners[buckets_.size()]);
    const std::uint64_t hash = hash_corners(turn);
    if (find(corners, turn, hash) >= 0) {
      buckets_.skip();
    } else {
      buckets_.put(hash);
    }
  }
}

std::ptrdiff_t ChangTriangleHash::find(const std::vector<ChangCorners>& corners,
                                       const ChangCorners& first_turn, std::uint64_t hash) const {
  for (std::uint32_t i = buckets_.head(hash); i != ChangBuckets::kEnd; i = buckets_.next(i)) {
    if (first_turn_of(corners[i]) == first_turn) return static_cast<std::ptrdiff_t>(i);
  }
  return -1;
}

std::ptrdiff_t ChangTriangleHash::find(const std::vector<ChangCorners>& corners,
                                       const ChangCorners& wanted) const {
  const ChangCorners turn = first_turn_of(wanted);
  return find(corners, turn, hash_corners(turn));
}

}  // namespace brindle
