// A circle parallel to the world's xy plane.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

class ACAD_CIRCLE : public ACAD_ENTITY {
 public:
  ACAD_CIRCLE() { ACAD_ENTITY::Ini(); }

  int GetType() override { return kEntityCircle; }
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  using ACAD_ENTITY::HitTest;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  void Draw3D_Opengl() override;
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  ACAD_ENTITY* Clone() const override { return new ACAD_CIRCLE(*this); }
  const EntitySchema* schema() const override;

  double x, y, z;
  double m_dRadius;
  double m_dLtScale;
};

}  // namespace brindle::Varnholt
