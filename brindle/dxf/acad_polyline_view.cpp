// Polylines: box, picture, picking.
#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/dxf/acad_ltype.h"
#include "brindle/dxf/acad_polyline.h"
#include "brindle/dxf/bulge_arc_internal.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/plane_box_internal.h"
#include "brindle/dxf/symbol_line.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/helpers.h"
#include "brindle/geometry/region.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

using Vertex = ACAD_POLYLINE::ACAD_VERTEX;

CFPoint plane_point(const Vertex& vertex) {
  return CFPoint(static_cast<float>(vertex.x), static_cast<float>(vertex.y), 0);
}

bool bulge_arc(const Vertex& from, const Vertex& to, BulgeArc& arc) {
  return bulge_arc(from.x, from.y, to.x, to.y, from.m_dBulge, arc);
}

// A segment without its widths.
CFShape shape_of(const Vertex& from, const Vertex& to) {
  const CFPoint p = plane_point(from), q = plane_point(to);
  BulgeArc arc;
  if (!bulge_arc(from, to, arc)) return CFShape(p, q);
  return CFShape(p, q, static_cast<float>(-arc.sweep / 2));
}

// The corners of a straight segment's band: right and left of the start, left and right of the end.
void band_corners(const Vertex& from, const Vertex& to, CFPoint (&corners)[4]) {
  if (from.m_dStartWidth == 0 && from.m_dEndWidth == 0) {
    corners[0] = corners[1] = plane_point(from);
    corners[2] = corners[3] = plane_point(to);
    return;
  }
  const double across = get_line_angle(from.x, from.y, to.x, to.y) + std::acos(0.0);
  const double ux = std::cos(across), uy = std::sin(across);
  const auto corner = [&](const Vertex& at, double width) {
    return CFPoint(static_cast<float>(at.x + ux * width / 2),
                   static_cast<float>(at.y + uy * width / 2), 0);
  };
  corners[0] = corner(from, -from.m_dStartWidth);
  corners[1] = corner(from, from.m_dStartWidth);
  corners[2] = corner(to, from.m_dEndWidth);
  corners[3] = corner(to, -from.m_dEndWidth);
}

// What all segments of one picture share.
struct Stroke {
  const CFCoor* coor;
  CSafeDC& canvas;
  COLORREF color;
  const DashPattern& dashes;
  double dx, dy;
};

void draw_straight(const Stroke& stroke, CPoint from, CPoint to, double width1, double width2) {
  stroke.canvas.PolyLine(from, to, stroke.color, stroke.dashes.count(), stroke.dashes.data(),
                         static_cast<float>(width1), static_cast<float>(width2));
}

// A very flat arc, whose circle no device coordinate can tell any more, as chords.
void draw_chords(const Stroke& stroke, const BulgeArc& arc, double width1, double width2) {
  constexpr int kChords = 128;
  const auto point = [&](double part) {
    const double angle = arc.start + arc.sweep * part;
    return to_device(stroke.coor, arc.x + arc.radius * std::cos(angle),
                     arc.y + arc.radius * std::sin(angle), stroke.dx, stroke.dy);
  };
  const auto width = [&](double part) { return width1 + (width2 - width1) * part; };
  CPoint from = point(0);
  for (int i = 0; i < kChords; ++i) {
    const double part = static_cast<double>(i) / kChords, next = (i + 1.0) / kChords;
    const CPoint to = point(next);
    draw_straight(stroke, from, to, width(part), width(next));
    from = to;
  }
}

void draw_arc(const Stroke& stroke, const BulgeArc& arc, CPoint from, CPoint to, double width1,
              double width2) {
  constexpr double kMostPixels = 1e6;
  if (!(stroke.coor->FPtoDP(arc.radius) < kMostPixels)) {
    draw_chords(stroke, arc, width1, width2);
    return;
  }
  // The canvas draws counter-clockwise as seen.
  if ((arc.sweep < 0) == (stroke.coor->IsReverseY() != 0)) {
    std::swap(from, to);
    std::swap(width1, width2);
  }
  const double x = arc.x + stroke.dx, y = arc.y + stroke.dy;
  const CFRect world(static_cast<float>(x - arc.radius), static_cast<float>(y - arc.radius),
                     static_cast<float>(x + arc.radius), static_cast<float>(y + arc.radius));
  const CRect box = stroke.coor->FPtoDP(world);
  stroke.canvas.PolyArc(&box, from, to, stroke.color, stroke.dashes.count(), stroke.dashes.data(),
                        static_cast<float>(width1), static_cast<float>(width2));
}

}  // namespace

template <class Visit>
void ACAD_POLYLINE::visit_segments(Visit visit) const {
  constexpr int kFittedCurve = 2, kSpline = 4, kFittedVertex = 1, kSplineVertex = 8;
  const auto counts = [this](const Vertex& vertex) {
    if ((m_nFlags & kSpline) != 0) return (vertex.m_nFlags & kSplineVertex) != 0;
    return (m_nFlags & kFittedCurve) == 0 || (vertex.m_nFlags & kFittedVertex) != 0;
  };
  const Vertex* from = nullptr;
  for (POSITION at = m_Vertices.GetHeadPosition(); at != nullptr;) {
    const auto* to = static_cast<const Vertex*>(m_Vertices.GetNext(at));
    if (from != nullptr && counts(*from) && counts(*to) && !visit(*from, *to)) return;
    from = to;
  }
  if (m_nFlags == 0 || from == nullptr) return;
  const auto& first = *static_cast<const Vertex*>(m_Vertices.GetHead());
  if (counts(*from) && counts(first)) visit(*from, first);
}

CFRect ACAD_POLYLINE::GetFRect() {
  PlaneBox box;
  visit_segments([&](const Vertex& from, const Vertex& to) {
    CFPoint corners[4];
    band_corners(from, to, corners);
    for (const CFPoint& corner : corners) box.add(corner.x, corner.y);
    BulgeArc arc;
    if (bulge_arc(from, to, arc)) {
      CFPoint low, high;
      shape_of(from, to).GetRect(low, high);
      box.add(low.x, low.y);
      box.add(high.x, high.y);
    }
    return true;
  });
  return box.rect();
}

ACAD_POLYLINE ACAD_POLYLINE::seen_from(double angle1, double angle2) const {
  ACAD_POLYLINE seen(*this);
  project_point(seen.x1, seen.y1, seen.z1, angle1, angle2);
  project_point(seen.x2, seen.y2, seen.z2, angle1, angle2);
  for (POSITION at = seen.m_Vertices.GetHeadPosition(); at != nullptr;) {
    auto& vertex = *static_cast<Vertex*>(seen.m_Vertices.GetNext(at));
    project_point(vertex.x, vertex.y, vertex.z, angle1, angle2);
  }
  return seen;
}

CFRect ACAD_POLYLINE::GetFRect3D(double angle1, double angle2) {
  return seen_from(angle1, angle2).GetFRect();
}

void ACAD_POLYLINE::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  const CanvasScope scope(dc);
  ACAD_LTYPE* const ltype = GetLType(m_szLType);
  if (ltype == nullptr) return;
  const bool symbols = is_symbol_line_type(m_szLType) || is_symbol_line_type(ltype->m_szName);
  const DashPattern dashes(*this, ltype, coor, m_dLtScale);
  const Stroke stroke{coor, scope.canvas(), drawing_color(*this), dashes, dx, dy};
  visit_segments([&](const Vertex& from, const Vertex& to) {
    const CPoint p = to_device(coor, from.x, from.y, dx, dy);
    const CPoint q = to_device(coor, to.x, to.y, dx, dy);
    const double width1 = coor->FPtoDP(from.m_dStartWidth);
    const double width2 = coor->FPtoDP(from.m_dEndWidth);
    BulgeArc arc;
    const bool is_arc = bulge_arc(from, to, arc);
    if (is_arc) {
      const PenStyleScope style(*this);
      draw_arc(stroke, arc, p, q, width1, width2);
    } else if (symbols) {
      draw_symbol_line(dc, coor, *this, *ltype, m_dLtScale, from.x + dx, from.y + dy, to.x + dx,
                       to.y + dy);
    } else {
      const PenStyleScope style(*this);
      draw_straight(stroke, p, q, width1, width2);
    }
    if (m_bSelected != 0) {
      draw_grip(dc, p);
      draw_grip(dc, q);
    }
    // A line of symbols ends the polyline with its first straight piece; this is meant.
    return is_arc || !symbols;
  });
}

void ACAD_POLYLINE::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  seen_from(angle1, angle2).Draw(dc, coor, 0, 0);
}

int ACAD_POLYLINE::HitTest(const CFRegion& region, int mode) {
  bool all = true, any = false;
  visit_segments([&](const Vertex& from, const Vertex& to) {
    BulgeArc arc;
    int hit = 0;
    if ((from.m_dStartWidth > 0 || from.m_dEndWidth > 0) && !bulge_arc(from, to, arc)) {
      CFPoint corners[4];
      band_corners(from, to, corners);
      hit = hit_area(CFRegion(corners, 4), region, mode);
    } else {
      hit = hit_shape(shape_of(from, to), region, mode);
    }
    any = any || hit != 0;
    all = all && hit != 0;
    return mode != 0 ? all : !any;
  });
  return mode != 0 ? all : any;
}

int ACAD_POLYLINE::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  return seen_from(angle1, angle2).HitTest(region, mode);
}

int ACAD_POLYLINE::HitTest(const CFRect& rect, int mode, double angle1, double angle2) {
  return HitTest(CFRegion(rect), mode, angle1, angle2);
}

void ACAD_POLYLINE::Draw3D_Opengl() {
  scene_color(GetColorNew(m_nColor));
  visit_segments([](const Vertex& from, const Vertex& to) {
    BulgeArc arc;
    if (bulge_arc(from, to, arc)) {
      scene_arc({arc.x, arc.y, from.z}, arc.radius, arc.start, arc.sweep);
    } else {
      const ScenePoint ends[] = {{from.x, from.y, from.z}, {to.x, to.y, to.z}};
      scene_polyline(ends, 2, false);
    }
    return true;
  });
}

CFPoint ACAD_POLYLINE::Get_Max_Point() {
  double x = -1e10, y = -1e10, z = -1e10;
  for (POSITION at = m_Vertices.GetHeadPosition(); at != nullptr;) {
    const auto& vertex = *static_cast<const Vertex*>(m_Vertices.GetNext(at));
    x = std::max(x, vertex.x);
    y = std::max(y, vertex.y);
    z = std::max(z, vertex.z);
  }
  return CFPoint(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
}

CFPoint ACAD_POLYLINE::Get_Min_Point() {
  double x = 1e10, y = 1e10, z = 1e10;
  for (POSITION at = m_Vertices.GetHeadPosition(); at != nullptr;) {
    const auto& vertex = *static_cast<const Vertex*>(m_Vertices.GetNext(at));
    x = std::min(x, vertex.x);
    y = std::min(y, vertex.y);
    z = std::min(z, vertex.z);
  }
  return CFPoint(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
}

}  // namespace brindle::Varnholt
