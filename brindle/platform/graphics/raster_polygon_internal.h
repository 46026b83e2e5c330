// Scan conversion of polygons into runs of pixels.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

// An edge on its way down the rows. `pixel` is the first pixel not left of it in the present row.
struct PolygonEdge {
  int first_row, end_row, turn;
  std::int64_t pixel, x, rest, step, step_rest, height;
  void move_down(int shift) {
    x += step, rest += step_rest;
    if (rest >= height) ++x, rest -= height;
    find_pixel(shift);
  }
  void find_pixel(int shift) {
    pixel = (x + (rest ? 1 : 0) + ((std::int64_t{1} << shift) - 1)) >> shift;
  }
};

// Corners are whole numbers of 2^-shift pixels, up to 2^45 in size; the crossings with the rows are
// exact, so that figures which share an edge neither overlap nor leave a gap.
class PolygonFiller {
 public:
  PolygonFiller(const CRect& clip, int shift) : clip_(clip), shift_(shift) {}

  void add_edge(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1);
  // A ring of points with members x and y, closed by itself.
  template <class Point>
  void add_ring(const Point* points, std::size_t count) {
    for (std::size_t i = 0, last = count - 1; i < count; last = i++)
      add_edge(points[last].x, points[last].y, points[i].x, points[i].y);
  }
  // A polygon in pixels with fractions; NaN counts as 0, wild numbers are cut.
  void add_scaled_edge(double x0, double y0, double x1, double y1);

  // Calls span(y, first, last), the last pixel not in the run, inside of the clip box only. Takes
  // the edges; add new ones for another figure.
  template <class Span>
  void fill(bool winding, Span&& span) {
    std::sort(edges_.begin(), edges_.end(),
              [](const PolygonEdge& a, const PolygonEdge& b) { return a.first_row < b.first_row; });
    active_.clear();
    std::size_t next = 0;
    for (int y = clip_.top; y < clip_.bottom; ++y) {
      if (active_.empty()) {
        if (next == edges_.size()) break;
        y = edges_[next].first_row;
      }
      while (next < edges_.size() && edges_[next].first_row == y)
        active_.push_back(&edges_[next++]);
      sort_active();
      emit_row(y, winding, span);
      std::erase_if(active_, [y](const PolygonEdge* edge) { return edge->end_row <= y + 1; });
      for (PolygonEdge* edge : active_) edge->move_down(shift_);
    }
    edges_.clear();
  }

 private:
  void sort_active();
  template <class Span>
  void emit_row(int y, bool winding, Span&& span) const {
    int turns = 0;
    std::int64_t start = 0;
    for (const PolygonEdge* edge : active_) {
      const bool was_inside = winding ? turns != 0 : (turns & 1) != 0;
      turns += winding ? edge->turn : 1;
      const bool is_inside = winding ? turns != 0 : (turns & 1) != 0;
      if (is_inside && !was_inside) {
        start = edge->pixel;
      } else if (was_inside && !is_inside) {
        emit(y, start, edge->pixel, span);
      }
    }
    // Edges right of the clip box were left out: a run may stay open.
    if (winding ? turns != 0 : (turns & 1) != 0) emit(y, start, clip_.right, span);
  }
  template <class Span>
  void emit(int y, std::int64_t first, std::int64_t last, Span&& span) const {
    first = std::max<std::int64_t>(first, clip_.left);
    last = std::min<std::int64_t>(last, clip_.right);
    if (first < last) span(y, static_cast<int>(first), static_cast<int>(last));
  }

  CRect clip_;
  int shift_;
  std::vector<PolygonEdge> edges_;
  std::vector<PolygonEdge*> active_;
};

}  // namespace brindle
