#include "brindle/dxf/acad_line.h"

#include <algorithm>
#include <cstdlib>

#include "brindle/dxf/acad_ltype.h"
#include "brindle/dxf/cad_platform_option.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/dxf/symbol_line.h"
#include "brindle/geometry/region.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

template <class T>
void transfer(ACAD_LINE& line, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(line.x1, line.y1, line.z1, rot, move, scale);
  ACAD_ENTITY::TransOne(line.x2, line.y2, line.z2, rot, move, scale);
  if (scale != nullptr) line.m_dLtScale *= scale[0];
}

ACAD_LINE seen_from(ACAD_LINE line, double angle1, double angle2) {
  project_point(line.x1, line.y1, line.z1, angle1, angle2);
  project_point(line.x2, line.y2, line.z2, angle1, angle2);
  return line;
}

// Whether a line is too short to be shown.
bool is_detail(CPoint from, CPoint to) {
  const CSize way = to - from;
  const auto small = [](int pixels) {
    return std::abs(static_cast<long long>(pixels)) <= G_cCADPlatOption.m_nLodDotPixels;
  };
  return G_cCADPlatOption.m_bLodLine != 0 && small(way.cx) && small(way.cy);
}

}  // namespace

const EntitySchema* ACAD_LINE::schema() const {
  static const EntitySchema table(
      "LINE", true,
      {entity_number<&ACAD_LINE::x1>(10, "x1", 0), entity_number<&ACAD_LINE::y1>(20, "y1", 0),
       entity_number<&ACAD_LINE::z1>(30, "z1", 0), entity_number<&ACAD_LINE::x2>(11, "x2", 1),
       entity_number<&ACAD_LINE::y2>(21, "y2", 1), entity_number<&ACAD_LINE::z2>(31, "z2", 1),
       entity_number<&ACAD_LINE::m_dLtScale>(48, "m_dLtScale", 1)},
      {EntityStep(10), EntityStep(20), EntityStep(30), EntityStep(11), EntityStep(21),
       EntityStep(31), EntityStep(48)},
      {EntityStep("100\nAcDbLine\n"), EntityStep(10), EntityStep(20), EntityStep(30),
       EntityStep(11), EntityStep(21), EntityStep(31), EntityStep(48)});
  return &table;
}

CFRect ACAD_LINE::GetFRect() {
  return CFRect(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                static_cast<float>(y2));
}

CFRect ACAD_LINE::GetFRect3D(double angle1, double angle2) {
  return seen_from(*this, angle1, angle2).GetFRect();
}

void ACAD_LINE::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  CanvasScope scope(dc);
  ACAD_LTYPE* const ltype = GetLType(m_szLType);
  if (ltype == nullptr) return;
  const CPoint from = to_device(coor, x1, y1, dx, dy), to = to_device(coor, x2, y2, dx, dy);
  if (is_symbol_line_type(m_szLType) || is_symbol_line_type(ltype->m_szName)) {
    draw_symbol_line(dc, coor, *this, *ltype, m_dLtScale, x1 + dx, y1 + dy, x2 + dx, y2 + dy);
  } else {
    if (is_detail(from, to)) return;
    const DashPattern dashes(*this, ltype, coor, m_dLtScale);
    const PenStyleScope style(*this);
    scope.canvas().PolyLine(from, to, drawing_color(*this), dashes.count(), dashes.data(), 0, 0);
  }
  if (m_bSelected != 0) {
    draw_grip(dc, from);
    draw_grip(dc, to);
  }
}

void ACAD_LINE::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  seen_from(*this, angle1, angle2).Draw(dc, coor, 0, 0);
}

int ACAD_LINE::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  const ACAD_LINE seen = seen_from(*this, angle1, angle2);
  const CFPoint from(static_cast<float>(seen.x1), static_cast<float>(seen.y1), 0);
  const CFPoint to(static_cast<float>(seen.x2), static_cast<float>(seen.y2), 0);
  return hit_shape(CFShape(from, to), region, mode);
}

void ACAD_LINE::Draw3D_Opengl() {
  const ScenePoint ends[] = {{x1, y1, z1}, {x2, y2, z2}};
  scene_color(GetColorNew(m_nColor));
  scene_polyline(ends, 2, false);
}

CFPoint ACAD_LINE::Get_Max_Point() {
  return CFPoint(static_cast<float>(std::max(x1, x2)), static_cast<float>(std::max(y1, y2)),
                 static_cast<float>(std::max(z1, z2)));
}

CFPoint ACAD_LINE::Get_Min_Point() {
  return CFPoint(static_cast<float>(std::min(x1, x2)), static_cast<float>(std::min(y1, y2)),
                 static_cast<float>(std::min(z1, z2)));
}

int ACAD_LINE::Transfer(double* rot, double* move, double* scale) {
  transfer(*this, rot, move, scale);
  return 1;
}

int ACAD_LINE::Transfer(float* rot, float* move, float* scale) {
  transfer(*this, rot, move, scale);
  return 1;
}

}  // namespace brindle::Varnholt
