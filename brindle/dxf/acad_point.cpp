#include "brindle/dxf/acad_point.h"

#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"

namespace brindle::Varnholt {
namespace {

constexpr float kHalfBox = 10.0f;

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
  ACAD_POINT seen(*this);
  project_point(seen.x, seen.y, seen.z, angle1, angle2);
  return seen.GetFRect();
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
