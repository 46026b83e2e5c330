// Dimensions made of loose lines: lengths in all their forms, and angles.
#include <cmath>

#include "brindle/geometry/helpers.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_dimension_parts_internal.h"
#include "brindle/sketch/pen/pen_placing_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"
#include "brindle/sketch/pen/pen_text_internal.h"

namespace brindle {

namespace {

constexpr float kLeastLength = 0.0001f, kLeastSweep = 1.0f;
constexpr float kHalfSqrt2 = 0.7071068f;
// Directions between these point left: a text of an angle there ends at the arc.
constexpr double kLeftFrom = 2.356194490192345, kLeftTo = 3.9269908169872414;

// Bits of m_nDimTextFlag: where a text goes that is wider than the dimension.
enum TextFlag { kLeftOfTick = 1, kRightOfTick = 2, kRaised = 4, kBelowExtensions = 8 };

struct Segment {
  float x1, y1, x2, y2;
};

}  // namespace

void CBase_SGT::Draw_Dim_Polar(float x, float y, float length, const wchar_t* text, float angle,
                               int side, int mode) {
  if (!(std::abs(length) >= kLeastLength)) return;
  SetCurColor(m_szBZColor);
  angle = folded_angle(angle);

  const bool up = mode != 0;
  const float t = 0.5f * m_fDimTick * kHalfSqrt2;
  Segment segments[] = {
      {0, up ? -m_fDimOver : -m_fDimExt1, 0, up ? m_fDimExt1 : m_fDimOver},
      {length, up ? -m_fDimOver : -m_fDimExt2, length, up ? m_fDimExt2 : m_fDimOver},
      {0, 0, length, 0},
      {-t, -t, t, t},
      {length - t, -t, length + t, t},
  };
  constexpr int kFirstTick = 3;
  const float width = measured_width(text, m_fDimTextH);
  // A flag that tells no place leaves the text where it goes without a flag.
  float text_x = length / 2 - width / 2;
  float text_y = side != 0 ? m_fDimTextGap : -m_fDimTextGap - m_fDimTextH;
  Cal_Text_Position(side, length, width, &text_x, &text_y);

  const auto place = [&](float* px, float* py) {
    *py -= m_fDimOffset;
    place_point(angle, x, y, px, py);
  };
  for (Segment& s : segments) {
    place(&s.x1, &s.y1);
    place(&s.x2, &s.y2);
    if (&s - segments < kFirstTick) {
      Draw_Line(s.x1, s.y1, s.x2, s.y2);
    } else {
      Draw_Pline(s.x1, s.y1, s.x2, s.y2, m_fDimPen, m_fDimPen);
    }
  }
  place(&text_x, &text_y);
  Draw_Text(text_x, text_y, m_fDimTextH, angle, text);
}

void CBase_SGT::Draw_Dim_Polar(float x, float y, float length, float angle, int side, int mode) {
  Draw_Dim_Polar(x, y, length, print_dimension(*this, m_nDimDec, length), angle, side, mode);
}

void CBase_SGT::Draw_Dim_Points(float x1, float y1, float x2, float y2, const wchar_t* text,
                                int side, int mode) {
  Draw_Dim_Polar(x1, y1, get_dist(x1, y1, x2, y2), text, line_angle_deg(x1, y1, x2, y2), side,
                 mode);
}

void CBase_SGT::Draw_Dim_Points(float x1, float y1, float x2, float y2, int side, int mode) {
  Draw_Dim_Polar(x1, y1, get_dist(x1, y1, x2, y2), line_angle_deg(x1, y1, x2, y2), side, mode);
}

void CBase_SGT::Draw_Dim_Points(int n, const float* x, const float* y, int reverse, int side,
                                int mode) {
  for_each_pair(n, x, y, reverse, [&](float x1, float y1, float x2, float y2) {
    Draw_Dim_Points(x1, y1, x2, y2, side, mode);
  });
}

void CBase_SGT::Cal_Text_Position(int side, float length, float textWidth, float* x,
                                  float* y) const {
  const float centred = length / 2 - textWidth / 2;
  const float beside = 0.6f * m_fDimTick * kHalfSqrt2;
  const float above = m_fDimTextGap;
  if (length > textWidth || m_nDimTextFlag == 0) {
    *x = centred;
    *y = side != 0 ? above : -above - m_fDimTextH;
  } else if ((m_nDimTextFlag & kBelowExtensions) != 0) {
    *x = centred;
    *y = -m_fDimOver - above - m_fDimTextH;
  } else if ((m_nDimTextFlag & kRaised) != 0) {
    *x = centred;
    *y = above + m_fDimTextH;
  } else if ((m_nDimTextFlag & kLeftOfTick) != 0) {
    *x = -textWidth - beside;
    *y = above;
  } else if ((m_nDimTextFlag & kRightOfTick) != 0) {
    *x = beside + length;
    *y = above;
  }
}

void CBase_SGT::Draw_DimJiaoDu(float x, float y, float start, float end, const wchar_t* text,
                               float radius) {
  if (!(std::abs(end - start) >= kLeastSweep)) return;
  const EnvironmentScope scope(*this);
  SetCurColor(m_szBZColor);
  Convert_XY(x, y);
  reset_transform(*this);

  const float r = (radius - 3) * m_fBiLiChi, reach = radius * m_fBiLiChi;
  Draw_Arc(x, y, r, start, end);
  for (const float side : {start, end}) {
    float dx = reach, dy = 0;
    place_point(side, x, y, &dx, &dy);
    Draw_Line(x, y, dx, dy);
  }

  float sweep = end - start;
  if (sweep < 0) sweep = folded_angle(sweep);
  const float middle = folded_angle(start + sweep / 2);
  float text_x = r, text_y = 0;
  place_point(middle, x, y, &text_x, &text_y);
  const double direction = middle * kRadiansOfDegree;
  if (direction > kLeftFrom && direction < kLeftTo) text_x -= text_length(text, m_fDimTextH);
  Draw_Text(text_x, text_y, m_fDimTextH, 0, text);
}

}  // namespace brindle
