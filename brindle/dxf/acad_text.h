// A single line of text.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

class ACAD_TEXT : public ACAD_ENTITY {
 public:
  ACAD_TEXT() { Ini(); }

  // A text that holds a line end can't be carried by one line of the file: it is blanked, here and
  // in the file, before it is written.
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;
  int GetType() override { return kEntityText; }
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  // Starts at the insertion point whatever the alignment: readers and pens resolve that before.
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  using ACAD_ENTITY::HitTest;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  using ACAD_ENTITY::Draw3D_Opengl;
  // The scene's form, in the outline font that CShx::FormTxtList has made; it lies in the world's
  // xy plane. Nothing without a device.
  void Draw3D_Opengl(CDC* dc);
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;
  void Ini() override;
  ACAD_ENTITY* Clone() const override { return new ACAD_TEXT(*this); }
  const EntitySchema* schema() const override;
  // Takes the width factor from the style when the file had none; a blank text is dropped.
  bool finish_reading() override;

  // Width in world units, "%%" counted as "%"; 0 without a document.
  double GetWidth() const;
  // The corners (0, 0), (w, 0), (w, h), (0, h), turned by m_dAngle about the first one and shifted
  // to the insertion point. xs and ys take four values each.
  void GetOutLook(float* xs, float* ys) const;
  // The offset from the insertion point at which a text of width w starts under its alignment,
  // turned with the text.
  void GetDxDy(float w, float& dx, float& dy) const;
  // True for nothing but blanks.
  bool IsEmpty() const;

  int m_bHasWidth;  // a width factor (41) stood in the file
  double x, y, z;
  double m_dHeight;
  WText<500> m_szText;
  WText<100> m_szStyle;
  double m_dAngle;  // degrees
  double m_dWidthFactor;
  int m_nHAlign, m_nVAlign;  // groups 72 and 73
  double x2, y2, z2;         // alignment point
  int m_bOpaque;             // opaque background, drawn last
  int m_bItalic;

 private:
  // The text as it stands under two axonometric angles, z 0.
  ACAD_TEXT seen_from(double angle1, double angle2) const;
};

}  // namespace brindle::Varnholt
