// Where a run of text stands, for devices that hand text on as text.
#pragma once

#include <vector>

#include "brindle/platform/graphics/figure_geometry_internal.h"
#include "brindle/platform/graphics/glyph_renderer.h"

namespace brindle {

// A run laid out along its base line. `along` and `down` are the unit vectors of its frame in
// device units, y down.
struct TextLayout {
  GlyphFont font;
  GlyphMetrics metrics;
  std::vector<double> advances;  // from each wchar_t to the next
  double width = 0;              // their sum
  FigurePoint along{1, 0}, down{0, 1};
  FigurePoint base;  // the left end of the base line

  // `u` along the base line from its left end, `v` down from it.
  FigurePoint at(double u, double v) const {
    return {base.x + along.x * u + down.x * v, base.y + along.y * u + down.y * v};
  }
  // The corners of the cells' box, from the top left one clockwise in the run's frame.
  std::vector<FigurePoint> box() const;
};

// By the state's font, alignment and extra space; `advances` may be null.
TextLayout lay_out(const PaintState& state, CPoint at, std::wstring_view words,
                   const int* advances);
// The way from each wchar_t to the next in device units, the sum kept to the unit: by the renderer,
// else as run_width estimates.
std::vector<int> whole_advances(const std::vector<double>& advances);
std::vector<double> natural_advances(const GlyphFont& font, std::wstring_view words);

// Answers of devices that take their measures from the glyph renderer.
CSize extent_of_text(const PaintState& state, std::wstring_view words);
TEXTMETRIC text_metric_of(const LOGFONT& font);

// The font and its place that come nearest to a run under a map: turn, height and width stay,
// mirrors and shears don't. The text stands at `at`, TA_LEFT | TA_TOP.
struct PlainText {
  LOGFONT font;
  CPoint at;
};
PlainText plain_text(const TransformedText& run);

}  // namespace brindle
