// CPointInDomain: how a ring is cut at the horizontal through a point.
#include <memory>
#include <utility>

#include "brindle/mesh/domain_internal.h"
#include "brindle/mesh/domain_location.h"

namespace brindle {
namespace {

bool on_axis(float y, float tol) {
  return !(std::fabs(y) > tol);
}

// Where the axis cuts an edge between its ends, in the edge's direction.
struct Cuts {
  void add(double x) { at[count++] = static_cast<float>(x); }

  int count = 0;
  float at[2] = {};
};

Cuts cut_section(const CFPoint& start, const CFPoint& end, float tol) {
  Cuts cuts;
  if ((start.y > -tol && end.y > -tol) || (start.y < tol && end.y < tol)) return cuts;
  if (on_axis(start.y, tol) || on_axis(end.y, tol)) return cuts;
  double a, b, c;
  _JH_GetLineFunction(start.x, start.y, end.x, end.y, &a, &b, &c);
  cuts.add(-c / b);
  return cuts;
}

Cuts cut_arc(const CDomainEdge& edge, const CDomainEdge& next, float tol) {
  const domain::ArcSpan span(edge, next);
  const double cx = edge.centre.x, cy = edge.centre.y;
  const double square = (span.radius - std::fabs(cy)) * (span.radius + std::fabs(cy));
  Cuts cuts;
  if (!(square > 0)) return cuts;

  struct Cut {
    double x;
    bool open;
    double way;  // angle from the arc's start
  } left{cx - std::sqrt(square), true, 0}, right{cx + std::sqrt(square), true, 0};
  // Between an end near the axis and the cut on its side of the centre the arc stays as near, so
  // the end does for the cut.
  for (const CFPoint* end : {&edge.start, &next.start}) {
    if (on_axis(end->y, tol)) (end->x < cx ? left : right).open = false;
  }
  for (Cut* cut : {&left, &right}) {
    const double way = domain::turn(span.first, domain::direction_of(edge, cut->x, 0));
    cut->open = cut->open && way > 0 && way < span.sweep;
    cut->way = edge.ccw ? way : -way;
  }
  const bool left_first = left.way < right.way;
  for (const Cut* cut : {left_first ? &left : &right, left_first ? &right : &left}) {
    if (cut->open) cuts.add(cut->x);
  }
  return cuts;
}

Cuts cut_edge(const CDomainEdge& edge, const CDomainEdge& next, float tol) {
  return edge.type == 0 ? cut_section(edge.start, next.start, tol) : cut_arc(edge, next, tol);
}

// The rest of an edge from a cut on.
CDomainEdge rest_of(const CDomainEdge& edge, float x) {
  CDomainEdge rest(edge);
  rest.start = {x, 0, 0};
  rest.position = 1;
  return rest;
}

CDomainEdge moved(const CDomainEdge& edge, float x, float y) {
  CDomainEdge copy(edge);
  JH_MovePoint0(&copy.start.x, &copy.start.y, x, y);
  JH_MovePoint0(&copy.centre.x, &copy.centre.y, x, y);
  return copy;
}

// Counts the changes of side to the right of the origin along a closed row of pieces.
class SideChanges {
 public:
  void pass(const CDomainEdge& piece) {
    if (piece.position == 0) return;
    if (m_first_position == 0) {
      m_first_position = piece.position;
      m_first_x = piece.start.x;
    } else {
      meet(piece.position, piece.start.x);
    }
    m_position = piece.position;
  }
  int close() {
    meet(m_first_position, m_first_x);
    return m_count;
  }

 private:
  void meet(int position, float x) {
    if (position != m_position && x > 0) ++m_count;
  }

  int m_first_position = 0;
  float m_first_x = 0;
  int m_position = 0;
  int m_count = 0;
};

int straight_position(const CDomainEdge& edge, float y1, float y2, float tol) {
  if (y1 > -tol && y2 > -tol) return 1;  // also when it lies on the axis: the order is meant
  if (y1 < tol && y2 < tol) return -1;
  const bool first_on = on_axis(y1, tol), second_on = on_axis(y2, tol);
  if (first_on && second_on) return 0;
  if (first_on) return y2 >= 0 ? 1 : -1;
  if (second_on) return y1 >= 0 ? 1 : -1;
  return edge.position;
}

}  // namespace

// The pieces are looked at as they come, in the order in which a list with all of them would stand.
int CPointInDomain::Find_Cross_Points_H(int n, const CDomainEdge* edges, float x, float y,
                                        float tol) const {
  if (n <= 0) return 0;
  SideChanges changes;
  CDomainEdge piece = moved(edges[0], x, y);
  for (int i = 0; i < n; ++i) {
    const CDomainEdge next = moved(domain::following(n, edges, i), x, y);
    const Cuts cuts = cut_edge(piece, next, tol);
    for (int k = 0; k < cuts.count; ++k) {
      const CDomainEdge rest = rest_of(piece, cuts.at[k]);
      Find_SegmentPosition(piece, rest, tol);
      changes.pass(piece);
      piece = rest;
    }
    Find_SegmentPosition(piece, next, tol);
    changes.pass(piece);
    piece = next;
  }
  return changes.close();
}

void CPointInDomain::Find_SegmentPosition(CDomainEdge& edge, const CDomainEdge& next,
                                          float tol) const {
  if (edge.type == 0) {
    edge.position = straight_position(edge, edge.start.y, next.start.y, tol);
    return;
  }
  const domain::ArcSpan span(edge, next);
  const double cy = edge.centre.y;
  // The middle of an arc decides for the whole. A circle that only touches the axis has its
  // centre's side: the middle may be the point that touches.
  const bool crosses = span.radius > std::fabs(cy);
  const bool above = crosses ? span.radius * std::sin(span.middle()) + cy > 0 : cy > -tol;
  edge.position = above ? 1 : -1;
}

void CPointInDomain::Break_The_Edge(POSITION pos, const CDomainEdge& edge, const CDomainEdge& next,
                                    CPtrList* list, float tol) const {
  const Cuts cuts = cut_edge(edge, next, tol);
  for (int k = cuts.count - 1; k >= 0; --k) {  // each directly after `pos`, so the last one first
    Add_OneBian_AfterPosition(list, edge.type, cuts.at[k], 0, edge.centre.x, edge.centre.y, 1,
                              edge.ccw, pos);
  }
}

void CPointInDomain::Add_OneBian_AfterPosition(CPtrList* list, int type, float x, float y, float cx,
                                               float cy, int position, int ccw,
                                               POSITION pos) const {
  auto edge = std::make_unique<CDomainEdge>();
  edge->type = type;
  edge->start = {x, y, 0};
  edge->centre = {cx, cy, 0};
  edge->position = position;
  edge->ccw = ccw;
  list->InsertAfter(pos, edge.get());
  static_cast<void>(edge.release());
}

}  // namespace brindle
