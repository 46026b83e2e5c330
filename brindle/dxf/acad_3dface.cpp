#include "brindle/dxf/acad_3dface.h"

#include "brindle/dxf/acad_ltype.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/four_corners_internal.h"
#include "brindle/dxf/symbol_line.h"
#include "brindle/geometry/region.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {

const EntitySchema* ACAD_3DFACE::schema() const {
  static const EntitySchema table("3DFACE", true, corner_fields<ACAD_3DFACE>(),
                                  corner_steps(nullptr), corner_steps("100\nAcDbFace\n"));
  return &table;
}

CFRect ACAD_3DFACE::GetFRect() {
  return corner_box(*this);
}

CFRect ACAD_3DFACE::GetFRect3D(double angle1, double angle2) {
  return corner_box(corners_seen_from(*this, angle1, angle2));
}

void ACAD_3DFACE::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  const CanvasScope scope(dc);
  ACAD_LTYPE* const ltype = GetLType(m_szLType);
  if (ltype == nullptr) return;
  const bool symbols = is_symbol_line_type(m_szLType) || is_symbol_line_type(ltype->m_szName);
  const DashPattern dashes(*this, ltype, coor, 1);
  const COLORREF color = drawing_color(*this);
  const FourCorners corners = corners_of(*this);
  for (std::size_t i = 0; i < 4; ++i) {
    const ScenePoint &from = corners[i], &to = corners[(i + 1) % 4];
    const CPoint p = to_device(coor, from.x, from.y, dx, dy);
    if (symbols) {
      draw_symbol_line(dc, coor, *this, *ltype, 1, from.x + dx, from.y + dy, to.x + dx, to.y + dy);
    } else {
      const PenStyleScope style(*this);
      scope.canvas().PolyLine(p, to_device(coor, to.x, to.y, dx, dy), color, dashes.count(),
                              dashes.data(), 0, 0);
    }
    if (m_bSelected != 0) draw_grip(dc, p);
  }
}

void ACAD_3DFACE::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  corners_seen_from(*this, angle1, angle2).Draw(dc, coor, 0, 0);
}

int ACAD_3DFACE::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  return hit_corners(corners_of(corners_seen_from(*this, angle1, angle2)), region, mode);
}

int ACAD_3DFACE::HitTest(const CFRect& rect, int mode, double angle1, double angle2) {
  return HitTest(CFRegion(rect), mode, angle1, angle2);
}

void ACAD_3DFACE::Draw3D_Opengl() {
  scene_color(GetColorNew(m_nColor));
  scene_polygon(corners_of(*this).data(), 4);
}

CFPoint ACAD_3DFACE::Get_Max_Point() {
  return largest_of(corners_of(*this));
}

CFPoint ACAD_3DFACE::Get_Min_Point() {
  return smallest_of(corners_of(*this));
}

int ACAD_3DFACE::Transfer(double* rot, double* move, double* scale) {
  return transfer_corners<ACAD_3DFACE, double>(*this, rot, move, scale);
}

int ACAD_3DFACE::Transfer(float* rot, float* move, float* scale) {
  return transfer_corners<ACAD_3DFACE, float>(*this, rot, move, scale);
}

}  // namespace brindle::Varnholt
