// A simple polygon of the double-precision kernel: classifies itself and points, cuts itself into
// triangles. The tolerance 1e-5 is built in.
#pragma once

#include <memory>
#include <vector>

#include "brindle/mesh/geo_vertex.h"

namespace brindle {

// The ring is closed from its last vertex to its first. Vertices count from 0. Nothing is reported;
// failure is a result of 0.
class CGeoPolygon : public CGeometryBase {
 public:
  enum GEOVERTEXTYPE { VERTEX_UNKNOWN = 0, VERTEX_CONVEX = 1, VERTEX_CONCAVE = 2 };
  enum GEOPOLYGONTYPE { POLYGON_UNKNOWN = 0, POLYGON_CONVEX = 1, POLYGON_CONCAVE = 2 };
  enum GEOPOLYGONDIRECTION {
    DIRECTION_UNKNOWN = 0,
    DIRECTION_CLOCKWISE = 1,
    DIRECTION_COUNTER_CLOCKWISE = 2
  };

  CGeoPolygon() = default;
  // These take the vertices as they stand, equal ones included.
  CGeoPolygon(int n, const CGeoVertex* vertices);
  CGeoPolygon(int n, const float* x, const float* y, const float* z);
  CGeoPolygon(int n, const double* x, const double* y, const double* z);
  CGeoPolygon(const CGeoPolygon& other);
  CGeoPolygon& operator=(const CGeoPolygon& other);
  CGeoPolygon(CGeoPolygon&&) = default;
  CGeoPolygon& operator=(CGeoPolygon&&) = default;
  ~CGeoPolygon() = default;

  // Appends a copy and returns the new number of vertices; 0, with nothing added, when any vertex
  // of the list equals it within 1e-5 on every axis. Linear in the vertices.
  int AddVertex(const CGeoVertex& vertex);
  // Drops the vertices; the triangle lists stay, and so does a known direction.
  void Clear() { m_Vertices.clear(); }

  int NumOfVertices() const { return static_cast<int>(m_Vertices.size()); }
  // The i-th vertex; i must be in range.
  const CGeoVertex& Vertex(int i) const { return *m_Vertices[static_cast<std::size_t>(i)]; }
  CGeoVertex& Vertex(int i) { return *m_Vertices[static_cast<std::size_t>(i)]; }

  // Signed: positive for counter-clockwise order.
  double Area() const;
  // Index of the neighbour in the ring; an empty polygon gives 0.
  int PreviousVertex(int i) const;
  int NextVertex(int i) const;
  // The turn at vertex i, as if the ring were counter-clockwise: convex when the triangle of its
  // neighbours and itself has an area above 1e-5, concave below, unknown at exactly 1e-5 or for an
  // index out of range. A straight vertex is concave, which is meant.
  GEOVERTEXTYPE PolygonVertexType(int i) const;
  // Whether all turns have one sign, a turn near zero counting on the negative side; unknown below
  // 3 vertices.
  GEOPOLYGONTYPE PolygonType() const;
  // The stored direction when one is known; else by a vote of the turns, not by the area: turns to
  // the right above 1e-5 against all the rest. A draw is unknown.
  GEOPOLYGONDIRECTION PolygonDirection() const;
  // Reverses the vertex list; a known direction stays what it was.
  void ReversePolygonDirection();
  // Declares the ring counter-clockwise without a look at the vertices.
  void SetCountclockwizeDir();
  bool IsDirectionKnown() const { return m_nDirectionKnown != 0; }

  // 1 when the edge from vertex i to vertex j meets no edge of the ring, the edges at i and j left
  // aside; 0 otherwise, for an empty polygon and for indices out of range.
  int Diagonal(int i, int j) const;
  // 1 when the point lies inside or on the boundary, which includes what is within 1e-5 of it in
  // the sense of CGeoEdge2D::IsVertexOn_InCludeNode. Below 3 vertices 0.
  int IsPointIn(const CGeoVertex& point) const;

  // Whether p lies in the circle through three points, boundary included, by the crossing of
  // perpendicular bisectors; 0 when all three have the same y within 1e-5.
  static int IsInCircle(const CGeoVertex& p, const CGeoVertex& p1, const CGeoVertex& p2,
                        const CGeoVertex& p3);
  // The same by CGeoVertex::IsPtIn3PCircle, 0 for three collinear points.
  static int IsInCircle_New(const CGeoVertex& p, const CGeoVertex& p1, const CGeoVertex& p2,
                            const CGeoVertex& p3);

  // Delaunay triangles among the vertices that lie inside the ring. Not constrained: a side of the
  // ring that the triangulation doesn't have is not forced. 0 below 3 vertices, the triangle lists
  // then being empty; else 1.
  int Triangulate_Delauney();
  // Cuts ears until nothing is left. 0 below 3 vertices or with an unknown direction, else 1. A
  // vertex is dropped without a triangle where no ear is left. Equal vertices must not occur.
  int Triangulate_CutEar();

  // The result of the last triangulation: vertex `corner` (0, 1, 2) of triangle k stands at place k
  // of list `corner`.
  int NumOfTriangles() const { return static_cast<int>(m_Triangles[0].size()); }
  int TriangleVertex(int k, int corner) const {
    return m_Triangles[corner][static_cast<std::size_t>(k)];
  }
  const std::vector<int>& TriangleList(int corner) const { return m_Triangles[corner]; }

 private:
  std::size_t following(std::size_t i) const { return i + 1 < m_Vertices.size() ? i + 1 : 0; }
  double turn(std::size_t from, std::size_t over, std::size_t to) const;
  void clear_triangles();
  void add_triangle(int a, int b, int c);

  std::vector<std::unique_ptr<CGeoVertex>> m_Vertices;
  std::vector<int> m_Triangles[3];
  int m_nDirectionKnown = 0;
  int m_nDirection = 0;
};

}  // namespace brindle
