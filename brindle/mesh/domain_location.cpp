#include "brindle/mesh/domain_location.h"

#include <utility>

#include "brindle/mesh/domain_internal.h"

namespace brindle {

void CPointInDomain::Swap(float& a, float& b) const {
  std::swap(a, b);
}

void CPointInDomain::Get_OutLook_One_Edge(const CDomainEdge& edge, const CDomainEdge& next,
                                          float& minx, float& miny, float& maxx,
                                          float& maxy) const {
  minx = maxx = edge.start.x;
  miny = maxy = edge.start.y;
  const auto extend = [&](float x, float y) {
    JH_Update_OutLook_Rect(&minx, &miny, &maxx, &maxy, x, y);
  };
  extend(next.start.x, next.start.y);
  if (edge.type == 0) return;
  const CFPoint& c = edge.centre;
  const float radius = JH_GetDist(c.x, c.y, edge.start.x, edge.start.y);
  float first = JH_GetAngle(c.x, c.y, edge.start.x, edge.start.y);
  float last = JH_GetAngle(c.x, c.y, next.start.x, next.start.y);
  if (!edge.ccw) Swap(first, last);
  if (first > last) last += 6.2831855f;
  const auto passes = [&](float axis) { return JH_TestAngleInArc(axis, first, last, 1e-8f); };
  if (passes(0)) extend(c.x + radius, c.y);
  if (passes(1.5707964f)) extend(c.x, c.y + radius);
  if (passes(3.1415927f)) extend(c.x - radius, c.y);
  if (passes(4.712389f)) extend(c.x, c.y - radius);
}

void CPointInDomain::Get_OutLook_Domain(int n, const CDomainEdge* edges, float& minx, float& miny,
                                        float& maxx, float& maxy) const {
  minx = miny = maxx = maxy = 0;
  for (int i = 0; i < n; ++i) {
    float left, bottom, right, top;
    Get_OutLook_One_Edge(edges[i], domain::following(n, edges, i), left, bottom, right, top);
    if (i == 0) {
      minx = left;
      miny = bottom;
      maxx = right;
      maxy = top;
    }
    JH_Update_OutLook_Rect(&minx, &miny, &maxx, &maxy, left, bottom);
    JH_Update_OutLook_Rect(&minx, &miny, &maxx, &maxy, right, top);
  }
}

int CPointInDomain::Point_On_One_Edge(const CDomainEdge& edge, const CDomainEdge& next, float x,
                                      float y, float tol) const {
  const CFPoint &start = edge.start, &end = next.start, &c = edge.centre;
  if (edge.type == 0) {
    return tol > JH_GetMinDist_PointToLineSection(x, y, start.x, start.y, end.x, end.y);
  }
  const float radius = JH_GetDist(c.x, c.y, start.x, start.y);
  if (std::fabs(radius - JH_GetDist(c.x, c.y, x, y)) > tol) return 0;
  // The last angle may have been rounded to 0 instead of a whole turn.
  constexpr float kNearZero = 0.0001f;
  constexpr float kTurn = 6.283185307179586f;
  float first = JH_GetAngle(c.x, c.y, start.x, start.y);
  float last = JH_GetAngle(c.x, c.y, end.x, end.y);
  if (!edge.ccw) Swap(first, last);
  if (first > last && std::fabs(last) < kNearZero) last += kTurn;
  return JH_TestAngleInArc(JH_GetAngle(c.x, c.y, x, y), first, last, 1e-8f);
}

int CPointInDomain::Point_On_Edge_Domain(int n, const CDomainEdge* edges, float x, float y,
                                         float tol) const {
  for (int i = 0; i < n; ++i) {
    if (Point_On_One_Edge(edges[i], domain::following(n, edges, i), x, y, tol)) return 1;
  }
  return 0;
}

int CPointInDomain::Point_In_OutLook_Domain(int n, const CDomainEdge* edges, float x, float y,
                                            float tol) {
  Get_OutLook_Domain(n, edges, min_x, min_y, max_x, max_y);
  return n > 0 && JH_TestPointIn_Rect(min_x, min_y, max_x, max_y, x, y, tol);
}

int CPointInDomain::Point_Into_Domain(int n, const CDomainEdge* edges, float x, float y,
                                      float tol) const {
  return Find_Cross_Points_H(n, edges, x, y, tol) % 2;
}

int CPointInDomain::Point_In_Domain(int n, const CDomainEdge* edges, float x, float y, float tol) {
  if (!Point_In_OutLook_Domain(n, edges, x, y, tol)) return 0;
  return Point_On_Edge_Domain(n, edges, x, y, tol) || Point_Into_Domain(n, edges, x, y, tol);
}

}  // namespace brindle
