// Rebar: bars along and in section, stirrups, ties; and the texts that name them.
#include <algorithm>
#include <cmath>

#include "brindle/geometry/helpers.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_dimension_parts_internal.h"
#include "brindle/sketch/pen/pen_placing_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr int kMostPoints = 20;
constexpr std::size_t kTextRoom = 40;  // characters of a bar's text
// The CAD font shows the grades from 1 on under the character codes from 130 on.
constexpr int kLastGrade = 14, kGradeBase = 129;

// The scope of everything in rebar colour.
class RebarScope : public EnvironmentScope {
 public:
  explicit RebarScope(CBase_SGT& pen) : EnvironmentScope(pen) { pen.SetCurColor(pen.m_szGJColor); }
};

bool is_grade(int grade) {
  return grade >= 1 && grade <= kLastGrade;
}
wchar_t grade_character(int grade) {
  return static_cast<wchar_t>(grade + kGradeBase);
}

}  // namespace

ACAD_POLYLINE* CBase_SGT::Draw_XianGangJin(float x1, float y1, float x2, float y2) {
  const RebarScope scope(*this);
  return Draw_Pline(x1, y1, x2, y2, m_fGJPen, m_fGJPen);
}

ACAD_POLYLINE* CBase_SGT::Draw_XianGangJin(int n, const float* x, const float* y) {
  if (n < 2) return nullptr;
  const RebarScope scope(*this);
  n = std::min(n, kMostPoints);
  float xs[kMostPoints], ys[kMostPoints], starts[kMostPoints], ends[kMostPoints];
  std::copy_n(x, n, xs);
  std::copy_n(y, n, ys);
  std::fill_n(starts, n, m_fGJPen);
  std::fill_n(ends, n, m_fGJPen);
  return Draw_Pline(n, xs, ys, nullptr, 0, starts, ends);
}

ACAD_POLYLINE* CBase_SGT::Draw_YuanDianGangJin(float x, float y, float fx, float fy) {
  const RebarScope scope(*this);
  const float r = m_fGJDot / 2;
  return Draw_YuanDian(x + fx * r, y + fy * r, r);
}

ACAD_POLYLINE* CBase_SGT::Draw_DoNutGangJin(float x, float y, float innerR, float outerR) {
  const RebarScope scope(*this);
  return Draw_DoNut(x, y, innerR, outerR);
}

void CBase_SGT::Draw_RectGangJin_C(float w, float h, float cx, float cy, float angle, float k) {
  const RebarScope scope(*this);
  const float less = k * m_fGJPen;
  Draw_Rect_C(w - less, h - less, cx, cy, angle, m_fGJPen);
}

void CBase_SGT::Draw_RectGangJin_LB(float w, float h, float left, float bottom, float angle) {
  const RebarScope scope(*this);
  Draw_Rect_LB(w, h, left, bottom, angle, m_fGJPen);
}

void CBase_SGT::Draw_RectGangJin_C_CutL(float w, float h, float cx, float cy, float angle,
                                        float cut, float gap, float k) {
  const RebarScope scope(*this);
  const float less = k * m_fGJPen;
  Draw_Rect_C_CutL(w - less, h - less, cx, cy, angle, m_fGJPen, cut, gap);
}

void CBase_SGT::Draw_RectGangJin_LB_CutL(float w, float h, float left, float bottom, float angle,
                                         float cut, float gap) {
  const RebarScope scope(*this);
  Draw_Rect_LB_CutL(w, h, left, bottom, angle, m_fGJPen, cut, gap);
}

void CBase_SGT::Draw_XianGangJin_Out_2PraLine(float x1, float y1, float x2, float y2) {
  const RebarScope scope(*this);
  Draw_PLine_Out_2PraLine(x1, y1, x2, y2, m_fGJPen);
}

// The two points are bars that the tie runs about, one on each side of its leg.
void CBase_SGT::Draw_LaJieJin(float x1, float y1, float x2, float y2, int flip) {
  const float d = (m_fGJDot + m_fGJPen) / 2;
  const float distance = get_dist(x1, y1, x2, y2);
  // Bars that touch leave no straight leg.
  const float leg = std::sqrt(std::max(distance * distance - 4 * d * d, 0.0f));
  const float left = -leg / 2 - d, right = leg / 2 + d;
  float x[] = {left + 2 * d, left, left, right, right, right - 2 * d};
  float y[] = {2 * d, 2 * d, 0, 0, -2 * d, -2 * d};
  const bool flipped = flip == 1;
  const float lean = std::atan2(d, leg / 2);
  const float turn = static_cast<float>(get_line_angle(x1, y1, x2, y2)) + (flipped ? -lean : lean);
  for (int i = 0; i < 6; ++i) {
    if (flipped) y[i] = -y[i];
    rotate_coordinate(-turn, &x[i], &y[i]);
    shift_coordinate(-(x1 + x2) / 2, -(y1 + y2) / 2, &x[i], &y[i]);
  }
  Draw_XianGangJin(6, x, y);
}

void CBase_SGT::FormString_GJ_nqd(wchar_t* out, int count, int grade, int diameter) {
  if (!is_grade(grade)) return;
  brindle::swprintf(out, kTextRoom, L"%d%c%d", count, grade_character(grade), diameter);
}

void CBase_SGT::FormString_GJ_qdas(wchar_t* out, int grade, int diameter, int spacing) {
  if (!is_grade(grade)) return;
  brindle::swprintf(out, kTextRoom, L"%c%d@%d", grade_character(grade), diameter, spacing);
}

void CBase_SGT::FormString_GJX_nqd(wchar_t* out, int count, int diameter) {
  constexpr wchar_t kStrand = 130;
  const wchar_t* wires = diameter == 9 ? L"3" : diameter == 12 ? L"4" : diameter == 15 ? L"5" : L"";
  brindle::swprintf(out, kTextRoom, L"%d-7%c%s", count, kStrand, wires);
}

}  // namespace brindle
