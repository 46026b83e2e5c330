#include "brindle/mesh/point_in_ring_internal.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/mesh/geo_polygon.h"

namespace brindle {
namespace {

constexpr double kTame = 1e100;
// An edge says nothing about a point that is farther than this from its range of heights; twice the
// kernel's tolerance, so that rounding can't matter.
constexpr double kReach = 2e-5;
// Beyond these the short way of PointInRing::verdict gives what the long one would.
constexpr double kClear = 1e-4;

}  // namespace

RingVerdict ring_edge_verdict(const CGeoEdge2D& edge, const CGeoVertex& point) {
  if (edge.IsVertexOn_InCludeNode(point)) return RingVerdict::kOnEdge;
  if (edge.IsHorizontal()) return RingVerdict::kNothing;
  const CGeoEdge2D probe(point, {-std::numeric_limits<double>::max(), point.y, point.z});
  bool counts;
  if (probe.IsVertexOn_InCludeNode(edge.m_Start)) {
    counts = edge.m_Start.y > edge.m_End.y;
  } else if (probe.IsVertexOn_InCludeNode(edge.m_End)) {
    counts = edge.m_End.y > edge.m_Start.y;
  } else {
    counts = edge.IsIntersect(probe) != 0;
  }
  return counts ? RingVerdict::kCrossed : RingVerdict::kNothing;
}

PointInRing::PointInRing(const CGeoPolygon& ring) {
  const int n = ring.NumOfVertices();
  if (n < 3) return;
  low_ = high_ = ring.Vertex(0).y;
  for (int i = 0; i < n; ++i) {
    const CGeoVertex& a = ring.Vertex(i);
    const CGeoVertex& b = ring.Vertex(ring.NextVertex(i));
    edges_.push_back(
        {a.x, a.y, b.x, b.y, std::min(a.y, b.y) - kReach, std::max(a.y, b.y) + kReach});
    low_ = std::min(low_, edges_.back().low);
    high_ = std::max(high_, edges_.back().high);
    tame_ = tame_ && std::fabs(a.x) < kTame && std::fabs(a.y) < kTame;
  }
  bands_ = tame_ ? std::min(2 * n, 1 << 16) : 1;
  bands_per_unit_ = tame_ ? bands_ / (high_ - low_) : 0;
  // Long edges lie in many bands: fewer bands when that would cost too much room.
  std::size_t room = 0;
  const auto count = [&] {
    room = 0;
    for (const Edge& e : edges_) {
      room += static_cast<std::size_t>(band_of(e.high) - band_of(e.low) + 1);
    }
  };
  for (count(); bands_ > 1 && room > 32 * edges_.size() + 1024; count()) {
    bands_ /= 2;
    bands_per_unit_ /= 2;
  }
  starts_.assign(static_cast<std::size_t>(bands_) + 1, 0);
  for (const Edge& e : edges_) {
    for (int k = band_of(e.low); k <= band_of(e.high); ++k)
      ++starts_[static_cast<std::size_t>(k) + 1];
  }
  for (std::size_t k = 1; k < starts_.size(); ++k) starts_[k] += starts_[k - 1];
  members_.resize(room);
  std::vector<std::uint32_t> next(starts_.begin(), starts_.end() - 1);
  for (std::uint32_t i = 0; i < edges_.size(); ++i) {
    for (int k = band_of(edges_[i].low); k <= band_of(edges_[i].high); ++k) {
      members_[next[static_cast<std::size_t>(k)]++] = i;
    }
  }
}

// Never falls as y rises, so an edge is in the band of every height that it reaches.
int PointInRing::band_of(double y) const {
  const double band = (y - low_) * bands_per_unit_;
  if (!(band > 0)) return 0;
  return band < bands_ ? static_cast<int>(band) : bands_ - 1;
}

// Well away from both ends in height and from the edge's line the point isn't on the edge, no end
// is collinear with the other, and the probe's far end lies left of the edge exactly when it rises:
// what ring_edge_verdict works out step by step comes down to one sign.
RingVerdict PointInRing::verdict(const Edge& e, double x, double y) {
  const double rise = e.by - e.ay;
  const double z = (x - e.ax) * rise - (y - e.ay) * (e.bx - e.ax);
  if (std::fabs(z) > kClear && std::fabs(y - e.ay) > kClear && std::fabs(y - e.by) > kClear) {
    if ((y > e.ay) == (y > e.by)) return RingVerdict::kNothing;
    return (z < 0) != (rise > 0) ? RingVerdict::kCrossed : RingVerdict::kNothing;
  }
  return ring_edge_verdict(CGeoEdge2D({e.ax, e.ay, 0.0}, {e.bx, e.by, 0.0}), {x, y, 0.0});
}

int PointInRing::contains(double x, double y) const {
  const bool tame = tame_ && std::fabs(x) < kTame && std::fabs(y) < kTame;
  int crossings = 0;
  if (!tame) {
    for (const Edge& e : edges_) {
      const RingVerdict said =
          ring_edge_verdict(CGeoEdge2D({e.ax, e.ay, 0.0}, {e.bx, e.by, 0.0}), {x, y, 0.0});
      if (said == RingVerdict::kOnEdge) return 1;
      crossings += said == RingVerdict::kCrossed;
    }
    return crossings % 2;
  }
  if (y < low_ || y > high_ || edges_.empty()) return 0;
  const std::size_t band = static_cast<std::size_t>(band_of(y));
  for (std::uint32_t k = starts_[band]; k < starts_[band + 1]; ++k) {
    const Edge& e = edges_[members_[k]];
    if (y < e.low || y > e.high) continue;
    const RingVerdict said = verdict(e, x, y);
    if (said == RingVerdict::kOnEdge) return 1;
    crossings += said == RingVerdict::kCrossed;
  }
  return crossings % 2;
}

}  // namespace brindle
