// A face of four corners in space, drawn as its outline 1, 2, 3, 4.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

class ACAD_3DFACE : public ACAD_ENTITY {
 public:
  ACAD_3DFACE() { ACAD_ENTITY::Ini(); }

  int GetType() override { return kEntity3dFace; }
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
  ACAD_ENTITY* Clone() const override { return new ACAD_3DFACE(*this); }
  const EntitySchema* schema() const override;
  bool counts_for_extreme_points() const override { return true; }

  double x1, y1, z1, x2, y2, z2, x3, y3, z3, x4, y4, z4;
};

}  // namespace brindle::Varnholt
