// The primitives of the pen: each passes through the transform and lands as an entity.
#include <cmath>
#include <new>

#include "brindle/dxf/shx_font.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_placing_internal.h"

namespace brindle {

using namespace Varnholt;

namespace {

// Texts at angles above the first and up to the second would read upside down.
constexpr float kUprightUpTo = 91.0f, kTurnedUpTo = 271.0f;

}  // namespace

ACAD_POINT* CBase_SGT::Draw_Point(float x, float y) {
  Convert_XY(x, y);
  return Write_Point(x, y, 0, m_szCurLayer);
}

ACAD_LINE* CBase_SGT::Draw_Line(float x1, float y1, float x2, float y2, float ltScale) {
  Convert_XY(x1, y1);
  Convert_XY(x2, y2);
  return Write_Line(x1, y1, 0, x2, y2, 0, ltScale, m_szCurLayer, m_szCurColor, m_szCurLType);
}

ACAD_CIRCLE* CBase_SGT::Draw_Circle(float x, float y, float r, float ltScale) {
  Convert_XY(x, y);
  return Write_Circle(x, y, 0, r * m_fScaleXY, ltScale, m_szCurLayer, m_szCurColor, m_szCurLType);
}

ACAD_ARC* CBase_SGT::Draw_Arc(float x, float y, float r, float start, float end, float ltScale) {
  Convert_XY(x, y);
  return Write_Arc(x, y, 0, r * m_fScaleXY, start + m_fRotate, end + m_fRotate, ltScale,
                   m_szCurLayer, m_szCurColor, m_szCurLType);
}

ACAD_TEXT* CBase_SGT::Draw_Text(float x, float y, float height, float angle, const wchar_t* text) {
  if (text == nullptr) return nullptr;
  Convert_XY(x, y);
  height *= m_fScaleText;
  angle += m_fRotate;
  if (angle > kUprightUpTo && angle <= kTurnedUpTo) {
    float dx = G_ShapeFont.GetTxtWidth(text, height, 0.75f), dy = height;
    rotate_coordinate(-radians_of(angle), &dx, &dy);
    x += dx;
    y += dy;
    angle += 180;
    if (angle >= 360) angle -= 360;
  }
  return Write_Text(x, y, 0, height, angle, text, m_szCurStyle, m_szCurLayer, m_szCurColor,
                    m_szCurLType);
}

ACAD_POLYLINE* CBase_SGT::Draw_Pline(double x1, double y1, double x2, double y2, double startWidth,
                                     double endWidth, double ltScale) {
  Convert_XY(x1, y1);
  Convert_XY(x2, y2);
  const double x[] = {x1, x2}, y[] = {y1, y2};
  const double start = startWidth * m_fScaleWidth, end = endWidth * m_fScaleWidth;
  const double starts[] = {start, start}, ends[] = {end, end};
  return Write_Pline(2, x, y, nullptr, nullptr, 0, starts, ends, ltScale, m_szCurLayer,
                     m_szCurColor, m_szCurLType);
}

ACAD_POLYLINE* CBase_SGT::Draw_Pline(int n, float* x, float* y, const float* bulge, int closed,
                                     float* startWidth, float* endWidth, float ltScale) {
  if (n < 2 || x == nullptr || y == nullptr) return nullptr;
  for (int i = 0; i < n; ++i) {
    Convert_XY(x[i], y[i]);
    if (startWidth != nullptr) startWidth[i] *= m_fScaleXY;
    if (endWidth != nullptr) endWidth[i] *= m_fScaleXY;
  }
  try {
    return Write_Pline(n, x, y, nullptr, bulge, closed, startWidth, endWidth, ltScale, m_szCurLayer,
                       m_szCurColor, m_szCurLType);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

ACAD_POLYLINE* CBase_SGT::Draw_Pline(int n, float* x, float* y, int closed, float ltScale) {
  return Draw_Pline(n, x, y, nullptr, closed, nullptr, nullptr, ltScale);
}

ACAD_POLYLINE* CBase_SGT::Draw_PArc(float x, float y, float r, float start, float end,
                                    float startWidth, float endWidth) {
  Convert_XY(x, y);
  r *= m_fScaleXY;
  const auto first = radians_of(start + m_fRotate);
  const auto last = radians_of(end + m_fRotate);
  const float xs[] = {x + r * std::cos(last), x + r * std::cos(first)};
  const float ys[] = {y + r * std::sin(last), y + r * std::sin(first)};
  const float bulges[] = {-std::tan((last - first) / 4), 0};
  const float starts[] = {startWidth, startWidth}, ends[] = {endWidth, endWidth};
  return Write_Pline(2, xs, ys, nullptr, bulges, 0, starts, ends, 1.0f, m_szCurLayer, m_szCurColor,
                     m_szCurLType);
}

ACAD_SOLID* CBase_SGT::Draw_Solid(float x1, float y1, float x2, float y2, float x3, float y3,
                                  float x4, float y4) {
  Convert_XY(x1, y1);
  Convert_XY(x2, y2);
  Convert_XY(x3, y3);
  Convert_XY(x4, y4);
  return Write_Solid(x1, y1, 0, x2, y2, 0, x3, y3, 0, x4, y4, 0, m_szCurLayer, m_szCurColor,
                     m_szCurLType);
}

ACAD_3DFACE* CBase_SGT::Draw_3DFace(float x1, float y1, float x2, float y2, float x3, float y3,
                                    float x4, float y4) {
  Convert_XY(x1, y1);
  Convert_XY(x2, y2);
  Convert_XY(x3, y3);
  Convert_XY(x4, y4);
  return Write_3DFace(x1, y1, 0, x2, y2, 0, x3, y3, 0, x4, y4, 0, m_szCurLayer, m_szCurColor,
                      m_szCurLType);
}

namespace {

// Copies of the points in the drawing, one for each x.
template <class T>
void convert_points(const CBase_SGT& pen, const CArray<T>& x, const CArray<T>& y, CArray<T>& to_x,
                    CArray<T>& to_y) {
  const INT_PTR n = x.GetSize();
  to_x.SetSize(n);
  to_y.SetSize(n);
  for (INT_PTR i = 0; i < n; ++i) {
    to_x[i] = x[i];
    to_y[i] = y[i];
    pen.Convert_XY(to_x[i], to_y[i]);
  }
}

}  // namespace

ACAD_HATCH* CBase_SGT::Draw_Hatch(const CArray<float>& x, const CArray<float>& y,
                                  const CArray<float>& bulge, const wchar_t* patternFile,
                                  const wchar_t* patternName, float angle, float scale, bool solid,
                                  bool associative, int style) {
  CArray<float> xs, ys;
  convert_points(*this, x, y, xs, ys);
  return Write_Hatch(xs, ys, bulge, patternFile, patternName, scale, angle + m_fRotate, solid,
                     associative, style, m_szCurLayer, m_szCurColor);
}

ACAD_HATCH* CBase_SGT::Draw_Hatch(const CArray<double>& x, const CArray<double>& y,
                                  const CArray<double>& bulge, const wchar_t* patternFile,
                                  const wchar_t* patternName, double angle, double scale,
                                  bool solid, bool associative, int style) {
  CArray<double> xs, ys;
  convert_points(*this, x, y, xs, ys);
  return Write_Hatch(xs, ys, bulge, patternFile, patternName, scale, angle + m_fRotate, solid,
                     associative, style, m_szCurLayer, m_szCurColor);
}

void CBase_SGT::Draw_Lines(int n, const float* x, const float* y) {
  for (int i = 1; i < n; ++i) Draw_Line(x[i - 1], y[i - 1], x[i], y[i]);
}

ACAD_LINE* CBase_SGT::Draw_Line_Rotate_Shift(float angle_rad, float dx, float dy, float x1,
                                             float y1, float x2, float y2) {
  rotate_coordinate(-angle_rad, &x1, &y1);
  rotate_coordinate(-angle_rad, &x2, &y2);
  return Draw_Line(x1 + dx, y1 + dy, x2 + dx, y2 + dy);
}

ACAD_POLYLINE* CBase_SGT::Draw_PLine_Rotate_Shift(float angle_rad, float dx, float dy, float x1,
                                                  float y1, float x2, float y2, float width) {
  rotate_coordinate(-angle_rad, &x1, &y1);
  rotate_coordinate(-angle_rad, &x2, &y2);
  return Draw_Pline(x1 + dx, y1 + dy, x2 + dx, y2 + dy, width, width);
}

ACAD_POLYLINE* CBase_SGT::Draw_DoNut(float x, float y, float innerR, float outerR) {
  const float r = (innerR + outerR) / 2, width = std::fabs(outerR - innerR);
  float xs[] = {x, x}, ys[] = {y + r, y - r}, starts[] = {width, width}, ends[] = {width, width};
  const float bulges[] = {1, 1};
  return Draw_Pline(2, xs, ys, bulges, 1, starts, ends);
}

ACAD_POLYLINE* CBase_SGT::Draw_DoNut_RW(float x, float y, float r, float w) {
  return Draw_DoNut(x, y, r - w / 2, r + w / 2);
}

ACAD_POLYLINE* CBase_SGT::Draw_YuanDian(float x, float y, float r) {
  return Draw_DoNut(x, y, 0, r);
}

void CBase_SGT::MoveTo(float x, float y) {
  m_fCurX = x;
  m_fCurY = y;
}

void CBase_SGT::MoveTo_Relative(float dx, float dy) {
  MoveTo(m_fCurX + dx, m_fCurY + dy);
}

ACAD_LINE* CBase_SGT::LineTo(float x, float y) {
  ACAD_LINE* line = Draw_Line(m_fCurX, m_fCurY, x, y);
  MoveTo(x, y);
  return line;
}

ACAD_LINE* CBase_SGT::LineTo_Relative(float dx, float dy) {
  return LineTo(m_fCurX + dx, m_fCurY + dy);
}

ACAD_POLYLINE* CBase_SGT::PlineTo(float x, float y, float startWidth, float endWidth) {
  ACAD_POLYLINE* line = Draw_Pline(m_fCurX, m_fCurY, x, y, startWidth, endWidth);
  MoveTo(x, y);
  return line;
}

ACAD_POLYLINE* CBase_SGT::PlineTo_Relative(float dx, float dy, float startWidth, float endWidth) {
  return PlineTo(m_fCurX + dx, m_fCurY + dy, startWidth, endWidth);
}

}  // namespace brindle
