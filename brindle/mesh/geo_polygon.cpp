#include "brindle/mesh/geo_polygon.h"

#include <algorithm>
#include <utility>

#include "brindle/mesh/geo_edge.h"
#include "brindle/mesh/point_in_ring_internal.h"

namespace brindle {
namespace {

template <class T>
void append(std::vector<std::unique_ptr<CGeoVertex>>& list, int n, const T* x, const T* y,
            const T* z) {
  if (n < 1) return;
  list.reserve(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) list.push_back(std::make_unique<CGeoVertex>(x[i], y[i], z[i]));
}

}  // namespace

CGeoPolygon::CGeoPolygon(int n, const CGeoVertex* vertices) {
  for (int i = 0; i < n; ++i) m_Vertices.push_back(std::make_unique<CGeoVertex>(vertices[i]));
}

CGeoPolygon::CGeoPolygon(int n, const float* x, const float* y, const float* z) {
  append(m_Vertices, n, x, y, z);
}

CGeoPolygon::CGeoPolygon(int n, const double* x, const double* y, const double* z) {
  append(m_Vertices, n, x, y, z);
}

CGeoPolygon::CGeoPolygon(const CGeoPolygon& other)
    : CGeometryBase(other),
      m_nDirectionKnown(other.m_nDirectionKnown),
      m_nDirection(other.m_nDirection) {
  m_Vertices.reserve(other.m_Vertices.size());
  for (const auto& v : other.m_Vertices) m_Vertices.push_back(std::make_unique<CGeoVertex>(*v));
  std::copy(std::begin(other.m_Triangles), std::end(other.m_Triangles), m_Triangles);
}

CGeoPolygon& CGeoPolygon::operator=(const CGeoPolygon& other) {
  if (this != &other) *this = CGeoPolygon(other);
  return *this;
}

int CGeoPolygon::AddVertex(const CGeoVertex& vertex) {
  for (const auto& v : m_Vertices) {
    if (*v == vertex) return 0;
  }
  m_Vertices.push_back(std::make_unique<CGeoVertex>(vertex));
  return NumOfVertices();
}

double CGeoPolygon::Area() const {
  double sum = 0;
  for (std::size_t i = 0; i < m_Vertices.size(); ++i) {
    const CGeoVertex& a = *m_Vertices[i];
    const CGeoVertex& b = *m_Vertices[following(i)];
    sum += a.x * b.y - b.x * a.y;
  }
  return sum / 2;
}

int CGeoPolygon::PreviousVertex(int i) const {
  return i == 0 ? std::max(NumOfVertices() - 1, 0) : i - 1;
}

int CGeoPolygon::NextVertex(int i) const {
  return i + 1 < NumOfVertices() ? i + 1 : 0;
}

CGeoPolygon::GEOVERTEXTYPE CGeoPolygon::PolygonVertexType(int i) const {
  if (i < 0 || i >= NumOfVertices()) return VERTEX_UNKNOWN;
  CGeoPolygon corner;
  corner.AddVertex(Vertex(PreviousVertex(i)));
  corner.AddVertex(Vertex(i));
  corner.AddVertex(Vertex(NextVertex(i)));
  const double area = corner.Area();
  if (area < 1e-5) return VERTEX_CONCAVE;
  return area > 1e-5 ? VERTEX_CONVEX : VERTEX_UNKNOWN;
}

// z of (to - over) ^ (over - from): positive for a turn to the right.
double CGeoPolygon::turn(std::size_t from, std::size_t over, std::size_t to) const {
  const CGeoVector leaving = *m_Vertices[to] - *m_Vertices[over];
  const CGeoVector arriving = *m_Vertices[over] - *m_Vertices[from];
  return (leaving ^ arriving).z;
}

CGeoPolygon::GEOPOLYGONTYPE CGeoPolygon::PolygonType() const {
  const std::size_t n = m_Vertices.size();
  if (n < 3) return POLYGON_UNKNOWN;
  int sign = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const double z = turn(i, (i + 1) % n, (i + 2) % n);
    const int side = z > 1e-5 ? 1 : z < 1e-5 ? -1 : 0;
    if (sign == 0) sign = side;
    if (side != 0 && side != sign) return POLYGON_CONCAVE;
  }
  return POLYGON_CONVEX;
}

CGeoPolygon::GEOPOLYGONDIRECTION CGeoPolygon::PolygonDirection() const {
  if (m_nDirectionKnown) return static_cast<GEOPOLYGONDIRECTION>(m_nDirection);
  const std::size_t n = m_Vertices.size();
  int votes = 0;
  for (std::size_t i = 0; i < n; ++i) votes += turn(i, (i + 1) % n, (i + 2) % n) > 1e-5 ? 1 : -1;
  if (votes > 0) return DIRECTION_CLOCKWISE;
  return votes < 0 ? DIRECTION_COUNTER_CLOCKWISE : DIRECTION_UNKNOWN;
}

void CGeoPolygon::ReversePolygonDirection() {
  std::reverse(m_Vertices.begin(), m_Vertices.end());
}

void CGeoPolygon::SetCountclockwizeDir() {
  m_nDirectionKnown = 1;
  m_nDirection = DIRECTION_COUNTER_CLOCKWISE;
}

int CGeoPolygon::Diagonal(int i, int j) const {
  const int n = NumOfVertices();
  if (i < 0 || i >= n || j < 0 || j >= n) return 0;
  const CGeoEdge2D diagonal(Vertex(i), Vertex(j));
  for (int k = 0; k < n; ++k) {
    const int next = NextVertex(k);
    if (k == i || k == j || next == i || next == j) continue;
    if (diagonal.IsIntersect(CGeoEdge2D(Vertex(k), Vertex(next)))) return 0;
  }
  return 1;
}

int CGeoPolygon::IsPointIn(const CGeoVertex& point) const {
  if (m_Vertices.size() < 3) return 0;
  int crossings = 0;
  for (std::size_t i = 0; i < m_Vertices.size(); ++i) {
    const RingVerdict verdict =
        ring_edge_verdict(CGeoEdge2D(*m_Vertices[i], *m_Vertices[following(i)]), point);
    if (verdict == RingVerdict::kOnEdge) return 1;
    crossings += verdict == RingVerdict::kCrossed;
  }
  return crossings % 2;
}

int CGeoPolygon::IsInCircle(const CGeoVertex& p, const CGeoVertex& p1, const CGeoVertex& p2,
                            const CGeoVertex& p3) {
  const double dy21 = std::fabs(p2.y - p1.y);
  const double dy32 = std::fabs(p3.y - p2.y);
  if (dy21 < 1e-5 && dy32 < 1e-5 && std::fabs(p3.y - p1.y) < 1e-5) return 0;
  const double m1 = -(p2.x - p1.x) / (p2.y - p1.y);
  const double m2 = -(p3.x - p2.x) / (p3.y - p2.y);
  double xc, yc;
  if (dy21 < 1e-5) {
    xc = (p1.x + p2.x) / 2;
    yc = m2 * (xc - (p2.x + p3.x) / 2) + (p2.y + p3.y) / 2;
  } else if (dy32 < 1e-5) {
    xc = (p2.x + p3.x) / 2;
    yc = m1 * (xc - (p1.x + p2.x) / 2) + (p1.y + p2.y) / 2;
  } else {
    xc = (m1 * (p1.x + p2.x) / 2 - m2 * (p2.x + p3.x) / 2 + (p2.y + p3.y) / 2 - (p1.y + p2.y) / 2) /
         (m1 - m2);
    yc = m1 * (xc - (p1.x + p2.x) / 2) + (p1.y + p2.y) / 2;
  }
  const double on_x = p2.x - xc, on_y = p2.y - yc, dx = p.x - xc, dy = p.y - yc;
  return on_x * on_x + on_y * on_y >= dx * dx + dy * dy;
}

int CGeoPolygon::IsInCircle_New(const CGeoVertex& p, const CGeoVertex& p1, const CGeoVertex& p2,
                                const CGeoVertex& p3) {
  return CGeoVertex::IsPtIn3PCircle(p.x, p.y, p1.x, p1.y, p2.x, p2.y, p3.x, p3.y) >= 0;
}

void CGeoPolygon::clear_triangles() {
  for (std::vector<int>& list : m_Triangles) list.clear();
}

void CGeoPolygon::add_triangle(int a, int b, int c) {
  m_Triangles[0].push_back(a);
  m_Triangles[1].push_back(b);
  m_Triangles[2].push_back(c);
}

}  // namespace brindle
