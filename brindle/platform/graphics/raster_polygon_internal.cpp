#include "brindle/platform/graphics/raster_polygon_internal.h"

#include <cmath>

#include "brindle/platform/graphics/raster_arithmetic_internal.h"

namespace brindle {

void PolygonFiller::add_edge(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1) {
  if (y0 == y1) return;
  PolygonEdge edge;
  edge.turn = 1;
  if (y0 > y1) std::swap(x0, x1), std::swap(y0, y1), edge.turn = -1;
  const std::int64_t unit = std::int64_t{1} << shift_;
  const std::int64_t first = std::max<std::int64_t>((y0 + unit - 1) >> shift_, clip_.top);
  const std::int64_t end = std::min<std::int64_t>((y1 + unit - 1) >> shift_, clip_.bottom);
  if (first >= end) return;
  const std::int64_t right = std::int64_t{clip_.right} << shift_;
  if (x0 >= right && x1 >= right) return;
  edge.first_row = static_cast<int>(first);
  edge.end_row = static_cast<int>(end);
  edge.height = y1 - y0;
  const std::int64_t left = (std::int64_t{clip_.left} - 1) * unit;
  if (x0 <= left && x1 <= left) x0 = x1 = left;  // only its turn matters
  const Quotient at = signed_multiply_divide(first * unit - y0, x1 - x0, edge.height);
  edge.x = x0 + at.whole;
  edge.rest = at.rest;
  const Quotient step = signed_multiply_divide(unit, x1 - x0, edge.height);
  edge.step = step.whole;
  edge.step_rest = step.rest;
  edge.find_pixel(shift_);
  edges_.push_back(edge);
}

void PolygonFiller::add_scaled_edge(double x0, double y0, double x1, double y1) {
  const double scale = static_cast<double>(std::int64_t{1} << shift_);
  const auto scaled = [scale](double v) {
    const double limit = 1e13;  // below 2^45
    return std::isnan(v) ? 0 : std::llrint(std::clamp(v * scale, -limit, limit));
  };
  add_edge(scaled(x0), scaled(y0), scaled(x1), scaled(y1));
}

void PolygonFiller::sort_active() {
  // Nearly in order from the row above.
  for (std::size_t i = 1; i < active_.size(); ++i) {
    PolygonEdge* edge = active_[i];
    std::size_t to = i;
    for (; to > 0 && active_[to - 1]->pixel > edge->pixel; --to) active_[to] = active_[to - 1];
    active_[to] = edge;
  }
}

}  // namespace brindle
