// An arc parallel to the world's xy plane, counter-clockwise from its start to its end angle.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

class ACAD_ARC : public ACAD_ENTITY {
 public:
  ACAD_ARC() { ACAD_ENTITY::Ini(); }

  int GetType() override { return kEntityArc; }
  // The box of the end points and of the quadrant points that lie within the sweep.
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  using ACAD_ENTITY::HitTest;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  void Draw3D_Opengl() override;
  // A mirror in a plane through z moves the points only and leaves the angles.
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  ACAD_ENTITY* Clone() const override { return new ACAD_ARC(*this); }
  const EntitySchema* schema() const override;

  double x, y, z;
  double m_dRadius;
  double m_dStartAngle, m_dEndAngle;  // degrees
  double m_dLtScale;
};

}  // namespace brindle::Varnholt
