// A straight line between two points.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

class ACAD_LINE : public ACAD_ENTITY {
 public:
  ACAD_LINE() { ACAD_ENTITY::Ini(); }

  int GetType() override { return kEntityLine; }
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  using ACAD_ENTITY::HitTest;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  void Draw3D_Opengl() override;
  CFPoint Get_Max_Point() override;
  CFPoint Get_Min_Point() override;
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  ACAD_ENTITY* Clone() const override { return new ACAD_LINE(*this); }
  const EntitySchema* schema() const override;
  bool counts_for_extreme_points() const override { return true; }

  double x1, y1, z1, x2, y2, z2;
  double m_dLtScale;
};

}  // namespace brindle::Varnholt
