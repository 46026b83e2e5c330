#include "brindle/dxf/acad_arc.h"

#include <algorithm>
#include <cmath>

#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"

namespace brindle::Varnholt {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;

template <class T>
void transfer_points(ACAD_ARC& arc, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(arc.x, arc.y, arc.z, rot, move, scale);
  if (scale != nullptr) arc.m_dRadius *= scale[0];
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
  ACAD_ARC seen(*this);
  project_point(seen.x, seen.y, seen.z, angle1, angle2);
  return seen.GetFRect();
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
