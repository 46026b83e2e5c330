#include "brindle/mesh/geo_edge.h"

namespace brindle {

int CGeoEdge2D::IsVertexOn_InCludeNode(const CGeoVertex& v) const {
  if (v == m_Start || v == m_End) return 1;
  const CGeoVector cross = CGeoVector(v - m_Start) ^ CGeoVector(m_End - m_Start);
  if (!(std::fabs(cross.z) <= 1e-5 && std::fabs(cross.x) <= 1e-5 && std::fabs(cross.y) <= 1e-5)) {
    return 0;
  }
  return v.x >= GetMinX() - 1e-5 && v.x <= GetMaxX() + 1e-5 && v.y >= GetMinY() - 1e-5 &&
         v.y <= GetMaxY() + 1e-5 && v.z >= GetMinZ() - 1e-5 && v.z <= GetMaxZ() + 1e-5;
}

int CGeoEdge2D::IsVertexOn_ExCludeNode(const CGeoVertex& v) const {
  if (v == m_Start || v == m_End) return 0;
  return IsVertexOn_InCludeNode(v);
}

int CGeoEdge2D::IsOnLeft(const CGeoVertex& v) const {
  const CGeoVertex from_start = v - m_Start;
  const CGeoVertex along = m_End - m_Start;
  return from_start.x * along.y - from_start.y * along.x < 1e-5;
}

int CGeoEdge2D::IsIntersectProp(const CGeoEdge2D& other) const {
  if (CGeoVertex::IsConllinear(m_Start, m_End, other.m_Start) ||
      CGeoVertex::IsConllinear(m_Start, m_End, other.m_End) ||
      CGeoVertex::IsConllinear(other.m_Start, other.m_End, m_Start) ||
      CGeoVertex::IsConllinear(other.m_Start, other.m_End, m_End)) {
    return 0;
  }
  return IsOnLeft(other.m_Start) != IsOnLeft(other.m_End) &&
         other.IsOnLeft(m_Start) != other.IsOnLeft(m_End);
}

int CGeoEdge2D::IsIntersect(const CGeoEdge2D& other) const {
  return IsIntersectProp(other) || IsVertexOn_InCludeNode(other.m_Start) ||
         IsVertexOn_InCludeNode(other.m_End) || other.IsVertexOn_InCludeNode(m_Start) ||
         other.IsVertexOn_InCludeNode(m_End);
}

}  // namespace brindle
