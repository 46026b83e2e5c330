#include "brindle/dxf/acad_arc.h"

#include <algorithm>
#include <cmath>

#include "brindle/dxf/acad_ltype.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/geometry/region.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;

template <class T>
void transfer_points(ACAD_ARC& arc, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(arc.x, arc.y, arc.z, rot, move, scale);
  if (scale != nullptr) arc.m_dRadius *= scale[0];
}

ACAD_ARC seen_from(ACAD_ARC arc, double angle1, double angle2) {
  project_point(arc.x, arc.y, arc.z, angle1, angle2);
  return arc;
}

// The sweep in radians, one turn added to a negative one.
double sweep_of(const ACAD_ARC& arc) {
  const double sweep = (arc.m_dEndAngle - arc.m_dStartAngle) * kDegree;
  return sweep < 0 ? sweep + 360 * kDegree : sweep;
}

// Direction of a multiple of 90 degrees, without rounding.
void quadrant_direction(long long quarter, double& cosine, double& sine) {
  static const double kCosine[] = {1, 0, -1, 0};
  const std::size_t i = static_cast<std::size_t>(((quarter % 4) + 4) % 4);
  cosine = kCosine[i];
  sine = kCosine[(i + 3) % 4];
}

}  // namespace

const EntitySchema* ACAD_ARC::schema() const {
  static const EntitySchema table(
      "ARC", true,
      {entity_number<&ACAD_ARC::x>(10, "x", 0), entity_number<&ACAD_ARC::y>(20, "y", 0),
       entity_number<&ACAD_ARC::z>(30, "z", 0),
       entity_number<&ACAD_ARC::m_dRadius>(40, "m_dRadius", 1),
       entity_number<&ACAD_ARC::m_dStartAngle>(50, "m_dStartAngle", 0),
       entity_number<&ACAD_ARC::m_dEndAngle>(51, "m_dEndAngle", 90),
       entity_number<&ACAD_ARC::m_dLtScale>(48, "m_dLtScale", 1)},
      {EntityStep(10), EntityStep(20), EntityStep(30), EntityStep(40), EntityStep(50),
       EntityStep(51), EntityStep(48)},
      {EntityStep("100\nAcDbCircle\n"), EntityStep(10), EntityStep(20), EntityStep(30),
       EntityStep(40), EntityStep("100\nAcDbArc\n"), EntityStep(50), EntityStep(51),
       EntityStep(48)});
  return &table;
}

CFRect ACAD_ARC::GetFRect() {
  const double start = m_dStartAngle;
  double end = m_dEndAngle;
  if (end < start) end += 360 * std::ceil((start - end) / 360);
  double left = x + m_dRadius * std::cos(start * kDegree), right = left;
  double bottom = y + m_dRadius * std::sin(start * kDegree), top = bottom;
  auto extend = [&](double cosine, double sine) {
    left = std::min(left, x + m_dRadius * cosine);
    right = std::max(right, x + m_dRadius * cosine);
    bottom = std::min(bottom, y + m_dRadius * sine);
    top = std::max(top, y + m_dRadius * sine);
  };
  extend(std::cos(end * kDegree), std::sin(end * kDegree));
  const double first = std::ceil(start / 90);
  if (std::fabs(first) < 1e15) {  // false for NaN: angles beyond reason have no quadrants
    for (int i = 0; i < 4 && (first + i) * 90 <= end; ++i) {
      double cosine = 0, sine = 0;
      quadrant_direction(static_cast<long long>(first) + i, cosine, sine);
      extend(cosine, sine);
    }
  }
  return CFRect(static_cast<float>(left), static_cast<float>(bottom), static_cast<float>(right),
                static_cast<float>(top));
}

CFRect ACAD_ARC::GetFRect3D(double angle1, double angle2) {
  return seen_from(*this, angle1, angle2).GetFRect();
}

void ACAD_ARC::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  if (dc == nullptr || coor == nullptr) return;
  CanvasScope scope(dc);
  ACAD_LTYPE* const ltype = GetLType(m_szLType);
  if (ltype == nullptr) return;
  const auto point_at = [&](double angle) {
    return to_device(coor, x + m_dRadius * std::cos(angle), y + m_dRadius * std::sin(angle), dx,
                     dy);
  };
  const CRect box = circle_box(coor, x + dx, y + dy, m_dRadius);
  const CPoint start = point_at(m_dStartAngle * kDegree), end = point_at(m_dEndAngle * kDegree);
  {
    const DashPattern dashes(*this, ltype, coor, m_dLtScale);
    const PenStyleScope style(*this);
    scope.canvas().PolyArc(&box, start, end, drawing_color(*this), dashes.count(), dashes.data(), 0,
                           0);
  }
  if (m_bSelected == 0) return;
  for (const CPoint at : {to_device(coor, x, y, dx, dy), start,
                          point_at(m_dStartAngle * kDegree + sweep_of(*this) / 2), end}) {
    draw_grip(dc, at);
  }
}

void ACAD_ARC::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  seen_from(*this, angle1, angle2).Draw(dc, coor, 0, 0);
}

int ACAD_ARC::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  const ACAD_ARC seen = seen_from(*this, angle1, angle2);
  const float sweep = static_cast<float>(sweep_of(seen));
  if (sweep == 0) return 0;  // nothing there, and no straight section either
  const CFPoint centre(static_cast<float>(seen.x), static_cast<float>(seen.y), 0);
  const CFShape shape(centre, static_cast<float>(m_dRadius),
                      static_cast<float>(m_dStartAngle * kDegree), sweep);
  return hit_shape(shape, region, mode);
}

void ACAD_ARC::Draw3D_Opengl() {
  scene_color(GetColorNew(m_nColor));
  scene_arc({x, y, z}, m_dRadius, m_dStartAngle * kDegree, sweep_of(*this));
}

int ACAD_ARC::Transfer(double* rot, double* move, double* scale) {
  transfer_points(*this, rot, move, scale);
  turn_angle(m_dStartAngle, rot);
  turn_angle(m_dEndAngle, rot);
  return 1;
}

int ACAD_ARC::Transfer(float* rot, float* move, float* scale) {
  transfer_points(*this, rot, move, scale);
  turn_angle(m_dStartAngle, rot);
  turn_angle(m_dEndAngle, rot);
  return 1;
}

}  // namespace brindle::Varnholt
