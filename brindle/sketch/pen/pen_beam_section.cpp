// The section of a reinforced beam: outline, stirrup, axis, dimensions. The bars of its faces stand
// in pen_beam_section_bars.cpp.
#include <string>

#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_beam_section_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"

namespace brindle {
namespace {

constexpr float kLeastFlange = 1.0f;  // drawing units; what is smaller isn't a flange

// Against the height of the section, then paper mm below it.
constexpr float kAxisTop = 1.1f, kAxisBelow = 15;
// Stirrup: pen widths from the edge of the concrete to its middle, the height of its mark, and the
// mark's leader and shelf in paper mm.
constexpr float kStirrupInset = 1.5f, kStirrupMarkAt = 0.25f, kStirrupLeader = 5, kStirrupShelf = 5;
// Dimensions, paper mm.
constexpr float kHeightDimLeft = 25, kWidthDimBelow = 30, kDimExtension = 7;

// One side of the outline from the bottom up. `side` is the x of the web's edge, `out` the
// direction away from it.
void draw_side(CBase_SGT& pen, float side, float out, float h, float width, float thickness,
               int cut) {
  if (thickness <= kLeastFlange || width <= kLeastFlange) {
    pen.Draw_Line(side, 0, side, h);
    return;
  }
  const float under = h - thickness, end = side + out * width;
  pen.Draw_Line(side, 0, side, under);
  pen.Draw_Line(side, under, end, under);
  pen.Draw_Line(side, h, end, h);
  if (cut != 0) {
    pen.Draw_Cut_Sym(end, under, end, h);
  } else {
    pen.Draw_Line(end, under, end, h);
  }
}

void draw_stirrup(CBase_SGT& pen, float b, float h, const CLiangGuJin* stirrup) {
  const float inset = kStirrupInset * pen.m_fGJPen;
  pen.Draw_RectGangJin_C(b - 2 * inset, h - 2 * inset, b / 2, h / 2, 0, 0);
  if (stirrup == nullptr) return;
  wchar_t text[kBarTextRoom] = L"";
  CBase_SGT::FormString_GJ_qdas(text, stirrup->m_nGrade, stirrup->m_nDiameter, stirrup->m_nSpacing);
  pen.Draw_GangJin_BiaoZhu(b - inset, h * kStirrupMarkAt, kStirrupLeader, 0, kStirrupShelf,
                           stirrup->m_nMark, text);
}

}  // namespace

// Without a record of the stirrup it is drawn without its mark.
void CBase_SGT::Draw_Liang_Section(float x, float y, float unit, float b, float h, float leftWidth,
                                   float leftThickness, float rightWidth, float rightThickness,
                                   int leftCut, int rightCut, float /*unusedSize*/,
                                   const wchar_t* /*unusedText*/, const wchar_t* axisText,
                                   CLiangZongJin* top, CLiangZongJin* bottom, CLiangZongJin* left,
                                   CLiangZongJin* right, CLiangGuJin* stirrup,
                                   CLiangGuJin* /*unusedStirrup*/) {
  Convert_XY(x, y);
  const EnvironmentScope scope(*this);
  m_fOrgX = x;
  m_fOrgY = y;
  const std::wstring width_text = wformat(L"%.0f", b), height_text = wformat(L"%.0f", h);
  const float s = m_fBiLiChi, factor = s / unit;
  b *= factor;
  h *= factor;

  draw_side(*this, 0, -1, h, leftWidth * factor, leftThickness * factor, leftCut);
  draw_side(*this, b, 1, h, rightWidth * factor, rightThickness * factor, rightCut);
  Draw_Line(0, 0, b, 0);
  Draw_Line(0, h, b, h);
  Draw_ZhouFu(b / 2, h * kAxisTop, b / 2, -kAxisBelow * s, axisText);
  draw_stirrup(*this, b, h, stirrup);
  draw_beam_face(*this, BeamFace::kTop, b, h, top);
  draw_beam_face(*this, BeamFace::kBottom, b, h, bottom);
  draw_beam_face(*this, BeamFace::kLeft, b, h, left);
  draw_beam_face(*this, BeamFace::kRight, b, h, right);

  m_fDimExt1 = m_fDimExt2 = kDimExtension * s;
  const float dim_x = -kHeightDimLeft * s, dim_y = -kWidthDimBelow * s;
  Draw_Dim_Points(dim_x, 0, dim_x, h, height_text.c_str(), 1, 0);
  Draw_Dim_Points(0, dim_y, b, dim_y, width_text.c_str(), 1, 1);
}

}  // namespace brindle
