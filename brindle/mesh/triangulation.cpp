#include "brindle/mesh/triangulation.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "brindle/mesh/edge_index_internal.h"
#include "brindle/mesh/geo_edge.h"
#include "brindle/mesh/incremental_delaunay_internal.h"

namespace brindle {

CGeoCDT::CGeoCDT()
    : m_dMaxX(-std::numeric_limits<double>::max()),
      m_dMinX(std::numeric_limits<double>::max()),
      m_dMaxY(-std::numeric_limits<double>::max()),
      m_dMinY(std::numeric_limits<double>::max()) {}

CGeoCDT::CGeoCDT(const CGeoCDT& other)
    : CGeometryBase(other),
      m_Boundary(other.m_Boundary),
      m_Holes(other.m_Holes),
      m_Triangles(other.m_Triangles),
      m_dMaxX(other.m_dMaxX),
      m_dMinX(other.m_dMinX),
      m_dMaxY(other.m_dMaxY),
      m_dMinY(other.m_dMinY),
      m_Polygon(other.m_Polygon) {
  std::unordered_map<const void*, sVertex*> vertices;
  for (sVertex* v : other.m_InputVertices) m_InputVertices.push_back(v);
  m_Vertices = other.m_Vertices;
  for (auto* list : {&m_InputVertices, &m_Vertices}) {
    for (sVertex*& v : *list) {
      sVertex*& own = vertices[v];
      if (own == nullptr) own = &m_VertexRecords.emplace_back(*v);
      v = own;
    }
  }
  std::unordered_map<const void*, sEdge*> edges;
  m_InputEdges = other.m_InputEdges;
  m_Edges = other.m_Edges;
  for (auto* list : {&m_InputEdges, &m_Edges}) {
    for (sEdge*& e : *list) {
      sEdge*& own = edges[e];
      if (own == nullptr) own = &m_EdgeRecords.emplace_back(*e);
      e = own;
    }
  }
}

CGeoCDT& CGeoCDT::operator=(const CGeoCDT& other) {
  if (this == &other) return *this;
  CGeoCDT copy(other);
  m_InputVertices.swap(copy.m_InputVertices);
  m_InputEdges.swap(copy.m_InputEdges);
  m_Boundary.swap(copy.m_Boundary);
  m_Holes.swap(copy.m_Holes);
  m_Vertices.swap(copy.m_Vertices);
  m_Edges.swap(copy.m_Edges);
  m_Triangles.swap(copy.m_Triangles);
  m_dMaxX = copy.m_dMaxX;
  m_dMinX = copy.m_dMinX;
  m_dMaxY = copy.m_dMaxY;
  m_dMinY = copy.m_dMinY;
  m_Polygon = copy.m_Polygon;
  m_VertexRecords.swap(copy.m_VertexRecords);
  m_EdgeRecords.swap(copy.m_EdgeRecords);
  m_pMesh.reset();
  m_pEdgeIndex.reset();
  return *this;
}

CGeoCDT::~CGeoCDT() = default;

int CGeoCDT::Add_Vertex(double x, double y) {
  m_InputVertices.push_back(&m_VertexRecords.emplace_back(sVertex{x, y, 0}));
  return static_cast<int>(m_InputVertices.size()) - 1;
}

int CGeoCDT::Add_Edge(long a, long b) {
  m_InputEdges.push_back(new_edge({a, b, 0, -1, -1}));
  return static_cast<int>(m_InputVertices.size()) - 1;
}

void CGeoCDT::Input_Boundary(long n, const long* idx) {
  if (n > 0) m_Boundary.insert(m_Boundary.end(), idx, idx + n);
}

int CGeoCDT::Add_Hole(long n, const long* idx) {
  m_Holes.emplace_back(idx, idx + std::max(n, 0L));
  return static_cast<int>(m_Holes.size());
}

int CGeoCDT::Generate() {
  return Prepare() && Split_Edge() && Form_Delaunay_P() && Refine_Delaunay_T();
}

int CGeoCDT::Prepare() {
  m_pMesh.reset();
  m_pEdgeIndex.reset();
  m_Vertices = m_InputVertices;
  m_Edges = m_InputEdges;
  if (m_Vertices.size() < 3) return 0;
  m_Polygon.Clear();
  for (const long i : m_Boundary) {
    if (is_vertex(i)) m_Polygon.AddVertex({vertex(i).x, vertex(i).y, 0.0});
  }
  m_dMaxX = m_dMinX = m_Vertices[0]->x;
  m_dMaxY = m_dMinY = m_Vertices[0]->y;
  for (const sVertex* v : m_Vertices) {
    if (v->x > m_dMaxX) m_dMaxX = v->x;
    if (v->x < m_dMinX) m_dMinX = v->x;
    if (v->y > m_dMaxY) m_dMaxY = v->y;
    if (v->y < m_dMinY) m_dMinY = v->y;
  }
  return 1;
}

void CGeoCDT::Get_Triangles_Vertex(long t, double& x1, double& y1, double& x2, double& y2,
                                   double& x3, double& y3) const {
  const sTri& triangle = m_Triangles[static_cast<std::size_t>(t)];
  x1 = vertex(triangle.v[0]).x;
  y1 = vertex(triangle.v[0]).y;
  x2 = vertex(triangle.v[1]).x;
  y2 = vertex(triangle.v[1]).y;
  x3 = vertex(triangle.v[2]).x;
  y3 = vertex(triangle.v[2]).y;
}

// --- records and edges
// ------------------------------------------------------------------------------

CGeoCDT::sEdge* CGeoCDT::new_edge(const sEdge& edge) {
  return &m_EdgeRecords.emplace_back(edge);
}

long CGeoCDT::Insert_NewVertex(double x, double y) {
  m_Vertices.push_back(&m_VertexRecords.emplace_back(sVertex{x, y, 1}));
  return static_cast<long>(m_Vertices.size()) - 1;
}

long CGeoCDT::Insert_NewEdge(long a, long b) {
  m_pEdgeIndex.reset();
  m_Edges.push_back(new_edge({a, b, 1, -1, -1}));
  return static_cast<long>(m_Edges.size()) - 1;
}

static bool joins(const CGeoCDT::sEdge& e, long a, long b) {
  return (e.a == a && e.b == b) || (e.a == b && e.b == a);
}

// The first edge in list order that joins a and b, either way round; null without one.
CGeoCDT::sEdge* CGeoCDT::FindeEdge(const std::vector<sEdge*>& list, long a, long b) {
  for (sEdge* e : list) {
    if (e != nullptr && joins(*e, a, b)) return e;
  }
  return nullptr;
}

// The same among the working edges, as a place in the list, by the index; kNone without one.
// Records deleted in this pass are null in the list.
std::size_t CGeoCDT::find_edge(long a, long b) const {
  return m_pEdgeIndex->first(
      static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(b),
      [&](std::uint32_t k) { return m_Edges[k] != nullptr && joins(*m_Edges[k], a, b); });
}

// An index of the working edges; edges without two vertices are never looked for.
void CGeoCDT::index_edges() {
  m_pEdgeIndex =
      std::make_unique<EdgeIndex>(m_Vertices.size(), m_Edges.size() + 2 * m_Triangles.size());
  for (std::size_t k = 0; k < m_Edges.size(); ++k) {
    const sEdge* e = m_Edges[k];
    if (e == nullptr || !is_vertex(e->a) || !is_vertex(e->b)) continue;
    m_pEdgeIndex->add(static_cast<std::uint32_t>(e->a), static_cast<std::uint32_t>(e->b),
                      static_cast<std::uint32_t>(k));
  }
}

// Every working edge that joins a and b goes. Its place in the list stays null until
// drop_deleted_edges, so that places in the index hold.
void CGeoCDT::DeleteEdge(long a, long b) {
  if (m_pEdgeIndex == nullptr) index_edges();
  for (std::size_t k; (k = find_edge(a, b)) != EdgeIndex::kNone;) m_Edges[k] = nullptr;
}

void CGeoCDT::drop_deleted_edges() {
  m_pEdgeIndex.reset();
  m_Edges.erase(std::remove(m_Edges.begin(), m_Edges.end(), nullptr), m_Edges.end());
}

// Puts a new vertex on the edge, which keeps its start; the other half comes back, in no list yet.
CGeoCDT::sEdge* CGeoCDT::split_edge(sEdge& edge, double x, double y) {
  const long k = Insert_NewVertex(x, y);
  const long end = edge.b;
  edge.b = k;
  edge.first = edge.second = -1;
  sEdge* half = new_edge(edge);
  half->a = k;
  half->b = end;
  return half;
}

// --- complete, and not on the way of Generate
// -------------------------------------------------------

// Appends a triangle and enters it at the edges of its sides; null, with nothing appended, when one
// of them has two other triangles. The number entered is one below the triangle's place; kept so.
CGeoCDT::sTri* CGeoCDT::Add_Triangle(long a, long b, long c) {
  const long index = NumOfTriangels() - 1;
  for (sEdge* e : m_Edges) {
    if (!joins(*e, a, b) && !joins(*e, b, c) && !joins(*e, c, a)) continue;
    if (e->first == -1) {
      e->first = index;
    } else if (e->second == -1) {
      e->second = index;
    } else if (e->first != index && e->second != index) {
      return nullptr;
    }
  }
  m_Triangles.push_back({{a, b, c}, {0, 0, 0}});
  return &m_Triangles.back();
}

// 1 when no edge properly crosses the line of sight from vertex b to vertex a; touching doesn't
// count.
int CGeoCDT::IsPtVisible(const std::vector<sEdge*>& edges, long a, long b) const {
  const auto point = [&](long i) { return CGeoVertex(vertex(i).x, vertex(i).y, 0.0); };
  const CGeoEdge2D sight(point(b), point(a));
  for (const sEdge* e : edges) {
    if (!is_vertex(e->a) || !is_vertex(e->b)) continue;
    if (sight.IsIntersectProp(CGeoEdge2D(point(e->a), point(e->b)))) return 0;
  }
  return 1;
}

// The constrained Delaunay test: 1 when no vertex in the triangle's circle sees all its corners.
int CGeoCDT::IsTriCircumcircleEmpty(long t) const {
  double x1, y1, x2, y2, x3, y3, r, cx, cy;
  Get_Triangles_Vertex(t, x1, y1, x2, y2, x3, y3);
  if (!CGeoVertex::Get_3P_Circle(x1, y1, x2, y2, x3, y3, r, cx, cy)) return 0;
  const long(&corner)[3] = m_Triangles[static_cast<std::size_t>(t)].v;
  for (long i = 0; is_vertex(i); ++i) {
    if (i == corner[0] || i == corner[1] || i == corner[2]) continue;
    if (CGeoVertex::IsPtInCircle(vertex(i).x, vertex(i).y, cx, cy, r) &&
        IsPtVisible(m_Edges, i, corner[0]) && IsPtVisible(m_Edges, i, corner[1]) &&
        IsPtVisible(m_Edges, i, corner[2])) {
      return 0;
    }
  }
  return 1;
}

}  // namespace brindle
