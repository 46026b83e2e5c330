// The steps of CGeoCDT::Generate behind Prepare.
#include <algorithm>
#include <cmath>

#include "brindle/mesh/edge_index_internal.h"
#include "brindle/mesh/incremental_delaunay_internal.h"
#include "brindle/mesh/point_in_ring_internal.h"
#include "brindle/mesh/triangulation.h"
#include "brindle/mesh/vertex_grid_internal.h"

namespace brindle {
namespace {

constexpr double kLeastAngle = 0.5235987755983;  // 30 degrees
constexpr int kPasses = 2;

// A side without length has no direction: its angles count as 0.
double angle_between(double dot, double lengths) {
  if (!(lengths > 0)) return 0;
  const double cosine = dot / lengths;
  return std::acos(cosine > 1 ? 1 : cosine > -1 ? cosine : -1);
}

}  // namespace

int CGeoCDT::Split_Edge() {
  m_pEdgeIndex.reset();
  if (m_Edges.empty()) return 1;
  VertexGrid grid(m_dMinX, m_dMinY, m_dMaxX, m_dMaxY, m_Vertices.size());
  for (const sVertex* v : m_Vertices) grid.add(v->x, v->y);
  std::vector<sEdge*> halves;
  for (std::size_t i = m_Edges.size(); i-- > 0;) {
    sEdge& edge = *m_Edges[i];
    if (!is_vertex(edge.a) || !is_vertex(edge.b)) continue;
    const sVertex& a = vertex(edge.a);
    const sVertex& b = vertex(edge.b);
    const double x = (a.x + b.x) / 2, y = (a.y + b.y) / 2;
    const double r = CGeoVertex(a.x, a.y, 0.0).Distance({b.x, b.y, 0.0}) / 2;
    if (grid.highest_in(x, y, r, edge.a, edge.b) == VertexGrid::kNone) continue;
    halves.push_back(split_edge(edge, x, y));
    grid.add(x, y);
  }
  m_Edges.insert(m_Edges.end(), halves.begin(), halves.end());
  return 1;
}

// Whether the working vertices begin with those of the unclipped mesh that is at hand. What was
// inserted then would be inserted now in the same way: the limit on triangles has only grown.
bool CGeoCDT::mesh_continues() const {
  if (m_pMesh == nullptr || !m_pMesh->has_box(m_dMinX, m_dMinY, m_dMaxX, m_dMaxY) ||
      m_pMesh->inserted() > m_Vertices.size()) {
    return false;
  }
  for (std::size_t i = 0; i < m_pMesh->inserted(); ++i) {
    if (!m_pMesh->is_point(i, m_Vertices[i]->x, m_Vertices[i]->y)) return false;
  }
  return true;
}

int CGeoCDT::Form_Delaunay_P() {
  m_Triangles.clear();
  const std::size_t n = m_Vertices.size();
  if (n < 3) return 0;
  if (!mesh_continues()) {
    m_pMesh = std::make_unique<IncrementalDelaunay>(m_dMinX, m_dMinY, m_dMaxX, m_dMaxY, n);
  }
  for (std::size_t i = m_pMesh->inserted(); i < n && m_pMesh->triangle_count() < 4 * n; ++i) {
    Insert_Pt_IntoMesh(static_cast<long>(i));
  }
  clip_triangles();
  return Form_Edge_List();
}

int CGeoCDT::Insert_Pt_IntoMesh(long i) {
  m_pMesh->insert(vertex(i).x, vertex(i).y);
  return 1;
}

// Takes over the triangles among real vertices that have no midpoint of a side outside the
// boundary.
void CGeoCDT::clip_triangles() {
  m_Triangles.reserve(m_pMesh->triangle_count());
  const PointInRing boundary(m_Polygon);
  const bool bounded = m_Polygon.NumOfVertices() >= 3;
  m_pMesh->for_each_inner([&](int a, int b, int c) {
    const sVertex* corner[4] = {
        m_Vertices[static_cast<std::size_t>(a)], m_Vertices[static_cast<std::size_t>(b)],
        m_Vertices[static_cast<std::size_t>(c)], m_Vertices[static_cast<std::size_t>(a)]};
    for (int k = 0; bounded && k < 3; ++k) {
      if (!boundary.contains((corner[k]->x + corner[k + 1]->x) / 2,
                             (corner[k]->y + corner[k + 1]->y) / 2)) {
        return;
      }
    }
    m_Triangles.push_back({{a, b, c}, {0, 0, 0}});
  });
}

void CGeoCDT::set_angles(sTri& t) const {
  double ux[3], uy[3], length[3];  // of the side that leaves corner k
  for (int k = 0; k < 3; ++k) {
    const sVertex& from = vertex(t.v[k]);
    const sVertex& to = vertex(t.v[(k + 1) % 3]);
    ux[k] = to.x - from.x;
    uy[k] = to.y - from.y;
    length[k] = std::sqrt(ux[k] * ux[k] + uy[k] * uy[k]);
  }
  for (int k = 0; k < 3; ++k) {
    const int back = (k + 2) % 3;
    t.angle[k] = angle_between(ux[k] * -ux[back] + uy[k] * -uy[back], length[k] * length[back]);
  }
}

// Links triangles to the edges of their sides and lists the sides that aren't there yet. An edge
// that was there has its second link set, always: of two triangles at a constraint the later one
// shows.
int CGeoCDT::Form_Edge_List() {
  index_edges();
  for (std::size_t t = 0; t < m_Triangles.size(); ++t) {
    sTri& triangle = m_Triangles[t];
    set_angles(triangle);
    for (int k = 0; k < 3; ++k) {
      const long a = triangle.v[k], b = triangle.v[(k + 1) % 3];
      // The index has just been made: what it names holds.
      const std::size_t known =
          m_pEdgeIndex->first(static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(b),
                              [](std::uint32_t) { return true; });
      if (known != EdgeIndex::kNone) {
        m_Edges[known]->second = static_cast<long>(t);
        continue;
      }
      m_pEdgeIndex->add(static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(b),
                        static_cast<std::uint32_t>(m_Edges.size()));
      m_Edges.push_back(new_edge({a, b, 1, static_cast<long>(t), -1}));
    }
  }
  return 1;
}

// Splits the working edge a b, if there is one, when the point lies in its diametral circle: 1
// then, else 0.
int CGeoCDT::IsPtEncroachEdge(double x, double y, long a, long b) {
  if (m_pEdgeIndex == nullptr) index_edges();
  const std::size_t place = find_edge(a, b);
  if (place == EdgeIndex::kNone) return 0;
  sEdge& edge = *m_Edges[place];
  const sVertex& from = vertex(edge.a);
  const sVertex& to = vertex(edge.b);
  const double mx = (from.x + to.x) / 2, my = (from.y + to.y) / 2;
  const double r = CGeoVertex(from.x, from.y, 0.0).Distance({to.x, to.y, 0.0}) / 2;
  if (!CGeoVertex::IsPtInCircle(x, y, mx, my, r)) return 0;
  const sEdge* half = m_Edges.emplace_back(split_edge(edge, mx, my));
  const auto index = [&](const sEdge& e, std::size_t k) {
    m_pEdgeIndex->add(static_cast<std::uint32_t>(e.a), static_cast<std::uint32_t>(e.b),
                      static_cast<std::uint32_t>(k));
  };
  index(edge, place);
  index(*half, m_Edges.size() - 1);
  return 1;
}

int CGeoCDT::Refine_Delaunay_T() {
  std::vector<std::size_t> thin;
  for (int pass = 1;; ++pass) {
    thin.clear();
    for (std::size_t t = 0; t < m_Triangles.size(); ++t) {
      const double(&angle)[3] = m_Triangles[t].angle;
      if (std::min({angle[0], angle[1], angle[2]}) < kLeastAngle) thin.push_back(t);
    }
    if (thin.empty() || pass > kPasses) break;
    for (std::size_t k = thin.size(); k-- > 0;) {
      // The triangle itself goes when the mesh is built anew.
      const auto [a, b, c] = m_Triangles[thin[k]].v;
      double r, x, y;
      if (!CGeoVertex::Get_3P_Circle(vertex(a).x, vertex(a).y, vertex(b).x, vertex(b).y,
                                     vertex(c).x, vertex(c).y, r, x, y)) {
        continue;  // there is no centre that could be inserted
      }
      const int ab = IsPtEncroachEdge(x, y, a, b);
      const int bc = IsPtEncroachEdge(x, y, b, c);
      const int ac = IsPtEncroachEdge(x, y, a, c);
      if (ab || bc || ac) continue;
      Insert_NewVertex(x, y);
      DeleteEdge(a, b);
      DeleteEdge(b, c);
      DeleteEdge(c, a);
    }
    drop_deleted_edges();
    Form_Delaunay_P();
  }
  m_pMesh.reset();
  m_pEdgeIndex.reset();
  return 1;
}

}  // namespace brindle
