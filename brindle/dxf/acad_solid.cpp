#include "brindle/dxf/acad_solid.h"

#include <algorithm>

#include "brindle/dxf/device_area_internal.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/four_corners_internal.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"

namespace brindle::Varnholt {

CFPoint largest_of(const FourCorners& c) {
  const auto largest = [&](double ScenePoint::*axis) {
    return static_cast<float>(std::max({c[0].*axis, c[1].*axis, c[2].*axis, c[3].*axis}));
  };
  return CFPoint(largest(&ScenePoint::x), largest(&ScenePoint::y), largest(&ScenePoint::z));
}

CFPoint smallest_of(const FourCorners& c) {
  const auto smallest = [&](double ScenePoint::*axis) {
    return static_cast<float>(std::min({c[0].*axis, c[1].*axis, c[2].*axis, c[3].*axis}));
  };
  return CFPoint(smallest(&ScenePoint::x), smallest(&ScenePoint::y), smallest(&ScenePoint::z));
}

int hit_corners(const FourCorners& corners, const CFRegion& region, int mode) {
  CFPoint points[4];
  for (int i = 0; i < 4; ++i) {
    const ScenePoint& corner = corners[static_cast<std::size_t>(i)];
    points[i] = CFPoint(static_cast<float>(corner.x), static_cast<float>(corner.y), 0);
  }
  return hit_area(CFRegion(points, 4), region, mode);
}

const EntitySchema* ACAD_SOLID::schema() const {
  static const EntitySchema table("SOLID", true, corner_fields<ACAD_SOLID>(), corner_steps(nullptr),
                                  corner_steps("100\nAcDbTrace\n"));
  return &table;
}

CFRect ACAD_SOLID::GetFRect() {
  return corner_box(*this);
}

CFRect ACAD_SOLID::GetFRect3D(double angle1, double angle2) {
  return corner_box(corners_seen_from(*this, angle1, angle2));
}

void ACAD_SOLID::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  const CanvasScope scope(dc);
  const FourCorners outline = outline_of_solid(corners_of(*this));
  const DeviceArea area(dc, coor, dx, dy);
  DeviceArea::Ring ring;
  for (const ScenePoint& corner : outline) ring.push_back({corner.x, corner.y});
  CBrush brush;
  area_brush(*this, brush);
  area.fill(&ring, 1, WINDING, brush);
  if (m_bSelected == 0) return;
  for (const ScenePoint& corner : outline) {
    draw_grip(dc, to_device(coor, corner.x, corner.y, dx, dy));
  }
}

void ACAD_SOLID::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  corners_seen_from(*this, angle1, angle2).Draw(dc, coor, 0, 0);
}

int ACAD_SOLID::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  const ACAD_SOLID seen = corners_seen_from(*this, angle1, angle2);
  return hit_corners(outline_of_solid(corners_of(seen)), region, mode);
}

int ACAD_SOLID::HitTest(const CFRect& rect, int mode, double angle1, double angle2) {
  return HitTest(CFRegion(rect), mode, angle1, angle2);
}

void ACAD_SOLID::Draw3D_Opengl() {
  scene_color(GetColorNew(m_nColor));
  scene_polygon(outline_of_solid(corners_of(*this)).data(), 4);
}

CFPoint ACAD_SOLID::Get_Max_Point() {
  return largest_of(corners_of(*this));
}

CFPoint ACAD_SOLID::Get_Min_Point() {
  return smallest_of(corners_of(*this));
}

int ACAD_SOLID::Transfer(double* rot, double* move, double* scale) {
  return transfer_corners<ACAD_SOLID, double>(*this, rot, move, scale);
}

int ACAD_SOLID::Transfer(float* rot, float* move, float* scale) {
  return transfer_corners<ACAD_SOLID, float>(*this, rot, move, scale);
}

}  // namespace brindle::Varnholt
