// A closed line of many short segments in long double: the slow and obvious model of a ring with
// arcs.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace brindle::testing {

class FinePolygon {
 public:
  using Real = long double;
  static constexpr Real kTwoPi = 2 * std::numbers::pi_v<Real>;
  static constexpr int kSegmentsPerArc = 600;
  struct Vertex {
    Real x, y;
  };

  void add(Real x, Real y) { m_vertices.push_back({x, y}); }

  // The arc from (x1, y1) towards (x2, y2), without the latter.
  void add_arc(Real x1, Real y1, Real x2, Real y2, Real cx, Real cy, bool ccw) {
    const Real radius = std::hypot(x1 - cx, y1 - cy);
    const Real first = std::atan2(y1 - cy, x1 - cx);
    Real sweep = std::atan2(y2 - cy, x2 - cx) - first;
    if (ccw && sweep < 0) sweep += kTwoPi;
    if (!ccw && sweep > 0) sweep -= kTwoPi;
    m_error = std::max(m_error, radius * (1 - std::cos(sweep / kSegmentsPerArc / 2)));
    add(x1, y1);
    for (int i = 1; i < kSegmentsPerArc; ++i) {
      const Real angle = first + sweep * i / kSegmentsPerArc;
      add(cx + radius * std::cos(angle), cy + radius * std::sin(angle));
    }
  }

  // The edge that leaves its chord's direction by the half-angle c to the left.
  void add_bulge(Real x1, Real y1, Real x2, Real y2, Real c) {
    if (c == 0) return add(x1, y1);
    const Real away = 1 / std::tan(c) / 2;  // of the centre from the chord, in chord lengths
    add_arc(x1, y1, x2, y2, (x1 + x2) / 2 + (y2 - y1) * away, (y1 + y2) / 2 - (x2 - x1) * away,
            c < 0);
  }

  // Calls visit(vertex, next vertex) for each segment.
  template <class Visit>
  void visit_segments(Visit visit) const {
    for (std::size_t i = 0; i < m_vertices.size(); ++i) {
      visit(m_vertices[i], m_vertices[i + 1 < m_vertices.size() ? i + 1 : 0]);
    }
  }

  // How often the ray from the point towards +x crosses the line.
  int crossings(Real x, Real y) const {
    int count = 0;
    visit_segments([&](const Vertex& p, const Vertex& q) {
      if ((p.y > y) != (q.y > y) && p.x + (y - p.y) * (q.x - p.x) / (q.y - p.y) > x) ++count;
    });
    return count;
  }
  bool contains(Real x, Real y) const { return crossings(x, y) % 2; }

  Real distance(Real x, Real y) const {
    Real least = INFINITY;
    visit_segments([&](const Vertex& p, const Vertex& q) {
      const Real dx = q.x - p.x, dy = q.y - p.y, square = dx * dx + dy * dy;
      const Real along = square > 0 ? ((x - p.x) * dx + (y - p.y) * dy) / square : 0;
      const Real t = std::clamp(along, Real{0}, Real{1});
      const Real gap_x = p.x + t * dx - x, gap_y = p.y + t * dy - y;
      least = std::min(least, gap_x * gap_x + gap_y * gap_y);
    });
    return std::sqrt(least);
  }

  // Positive for a line that runs counter-clockwise.
  Real area() const {
    Real twice = 0;
    visit_segments([&](const Vertex& p, const Vertex& q) { twice += p.x * q.y - q.x * p.y; });
    return twice / 2;
  }
  Vertex centroid() const {
    Real x = 0, y = 0;
    visit_segments([&](const Vertex& p, const Vertex& q) {
      const Real weight = p.x * q.y - q.x * p.y;
      x += (p.x + q.x) * weight;
      y += (p.y + q.y) * weight;
    });
    return {x / 6 / area(), y / 6 / area()};
  }
  Real length() const {
    Real sum = 0;
    visit_segments(
        [&](const Vertex& p, const Vertex& q) { sum += std::hypot(q.x - p.x, q.y - p.y); });
    return sum;
  }

  // The corners of its box.
  Vertex low() const {
    Vertex v = m_vertices.at(0);
    for (const Vertex& w : m_vertices) v = {std::min(v.x, w.x), std::min(v.y, w.y)};
    return v;
  }
  Vertex high() const {
    Vertex v = m_vertices.at(0);
    for (const Vertex& w : m_vertices) v = {std::max(v.x, w.x), std::max(v.y, w.y)};
    return v;
  }
  // How far an arc may lie from its segments.
  Real error() const { return m_error; }

 private:
  std::vector<Vertex> m_vertices;
  Real m_error = 0;
};

}  // namespace brindle::testing
