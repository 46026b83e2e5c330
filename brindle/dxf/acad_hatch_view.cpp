// Hatches: box, picture, picking.
#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/dxf/acad_hatch.h"
#include "brindle/dxf/device_area_internal.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/hatch_drawing_internal.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/graphics/rgn.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

using Ring = std::vector<HatchPoint>;

constexpr int kNormal = 0, kOuter = 1;  // group 75
// Points of one hatch's picture at most: beyond them curves get coarser.
constexpr std::size_t kMostPoints = 2000000;
// So many paths are combined one by one; more are filled by turns.
constexpr std::size_t kFewRings = 64;

PlaneBox box_of(const std::vector<Ring>& rings) {
  PlaneBox box;
  for (const Ring& ring : rings) {
    for (const HatchPoint& p : ring) box.add(p.x, p.y);
  }
  return box;
}

// Whether the rings fill by turns from outside, each as good as the other.
bool fills_by_turns(const std::vector<Ring>& rings, int style) {
  return style == kNormal || rings.size() == 1 || rings.size() > kFewRings;
}

bool is_inside(HatchPoint p, const Ring& ring) {
  bool inside = false;
  HatchPoint from = ring.back();
  for (const HatchPoint& to : ring) {
    if ((from.y > p.y) != (to.y > p.y) &&
        p.x < from.x + (to.x - from.x) * (p.y - from.y) / (to.y - from.y)) {
      inside = !inside;
    }
    from = to;
  }
  return inside;
}

// The rings that, filled by turns, show what a style fills. True of rings that don't cross.
std::vector<Ring> rings_by_turns(const std::vector<Ring>& rings, int style) {
  if (fills_by_turns(rings, style)) return rings;
  const std::size_t most_around = style == kOuter ? 1 : 0;
  std::vector<Ring> kept;
  for (const Ring& ring : rings) {
    std::size_t around = 0;
    for (const Ring& other : rings) {
      if (&other != &ring && is_inside(ring.front(), other)) ++around;
    }
    if (around <= most_around) kept.push_back(ring);
  }
  return kept;
}

// Makes the area that a style fills: 0 by turns from outside, 1 what lies in one ring only, 2 all.
bool area_of(const std::vector<Ring>& rings, int style, const DeviceArea& device, CRgn& area) {
  if (fills_by_turns(rings, style)) {
    return device.region_of(rings.data(), rings.size(), ALTERNATE, area);
  }
  CRgn all;  // what lies in any ring so far
  all.CreateRectRgn(0, 0, 0, 0);
  area.CreateRectRgn(0, 0, 0, 0);
  bool any = false;
  for (const Ring& ring : rings) {
    CRgn one, fresh;
    if (!device.region_of(ring, ALTERNATE, one)) continue;
    any = true;
    fresh.CreateRectRgn(0, 0, 0, 0);
    fresh.CombineRgn(&one, &all, RGN_DIFF);
    if (style == kOuter) area.CombineRgn(&area, &one, RGN_DIFF);
    area.CombineRgn(&area, &fresh, RGN_OR);
    all.CombineRgn(&all, &one, RGN_OR);
  }
  return any;
}

// Lines are clipped by the area's pixels on a bitmap. Metafiles and pages have no pixels, and few
// programs follow a clip in them: their lines are cut themselves, unless that is too much work.
bool wants_region_clip(const DeviceArea& device, const std::vector<Ring>& rings) {
  constexpr std::size_t kMostCutPoints = 4000;
  std::size_t points = 0;
  for (const Ring& ring : rings) points += ring.size();
  return !device.has_figures() || points > kMostCutPoints;
}

PlaneBox plane_box(const CFRect& rect) {
  PlaneBox box;
  box.add(static_cast<double>(rect.left), static_cast<double>(rect.bottom));
  box.add(static_cast<double>(rect.right), static_cast<double>(rect.top));
  return box;
}

void draw_family(HatchLines& lines, const HATCH_PATTERN_DATA& pattern, const PlaneBox& box) {
  lines.draw_family(pattern, (box.left + box.right) / 2 + pattern.m_dBaseX,
                    (box.bottom + box.top) / 2 + pattern.m_dBaseY);
}

}  // namespace

int ACAD_HATCH::Cell(double v) {
  constexpr double kLargest = std::numeric_limits<int>::max();
  if (!(v == v)) return 0;
  if (v >= kLargest) return std::numeric_limits<int>::max();
  if (v <= -kLargest - 1) return std::numeric_limits<int>::min();
  const int whole = static_cast<int>(v);
  const double rest = v - whole;
  if (v > 0) return rest > 0.5 ? whole + 1 : whole;
  return rest > -0.5 ? whole : whole - 1;
}

std::vector<Ring> ACAD_HATCH::rings(const Flattening& how) const {
  std::size_t edges = 1;
  for (POSITION at = m_Boundaries.GetHeadPosition(); at != nullptr;) {
    const auto& path = *static_cast<const HATCH_BOUNDARY_DATA*>(m_Boundaries.GetNext(at));
    edges += path.m_Edges.size() + path.m_Vertices.size();
  }
  Flattening bounded = how;
  bounded.most_chords = static_cast<int>(std::min<std::size_t>(
      static_cast<std::size_t>(how.most_chords), std::max<std::size_t>(kMostPoints / edges, 1)));
  std::vector<Ring> all;
  for (POSITION at = m_Boundaries.GetHeadPosition(); at != nullptr;) {
    Ring ring;
    static_cast<const HATCH_BOUNDARY_DATA*>(m_Boundaries.GetNext(at))->flatten(ring, bounded);
    if (!ring.empty()) all.push_back(std::move(ring));
  }
  return all;
}

std::vector<Ring> ACAD_HATCH::rings_seen_from(double angle1, double angle2,
                                              const Flattening& how) const {
  std::vector<Ring> seen = rings(how);
  for (Ring& ring : seen) {
    for (HatchPoint& p : ring) {
      double z = m_dElevation[2];
      project_point(p.x, p.y, z, angle1, angle2);
    }
  }
  return seen;
}

CFRect ACAD_HATCH::GetFRect() {
  return box_of(rings(Flattening())).rect();
}

CFRect ACAD_HATCH::GetFRect3D(double angle1, double angle2) {
  return box_of(rings_seen_from(angle1, angle2, Flattening())).rect();
}

void ACAD_HATCH::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  Flattening fine;
  fine.tolerance = std::fabs(coor->DPtoFP(1)) / 4;
  fine.most_chords = 2000;
  draw_rings(dc, coor, rings(fine), dx, dy);
}

void ACAD_HATCH::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  if (dc == nullptr || coor == nullptr) return;
  draw_rings(dc, coor, rings_seen_from(angle1, angle2, Flattening()), 0, 0);
}

void ACAD_HATCH::draw_rings(CDC* dc, CFCoor* coor, const std::vector<Ring>& rings, double dx,
                            double dy) {
  if (rings.empty()) return;
  if (m_bSolid == 0 && m_Patterns.IsEmpty()) set_lines(m_szPattern);
  const CanvasScope scope(dc);
  const DeviceArea device(dc, coor, dx, dy);
  const COLORREF color = drawing_color(*this);
  CRgn area;
  if (m_bSolid != 0) {
    CBrush brush;
    area_brush(*this, brush);
    if (device.has_figures() || fills_by_turns(rings, m_nHatchStyle)) {
      const std::vector<Ring> shown = rings_by_turns(rings, m_nHatchStyle);
      device.fill(shown.data(), shown.size(), ALTERNATE, brush);
    } else if (area_of(rings, m_nHatchStyle, device, area)) {
      scope.canvas().FillRgn(&area, &brush);
    }
  } else if (!m_Patterns.IsEmpty() && area_of(rings, m_nHatchStyle, device, area)) {
    const int state = dc->SaveDC();
    const bool by_region = wants_region_clip(device, rings);
    if (by_region) {
      device.make_clip(area);
      dc->SelectClipRgn(&area, RGN_AND);
    }
    CPen pen(GetPenStyle(), 1, color);
    CPen* const old_pen = dc->SelectObject(&pen);
    const PlaneBox box = box_of(rings);
    HatchLines lines(dc, coor, box, dx, dy);
    RingCuts cuts(rings, m_nHatchStyle);
    if (!by_region) lines.cut_by(&cuts);
    for (POSITION at = m_Patterns.GetHeadPosition(); at != nullptr;) {
      draw_family(lines, *static_cast<const HATCH_PATTERN_DATA*>(m_Patterns.GetNext(at)), box);
    }
    if (old_pen != nullptr) dc->SelectObject(old_pen);
    dc->RestoreDC(state);
  }
  if (m_bSelected == 0) return;
  for (const Ring& ring : rings) draw_grip(dc, device.to_device(ring.front()));
}

void ACAD_HATCH::DrawPattern(CDC* dc, const HATCH_PATTERN_DATA& pattern, const CFRect& box,
                             CFCoor* coor, double dx, double dy) const {
  if (dc == nullptr || coor == nullptr) return;
  const CanvasScope scope(dc);
  const PlaneBox bounds = plane_box(box);
  HatchLines lines(dc, coor, bounds, dx, dy);
  draw_family(lines, pattern, bounds);
}

void ACAD_HATCH::DrawLine(CDC* dc, const HATCH_PATTERN_DATA& pattern, double x, double y,
                          double angle, const CFRect& box, CFCoor* coor, double dx,
                          double dy) const {
  if (dc == nullptr || coor == nullptr) return;
  const CanvasScope scope(dc);
  HatchLines lines(dc, coor, plane_box(box), dx, dy);
  lines.draw_line(pattern, x, y, angle);
}

int ACAD_HATCH::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  Flattening coarse;
  coarse.most_chords = 32;
  bool any = false, all = true;
  for (const Ring& ring : rings_seen_from(angle1, angle2, coarse)) {
    std::vector<CFPoint> points;
    points.reserve(ring.size());
    for (const HatchPoint& p : ring) {
      points.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y), 0.0f);
    }
    const CFRegion area(points.data(), static_cast<int>(points.size()));
    if (hit_area(area, region, mode) != 0) {
      any = true;
    } else {
      all = false;
    }
  }
  return mode != 0 ? any && all : any;
}

int ACAD_HATCH::HitTest(const CFRect& rect, int mode, double angle1, double angle2) {
  return HitTest(CFRegion(rect), mode, angle1, angle2);
}

void ACAD_HATCH::Draw3D_Opengl() {
  scene_color(GetColorNew(m_nColor));
  for (const Ring& ring : rings(Flattening())) {
    std::vector<ScenePoint> points;
    points.reserve(ring.size());
    for (const HatchPoint& p : ring) points.push_back({p.x, p.y, m_dElevation[2]});
    scene_polyline(points.data(), static_cast<int>(points.size()), true);
  }
}

CFPoint ACAD_HATCH::Get_Max_Point() {
  const CFRect box = GetFRect();
  return CFPoint(box.right, box.top, static_cast<float>(m_dElevation[2]));
}

CFPoint ACAD_HATCH::Get_Min_Point() {
  const CFRect box = GetFRect();
  return CFPoint(box.left, box.bottom, static_cast<float>(m_dElevation[2]));
}

}  // namespace brindle::Varnholt
