// A block placed in a drawing.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

// What is seen of an insert is a copy of the block's entities, each moved by Transfer with the
// arrays of SetTransferCondition: turned, scaled, shifted, in this order. The block's base point
// takes no part. A missing block is no fault: nothing is seen, the box is zero, no test passes.
//
// Inserts in inserts end at a depth of 32, and a picture ends when it has taken the entities that
// block_walk_internal.h allows for one insert or one pass; the user is told once a drawing.
class ACAD_INSERT : public ACAD_ENTITY {
 public:
  ACAD_INSERT() { ACAD_ENTITY::Ini(); }

  int GetType() override { return kEntityInsert; }
  // The union of the moved entities' boxes; those without a box take no part.
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  // Entities in the block's order with its document and selection. The shift goes to the block's
  // own entities only; an inner insert or dimension is drawn without it, which is meant.
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  using ACAD_ENTITY::HitTest;
  // Mode other than 0: every visible entity passes; 0: one does.
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  void Draw3D_Opengl() override;
  // m_dAngle gains the turn about z, m_dScaleX and m_dScaleY are multiplied by scale[0], scale[4].
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  ACAD_ENTITY* Clone() const override { return new ACAD_INSERT(*this); }
  const EntitySchema* schema() const override;

  // The arrays by which the block's entities move: three values of move, nine of rot and scale.
  void SetTransferCondition(float* move, float* rot, float* scale) const;

  WText<100> m_szBlock;
  double x, y, z;
  double m_dScaleX, m_dScaleY;
  double m_dAngle;  // degrees
};

}  // namespace brindle::Varnholt
