// Marks: elevations, section marks, break symbols, axis bubbles.
#include <cmath>
#include <string>

#include "brindle/geometry/helpers.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_dimension_parts_internal.h"
#include "brindle/sketch/pen/pen_placing_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"
#include "brindle/sketch/pen/pen_text_internal.h"

namespace brindle {
namespace {

constexpr float kZeroLevel = 0.0001f;     // heights below are the zero level, marked plus-minus
constexpr wchar_t kPlusMinus = 128;       // its character in the CAD font
constexpr float kLevelMark_mm = 3;        // height and half width of the triangle
constexpr float kLevelCharacter = 0.85f;  // room for a character, against the least text height
constexpr float kAxisRadius_mm = 4;
constexpr float kAcrossTextDrop = 0.7f;  // of its height, of a section's name across the line

}  // namespace

// In pen coordinates throughout: under a turned or scaled transform the mark turns and scales too.
void CBase_SGT::Draw_BiaoGao(float x, float y, float value, int left) {
  const bool zero = std::abs(value) < kZeroLevel;
  const std::wstring text = zero ? wformat(L"%c%.3f", kPlusMinus, value) : wformat(L"%.3f", value);
  const float length = text_length(text.c_str(), m_fZiGao[0]) * kLevelCharacter;
  const float mark = kLevelMark_mm * m_fBiLiChi, shelf = y + mark;

  const EnvironmentScope scope(*this);
  SetCurColor(m_szBZColor);
  Draw_Line(x, y, x - mark, shelf);
  Draw_Line(x, y, x + mark, shelf);
  float text_x = x;
  if (left != 0) {
    text_x = x - mark - length;
    Draw_Line(x + mark, shelf, text_x, shelf);
  } else {
    Draw_Line(x - mark, shelf, x + mark + length, shelf);
  }
  Draw_Text(text_x, shelf + m_fDimTextGap, m_fDimTextH, 0, text.c_str());
}

void CBase_SGT::Draw_PouXian(float x1, float y1, float x2, float y2, const wchar_t* text,
                             float length, float pen, float height, int along, int outside) {
  const EnvironmentScope scope(*this);
  Convert_XY(x1, y1);
  Convert_XY(x2, y2);
  reset_frame(*this);
  const float angle = line_angle_deg(x1, y1, x2, y2);
  float offset = pen;
  if (outside == 0) offset = -pen - (along != 0 ? height : height * kAcrossTextDrop);

  const float ends[][2] = {{x1, y1}, {x2, y2}};
  for (const auto& [x, y] : ends) {
    float xa = -length / 2, ya = 0, xb = length / 2, yb = 0, text_x = 0, text_y = offset;
    place_point(angle, x, y, &xa, &ya);
    place_point(angle, x, y, &xb, &yb);
    place_point(angle, x, y, &text_x, &text_y);
    Draw_Pline(xa, ya, xb, yb, pen, pen);
    Draw_Text(text_x, text_y, height, along != 0 ? angle : angle + 90, text);
  }
}

void CBase_SGT::Draw_PouXian(float x1, float y1, float x2, float y2, const wchar_t* text, int along,
                             int outside) {
  Draw_PouXian(x1, y1, x2, y2, text, m_fPouLen, m_fPouPen, m_fPouTextH, along, outside);
}

void CBase_SGT::Draw_Cut_Sym(float x1, float y1, float x2, float y2, float overrun, float height,
                             float step) {
  const EnvironmentScope scope(*this);
  Convert_XY(x1, y1);
  Convert_XY(x2, y2);
  reset_frame(*this);
  const float angle = line_angle_deg(x1, y1, x2, y2);
  const float length = get_dist(x1, y1, x2, y2), middle = length / 2;
  constexpr int kPoints = 6;
  float x[kPoints] = {-overrun,          middle - step, middle - step / 2,
                      middle + step / 2, middle + step, length + overrun};
  float y[kPoints] = {0, 0, height / 2, -height / 2, 0, 0};
  for (int i = 0; i < kPoints; ++i) place_point(angle, x1, y1, &x[i], &y[i]);
  Draw_Lines(kPoints, x, y);
}

void CBase_SGT::Draw_Cut_Sym(float x1, float y1, float x2, float y2) {
  Draw_Cut_Sym(x1, y1, x2, y2, m_fCutExt, m_fCutH, m_fCutW);
}

void CBase_SGT::Draw_ZhouFu(float x1, float y1, float x2, float y2, const wchar_t* text) {
  const EnvironmentScope scope(*this);
  SetCurColor(m_szBZColor);
  Convert_XY(x1, y1);
  Convert_XY(x2, y2);
  reset_transform(*this);
  Draw_Line(x1, y1, x2, y2);
  const float r = kAxisRadius_mm * m_fBiLiChi;
  float cx = r, cy = 0;
  place_point(line_angle_deg(x1, y1, x2, y2), x2, y2, &cx, &cy);
  Draw_Circle(cx, cy, r);
  if (text == nullptr || *text == L'\0') return;
  Draw_Text(cx - measured_width(text, m_fDimTextH) / 2, cy - m_fDimTextH / 2, m_fDimTextH, 0, text);
}

}  // namespace brindle
