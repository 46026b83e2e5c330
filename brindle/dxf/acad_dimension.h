// A dimension: its definition points, and the name of the block that shows it.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

class ACAD_INSERT;

// The block holds the dimension's lines, arrows and text in the drawing's own coordinates, made by
// DXF::Write_DimVirtualBlock. Everything that is seen is that block, inserted at the origin; a
// dimension without a block shows nothing.
class ACAD_DIMENSION : public ACAD_ENTITY {
 public:
  enum DimType {
    kRotated = 0,
    kAligned = 1,
    kTwoLineAngular = 2,
    kDiametric = 3,
    kRadial = 4,
    kAngular = 5,
    kOrdinate = 6
  };

  ACAD_DIMENSION() { ACAD_DIMENSION::Ini(); }

  int ReadExtData(const wchar_t* code, const wchar_t* value, FILE* stream) override;
  int GetType() override { return kEntityDimension; }
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  using ACAD_ENTITY::HitTest;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  void Draw3D_Opengl() override;
  // Moves the definition points; m_dScale is multiplied by scale[0], m_dAngle follows the turn. The
  // block stays as it is: DXF::Write_DimVirtualBlock makes it anew.
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  void Ini() override;
  ACAD_ENTITY* Clone() const override { return new ACAD_DIMENSION(*this); }
  const EntitySchema* schema() const override;
  // Takes a new block name from the drawing and makes the block there.
  void joined(DXF& drawing) override;

  // m_nDimType without the flags 32, 64 and 128, which CAD programs add.
  int kind() const { return m_nDimType & ~0xe0; }
  // Makes the insert that shows this dimension: its block at the origin, with the dimension's
  // document, selection, colour and layer.
  void SetVirtDimInsert(ACAD_INSERT& insert) const;

  WText<100> m_szBlock;
  WText<100> m_szDimStyle;
  double x10, y10, z10;  // linear: on the dimension line; radial: centre; angular: on the arc
  double x11, y11, z11;  // middle of the text
  double x12, y12, z12;  // insertion point
  int m_nDimType;
  WText<100> m_szText;   // empty: the measurement; "<>" in it stands for the measurement
  double x13, y13, z13;  // linear: first measured point; angular: on the first side
  double x14, y14, z14;  // linear: second measured point; angular: on the second side
  double x15, y15, z15;  // radial: on the arc; angular: vertex
  double x16, y16, z16;
  double m_dLeader;
  double m_dAngle;         // degrees, of the dimension line
  double m_dScale;         // instead of DIMSCALE
  double m_dLengthFactor;  // instead of DIMLFAC
  WText<100> m_szTextPos;  // "TC", "TL", "TR", "BC", "BL" or "BR"
  int m_nJust;             // instead of DIMJUST
  int m_nFit;              // instead of DIMFIT
  int m_nTad;              // instead of DIMTAD

 protected:
  // The overrides of the style come as extended data of "QXDIMSTY" in front of the extended record;
  // those that a CAD program wrote for "ACAD" are understood too.
  void read_extended_pair(const DxfPair& pair, DxfPairReader& reader) override;
  void write_extended_record(DxfPairWriter& writer) const override;

 private:
  void read_overrides(DxfPairReader& reader);
  void set_override(int variable, double value);
};

}  // namespace brindle::Varnholt
