// Regions from polygons: a sweep over the rows with exact integer steps along each edge.
#include <cstdint>

#include "brindle/platform/graphics/gdi_types.h"
#include "brindle/platform/graphics/region_builder_internal.h"

namespace brindle {
namespace {

constexpr int kLimit = RegionData::kPolygonLimit;

// An edge at the current row: x is where it crosses the row, rounded up. What was added by rounding
// is `over / rows` and stays exact.
struct Edge {
  int y, last;  // the first row that it crosses and the one after the last
  int turn;     // 1 downwards, -1 upwards
  std::int64_t x;
  std::int64_t step, part;  // a row further: x moves by step + part / rows
  std::int64_t over, rows;

  void next_row() {
    x += step;
    over -= part;
    if (over < 0) ++x, over += rows;
  }
  bool vertical() const { return step == 0 && part == 0; }
};

struct Scratch {
  std::vector<Edge> edges, active;
};

void add_edge(CPoint from, CPoint to, std::vector<Edge>& edges) {
  if (from.y == to.y) return;
  Edge edge;
  edge.turn = from.y < to.y ? 1 : -1;
  if (edge.turn < 0) std::swap(from, to);
  if (to.y <= -kLimit || from.y >= kLimit) return;
  const std::int64_t dx = std::int64_t{to.x} - from.x;
  edge.rows = std::int64_t{to.y} - from.y;
  edge.step = dx / edge.rows;
  edge.part = dx % edge.rows;
  if (edge.part < 0) --edge.step, edge.part += edge.rows;
  edge.y = std::max(from.y, -kLimit);
  edge.last = std::min(to.y, kLimit);
  const auto skipped = static_cast<std::uint64_t>(std::int64_t{edge.y} - from.y);
  const auto rows = static_cast<std::uint64_t>(edge.rows);
  const std::uint64_t parts = skipped * static_cast<std::uint64_t>(edge.part);  // below 2^64
  const std::uint64_t whole = parts / rows + (parts % rows != 0);
  edge.x =
      from.x + static_cast<std::int64_t>(skipped) * edge.step + static_cast<std::int64_t>(whole);
  edge.over = static_cast<std::int64_t>(parts % rows == 0 ? 0 : rows - parts % rows);
  edges.push_back(edge);
}

void add_rings(const CPoint* points, const int* counts, int rings, std::vector<Edge>& edges) {
  for (int ring = 0; ring < rings; ++ring) {
    const int count = counts[ring];
    if (count <= 0) continue;
    CPoint before = points[count - 1];
    for (int i = 0; i < count; ++i) {
      add_edge(before, points[i], edges);
      before = points[i];
    }
    points += count;
  }
}

// Few edges change places from row to row.
void sort_by_x(std::vector<Edge>& active) {
  for (size_t i = 1; i < active.size(); ++i) {
    if (active[i - 1].x <= active[i].x) continue;
    const Edge edge = active[i];
    size_t k = i;
    for (; k > 0 && active[k - 1].x > edge.x; --k) active[k] = active[k - 1];
    active[k] = edge;
  }
}

void add_spans(const std::vector<Edge>& active, int mode, RegionBuilder& out) {
  const auto cut = [](std::int64_t x) {
    return static_cast<int>(std::clamp<std::int64_t>(x, -kLimit, kLimit));
  };
  if (mode != WINDING) {
    for (size_t i = 0; i + 1 < active.size(); i += 2)
      out.span(cut(active[i].x), cut(active[i + 1].x));
    return;
  }
  int turns = 0;
  std::int64_t start = 0;
  for (const Edge& edge : active) {
    if (turns == 0) start = edge.x;
    turns += edge.turn;
    if (turns == 0) out.span(cut(start), cut(edge.x));
  }
}

}  // namespace

RegionData RegionData::polygons(const CPoint* points, const int* counts, int rings, int mode) {
  static thread_local Scratch scratch;
  std::vector<Edge>&edges = scratch.edges, &active = scratch.active;
  edges.clear();
  active.clear();
  add_rings(points, counts, rings, edges);
  std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.y < b.y; });

  RegionBuilder out;
  if (!edges.empty()) {
    int last = edges.front().last;
    for (const Edge& edge : edges) last = std::max(last, edge.last);
    out.reserve(static_cast<size_t>(std::min(last - edges.front().y, 256)));
  }
  size_t next = 0;
  int y = edges.empty() ? 0 : edges.front().y;
  while (next < edges.size() || !active.empty()) {
    std::erase_if(active, [y](const Edge& edge) { return edge.last <= y; });
    if (active.empty()) {
      if (next == edges.size()) break;
      y = std::max(y, edges[next].y);
    }
    while (next < edges.size() && edges[next].y == y) active.push_back(edges[next++]);
    sort_by_x(active);
    // One row, or all up to the next change when every edge is upright.
    int bottom = y + 1;
    if (std::all_of(active.begin(), active.end(), [](const Edge& e) { return e.vertical(); })) {
      bottom = next < edges.size() ? edges[next].y : kLimit;
      for (const Edge& edge : active) bottom = std::min(bottom, edge.last);
    }
    out.begin_band(y, bottom);
    add_spans(active, mode, out);
    out.end_band();
    y = bottom;
    for (Edge& edge : active) edge.next_row();
  }
  return out.take();
}

}  // namespace brindle
