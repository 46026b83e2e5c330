// An A3 sheet of a drawing: frame, title block and countersign block with their words, titles.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "examples/common/sheet_words.h"

namespace brindle::examples {

// Paper millimetres of a landscape A3 sheet and its blocks, from the sheet's lower left corner.
inline constexpr float kSheetRight = 415, kSheetTop = 292, kSheetLeft = 25, kSheetBottom = 5;

// Width of a text in the style "HZ", drawing units.
inline float text_width(const std::wstring& text, float height) {
  return G_ShapeFont.GetHzWidth(text.c_str(), height, 0.75f);
}

// Centres a text in a cell, in the largest height of the drawing standard that fits, 5 mm at most.
// `angle` is 0, or 90 for a cell that is read from the right: its width runs up then.
inline void draw_cell(CBase_SGT& pen, float x, float y, float w, float h, float angle,
                      const std::wstring& text) {
  if (text.empty()) return;
  const float inset = 2 * pen.m_fBiLiChi;
  float height = pen.m_fZiGao[0];
  for (const int row : {2, 1}) {
    const float fits = pen.m_fZiGao[row];
    if (fits + inset > h || text_width(text, fits) + inset > w) continue;
    height = fits;
    break;
  }
  const float along = (w - text_width(text, height)) / 2, up = (h - height) / 2;
  if (angle == 0) {
    pen.Draw_Text(x + along, y + up, height, 0, text.c_str());
  } else {
    pen.Draw_Text(x - up, y + along, height, angle, text.c_str());
  }
}

// The cells beside the headings of Draw_BiaoTiLan.
inline void fill_title_block(CBase_SGT& pen, float right, float bottom, const std::wstring& title,
                             const SheetWords& words) {
  const float s = pen.m_fBiLiChi, left = right - 180 * s, mid = right - 90 * s;
  const float col = 22.5f * s, row = 10 * s;
  const auto cell = [&](int column, int line, const std::wstring& text) {
    draw_cell(pen, left + static_cast<float>(column) * col, bottom + static_cast<float>(line) * row,
              col, row, 0, text);
  };
  cell(1, 0, words.lead);
  cell(3, 0, words.designer);
  cell(5, 0, words.auditor);
  cell(7, 0, words.number);
  cell(1, 1, words.manager);
  cell(3, 1, words.checker);
  cell(5, 1, words.approver);
  cell(7, 1, words.date);
  const float wide = right - mid - col;
  draw_cell(pen, mid + col, bottom + 3 * row, wide, row, 0, words.project);
  draw_cell(pen, mid + col, bottom + 2 * row, wide, row, 0, title);
}

// The cells of Draw_HuiQianLan in the binding margin: read from the right, its first row is the
// outer one.
inline void fill_countersign_block(CBase_SGT& pen, float x, float top, const SheetWords& words) {
  const float s = pen.m_fBiLiChi, col = 25 * s, row = 5 * s;
  const std::wstring rows[4][3] = {{L"专业", L"姓名", L"日期"},
                                   {L"建筑", words.architect, words.date},
                                   {L"结构", words.engineer, words.date},
                                   {L"设备", words.services, words.date}};
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 3; ++c) {
      draw_cell(pen, x - static_cast<float>(3 - r) * row, top - static_cast<float>(3 - c) * col,
                col, row, 90, r > 0 && rows[r][1].empty() ? L"" : rows[r][c]);
    }
  }
}

// The whole sheet with its lower left corner at the pen's (0, 0).
inline void draw_a3_sheet(CBase_SGT& pen, const std::wstring& title, const SheetWords& words) {
  const float s = pen.m_fBiLiChi;
  // The block's headings, in the fourth height, would be wider than their cells.
  std::swap(pen.m_fZiGao[3], pen.m_fZiGao[2]);
  pen.Draw_TuKuang(0, 0, 3, 0, 0);
  std::swap(pen.m_fZiGao[3], pen.m_fZiGao[2]);
  fill_title_block(pen, kSheetRight * s, kSheetBottom * s, title, words);
  fill_countersign_block(pen, kSheetLeft * s, kSheetTop * s, words);
}

// A title over its two lines, centred on x, the scale behind it. The lines are as long as the
// pen reckons for the count of characters; blanks make them long enough for hanzi.
inline void draw_title(CBase_SGT& pen, float x, float y, std::wstring title,
                       bool with_scale = true) {
  const float s = pen.m_fBiLiChi, half_character = pen.m_fTuMingH / 2;
  const float needed = text_width(title, pen.m_fTuMingH) / 0.9f;
  const auto count = static_cast<std::size_t>(std::ceil(needed / half_character));
  title.resize(std::max(title.size(), count), L' ');
  pen.Draw_TuMing(x, y, title.c_str(), 1, 1);
  if (!with_scale) return;
  const float half = static_cast<float>(title.size()) * half_character / 2;
  pen.Draw_Text(x + half + 2 * s, y, pen.m_fZiGao[1], 0, wformat(L"1:%g", s).c_str());
}

}  // namespace brindle::examples
