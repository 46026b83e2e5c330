// Closed boundaries filled with a colour or with a pattern of lines.
#pragma once

#include <vector>

#include "brindle/dxf/acad_entity.h"
#include "brindle/dxf/hatch_boundary.h"
#include "brindle/dxf/hatch_pattern.h"
#include "brindle/platform/base/array.h"
#include "brindle/platform/base/list.h"

namespace brindle::Varnholt {

// In an R12 file a hatch stands in the AC1015 form, subclass markers included, with its extended
// record in front; m_bWrite 0 leaves it out.
class ACAD_HATCH : public ACAD_ENTITY {
 public:
  ACAD_HATCH() { ACAD_HATCH::Ini(); }
  // Deep copies.
  ACAD_HATCH(const ACAD_HATCH& other);
  ACAD_HATCH& operator=(const ACAD_HATCH& other);
  ~ACAD_HATCH() override { delete_lists(); }

  int GetType() override { return kEntityHatch; }
  CFRect GetFRect() override;
  CFRect GetFRect3D(double angle1, double angle2) override;
  // A hatch without lines, as some files have it, takes those of its pattern's name first; see
  // hatch_pattern_file.
  void Draw(CDC* dc, CFCoor* coor, double dx, double dy) override;
  void Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) override;
  int HitTest(const CFRegion& region, int mode, double angle1, double angle2) override;
  int HitTest(const CFRect& rect, int mode, double angle1, double angle2) override;
  void Draw3D_Opengl() override;
  CFPoint Get_Max_Point() override;
  CFPoint Get_Min_Point() override;
  int Transfer(double* rot, double* move, double* scale) override;
  int Transfer(float* rot, float* move, float* scale) override;

  void Ini() override;
  ACAD_ENTITY* Clone() const override { return new ACAD_HATCH(*this); }
  const EntitySchema* schema() const override;
  int read_from(DxfPairReader& reader) override;
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;

  // Draws the lines of one family that pass the box (world units, before the shift). The middle one
  // runs through the box's centre plus the family's base point. Lines that lie closer than the
  // device can show are drawn as if they were that far apart; a spacing of 0 gives one line.
  void DrawPattern(CDC* dc, const HATCH_PATTERN_DATA& pattern, const CFRect& box, CFCoor* coor,
                   double dx, double dy) const;
  // Draws the line through a point (world units, the dashes start there) in direction `angle`
  // (radians) to the box's edge both ways.
  void DrawLine(CDC* dc, const HATCH_PATTERN_DATA& pattern, double x, double y, double angle,
                const CFRect& box, CFCoor* coor, double dx, double dy) const;
  // The nearest whole number; 0.5 goes to 0 and -0.5 to -1. The nearest int beyond an int's range,
  // 0 for NaN.
  static int Cell(double v);

  // Lines of the pattern of a name, from a file, turned by m_dAngle and scaled by m_dScale; they
  // replace those there are. 0 with a message when the file or the name isn't there. The file is
  // remembered (set_hatch_pattern_file).
  int setPartternItem(const wchar_t* file, const wchar_t* name);
  // One polyline path through the points; the bulges may be fewer.
  template <class T>
  void setBoundary(const CArray<T>& x, const CArray<T>& y, const CArray<T>& bulge);
  // The path becomes the hatch's, behind those there are.
  void setBoundary(HATCH_BOUNDARY_DATA* path);

  void setLayer(const wchar_t* layer) { m_szLayer = layer; }
  void setElevation(double x, double y, double z);
  void setNormal(double x, double y, double z);
  void setSolidFlag(int solid) { m_bSolid = solid; }
  void setNumBoundary(int count) { m_nBoundary = count; }
  void setAssociative(int associative) { m_bAssociative = associative; }
  void setHatchStyle(int style) { m_nHatchStyle = style; }
  void setPatLines(int count) { m_nPatLines = count; }
  void setParttern(const wchar_t* name) { m_szPattern = name; }

  const wchar_t* layer() const { return m_szLayer; }
  int associative() const { return m_bAssociative; }
  const double* elevation() const { return m_dElevation; }  // 3 values
  const double* normal() const { return m_dNormal; }        // 3 values
  int solidFlag() const { return m_bSolid; }
  int numBoundary() const { return m_nBoundary; }
  int hatchStyle() const { return m_nHatchStyle; }
  int patLines() const { return m_nPatLines; }
  const wchar_t* parttern() const { return m_szPattern; }
  CPtrList& boundary() { return m_Boundaries; }
  const CPtrList& boundary() const { return m_Boundaries; }

  double m_dElevation[3];
  double m_dNormal[3];
  WText<100> m_szPattern;
  int m_bSolid;
  int m_bAssociative;
  int m_nBoundary;     // number of paths, as a file tells it
  int m_nHatchStyle;   // 0 by turns from outside, 1 outermost areas, 2 all
  int m_nPatternType;  // 0 user's, 1 predefined, 2 custom
  double m_dAngle;     // degrees
  double m_dScale;
  int m_bDouble;    // 77
  int m_nPatLines;  // 78: number of families, as a file tells it
  int m_nSeeds;     // 98: number of seed points, as a file tells it
  CArray<double> m_SeedX, m_SeedY;
  CPtrList m_Boundaries{10};  // HATCH_BOUNDARY_DATA*, owned
  CPtrList m_Patterns{10};    // HATCH_PATTERN_DATA*, owned
  double m_dPixelSize;        // kept, without effect

 private:
  using Ring = std::vector<HatchPoint>;

  void delete_lists();
  bool set_lines(const wchar_t* name);
  // The paths as rings of points, world units.
  std::vector<Ring> rings(const Flattening& how) const;
  std::vector<Ring> rings_seen_from(double angle1, double angle2, const Flattening& how) const;
  void draw_rings(CDC* dc, CFCoor* coor, const std::vector<Ring>& rings, double dx, double dy);
  template <class T>
  int transfer(const T* rot, const T* move, const T* scale);
};

extern template void ACAD_HATCH::setBoundary(const CArray<float>&, const CArray<float>&,
                                             const CArray<float>&);
extern template void ACAD_HATCH::setBoundary(const CArray<double>&, const CArray<double>&,
                                             const CArray<double>&);

}  // namespace brindle::Varnholt
