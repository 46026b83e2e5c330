#include "brindle/dxf/acad_line.h"

#include <algorithm>

#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"

namespace brindle::Varnholt {
namespace {

template <class T>
void transfer(ACAD_LINE& line, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(line.x1, line.y1, line.z1, rot, move, scale);
  ACAD_ENTITY::TransOne(line.x2, line.y2, line.z2, rot, move, scale);
  if (scale != nullptr) line.m_dLtScale *= scale[0];
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
  ACAD_LINE seen(*this);
  project_point(seen.x1, seen.y1, seen.z1, angle1, angle2);
  project_point(seen.x2, seen.y2, seen.z2, angle1, angle2);
  return seen.GetFRect();
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
