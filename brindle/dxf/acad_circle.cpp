#include "brindle/dxf/acad_circle.h"

#include "brindle/dxf/acad_ltype.h"
#include "brindle/dxf/cad_platform_option.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

template <class T>
void transfer(ACAD_CIRCLE& circle, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(circle.x, circle.y, circle.z, rot, move, scale);
  if (scale != nullptr) circle.m_dRadius *= scale[0];
}

constexpr double kFullTurn = 2 * 3.14159265358979323846;

ACAD_CIRCLE seen_from(ACAD_CIRCLE circle, double angle1, double angle2) {
  project_point(circle.x, circle.y, circle.z, angle1, angle2);
  return circle;
}

// A circle of few pixels: nothing for the smallest, a box for the next. False for a larger one.
bool draw_coarsely(CDC* dc, const CRect& box, double radius, COLORREF color) {
  if (G_cCADPlatOption.m_bLodCircle == 0) return false;
  if (radius <= G_cCADPlatOption.m_nLodDotPixels) return true;
  if (!(radius <= G_cCADPlatOption.m_nLodBoxPixels)) return false;
  CBrush brush(color);
  dc->FrameRect(&box, &brush);
  return true;
}

}  // namespace

const EntitySchema* ACAD_CIRCLE::schema() const {
  static const EntitySchema table(
      "CIRCLE", true,
      {entity_number<&ACAD_CIRCLE::x>(10, "x", 0), entity_number<&ACAD_CIRCLE::y>(20, "y", 0),
       entity_number<&ACAD_CIRCLE::z>(30, "z", 0),
       entity_number<&ACAD_CIRCLE::m_dRadius>(40, "m_dRadius", 1),
       entity_number<&ACAD_CIRCLE::m_dLtScale>(48, "m_dLtScale", 1)},
      {EntityStep(10), EntityStep(20), EntityStep(30), EntityStep(40), EntityStep(48)},
      {EntityStep("100\nAcDbCircle\n"), EntityStep(10), EntityStep(20), EntityStep(30),
       EntityStep(40), EntityStep(48)});
  return &table;
}

CFRect ACAD_CIRCLE::GetFRect() {
  return CFRect(static_cast<float>(x - m_dRadius), static_cast<float>(y - m_dRadius),
                static_cast<float>(x + m_dRadius), static_cast<float>(y + m_dRadius));
}

CFRect ACAD_CIRCLE::GetFRect3D(double angle1, double angle2) {
  return seen_from(*this, angle1, angle2).GetFRect();
}

void ACAD_CIRCLE::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  CanvasScope scope(dc);
  ACAD_LTYPE* const ltype = GetLType(m_szLType);
  if (ltype == nullptr) return;
  const COLORREF color = drawing_color(*this);
  const CRect box = circle_box(coor, x + dx, y + dy, m_dRadius);
  if (draw_coarsely(dc, box, coor->FPtoDP(m_dRadius), color)) return;
  const CPoint right = to_device(coor, x + m_dRadius, y, dx, dy);
  const CPoint left = to_device(coor, x - m_dRadius, y, dx, dy);
  {
    const DashPattern dashes(*this, ltype, coor, m_dLtScale);
    const PenStyleScope style(*this);
    CSafeDC& canvas = scope.canvas();
    canvas.PolyArc(&box, right, left, color, dashes.count(), dashes.data(), 0, 0);
    canvas.PolyArc(&box, left, right, color, dashes.count(), dashes.data(), 0, 0);
  }
  if (m_bSelected == 0) return;
  for (const CPoint at :
       {to_device(coor, x, y, dx, dy), right, to_device(coor, x, y + m_dRadius, dx, dy), left,
        to_device(coor, x, y - m_dRadius, dx, dy)}) {
    draw_grip(dc, at);
  }
}

void ACAD_CIRCLE::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  seen_from(*this, angle1, angle2).Draw(dc, coor, 0, 0);
}

int ACAD_CIRCLE::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  const ACAD_CIRCLE seen = seen_from(*this, angle1, angle2);
  const CFPoint centre(static_cast<float>(seen.x), static_cast<float>(seen.y), 0);
  const CFShape shape(centre, static_cast<float>(m_dRadius), 0, static_cast<float>(kFullTurn));
  return hit_shape(shape, region, mode);
}

void ACAD_CIRCLE::Draw3D_Opengl() {
  scene_color(GetColorNew(m_nColor));
  scene_arc({x, y, z}, m_dRadius, 0, kFullTurn);
}

int ACAD_CIRCLE::Transfer(double* rot, double* move, double* scale) {
  transfer(*this, rot, move, scale);
  return 1;
}

int ACAD_CIRCLE::Transfer(float* rot, float* move, float* scale) {
  transfer(*this, rot, move, scale);
  return 1;
}

}  // namespace brindle::Varnholt
