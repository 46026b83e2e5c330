// The edge of a region as polygons.
#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdlib>
#include <unordered_map>

#include "brindle/platform/graphics/figure_geometry_internal.h"

namespace brindle {

namespace {

// Corners of the outline, each with the corner at the other end of its level edge and of its
// upright edge.
struct Corner {
  CPoint at;
  int level = -1, upright = -1;
};

// Where coverage starts or ends in a band. At one x the end comes first.
struct Change {
  int x;
  bool starts;
  auto operator<=>(const Change&) const = default;
};

// Those of the band that begins with rectangle `next`, which moves on to the next band.
std::vector<Change> changes(std::span<const CRect> rects, std::size_t& next) {
  std::vector<Change> out;
  const int top = rects[next].top;
  for (; next < rects.size() && rects[next].top == top; ++next) {
    out.push_back({rects[next].left, true});
    out.push_back({rects[next].right, false});
  }
  return out;
}

class Tracer {
 public:
  // The line between two bands (empty for none): corners stand where only one of them changes, and
  // two at one point where areas touch by their corners, so that rings don't cross there.
  void boundary(int y, const std::vector<Change>& above, const std::vector<Change>& below) {
    std::vector<Change> only_one;
    std::set_symmetric_difference(above.begin(), above.end(), below.begin(), below.end(),
                                  std::back_inserter(only_one));
    const int first = int(corners_.size());
    for (std::size_t i = 0; i < only_one.size(); ++i) {
      const int index = int(corners_.size());
      corners_.push_back({{only_one[i].x, y}, i % 2 == 0 ? index + 1 : index - 1});
      if (!std::binary_search(above.begin(), above.end(), only_one[i])) continue;
      const auto open = open_.find(only_one[i].x);
      corners_[index].upright = open->second;
      corners_[open->second].upright = index;
      open_.erase(open);
    }
    for (int index = first; index < int(corners_.size()); ++index) {
      if (corners_[index].upright < 0) open_[corners_[index].at.x] = index;
    }
  }

  Rings rings() {
    Rings out;
    std::vector<char> done(corners_.size());
    for (int first = 0; first < int(corners_.size()); ++first) {
      if (done[first]) continue;
      const std::size_t before = out.points.size();
      bool level = true;
      for (int at = first; !done[at]; level = !level) {
        done[at] = 1;
        out.points.push_back(corners_[at].at);
        at = level ? corners_[at].level : corners_[at].upright;
      }
      out.counts.push_back(int(out.points.size() - before));
    }
    return out;
  }

 private:
  std::vector<Corner> corners_;
  std::unordered_map<int, int> open_;  // upright edges that go on: x to their upper corner
};

double cross(CPoint o, CPoint a, CPoint b) {
  return (double(a.x) - o.x) * (double(b.y) - o.y) - (double(a.y) - o.y) * (double(b.x) - o.x);
}

double double_area(const std::vector<CPoint>& ring) {
  double sum = 0;
  for (std::size_t i = 1; i + 1 < ring.size(); ++i) sum += cross(ring[0], ring[i], ring[i + 1]);
  return sum;
}

double distance_to_section(CPoint p, CPoint a, CPoint b) {
  const double dx = double(b.x) - a.x, dy = double(b.y) - a.y, length = std::hypot(dx, dy);
  const double t =
      length == 0
          ? 0
          : std::clamp(((double(p.x) - a.x) * dx + (double(p.y) - a.y) * dy) / (length * length),
                       0.0, 1.0);
  return std::hypot(a.x + t * dx - p.x, a.y + t * dy - p.y);
}

// Keeps the corners that the lines between kept ones leave by more than `tolerance`: of the chain
// from `first` to `last`, whose ends stay. A list of pending chains stands in for recursion.
void keep_corners(const std::vector<CPoint>& ring, int first, int last, double tolerance,
                  std::vector<char>& kept) {
  std::vector<std::pair<int, int>> pending{{first, last}};
  while (!pending.empty()) {
    const auto [from, to] = pending.back();
    pending.pop_back();
    int farthest = from;
    double most = tolerance;
    for (int i = from + 1; i < to; ++i) {
      const double distance = distance_to_section(ring[i], ring[from], ring[to % int(ring.size())]);
      if (distance > most) most = distance, farthest = i;
    }
    if (farthest == from) continue;
    kept[farthest] = 1;
    pending.push_back({from, farthest});
    pending.push_back({farthest, to});
  }
}

std::vector<CPoint> straightened(std::vector<CPoint> ring) {
  constexpr double kTolerance = 1.25, kAreaChange = 0.05;
  constexpr int kPlainCorners = 4, kMostCorners = 20000;
  const int count = int(ring.size());
  if (count <= kPlainCorners || count > kMostCorners) return ring;
  // Two corners that surely belong to the figure: the first and the one farthest from it.
  int opposite = 0;
  double most = 0;
  for (int i = 1; i < count; ++i) {
    const double distance =
        std::hypot(double(ring[i].x) - ring[0].x, double(ring[i].y) - ring[0].y);
    if (distance > most) most = distance, opposite = i;
  }
  std::vector<char> kept(count);
  kept[0] = kept[opposite] = 1;
  keep_corners(ring, 0, opposite, kTolerance, kept);
  keep_corners(ring, opposite, count, kTolerance, kept);
  std::vector<CPoint> straight;
  for (int i = 0; i < count; ++i) {
    if (kept[i]) straight.push_back(ring[i]);
  }
  // A strip as thin as the stairs would vanish: it stays as it is.
  const double before = double_area(ring), after = double_area(straight);
  return std::abs(before - after) > kAreaChange * std::abs(before) ? ring : straight;
}

}  // namespace

Rings region_outline(const RegionData& region, bool smooth) {
  Tracer tracer;
  const std::span<const CRect> rects = region.rects();
  std::vector<Change> above;
  int bottom = 0;
  for (std::size_t next = 0; next < rects.size();) {
    const CRect& first = rects[next];
    const int top = first.top, band_bottom = first.bottom;
    if (!above.empty() && top > bottom) {
      tracer.boundary(bottom, above, {});
      above.clear();
    }
    std::vector<Change> below = changes(rects, next);
    tracer.boundary(top, above, below);
    above = std::move(below);
    bottom = band_bottom;
  }
  tracer.boundary(bottom, above, {});
  Rings exact = tracer.rings();
  if (!smooth) return exact;
  Rings out;
  auto at = exact.points.begin();
  for (const int count : exact.counts) {
    const std::vector<CPoint> ring = straightened({at, at + count});
    out.points.insert(out.points.end(), ring.begin(), ring.end());
    out.counts.push_back(int(ring.size()));
    at += count;
  }
  return out;
}

}  // namespace brindle
