// A drawing with a pen: a current layer, colour, line type and text style, and a local frame in
// space that every drawing call passes through.
#pragma once

#include <memory>

#include "brindle/dxf/dxf.h"
#include "brindle/platform/base/list.h"
#include "brindle/platform/base/wide_text.h"

namespace brindle {

// Points go into the drawing by the frame: turned by the rotation, scaled, shifted by the origin.
// Lengths are drawing units, angles degrees. Each Draw_* gives what the Write_* of its kind gives:
// the new entity, null on failure.
class CDXF_3D : public DXF {
 public:
  CDXF_3D();
  ~CDXF_3D() override;

  // --- environment
  // 1; 0 and the old value for a text that the field can't hold.
  int SetCurColor(int index);
  int SetCurColor(const wchar_t* colour);
  int SetCurLayer(const wchar_t* layer);
  int SetCurStyle(const wchar_t* style);
  int SetCurLType(const wchar_t* ltype);
  // "BYLAYER", layer "0", style "STANDARD", the identical frame, the pen at 0, and an empty stack.
  void Set_Default_ENV();
  // Saves the environment, all but the stack; takes the last saved one back. 0 with nothing changed
  // when memory is out or the stack is empty.
  int Push_ENV();
  int Pop_ENV();
  // "DASHED", "DOT" and "DASHDOT".
  void Add_Default_LineType();

  // A point of the frame into the drawing.
  void Convert_XY(float& x, float& y, float& z) const;
  void Convert_XY(double& x, double& y, double& z) const;

  // --- drawing, in the frame. Radii, widths and text heights aren't turned: radii scale by the
  // frame's x scale, heights by m_fScaleText, widths by m_fScaleWidth.
  Varnholt::ACAD_POINT* Draw_Point(double x, double y, double z);
  Varnholt::ACAD_LINE* Draw_Line(double x1, double y1, double z1, double x2, double y2, double z2,
                                 double ltScale = 1);
  Varnholt::ACAD_TEXT* Draw_Text(double x, double y, double z, double height, double angle,
                                 const wchar_t* text);
  Varnholt::ACAD_CIRCLE* Draw_Circle(double x, double y, double z, double r, double ltScale = 1);
  Varnholt::ACAD_ARC* Draw_Arc(double x, double y, double z, double r, double startDeg,
                               double endDeg, double ltScale = 1);
  // Arrays of n values each; `flags` 0 open, 1 closed.
  Varnholt::ACAD_POLYLINE* Draw_Pline(int n, const double* x, const double* y, const double* z,
                                      const double* bulge, int flags, const double* startWidth,
                                      const double* endWidth, double ltScale = 1);
  Varnholt::ACAD_POLYLINE* Draw_Pline(int n, const float* x, const float* y, const float* z,
                                      const float* bulge, int flags, const float* startWidth,
                                      const float* endWidth, float ltScale = 1);
  // Without bulges and widths.
  Varnholt::ACAD_POLYLINE* Draw_Pline(int n, const double* x, const double* y, const double* z,
                                      int flags, double ltScale = 1);
  // One segment.
  Varnholt::ACAD_POLYLINE* Draw_Pline(double x1, double y1, double z1, double x2, double y2,
                                      double z2, double startWidth, double endWidth,
                                      double ltScale = 1);
  // An arc of a circle about (x, y, z) in the plane of the frame's x and y, counter-clockwise from
  // start to end (degrees), as a polyline of two points and a bulge.
  Varnholt::ACAD_POLYLINE* Draw_PArc(double x, double y, double z, double r, double startDeg,
                                     double endDeg, double startWidth, double endWidth);
  Varnholt::ACAD_SOLID* Draw_Solid(double x1, double y1, double z1, double x2, double y2, double z2,
                                   double x3, double y3, double z3, double x4, double y4,
                                   double z4);
  Varnholt::ACAD_3DFACE* Draw_3DFace(double x1, double y1, double z1, double x2, double y2,
                                     double z2, double x3, double y3, double z3, double x4,
                                     double y4, double z4);
  // The n - 1 segments between n points; 0 when one of them fails.
  int Draw_Lines(int n, const float* x, const float* y, const float* z);

  // --- the pen, in the frame. The relative forms count from where it stands. Each moves the pen,
  // LineTo and PlineTo also draw from its old place.
  void MoveTo(float x, float y, float z);
  void MoveTo_Relative(float x, float y, float z);
  Varnholt::ACAD_LINE* LineTo(float x, float y, float z);
  Varnholt::ACAD_LINE* LineTo_Relative(float x, float y, float z);
  Varnholt::ACAD_POLYLINE* PlineTo(float x, float y, float z, float startWidth, float endWidth);
  Varnholt::ACAD_POLYLINE* PlineTo_Relative(float x, float y, float z, float startWidth,
                                            float endWidth);

  // --- data
  WText<100> m_szCurColor, m_szCurLayer, m_szCurStyle, m_szCurLType;
  float m_fScaleText, m_fScaleWidth;  // factors on text heights and on widths
  float m_fOrgX, m_fOrgY, m_fOrgZ;
  float m_fScaleX, m_fScaleYZ;
  float m_fRotate[9];  // 3x3, row-major
  float m_fCurX, m_fCurY, m_fCurZ;
  CPtrList m_EnvStack;  // saved copies, the last one at the head; owned

 private:
  struct Environment;

  void clear_stack();
  template <class T>
  void convert(T& x, T& y, T& z) const;
  template <class T>
  Varnholt::ACAD_POLYLINE* polyline(int n, const T* x, const T* y, const T* z, const T* bulge,
                                    int flags, const T* startWidth, const T* endWidth, T ltScale);
};

// A new drawing in memory mode with the text style "HZ"; owned by the caller, null when memory is
// out.
CDXF_3D* NewMem3DDxf();

}  // namespace brindle
