// CPointInDomain: area, centroid, perimeter, and the script.
#include "brindle/geometry/acad_script.h"
#include "brindle/mesh/domain_internal.h"
#include "brindle/mesh/domain_location.h"

namespace brindle {
namespace {

// An area with a sign and its centroid.
struct Part {
  double area, x, y;

  void tell(float& its_area, float& cx, float& cy) const {
    its_area = static_cast<float>(area);
    cx = static_cast<float>(x);
    cy = static_cast<float>(y);
  }
};

Part triangle(const CFPoint& p, const CFPoint& q, double x, double y) {
  return {_JH_GetDet_Tri(x, y, p.x, p.y, q.x, q.y) / 2, (x + p.x + q.x) / 3, (y + p.y + q.y) / 3};
}

Part segment(const CDomainEdge& edge, const CDomainEdge& next) {
  if (edge.type == 0) {
    return {0, (double{edge.start.x} + next.start.x) / 2,
            (double{edge.start.y} + next.start.y) / 2};
  }
  const domain::ArcSpan span(edge, next);
  const double sine = std::sin(span.sweep / 2);
  const double shape = span.sweep - std::sin(span.sweep);
  // A segment without area has its centroid on the arc.
  const double away = shape > 0 ? 4 * span.radius / 3 * sine * sine * sine / shape : span.radius;
  const double area = span.radius * span.radius / 2 * shape;
  return {edge.ccw ? area : -area, edge.centre.x + away * std::cos(span.middle()),
          edge.centre.y + away * std::sin(span.middle())};
}

// Calls visit(part) for the triangles from the origin and the segments, which make up the domain.
template <class Visit>
void visit_parts(int n, const CDomainEdge* edges, Visit visit) {
  for (int i = 0; i < n; ++i) {
    const CDomainEdge& next = domain::following(n, edges, i);
    visit(triangle(edges[i].start, next.start, 0, 0));
    visit(segment(edges[i], next));
  }
}

}  // namespace

void CPointInDomain::Get_Tri_Area(const CDomainEdge& edge, const CDomainEdge& next, float x,
                                  float y, float& area, float& cx, float& cy) const {
  triangle(edge.start, next.start, x, y).tell(area, cx, cy);
}

void CPointInDomain::Get_Arc_Para(const CDomainEdge& edge, const CDomainEdge& next, float& area,
                                  float& cx, float& cy) const {
  segment(edge, next).tell(area, cx, cy);
}

double CPointInDomain::Get_Area(int n, const CDomainEdge* edges) const {
  double area = 0;
  visit_parts(n, edges, [&](const Part& part) { area += part.area; });
  return area;
}

void CPointInDomain::Get_Centroid(int n, const CDomainEdge* edges, float& x, float& y) const {
  double area = 0, moment_x = 0, moment_y = 0;
  visit_parts(n, edges, [&](const Part& part) {
    area += part.area;
    moment_x += part.area * part.x;
    moment_y += part.area * part.y;
  });
  if (area < 1e-5) area = 1e-5;
  x = static_cast<float>(moment_x / area);
  y = static_cast<float>(moment_y / area);
}

double CPointInDomain::Get_ZhouChang(int n, const CDomainEdge* edges) const {
  double length = 0;
  for (int i = 0; i < n; ++i) {
    const CFPoint &p = edges[i].start, &q = domain::following(n, edges, i).start;
    const CFPoint& c = edges[i].centre;
    if (edges[i].type == 0) {
      length += _JH_GetDist(p.x, p.y, q.x, q.y);
    } else if (edges[i].ccw) {
      length += _JH_GetLenArc(c.x, c.y, p.x, p.y, q.x, q.y);
    } else {
      length += _JH_GetLenArc(c.x, c.y, q.x, q.y, p.x, p.y);
    }
  }
  return length;
}

void CPointInDomain::Draw_SCR(std::FILE* f, const CDomainEdge& edge,
                              const CDomainEdge& next) const {
  const CFPoint &p = edge.start, &q = next.start, &c = edge.centre;
  if (edge.type == 0) {
    acad_line(f, p.x, p.y, q.x, q.y);
  } else if (edge.ccw) {
    acad_arc(f, c.x, c.y, p.x, p.y, q.x, q.y);
  } else {
    acad_arc(f, c.x, c.y, q.x, q.y, p.x, p.y);
  }
}

void CPointInDomain::Draw_SCR(std::FILE* f, int n, const CDomainEdge* edges) const {
  for (int i = 0; i < n; ++i) Draw_SCR(f, edges[i], domain::following(n, edges, i));
}

}  // namespace brindle
