// CGeoPolygon: the two ways of cutting it into triangles.
#include <algorithm>

#include "brindle/mesh/geo_polygon.h"
#include "brindle/mesh/incremental_delaunay_internal.h"
#include "brindle/mesh/point_in_ring_internal.h"

namespace brindle {
namespace {

// Whether the working vertex j with its neighbours is an ear.
bool is_ear(const CGeoPolygon& ring, int j) {
  const int before = ring.PreviousVertex(j), after = ring.NextVertex(j);
  const CGeoVertex corners[3] = {ring.Vertex(before), ring.Vertex(j), ring.Vertex(after)};
  const CGeoPolygon ear(3, corners);
  if (!(ear.Area() > 1e-5)) return false;
  // Farther above or below the tests of IsPointIn say no.
  const double low = std::min({corners[0].y, corners[1].y, corners[2].y}) - 2e-5;
  const double high = std::max({corners[0].y, corners[1].y, corners[2].y}) + 2e-5;
  for (int k = 0; k < ring.NumOfVertices(); ++k) {
    if (k == before || k == j || k == after) continue;
    const CGeoVertex& v = ring.Vertex(k);
    if (v.y < low || v.y > high) continue;
    if (ear.IsPointIn(v)) return false;
  }
  return true;
}

}  // namespace

int CGeoPolygon::Triangulate_CutEar() {
  clear_triangles();
  const GEOPOLYGONDIRECTION direction = PolygonDirection();
  const int n = NumOfVertices();
  if (n < 3 || direction == DIRECTION_UNKNOWN) return 0;
  const bool reversed = !m_nDirectionKnown && direction == DIRECTION_CLOCKWISE;
  std::vector<int> number;  // input index of each working vertex
  CGeoPolygon ring;
  for (int i = 0; i < n; ++i) {
    number.push_back(reversed ? n - 1 - i : i);
    ring.AddVertex(Vertex(number.back()));
  }
  const auto input = [&](int k) { return number[static_cast<std::size_t>(k)]; };
  if (n == 3) {
    add_triangle(input(2), input(0), input(1));
    return 1;
  }
  while (ring.NumOfVertices() >= 3) {
    int j = 0;
    while (j < ring.NumOfVertices() && !is_ear(ring, j)) ++j;
    if (j < ring.NumOfVertices()) {
      add_triangle(input(ring.PreviousVertex(j)), input(j), input(ring.NextVertex(j)));
    } else {
      --j;
    }
    number.erase(number.begin() + j);
    ring.m_Vertices.erase(ring.m_Vertices.begin() + j);
  }
  return 1;
}

int CGeoPolygon::Triangulate_Delauney() {
  clear_triangles();
  const int n = NumOfVertices();
  if (n < 3) return 0;
  double min_x = Vertex(0).x, max_x = min_x, min_y = Vertex(0).y, max_y = min_y;
  for (const auto& v : m_Vertices) {
    min_x = std::min(min_x, v->x);
    max_x = std::max(max_x, v->x);
    min_y = std::min(min_y, v->y);
    max_y = std::max(max_y, v->y);
  }
  IncrementalDelaunay mesh(min_x, min_y, max_x, max_y, m_Vertices.size());
  for (const auto& v : m_Vertices) {
    if (mesh.triangle_count() >= 4 * m_Vertices.size()) break;
    mesh.insert(v->x, v->y);
  }
  const PointInRing flat_ring(*this);
  const auto keeps = [&](int a, int b) {
    if (b == PreviousVertex(a) || b == NextVertex(a)) return true;
    const CGeoVertex middle = (Vertex(a) + Vertex(b)) / 2;
    return (middle.z == 0 ? flat_ring.contains(middle.x, middle.y) : IsPointIn(middle)) != 0;
  };
  mesh.for_each_inner([&](int a, int b, int c) {
    if (keeps(a, b) && keeps(b, c) && keeps(c, a)) add_triangle(a, b, c);
  });
  return 1;
}

}  // namespace brindle
