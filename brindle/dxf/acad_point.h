// A point. Its file form has neither line type nor colour.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

class ACAD_POINT : public ACAD_ENTITY {
 public:
  ACAD_POINT() { ACAD_ENTITY::Ini(); }

  int GetType() override { return kEntityPoint; }
  // 10 world units to each side of the point, whatever the size of the drawing.
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  using ACAD_ENTITY::HitTest;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  void Draw3D_Opengl() override;
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  ACAD_ENTITY* Clone() const override { return new ACAD_POINT(*this); }
  const EntitySchema* schema() const override;

  double x, y, z;
};

}  // namespace brindle::Varnholt
