// Sheets: drawing frames A0 to A3, their title and countersign blocks, titles of drawings.
#include <algorithm>

#include "brindle/geometry/helpers.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_placing_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"
#include "brindle/sketch/pen/pen_text_internal.h"

namespace brindle {
namespace {

// Everything here in paper mm.
constexpr float kTitleBlockWidth = 180, kTitleBlockHeight = 40, kTitleBlockPen = 0.7f;
constexpr int kTitleBlockColumns = 8, kTitleBlockRows = 4;
constexpr float kTitleTextInset = 0.75f;
constexpr float kCountersignWidth = 75, kCountersignHeight = 20;
constexpr int kCountersignColumns = 3, kCountersignRows = 4;
constexpr float kBindingMargin = 25;

// A heading of the title block, in the cell with that lower left corner.
struct Heading {
  const wchar_t* text;
  int column, row;
};
constexpr Heading kHeadings[] = {
    {L"专业负责", 0, 0}, {L"设计", 2, 0}, {L"审核", 4, 0}, {L"图号", 6, 0},     {L"项目负责", 0, 1},
    {L"校对", 2, 1},     {L"审定", 4, 1}, {L"日期", 6, 1}, {L"工程名称", 4, 3}, {L"图名", 4, 2},
};

struct Sheet {
  float short_side, long_side;
  float margin;     // on the sides that aren't bound
  float frame_pen;  // of the inner frame
};
constexpr Sheet kSheets[] = {
    {841, 1189, 10, 2.4f},
    {594, 841, 10, 2.4f},
    {420, 594, 10, 1.0f},
    {297, 420, 5, 1.0f},
};
constexpr int kLastSheet = 3;

constexpr float kTitleLineGap = 1.2f;     // from the wide line of a drawing's title to the thin one
constexpr float kTitleCharacter = 0.5f;   // room for a character of it, against its height
constexpr float kTitleTextStart = 0.05f;  // of the line, before the text

}  // namespace

// Two rows of eight cells for names and dates below two rows that are halved: blank on the left,
// what the sheet shows on the right.
void CBase_SGT::Draw_BiaoTiLan(float right, float bottom, float pen) {
  const float s = m_fBiLiChi;
  const float w = kTitleBlockWidth * s, h = kTitleBlockHeight * s;
  const float left = right - w, mid = right - w / 2, top = bottom + h;
  const float col = w / kTitleBlockColumns, row = h / kTitleBlockRows;
  const float half = bottom + 2 * row;

  Draw_Rect_LB(w, h, left, bottom, 0, pen);
  Draw_Line(left, bottom + row, right, bottom + row);
  Draw_Line(left, half, right, half);
  Draw_Line(mid, bottom + 3 * row, right, bottom + 3 * row);
  for (int k = 1; k < kTitleBlockColumns; ++k) {
    const float x = left + static_cast<float>(k) * col;
    Draw_Line(x, bottom, x, half);
  }
  Draw_Line(mid, half, mid, top);
  Draw_Line(mid + col, half, mid + col, top);

  const EnvironmentScope scope(*this);
  SetCurStyle(L"HZ");
  const float inset = kTitleTextInset * s;
  for (const Heading& heading : kHeadings) {
    Draw_Text(left + inset + static_cast<float>(heading.column) * col,
              bottom + inset + static_cast<float>(heading.row) * row, m_fZiGao[3], 0, heading.text);
  }
}

// Grows to the left of its anchor and up, before it is turned clockwise.
void CBase_SGT::Draw_HuiQianLan(float x, float y, float angle) {
  const float w = kCountersignWidth * m_fBiLiChi, h = kCountersignHeight * m_fBiLiChi;
  const auto draw = [&](float x1, float y1, float x2, float y2) {
    float xs[] = {x1, x2}, ys[] = {y1, y2};
    for (int i = 0; i < 2; ++i) place_point(-angle, x, y, &xs[i], &ys[i]);
    Draw_Lines(2, xs, ys);
  };
  for (int k = 0; k <= kCountersignRows; ++k) {
    const float level = h * static_cast<float>(k) / kCountersignRows;
    draw(0, level, -w, level);
  }
  for (int k = 0; k <= kCountersignColumns; ++k) {
    const float across = -w * static_cast<float>(k) / kCountersignColumns;
    draw(across, 0, across, h);
  }
}

// The sheet is bound at the top of a portrait and on the left of a landscape; the countersign block
// stands in the binding margin.
void CBase_SGT::Draw_TuKuang(float x, float y, int size, float extra, int portrait) {
  const Sheet& sheet = kSheets[std::clamp(size, 0, kLastSheet)];
  const float s = m_fBiLiChi;
  const float across = sheet.short_side * s, along = (sheet.long_side + extra) * s;
  const float margin = sheet.margin * s, binding = kBindingMargin * s;
  const float inner_across = across - 2 * margin, inner_along = along - binding - margin;
  const float frame_pen = sheet.frame_pen * s, block_pen = kTitleBlockPen * s;
  if (portrait != 0) {
    Draw_Rect_LB(across, along, x, y, 0);
    Draw_Rect_LB(inner_across, inner_along, x + margin, y + margin, 0, frame_pen);
    Draw_BiaoTiLan(x + across - margin, y + margin, block_pen);
    Draw_HuiQianLan(x + across - margin, y + along - binding, 0);
  } else {
    Draw_Rect_LB(along, across, x, y, 0);
    Draw_Rect_LB(inner_along, inner_across, x + binding, y + margin, 0, frame_pen);
    Draw_BiaoTiLan(x + along - margin, y + margin, block_pen);
    Draw_HuiQianLan(x + binding, y + across - margin, -90);
  }
}

void CBase_SGT::Draw_TuMing(float x, float y, const wchar_t* text, int wide, int thin) {
  const EnvironmentScope scope(*this);
  Convert_XY(x, y);
  reset_transform(*this);
  const float length = text_length(text, m_fTuMingH) * kTitleCharacter;
  const float left = x - length / 2, right = x + length / 2;
  if (wide != 0) Draw_Pline(left, y, right, y, m_fTuMingPen, m_fTuMingPen);
  if (thin != 0) {
    const float below = y - kTitleLineGap * m_fBiLiChi;
    Draw_Line(left, below, right, below);
  }
  SetCurStyle(L"HZ");
  Draw_Text(left + length * kTitleTextStart, y + m_fDimTextGap + m_fTuMingPen / 2, m_fTuMingH, 0,
            text);
}

}  // namespace brindle
