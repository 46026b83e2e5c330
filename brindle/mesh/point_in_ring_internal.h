// What one edge of a ring says about a point, and an index of a ring's edges for many points.
#pragma once

#include <cstdint>
#include <vector>

#include "brindle/mesh/geo_edge.h"

namespace brindle {

class CGeoPolygon;

enum class RingVerdict { kNothing, kCrossed, kOnEdge };

// The step of CGeoPolygon::IsPointIn for one edge: the point lies on it, or the probe that runs
// from the point to the far left crosses it in the way that counts.
RingVerdict ring_edge_verdict(const CGeoEdge2D& edge, const CGeoVertex& point);

// Answers as CGeoPolygon::IsPointIn does for points of z = 0, looking only at the edges that reach
// the point's height. Holds a copy of the ring.
class PointInRing {
 public:
  explicit PointInRing(const CGeoPolygon& ring);

  int contains(double x, double y) const;

 private:
  struct Edge {
    double ax, ay, bx, by;
    double low, high;  // the heights that it can matter at
  };

  int band_of(double y) const;
  static RingVerdict verdict(const Edge& edge, double x, double y);

  std::vector<Edge> edges_;
  // The edges of band k are those at places starts_[k] to starts_[k + 1] of members_.
  std::vector<std::uint32_t> starts_, members_;
  double low_ = 0, high_ = 0, bands_per_unit_ = 0;
  int bands_ = 1;
  bool tame_ = true;  // no coordinate is so large that a product with the probe's end is in doubt
};

}  // namespace brindle
