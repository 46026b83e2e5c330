// What stands on lines: texts, arrows, lines that a strip interrupts, ground lines.
#include <algorithm>
#include <cmath>

#include "brindle/dxf/shx_font.h"
#include "brindle/geometry/helpers.h"
#include "brindle/geometry/lines.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_placing_internal.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr float kTextFactor = 0.75f;

// The frame of a line: x along it from its first point, y to its left.
struct LineFrame {
  LineFrame(float from_x, float from_y, float to_x, float to_y)
      : x0(from_x),
        y0(from_y),
        angle_rad(static_cast<float>(get_line_angle(from_x, from_y, to_x, to_y))),
        length(get_dist(from_x, from_y, to_x, to_y)) {}

  float angle_deg() const { return static_cast<float>(angle_rad / kRadiansOfDegree); }
  void to_local(float* x, float* y) const {
    shift_coordinate(x0, y0, x, y);
    rotate_coordinate(angle_rad, x, y);
  }
  void to_pen(float* x, float* y) const {
    rotate_coordinate(-angle_rad, x, y);
    shift_coordinate(-x0, -y0, x, y);
  }

  float x0, y0, angle_rad, length;
};

// Where the segment from A to B meets the horizontal at `level`, which lies between them.
void cross_level(float xa, float ya, float xb, float yb, float level, float* x, float* y) {
  if (line_point_inter(xa, ya, xb, yb, 0, level, 100.0f, level, x, y) != 0) return;
  // Nearly along the horizontal.
  *x = xa + (xb - xa) * ((level - ya) / (yb - ya));
  *y = level;
}

// Draws what the table of the strip leaves of a segment, in the frame of the strip's line, by
// draw(x1, y1, x2, y2). The first row that holds decides.
template <class Draw>
void draw_outside_strip(float xa, float ya, float xb, float yb, float g, Draw draw) {
  const auto draw_to = [&](float x, float y, float level) {
    float ex, ey;
    cross_level(xa, ya, xb, yb, level, &ex, &ey);
    draw(x, y, ex, ey);
  };
  if ((ya > g && yb > g) || (ya <= -g && yb <= -g)) {
    draw(xa, ya, xb, yb);
  } else if (ya >= g && yb <= -g) {
    draw_to(xa, ya, g);
    draw_to(xb, yb, -g);
  } else if (yb > g && ya < -g) {
    draw_to(xb, yb, g);
    draw_to(xa, ya, -g);
  } else if (ya > g && yb >= -g) {
    draw_to(xa, ya, g);
  } else if (yb > g && ya >= -g) {
    draw_to(xb, yb, g);
  } else if (ya < -g && yb <= g) {
    draw_to(xa, ya, -g);
  } else if (yb < -g && ya <= g) {
    draw_to(xb, yb, -g);
  } else {
    draw(xa, ya, xb, yb);  // within the strip: whole, meant
  }
}

}  // namespace

ACAD_TEXT* CBase_SGT::Draw_Text_Along_Line(float x1, float y1, float x2, float y2, float den,
                                           float num, const wchar_t* text, float height,
                                           float offset) {
  const LineFrame line(x1, y1, x2, y2);
  float x = num * line.length / den, y = offset;
  line.to_pen(&x, &y);
  return Draw_Text(x, y, height, line.angle_deg(), text);
}

ACAD_TEXT* CBase_SGT::Draw_Text_Vertical_Line(float x1, float y1, float x2, float y2, float den,
                                              float num, const wchar_t* text, float height,
                                              float offset) {
  const LineFrame line(x1, y1, x2, y2);
  float x = num * line.length / den, y = offset;
  line.to_pen(&x, &y);
  return Draw_Text(x, y, height, line.angle_deg() + 90, text);
}

ACAD_TEXT* CBase_SGT::Draw_Text_Along_Line_Exact(float x1, float y1, float x2, float y2,
                                                 float fraction, int alignment, const wchar_t* text,
                                                 float height, float offset) {
  const LineFrame line(x1, y1, x2, y2);
  float x = line.length * fraction, y = offset;
  double w = GetTextWidth(text, height, kTextFactor, m_szCurStyle);
  if (m_szCurStyle == L"HZ") w = GetTextWidth(text, height, -kTextFactor, m_szCurStyle);
  if (alignment == 0) x -= static_cast<float>(w / 2);
  if (alignment == 1) x -= static_cast<float>(w);
  line.to_pen(&x, &y);
  return Draw_Text(x, y, height, line.angle_deg(), text);
}

ACAD_TEXT* CBase_SGT::Draw_Text_Along_Arc(float cx, float cy, float r, float start_rad,
                                          float end_rad, float den, float num, const wchar_t* text,
                                          float height, float offset) {
  const float t = num * (end_rad - start_rad) / den + start_rad;
  const float back = t + static_cast<float>(1.5 * kPi);
  const float half = text != nullptr ? G_ShapeFont.GetTxtWidth(text, height, kTextFactor) / 2 : 0;
  return Draw_Text(cx + (r - offset) * std::cos(t) + half * std::cos(back),
                   cy + (r - offset) * std::sin(t) + half * std::sin(back), height,
                   static_cast<float>(t / kRadiansOfDegree) + 90, text);
}

void CBase_SGT::DrawArrow(float x, float y, float angle) {
  const auto a = radians_of(angle);
  const float along_x = m_fArrowLen * std::cos(a), along_y = m_fArrowLen * std::sin(a);
  const float across_x = m_fArrowHalf * std::sin(a), across_y = m_fArrowHalf * std::cos(a);
  Draw_Line(x, y, x - (along_x + across_x), y + (across_y - along_y));
  Draw_Line(x, y, x - (along_x - across_x), y + (-across_y - along_y));
}

void CBase_SGT::DrawLineArrow(float x1, float y1, float x2, float y2) {
  Draw_Line(x1, y1, x2, y2);
  DrawArrow(x2, y2, LineFrame(x1, y1, x2, y2).angle_deg());
}

void CBase_SGT::DrawArcArrow(float cx, float cy, float r, float start, float end, int flag) {
  Draw_Arc(cx, cy, r, start, end);
  const float at = flag != 0 ? start : end;
  const auto a = radians_of(at);
  // Ten degrees inwards, since the barbs lie on a chord.
  DrawArrow(cx + r * std::cos(a), cy + r * std::sin(a), flag != 0 ? at - 90 + 10 : 90 + at - 10);
}

void CBase_SGT::ArrowTo(float x, float y) {
  DrawLineArrow(m_fCurX, m_fCurY, x, y);
  MoveTo(x, y);
}

void CBase_SGT::ArrowTo_Relative(float dx, float dy) {
  ArrowTo(m_fCurX + dx, m_fCurY + dy);
}

void CBase_SGT::Set_Para_Draw_Out_2PraLine(float x1, float y1, float x2, float y2, float gap) {
  m_fPraLine[0] = x1;
  m_fPraLine[1] = x2;
  m_fPraLine[2] = y1;
  m_fPraLine[3] = y2;
  m_fPraGap = gap;
}

void CBase_SGT::Draw_Line_Out_2PraLine(float x1, float y1, float x2, float y2) {
  const LineFrame strip(m_fPraLine[0], m_fPraLine[2], m_fPraLine[1], m_fPraLine[3]);
  strip.to_local(&x1, &y1);
  strip.to_local(&x2, &y2);
  draw_outside_strip(x1, y1, x2, y2, m_fPraGap / 2, [&](float xa, float ya, float xb, float yb) {
    Draw_Line_Rotate_Shift(strip.angle_rad, strip.x0, strip.y0, xa, ya, xb, yb);
  });
}

void CBase_SGT::Draw_PLine_Out_2PraLine(float x1, float y1, float x2, float y2, float width) {
  const LineFrame strip(m_fPraLine[0], m_fPraLine[2], m_fPraLine[1], m_fPraLine[3]);
  strip.to_local(&x1, &y1);
  strip.to_local(&x2, &y2);
  draw_outside_strip(x1, y1, x2, y2, m_fPraGap / 2, [&](float xa, float ya, float xb, float yb) {
    Draw_PLine_Rotate_Shift(strip.angle_rad, strip.x0, strip.y0, xa, ya, xb, yb, width);
  });
}

void CBase_SGT::Draw_TuMianXian(float x1, float y1, float x2, float y2, float spacing, int pen) {
  constexpr float kLeastSpacing = 0.0001f;
  if (!(spacing >= kLeastSpacing)) spacing = kLeastSpacing;
  const float widths[] = {m_fBiKuan, m_fBiKuan05, m_fBiKuan035};
  const float width = widths[pen >= 0 && pen <= 2 ? pen : 2];
  Draw_Pline(x1, y1, x2, y2, width, width);

  const LineFrame line(x1, y1, x2, y2);
  const float strokes = line.length / spacing;
  constexpr float kMost = 1e9f;  // what an int holds safely
  // A line without an end gets none.
  const bool drawn = strokes > 0 && std::isfinite(strokes);
  const int n = drawn ? static_cast<int>(std::min(strokes, kMost)) : 0;
  for (int i = 0; i < n; ++i) {
    float xa = static_cast<float>(i) * spacing, ya = -spacing;
    float xb = static_cast<float>(i + 1) * spacing, yb = 0;
    line.to_pen(&xa, &ya);
    line.to_pen(&xb, &yb);
    Draw_Line(xa, ya, xb, yb);
  }
}

}  // namespace brindle
