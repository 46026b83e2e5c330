#include "brindle/dxf/acad_circle.h"

#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"

namespace brindle::Varnholt {
namespace {

template <class T>
void transfer(ACAD_CIRCLE& circle, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(circle.x, circle.y, circle.z, rot, move, scale);
  if (scale != nullptr) circle.m_dRadius *= scale[0];
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
  ACAD_CIRCLE seen(*this);
  project_point(seen.x, seen.y, seen.z, angle1, angle2);
  return seen.GetFRect();
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
