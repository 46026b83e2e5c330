// A filled area of four corners, with the outline 1, 2, 4, 3.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

// Three corners are given by repeating the third as the fourth.
class ACAD_SOLID : public ACAD_ENTITY {
 public:
  ACAD_SOLID() { ACAD_ENTITY::Ini(); }

  int GetType() override { return kEntitySolid; }
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  int HitTest(const CFRect& rect, int mode, double angle1, double angle2) override;
  void Draw3D_Opengl() override;
  CFPoint Get_Max_Point() override;
  CFPoint Get_Min_Point() override;
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  ACAD_ENTITY* Clone() const override { return new ACAD_SOLID(*this); }
  const EntitySchema* schema() const override;

  double x1, y1, z1, x2, y2, z2, x3, y3, z3, x4, y4, z4;
};

}  // namespace brindle::Varnholt
