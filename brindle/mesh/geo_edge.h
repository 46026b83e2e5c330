// A straight edge of the plane in the double-precision polygon kernel.
#pragma once

#include "brindle/mesh/geo_vertex.h"

namespace brindle {

class CGeoEdge2D : public CGeometryBase {
 public:
  CGeoVertex m_Start;
  CGeoVector m_End;

  CGeoEdge2D() = default;
  // The z of both ends becomes 0. The comparisons below nevertheless look at the z of what they are
  // given.
  CGeoEdge2D(const CGeoVertex& start, const CGeoVertex& end)
      : m_Start(start.x, start.y, 0.0), m_End(end.x, end.y, 0.0) {}

  double GetMinX() const { return m_Start.x < m_End.x ? m_Start.x : m_End.x; }
  double GetMaxX() const { return m_Start.x > m_End.x ? m_Start.x : m_End.x; }
  double GetMinY() const { return m_Start.y < m_End.y ? m_Start.y : m_End.y; }
  double GetMaxY() const { return m_Start.y > m_End.y ? m_Start.y : m_End.y; }
  double GetMinZ() const { return m_Start.z < m_End.z ? m_Start.z : m_End.z; }
  double GetMaxZ() const { return m_Start.z > m_End.z ? m_Start.z : m_End.z; }

  // Whether the ends differ by less than 1e-5 in y, or in x.
  int IsHorizontal() const { return std::fabs(m_Start.y - m_End.y) < 1e-5; }
  int IsVertical() const { return std::fabs(m_Start.x - m_End.x) < 1e-5; }

  // 1 when v equals an end, or the cross product of v - start and end - start has no component
  // above 1e-5 and v lies in the edge's box grown by 1e-5 on all axes. Else 0.
  int IsVertexOn_InCludeNode(const CGeoVertex& v) const;
  // The same, but 0 when v equals an end.
  int IsVertexOn_ExCludeNode(const CGeoVertex& v) const;
  // 1 when v lies left of the edge or on its line. "Left" is z of (v - start) ^ (end - start) below
  // 1e-5; the line counting as left is meant.
  int IsOnLeft(const CGeoVertex& v) const;
  // 1 for a proper crossing: no end collinear with the other edge (CGeoVertex::IsConllinear), and
  // the ends of each on different sides of the other. Else 0.
  int IsIntersectProp(const CGeoEdge2D& other) const;
  // 1 for a proper crossing, or when an end of one lies on the other, ends included. Else 0.
  int IsIntersect(const CGeoEdge2D& other) const;
};

}  // namespace brindle
