#include "brindle/dxf/acad_point.h"

#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/geometry/region.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

constexpr float kHalfBox = 10.0f;
constexpr int kPointColor = 7;

ACAD_POINT seen_from(ACAD_POINT point, double angle1, double angle2) {
  project_point(point.x, point.y, point.z, angle1, angle2);
  return point;
}

}  // namespace

const EntitySchema* ACAD_POINT::schema() const {
  static const EntitySchema table(
      "POINT", false,
      {entity_number<&ACAD_POINT::x>(10, "x", 0), entity_number<&ACAD_POINT::y>(20, "y", 0),
       entity_number<&ACAD_POINT::z>(30, "z", 0)},
      {EntityStep(10), EntityStep(20), EntityStep(30)},
      {EntityStep("100\nAcDbPoint\n"), EntityStep(10), EntityStep(20), EntityStep(30)});
  return &table;
}

CFRect ACAD_POINT::GetFRect() {
  const float px = static_cast<float>(x), py = static_cast<float>(y);
  return CFRect(px - kHalfBox, py - kHalfBox, px + kHalfBox, py + kHalfBox);
}

CFRect ACAD_POINT::GetFRect3D(double angle1, double angle2) {
  return seen_from(*this, angle1, angle2).GetFRect();
}

// White, or what shows on the background, whatever colour the point has.
void ACAD_POINT::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  CanvasScope scope(dc);
  const CPoint at = to_device(coor, x, y, dx, dy);
  scope.canvas().SetPixel(at, drawing_color(*this, kPointColor));
  if (m_bSelected != 0) draw_grip(dc, at);
}

void ACAD_POINT::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  seen_from(*this, angle1, angle2).Draw(dc, coor, 0, 0);
}

int ACAD_POINT::HitTest(const CFRegion& region, int, double angle1, double angle2) {
  const ACAD_POINT seen = seen_from(*this, angle1, angle2);
  return hit_shape(CFShape(static_cast<float>(seen.x), static_cast<float>(seen.y)), region, 0);
}

void ACAD_POINT::Draw3D_Opengl() {
  scene_color(GetColorNew(m_nColor));
  scene_point({x, y, z});
}

int ACAD_POINT::Transfer(double* rot, double* move, double* scale) {
  TransOne(x, y, z, rot, move, scale);
  return 1;
}

int ACAD_POINT::Transfer(float* rot, float* move, float* scale) {
  TransOne(x, y, z, rot, move, scale);
  return 1;
}

}  // namespace brindle::Varnholt
