// CGeoCDT: a Delaunay mesh of quality over points, constraint edges and a boundary.
#pragma once

#include <deque>
#include <memory>
#include <vector>

#include "brindle/mesh/geo_polygon.h"

namespace brindle {

class EdgeIndex;
class IncrementalDelaunay;

// A batch object: add input, call Generate, read the triangles. Constraints are honoured by
// splitting edges at their midpoints and by the Delaunay property; no step forces an edge into the
// mesh.
//
// All numbers count from 0. The order of triangles is part of the result: each insertion appends
// the triangles that it makes, a removal keeps the order of the rest. Indices that aren't those of
// a vertex are skipped where they are used. Insertion, splitting and clipping look only at what is
// near; about linear in the vertices for a mesh of no great contrasts. Not thread-safe.
//
// The circle test's tolerance is absolute, 1e-5 of a length to the fourth power: give coordinates
// in which sides are well above 1 (millimetres, not metres), or small triangles take in points
// outside their circle and overlap. No step restores a constraint that refinement has lost.
class CGeoCDT : public CGeometryBase {
 public:
  struct sVertex {
    double x = 0, y = 0;
    int origin = 0;  // 0 from Add_Vertex, 1 made by the triangulation
  };
  struct sEdge {
    long a = 0, b = 0;             // vertices
    int origin = 0;                // 0 from Add_Edge, 1 made by the triangulation
    long first = -1, second = -1;  // triangles at the edge; -1 for none
  };
  struct sTri {
    long v[3] = {0, 0, 0};
    double angle[3] = {0, 0, 0};  // interior, radians, at these vertices; set by Form_Edge_List
  };

  CGeoCDT();
  // Deep: the copy has records of its own, shared between its lists as in the original.
  CGeoCDT(const CGeoCDT& other);
  CGeoCDT& operator=(const CGeoCDT& other);
  ~CGeoCDT();

  // Returns the index of the new vertex. Vertices that repeat another aren't merged.
  int Add_Vertex(double x, double y);
  // Adds a constraint. Returns the index of the last vertex, not of the edge, which is meant.
  int Add_Edge(long a, long b);
  // Appends to the boundary ring, in order.
  void Input_Boundary(long n, const long* idx);
  // Records a ring; returns the number of holes. Nothing reads them: triangles in a hole stay.
  int Add_Hole(long n, const long* idx);

  // All steps in order: 0 when one of them fails, which is below 3 vertices; else 1.
  int Generate();
  // Takes the input over into the working lists, the boundary polygon and the box. 0 below 3
  // vertices. Called again it puts the input lists back.
  int Prepare();
  // Splits each edge, from last to first, once at its midpoint when a vertex lies in its diametral
  // circle or within 1e-5 of it; the new half goes to the end of the list. Returns 1.
  int Split_Edge();
  // Builds the mesh anew from the working vertices, clips it and lists its edges. 0 below 3
  // vertices, with no triangle left; else 1. When more than 4 n triangles arise the vertices left
  // over stay out of the mesh. Edge records of an earlier mesh stay in the list.
  int Form_Delaunay_P();
  // Replaces triangles with an angle below 30 degrees by way of their circumcentres, or of
  // midpoints of the sides that those encroach upon, and builds the mesh anew; at most twice.
  // Returns 1.
  int Refine_Delaunay_T();
  // Returns 1 and changes nothing.
  int Insert_Constrain_Edge() { return 1; }

  long NumOfTriangels() const { return static_cast<long>(m_Triangles.size()); }
  // The corners of triangle t, which must be in range.
  void Get_Triangles_Vertex(long t, double& x1, double& y1, double& x2, double& y2, double& x3,
                            double& y3) const;

  // The lists behind the mesh, for inspection.
  const std::vector<sVertex*>& InputVertices() const { return m_InputVertices; }
  const std::vector<sEdge*>& InputEdges() const { return m_InputEdges; }
  const std::vector<long>& Boundary() const { return m_Boundary; }
  const std::vector<std::vector<long>>& Holes() const { return m_Holes; }
  const std::vector<sVertex*>& WorkingVertices() const { return m_Vertices; }
  const std::vector<sEdge*>& WorkingEdges() const { return m_Edges; }
  const std::vector<sTri>& Triangles() const { return m_Triangles; }
  const CGeoPolygon& BoundaryPolygon() const { return m_Polygon; }

 private:
  friend struct CGeoCDTAccess;  // of the tests

  sTri* Add_Triangle(long a, long b, long c);
  long Insert_NewVertex(double x, double y);
  long Insert_NewEdge(long a, long b);
  void Remove_Vertex() {}
  void Remove_Edge() {}
  static sEdge* FindeEdge(const std::vector<sEdge*>& list, long a, long b);
  void DeleteEdge(long a, long b);
  int IsPtVisible(const std::vector<sEdge*>& edges, long a, long b) const;
  int IsTriCircumcircleEmpty(long t) const;
  int IsPtEncroachEdge(double x, double y, long a, long b);
  int Form_Edge_List();
  int Insert_Pt_IntoMesh(long i);

  bool is_vertex(long i) const { return i >= 0 && static_cast<std::size_t>(i) < m_Vertices.size(); }
  const sVertex& vertex(long i) const { return *m_Vertices[static_cast<std::size_t>(i)]; }
  sEdge* new_edge(const sEdge& edge);
  sEdge* split_edge(sEdge& edge, double x, double y);
  bool mesh_continues() const;
  void clip_triangles();
  void set_angles(sTri& t) const;
  std::size_t find_edge(long a, long b) const;
  void index_edges();
  void drop_deleted_edges();

  std::vector<sVertex*> m_InputVertices;
  std::vector<sEdge*> m_InputEdges;
  std::vector<long> m_Boundary;
  std::vector<std::vector<long>> m_Holes;
  std::vector<sVertex*> m_Vertices;
  std::vector<sEdge*> m_Edges;
  std::vector<sTri> m_Triangles;
  double m_dMaxX, m_dMinX, m_dMaxY, m_dMinY;
  CGeoPolygon m_Polygon;

  // The records themselves. None is given back before the object goes, so that input lists stay
  // good whatever the working lists have lost.
  std::deque<sVertex> m_VertexRecords;
  std::deque<sEdge> m_EdgeRecords;
  // The unclipped mesh of the last Form_Delaunay_P: vertices that came since are added to it.
  std::unique_ptr<IncrementalDelaunay> m_pMesh;
  std::unique_ptr<EdgeIndex> m_pEdgeIndex;  // of the working edges, during refinement
};

}  // namespace brindle
