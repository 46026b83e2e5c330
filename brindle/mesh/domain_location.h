// CPointInDomain: whether a point lies in a domain of straight and circular edges, and the domain's
// measures. Arcs are taken as arcs, not flattened.
#pragma once

#include <cstdio>

#include "brindle/mesh/domain_edge.h"
#include "brindle/platform/base/list.h"
#include "brindle/platform/base/types.h"

namespace brindle {

// A domain is `n` edges; `edge, next` are an edge and the one that follows it in the ring. Tests
// return 1 or 0. A domain without edges holds nothing, measures nothing, and has a box of zeros.
class CPointInDomain {
 public:
  void Swap(float& a, float& b) const;

  // The box of one edge, of the ring.
  void Get_OutLook_One_Edge(const CDomainEdge& edge, const CDomainEdge& next, float& minx,
                            float& miny, float& maxx, float& maxy) const;
  void Get_OutLook_Domain(int n, const CDomainEdge* edges, float& minx, float& miny, float& maxx,
                          float& maxy) const;

  // Nearer to the straight edge than `tol`, or within `tol` of the arc's circle and in a direction
  // that the arc has; that one has no tolerance to speak of (1e-8).
  int Point_On_One_Edge(const CDomainEdge& edge, const CDomainEdge& next, float x, float y,
                        float tol) const;
  int Point_On_Edge_Domain(int n, const CDomainEdge* edges, float x, float y, float tol) const;
  // Within the ring's box grown by `tol`; the box is kept.
  int Point_In_OutLook_Domain(int n, const CDomainEdge* edges, float x, float y, float tol);
  // Whether the ray towards +x crosses the ring an odd number of times; for points on an edge
  // either may come out.
  int Point_Into_Domain(int n, const CDomainEdge* edges, float x, float y, float tol) const;
  // The test to use: 1 on an edge or inside.
  int Point_In_Domain(int n, const CDomainEdge* edges, float x, float y, float tol);

  // How often the ring changes its side of the horizontal through the point, to the right of it. An
  // end within `tol` of the horizontal counts as lying on it, a straight edge there as above it.
  int Find_Cross_Points_H(int n, const CDomainEdge* edges, float x, float y, float tol) const;

  // The steps of that count, in coordinates with the point at the origin.
  // Writes edge.position: the side of the x axis on which the edge lies, which doesn't cross it.
  void Find_SegmentPosition(CDomainEdge& edge, const CDomainEdge& next, float tol) const;
  // Inserts the rest of the edge after `pos`, the edge's own place, for each point where the axis
  // cuts it, in the edge's direction. An end within `tol` of the axis takes the place of the cut on
  // its side of the centre. What is inserted is the caller's to delete.
  void Break_The_Edge(POSITION pos, const CDomainEdge& edge, const CDomainEdge& next,
                      CPtrList* list, float tol) const;
  // Inserts a new edge from (x, y) after `pos`; the caller deletes it.
  void Add_OneBian_AfterPosition(CPtrList* list, int type, float x, float y, float cx, float cy,
                                 int position, int ccw, POSITION pos) const;

  // The triangle of (x, y) and the edge's chord: signed area, positive when they run
  // counter-clockwise, and the mean of its corners.
  void Get_Tri_Area(const CDomainEdge& edge, const CDomainEdge& next, float x, float y, float& area,
                    float& cx, float& cy) const;
  // What lies between an arc and its chord: its area, negative for a clockwise arc, and its
  // centroid. A straight edge has area 0 and its midpoint.
  void Get_Arc_Para(const CDomainEdge& edge, const CDomainEdge& next, float& area, float& cx,
                    float& cy) const;
  // Signed, positive for a ring that runs counter-clockwise.
  double Get_Area(int n, const CDomainEdge* edges) const;
  // Of a counter-clockwise ring. An area below 1e-5, so that of any clockwise ring too, is taken as
  // 1e-5; this is meant.
  void Get_Centroid(int n, const CDomainEdge* edges, float& x, float& y) const;
  // The perimeter (ZhouChang).
  double Get_ZhouChang(int n, const CDomainEdge* edges) const;

  // Writes the edges as commands of a script for a CAD program (acad_line, acad_arc).
  void Draw_SCR(std::FILE* f, const CDomainEdge& edge, const CDomainEdge& next) const;
  void Draw_SCR(std::FILE* f, int n, const CDomainEdge* edges) const;

  // Overlap with a disc, and with a convex quadrangle given counter-clockwise. Figures apart whose
  // boxes meet count as overlapping; this is meant.
  int Test_CrossRegon_Domain_Circle(int n, const CDomainEdge* edges, float x, float y, float r,
                                    float tol);
  int Test_CrossRegon_Domain_Rect(int n, const CDomainEdge* edges, const float* x, const float* y,
                                  float tol);
  // Not told: always 0.
  int Test_CrossRegon_Domain_Domain(int n1, const CDomainEdge* edges1, int n2,
                                    const CDomainEdge* edges2, float tol) const;

  // The box of the last Point_In_OutLook_Domain.
  float min_x = 0, min_y = 0, max_x = 0, max_y = 0;
};

}  // namespace brindle
