#include "brindle/dxf/dxf_3d.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <string>
#include <vector>

#include "brindle/dxf/default_line_types.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr float kIdentity[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
constexpr double kRadiansOfDegree = 3.14159265358979323846 / 180.0;

// Takes a text that the field can hold whole.
int set_field(WText<100>& field, const wchar_t* text) {
  if (text == nullptr || std::wstring_view(text).size() > WText<100>::kCapacity) return 0;
  field = text;
  return 1;
}

}  // namespace

// What Push_ENV saves.
struct CDXF_3D::Environment {
  WText<100> color, layer, style, ltype;
  float scale_text, scale_width;
  float org[3], scale[2], rotate[9], cur[3];
};

CDXF_3D::CDXF_3D() {
  Set_Default_ENV();
}

CDXF_3D::~CDXF_3D() {
  clear_stack();
}

void CDXF_3D::clear_stack() {
  while (!m_EnvStack.IsEmpty()) delete static_cast<Environment*>(m_EnvStack.RemoveHead());
}

int CDXF_3D::SetCurColor(int index) {
  return SetCurColor(wformat(L"%d", index).c_str());
}
int CDXF_3D::SetCurColor(const wchar_t* colour) {
  return set_field(m_szCurColor, colour);
}
int CDXF_3D::SetCurLayer(const wchar_t* layer) {
  return set_field(m_szCurLayer, layer);
}
int CDXF_3D::SetCurStyle(const wchar_t* style) {
  return set_field(m_szCurStyle, style);
}
int CDXF_3D::SetCurLType(const wchar_t* ltype) {
  return set_field(m_szCurLType, ltype);
}

void CDXF_3D::Set_Default_ENV() {
  m_szCurColor = L"BYLAYER";
  m_szCurLayer = L"0";
  m_szCurStyle = L"STANDARD";
  m_szCurLType = L"BYLAYER";
  m_fScaleText = m_fScaleWidth = 1;
  m_fOrgX = m_fOrgY = m_fOrgZ = 0;
  m_fScaleX = m_fScaleYZ = 1;
  std::copy_n(kIdentity, 9, m_fRotate);
  m_fCurX = m_fCurY = m_fCurZ = 0;
  clear_stack();
}

int CDXF_3D::Push_ENV() {
  auto* saved = new (std::nothrow) Environment{m_szCurColor,
                                               m_szCurLayer,
                                               m_szCurStyle,
                                               m_szCurLType,
                                               m_fScaleText,
                                               m_fScaleWidth,
                                               {m_fOrgX, m_fOrgY, m_fOrgZ},
                                               {m_fScaleX, m_fScaleYZ},
                                               {},
                                               {m_fCurX, m_fCurY, m_fCurZ}};
  if (saved == nullptr) return 0;
  std::copy_n(m_fRotate, 9, saved->rotate);
  m_EnvStack.AddHead(saved);
  return 1;
}

int CDXF_3D::Pop_ENV() {
  if (m_EnvStack.IsEmpty()) return 0;
  const std::unique_ptr<Environment> saved(static_cast<Environment*>(m_EnvStack.RemoveHead()));
  m_szCurColor = saved->color;
  m_szCurLayer = saved->layer;
  m_szCurStyle = saved->style;
  m_szCurLType = saved->ltype;
  m_fScaleText = saved->scale_text;
  m_fScaleWidth = saved->scale_width;
  m_fOrgX = saved->org[0];
  m_fOrgY = saved->org[1];
  m_fOrgZ = saved->org[2];
  m_fScaleX = saved->scale[0];
  m_fScaleYZ = saved->scale[1];
  std::copy_n(saved->rotate, 9, m_fRotate);
  m_fCurX = saved->cur[0];
  m_fCurY = saved->cur[1];
  m_fCurZ = saved->cur[2];
  return 1;
}

void CDXF_3D::Add_Default_LineType() {
  add_default_line_types(*this);
}

template <class T>
void CDXF_3D::convert(T& x, T& y, T& z) const {
  const float* m = m_fRotate;
  const T u = m[0] * x + m[1] * y + m[2] * z;
  const T v = m[3] * x + m[4] * y + m[5] * z;
  const T w = m[6] * x + m[7] * y + m[8] * z;
  x = u * m_fScaleX + m_fOrgX;
  y = v * m_fScaleYZ + m_fOrgY;
  z = w * m_fScaleYZ + m_fOrgZ;
}

void CDXF_3D::Convert_XY(float& x, float& y, float& z) const {
  convert(x, y, z);
}
void CDXF_3D::Convert_XY(double& x, double& y, double& z) const {
  convert(x, y, z);
}

ACAD_POINT* CDXF_3D::Draw_Point(double x, double y, double z) {
  convert(x, y, z);
  return Write_Point(x, y, z, m_szCurLayer);
}

ACAD_LINE* CDXF_3D::Draw_Line(double x1, double y1, double z1, double x2, double y2, double z2,
                              double ltScale) {
  convert(x1, y1, z1);
  convert(x2, y2, z2);
  return Write_Line(x1, y1, z1, x2, y2, z2, ltScale, m_szCurLayer, m_szCurColor, m_szCurLType);
}

ACAD_TEXT* CDXF_3D::Draw_Text(double x, double y, double z, double height, double angle,
                              const wchar_t* text) {
  convert(x, y, z);
  return Write_Text(x, y, z, height * m_fScaleText, angle, text, m_szCurStyle, m_szCurLayer,
                    m_szCurColor, m_szCurLType);
}

ACAD_CIRCLE* CDXF_3D::Draw_Circle(double x, double y, double z, double r, double ltScale) {
  convert(x, y, z);
  return Write_Circle(x, y, z, r * m_fScaleX, ltScale, m_szCurLayer, m_szCurColor, m_szCurLType);
}

ACAD_ARC* CDXF_3D::Draw_Arc(double x, double y, double z, double r, double startDeg, double endDeg,
                            double ltScale) {
  convert(x, y, z);
  return Write_Arc(x, y, z, r * m_fScaleX, startDeg, endDeg, ltScale, m_szCurLayer, m_szCurColor,
                   m_szCurLType);
}

template <class T>
ACAD_POLYLINE* CDXF_3D::polyline(int n, const T* x, const T* y, const T* z, const T* bulge,
                                 int flags, const T* startWidth, const T* endWidth, T ltScale) {
  if (n < 1) return nullptr;
  const auto count = static_cast<std::size_t>(n);
  std::vector<T> xs(x, x + n), ys(y, y + n), zs(z, z + n);
  const std::vector<T> none(count, T{0});
  for (std::size_t i = 0; i < count; ++i) convert(xs[i], ys[i], zs[i]);
  return Write_Pline(n, xs.data(), ys.data(), zs.data(), bulge != nullptr ? bulge : none.data(),
                     flags, startWidth != nullptr ? startWidth : none.data(),
                     endWidth != nullptr ? endWidth : none.data(), ltScale, m_szCurLayer,
                     m_szCurColor, m_szCurLType);
}

ACAD_POLYLINE* CDXF_3D::Draw_Pline(int n, const double* x, const double* y, const double* z,
                                   const double* bulge, int flags, const double* startWidth,
                                   const double* endWidth, double ltScale) {
  return polyline(n, x, y, z, bulge, flags, startWidth, endWidth, ltScale);
}
ACAD_POLYLINE* CDXF_3D::Draw_Pline(int n, const float* x, const float* y, const float* z,
                                   const float* bulge, int flags, const float* startWidth,
                                   const float* endWidth, float ltScale) {
  return polyline(n, x, y, z, bulge, flags, startWidth, endWidth, ltScale);
}
ACAD_POLYLINE* CDXF_3D::Draw_Pline(int n, const double* x, const double* y, const double* z,
                                   int flags, double ltScale) {
  return polyline<double>(n, x, y, z, nullptr, flags, nullptr, nullptr, ltScale);
}

ACAD_POLYLINE* CDXF_3D::Draw_Pline(double x1, double y1, double z1, double x2, double y2, double z2,
                                   double startWidth, double endWidth, double ltScale) {
  const double x[] = {x1, x2}, y[] = {y1, y2}, z[] = {z1, z2};
  const double starts[] = {startWidth * m_fScaleWidth, startWidth * m_fScaleWidth};
  const double ends[] = {endWidth * m_fScaleWidth, endWidth * m_fScaleWidth};
  return polyline<double>(2, x, y, z, nullptr, 0, starts, ends, ltScale);
}

ACAD_POLYLINE* CDXF_3D::Draw_PArc(double x, double y, double z, double r, double startDeg,
                                  double endDeg, double startWidth, double endWidth) {
  const double start = startDeg * kRadiansOfDegree;
  double sweep = (endDeg - startDeg) * kRadiansOfDegree;
  if (sweep < 0) sweep += 360 * kRadiansOfDegree;
  const double end = start + sweep;
  const double xs[] = {x + r * std::cos(start), x + r * std::cos(end)};
  const double ys[] = {y + r * std::sin(start), y + r * std::sin(end)};
  const double zs[] = {z, z};
  const double bulge[] = {std::tan(sweep / 4), 0};
  const double starts[] = {startWidth, startWidth}, ends[] = {endWidth, endWidth};
  return polyline<double>(2, xs, ys, zs, bulge, 0, starts, ends, 1);
}

ACAD_SOLID* CDXF_3D::Draw_Solid(double x1, double y1, double z1, double x2, double y2, double z2,
                                double x3, double y3, double z3, double x4, double y4, double z4) {
  convert(x1, y1, z1);
  convert(x2, y2, z2);
  convert(x3, y3, z3);
  convert(x4, y4, z4);
  return Write_Solid(x1, y1, z1, x2, y2, z2, x3, y3, z3, x4, y4, z4, m_szCurLayer, m_szCurColor,
                     m_szCurLType);
}

ACAD_3DFACE* CDXF_3D::Draw_3DFace(double x1, double y1, double z1, double x2, double y2, double z2,
                                  double x3, double y3, double z3, double x4, double y4,
                                  double z4) {
  convert(x1, y1, z1);
  convert(x2, y2, z2);
  convert(x3, y3, z3);
  convert(x4, y4, z4);
  return Write_3DFace(x1, y1, z1, x2, y2, z2, x3, y3, z3, x4, y4, z4, m_szCurLayer, m_szCurColor,
                      m_szCurLType);
}

int CDXF_3D::Draw_Lines(int n, const float* x, const float* y, const float* z) {
  int drawn = 1;
  for (int i = 0; i + 1 < n; ++i) {
    if (Draw_Line(x[i], y[i], z[i], x[i + 1], y[i + 1], z[i + 1]) == nullptr) drawn = 0;
  }
  return drawn;
}

void CDXF_3D::MoveTo(float x, float y, float z) {
  m_fCurX = x;
  m_fCurY = y;
  m_fCurZ = z;
}

void CDXF_3D::MoveTo_Relative(float x, float y, float z) {
  MoveTo(m_fCurX + x, m_fCurY + y, m_fCurZ + z);
}

ACAD_LINE* CDXF_3D::LineTo(float x, float y, float z) {
  const float from[] = {m_fCurX, m_fCurY, m_fCurZ};
  MoveTo(x, y, z);
  return Draw_Line(from[0], from[1], from[2], x, y, z);
}

ACAD_LINE* CDXF_3D::LineTo_Relative(float x, float y, float z) {
  return LineTo(m_fCurX + x, m_fCurY + y, m_fCurZ + z);
}

ACAD_POLYLINE* CDXF_3D::PlineTo(float x, float y, float z, float startWidth, float endWidth) {
  const float from[] = {m_fCurX, m_fCurY, m_fCurZ};
  MoveTo(x, y, z);
  return Draw_Pline(from[0], from[1], from[2], x, y, z, startWidth, endWidth);
}

ACAD_POLYLINE* CDXF_3D::PlineTo_Relative(float x, float y, float z, float startWidth,
                                         float endWidth) {
  return PlineTo(m_fCurX + x, m_fCurY + y, m_fCurZ + z, startWidth, endWidth);
}

CDXF_3D* NewMem3DDxf() {
  auto drawing = std::unique_ptr<CDXF_3D>(new (std::nothrow) CDXF_3D);
  if (drawing == nullptr || drawing->New_MemDxf() == 0) return nullptr;
  drawing->Add_STyle(L"HZ", L"txt", L"hztxt", 0, 0.75);
  drawing->Write_Tables();
  return drawing.release();
}

}  // namespace brindle
