// Paints the parts of a legend: strips and boxes of one colour, texts beside them.
#pragma once

#include <algorithm>

#include "brindle/mesh/chang.h"
#include "brindle/platform/graphics/dc.h"

namespace brindle {

// A place on the device as far out as a legend is painted: sums with sizes stay in an int.
inline int legend_pixel(int place) {
  constexpr int kFar = 1 << 24;
  return std::clamp(place, -kFar, kFar);
}

// Changes the context's state for its own life only.
class LegendPainter {
 public:
  // (x, y): the legend's top left corner. Texts are in m_nLegendTextColor, or in black or white
  // where that could not be told from what is there.
  LegendPainter(CDC& dc, const CChang& field, float scale, int x, int y);
  ~LegendPainter();
  LegendPainter(const LegendPainter&) = delete;
  LegendPainter& operator=(const LegendPainter&) = delete;

  int row_height() const { return row_height_; }
  int bar_width() const { return bar_width_; }
  COLORREF text_color() const { return text_color_; }

  void box(int top, int height, COLORREF color);
  void frame(int top, int height);
  // A line from the bar to the right, at a height.
  void tick(int y);
  // At a column beside the bar, its middle at a height; returns the column after it.
  int text(int column, int y, const CString& words);
  int first_column() const;

 private:
  CSize extent(const CString& words) const;

  CDC& dc_;
  const int x_;
  const float scale_;
  const int saved_;
  int row_height_, bar_width_, font_height_;
  COLORREF text_color_;
  bool strokes_;  // texts are drawn by the stroke font
  CFont font_;
  CPen pen_;
};

}  // namespace brindle
