#include "brindle/mesh/incremental_delaunay_internal.h"

#include <algorithm>
#include <cmath>

#include "brindle/mesh/circle_test_internal.h"

namespace brindle {
namespace {

constexpr double kUnitRoundoff = 0x1p-53;
// Above this fourth powers of coordinates overflow, and no bound holds.
constexpr double kLargest = 1e70;
// Lists of sides longer than this are looked through for pairs by sorting.
constexpr std::size_t kShortList = 64;

}  // namespace

// A bound on the rounding error of the determinant, divided by the square of the distance d of the
// point from the circle's centre (or by the square of the radius, for a point inside).
//
// The exact determinant is 2A (d^2 - r^2) in size, A being the area. What is computed differs:
//   - each x^2 + y^2 is off by 2 u M^2, M being the largest distance of a vertex from the origin;
//     the four errors weigh twice the area of the triangle of the other three points each, together
//     at most 8 u M^2 * 2r * 2d;
//   - the elimination of three rows with columns up to 2d, 2d and 2 M * 2d is off by 800 u times
//   the
//     product of the three; and no difference of coordinates exceeds the extent G, so that is at
//     most 1600 u M * G * (2d)^2.
// The factors below are more than twice these.
double IncrementalDelaunay::rounding_factor(double magnitude, double extent) {
  return kUnitRoundoff * magnitude * (128 * magnitude + 16384 * extent);
}

IncrementalDelaunay::IncrementalDelaunay(double min_x, double min_y, double max_x, double max_y,
                                         std::size_t expected)
    : min_x_(min_x),
      min_y_(min_y),
      max_x_(max_x),
      max_y_(max_y),
      index_(min_x, min_y, max_x, max_y, 2 * expected) {
  const double d = max_x - min_x > max_y - min_y ? max_x - min_x : max_y - min_y;
  const double cx = (max_x + min_x) / 2;
  const double cy = (max_y + min_y) / 2;
  xs_.reserve(expected + kEnclosing);
  ys_.reserve(expected + kEnclosing);
  triangles_.reserve(2 * expected + 16);
  keeping_.reserve(2 * expected + 16);
  by_birth_.reserve(6 * expected + 16);
  xs_ = {cx - 2 * d, cx, cx + 2 * d};
  ys_ = {cy - d, cy + 2 * d, cy - d};
  magnitude_ = std::hypot(std::fabs(cx) + 2 * d, std::fabs(cy) + 2 * d);
  extent_ = 5 * d;
  factor_ = rounding_factor(magnitude_, extent_);
  add_triangle(0, 1, 2);
}

// Works out the circle and the distances at which the test's answer is certain. Everything is
// widened by what rounding may do to it here, too.
IncrementalDelaunay::Keeping IncrementalDelaunay::bound_circle(Triangle& t, double& radius) const {
  const double ax = xs_[t.v[0]], ay = ys_[t.v[0]];
  const double bx = xs_[t.v[1]], by = ys_[t.v[1]];
  const double px = xs_[t.v[2]], py = ys_[t.v[2]];
  const double ux = bx - ax, uy = by - ay, vx = px - ax, vy = py - ay;
  const double cross = vx * uy - vy * ux;  // the test's own, see twice_area_clockwise
  if (std::fabs(cross) <= 1e-5 || std::isnan(cross)) return kDegenerate;

  double factor = factor_;
  for (const std::uint32_t v : t.v) {
    if (v < kEnclosing || index_.in_box(xs_[v], ys_[v])) continue;
    const double m = std::max(magnitude_, std::hypot(xs_[v], ys_[v]));
    factor = std::max(factor, rounding_factor(m, 2 * m));
  }
  const double products = std::fabs(vx * uy) + std::fabs(vy * ux);
  t.twice_area = std::fabs(cross) - 8 * kUnitRoundoff * products;
  if (!(t.twice_area > 2 * factor && products < 1e10 * t.twice_area)) return kAlways;

  const double u2 = ux * ux + uy * uy, v2 = vx * vx + vy * vy;
  const double half = 0.5 / -cross;
  const double ox = (vy * u2 - uy * v2) * half, oy = (ux * v2 - vx * u2) * half;
  t.cx = ax + ox;
  t.cy = ay + oy;
  const double size =
      (u2 * (std::fabs(vx) + std::fabs(vy)) + v2 * (std::fabs(ux) + std::fabs(uy))) *
      std::fabs(half);
  const double centre_error = kUnitRoundoff * (16 * (1 + products / t.twice_area) * size +
                                               4 * (std::fabs(ax) + std::fabs(ay) + size));
  const double r2 = ox * ox + oy * oy;
  const double beyond = (1e-5 + factor * r2) / (t.twice_area - factor);
  radius = std::sqrt(r2 + beyond) * (1 + 1e-12) + 4 * centre_error;
  if (!(radius < 1e30)) return kAlways;
  t.reject2 = radius * radius * (1 + 1e-12);
  t.accept2 = r2 * (1 - 1e-12 - factor / t.twice_area) - 8 * centre_error * radius;
  return kIndexed;
}

void IncrementalDelaunay::add_triangle(std::uint32_t a, std::uint32_t b, std::uint32_t c) {
  std::uint32_t id;
  if (free_.empty()) {
    id = static_cast<std::uint32_t>(triangles_.size());
    triangles_.emplace_back();
    keeping_.push_back(0);
  } else {
    id = free_.back();
    free_.pop_back();
  }
  Triangle& t = triangles_[id];
  t.v[0] = a;
  t.v[1] = b;
  t.v[2] = c;
  t.birth = static_cast<std::uint32_t>(by_birth_.size());
  by_birth_.push_back(id);
  ++live_;
  double radius = 0;
  Keeping keeping = bound_circle(t, radius);
  if (keeping == kIndexed) {
    t.place = index_.insert(id, t.cx, t.cy, radius, t.reject2);
    if (t.place.cell == CircleIndex::kNowhere) keeping = kOutside;
  } else if (keeping == kAlways) {
    t.place.cell = static_cast<std::uint32_t>(always_.size());
    always_.push_back(id);
  }
  keeping_[id] = static_cast<std::uint8_t>(keeping);
}

void IncrementalDelaunay::remove_triangle(std::uint32_t id) {
  Triangle& t = triangles_[id];
  if (keeping_[id] == kIndexed) {
    const std::uint32_t moved = index_.remove(t.place);
    if (moved != CircleIndex::kNowhere) triangles_[moved].place = t.place;
  } else if (keeping_[id] == kAlways) {
    const std::uint32_t moved = always_.back();
    always_[t.place.cell] = moved;
    triangles_[moved].place.cell = t.place.cell;
    always_.pop_back();
  }
  by_birth_[t.birth] = kNever;
  t.birth = kNever;
  free_.push_back(id);
  --live_;
}

bool IncrementalDelaunay::accepts(const Triangle& t, double x, double y) const {
  return circle_side(x, y, xs_[t.v[0]], ys_[t.v[0]], xs_[t.v[1]], ys_[t.v[1]], xs_[t.v[2]],
                     ys_[t.v[2]]) >= 0;
}

void IncrementalDelaunay::find_cavity(double x, double y) {
  index_.visit_around(x, y, [&](std::uint32_t id) {
    const Triangle& t = triangles_[id];
    const double dx = x - t.cx, dy = y - t.cy;
    const double d2 = dx * dx + dy * dy;
    if (d2 > t.reject2) return;
    if (d2 < t.accept2 || accepts(t, x, y)) cavity_.push_back(id);
  });
  for (const std::uint32_t id : always_) {
    if (accepts(triangles_[id], x, y)) cavity_.push_back(id);
  }
}

// For a point outside the box all triangles are looked at. It may lie farther out than the bounds
// of the triangles allow for, so it has one of its own: beyond two radii, of which the error of the
// centre is at most a quarter, the determinant is more than half of 2A d^2.
void IncrementalDelaunay::find_cavity_outside(double x, double y) {
  double m = std::max({magnitude_, outermost_, std::hypot(x, y)});
  const double least_area = m < kLargest ? 4 * rounding_factor(m, 2 * m) : HUGE_VAL;
  for (std::uint32_t id = 0; id < triangles_.size(); ++id) {
    const Triangle& t = triangles_[id];
    if (t.birth == kNever || keeping_[id] == kDegenerate) continue;
    if (keeping_[id] != kAlways && t.twice_area > least_area) {
      const double dx = x - t.cx, dy = y - t.cy;
      if (dx * dx + dy * dy > 4 * t.reject2) continue;
    }
    if (accepts(t, x, y)) cavity_.push_back(id);
  }
  outermost_ = m;
}

void IncrementalDelaunay::insert(double x, double y) {
  cavity_.clear();
  if (index_.in_box(x, y) && magnitude_ < kLargest) {
    find_cavity(x, y);
  } else {
    find_cavity_outside(x, y);
  }
  const std::uint32_t point = static_cast<std::uint32_t>(xs_.size());
  xs_.push_back(x);
  ys_.push_back(y);
  std::sort(cavity_.begin(), cavity_.end(), [&](std::uint32_t p, std::uint32_t q) {
    return triangles_[p].birth > triangles_[q].birth;
  });
  list_sides();
  for (const std::uint32_t id : cavity_) remove_triangle(id);
  cancel_shared_sides();
  for (const Side side : sides_) add_triangle(side.a, side.b, point);
  if (by_birth_.size() > 16 * live_ + 65536) renumber();
  if (live_ > 2 * index_.expected()) index_anew();
}

void IncrementalDelaunay::list_sides() {
  sides_.clear();
  keys_.clear();
  const auto add = [&](std::uint32_t a, std::uint32_t b) {
    sides_.push_back({a, b});
    keys_.push_back(static_cast<std::uint64_t>(std::min(a, b)) << 32 | std::max(a, b));
  };
  for (const std::uint32_t id : cavity_) {
    const Triangle& t = triangles_[id];
    add(t.v[0], t.v[1]);
    add(t.v[1], t.v[2]);
    add(t.v[2], t.v[0]);
  }
}

// Drops pairs of sides that join the same two vertices. The order in which the pairs are looked for
// matters only when a side stands there more than twice, as in a cavity that overlaps itself.
void IncrementalDelaunay::cancel_shared_sides() {
  if (keys_.size() > kShortList && drop_plain_pairs()) return;
  std::size_t size = keys_.size();
  for (std::size_t i = size < 2 ? 0 : size - 1; i-- > 0;) {
    for (std::size_t j = size; j-- > i + 1;) {
      // After a pair has gone the scan goes on below it in a list two shorter.
      if (j >= size || keys_[i] != keys_[j]) continue;
      for (const std::size_t gone : {j, i}) {
        keys_.erase(keys_.begin() + static_cast<std::ptrdiff_t>(gone));
        sides_.erase(sides_.begin() + static_cast<std::ptrdiff_t>(gone));
      }
      size -= 2;
    }
  }
}

bool IncrementalDelaunay::drop_plain_pairs() {
  order_.resize(keys_.size());
  for (std::uint32_t i = 0; i < order_.size(); ++i) order_[i] = i;
  std::sort(order_.begin(), order_.end(),
            [&](std::uint32_t p, std::uint32_t q) { return keys_[p] < keys_[q]; });
  for (std::size_t i = 2; i < order_.size(); ++i) {
    if (keys_[order_[i]] == keys_[order_[i - 2]]) return false;
  }
  constexpr std::uint64_t kGone = ~std::uint64_t{0};
  for (std::size_t i = 1; i < order_.size(); ++i) {
    if (keys_[order_[i]] == keys_[order_[i - 1]]) {
      keys_[order_[i]] = keys_[order_[i - 1]] = kGone;
      ++i;
    }
  }
  std::size_t kept = 0;
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    if (keys_[i] != kGone) sides_[kept++] = sides_[i];
  }
  sides_.resize(kept);
  return true;
}

// Grids that were made for far fewer triangles are crowded.
void IncrementalDelaunay::index_anew() {
  index_ = CircleIndex(min_x_, min_y_, max_x_, max_y_, 2 * live_);
  for (std::uint32_t id = 0; id < triangles_.size(); ++id) {
    Triangle& t = triangles_[id];
    if (t.birth == kNever || keeping_[id] != kIndexed) continue;
    t.place = index_.insert(id, t.cx, t.cy, std::sqrt(t.reject2), t.reject2);
    if (t.place.cell == CircleIndex::kNowhere) keeping_[id] = kOutside;
  }
}

// Closes the gaps that removed triangles left in the order of creation.
void IncrementalDelaunay::renumber() {
  std::size_t kept = 0;
  for (const std::uint32_t id : by_birth_) {
    if (id == kNever) continue;
    triangles_[id].birth = static_cast<std::uint32_t>(kept);
    by_birth_[kept++] = id;
  }
  by_birth_.resize(kept);
}

}  // namespace brindle
