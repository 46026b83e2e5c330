#include "brindle/platform/graphics/text_layout_internal.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace brindle {

namespace {

constexpr double kRadiansPerTenth = std::numbers::pi / 1800;

int whole(double value) {
  constexpr double kMost = 1e9;
  return static_cast<int>(std::lround(std::clamp(value, -kMost, kMost)));
}

}  // namespace

std::vector<FigurePoint> TextLayout::box() const {
  return {at(0, -metrics.ascent), at(width, -metrics.ascent), at(width, metrics.descent),
          at(0, metrics.descent)};
}

std::vector<double> natural_advances(const GlyphFont& font, std::wstring_view words) {
  std::vector<double> advances;
  GlyphRenderer* renderer = glyph_renderer();
  if (renderer != nullptr && renderer->advances(font, words, advances) &&
      advances.size() == words.size()) {
    return advances;
  }
  advances.clear();
  for (std::size_t i = 0; i < words.size(); ++i) {
    advances.push_back(run_width(font, words.substr(i, 1)));
  }
  return advances;
}

std::vector<int> whole_advances(const std::vector<double>& advances) {
  std::vector<int> out;
  double end = 0;
  int reached = 0;
  for (const double advance : advances) {
    end += advance;
    out.push_back(whole(end) - reached);
    reached = whole(end);
  }
  return out;
}

TextLayout lay_out(const PaintState& state, CPoint at, std::wstring_view words,
                   const int* advances) {
  TextLayout layout;
  layout.font = glyph_font_of(state.font);
  layout.metrics = metrics_of(layout.font);
  if (advances != nullptr) {
    layout.advances.assign(advances, advances + words.size());
  } else {
    layout.advances = natural_advances(layout.font, words);
    for (double& advance : layout.advances) advance += state.char_extra;
  }
  for (const double advance : layout.advances) layout.width += advance;

  const double angle = state.font.lfEscapement * kRadiansPerTenth;
  layout.along = {std::cos(angle), -std::sin(angle)};
  layout.down = {std::sin(angle), std::cos(angle)};
  const UINT across = state.text_align & TA_HORIZONTAL_MASK;
  const UINT upright = state.text_align & TA_VERTICAL_MASK;
  const double u = across == TA_CENTER ? -layout.width / 2 : across == TA_RIGHT ? -layout.width : 0;
  const double v = upright == TA_BASELINE ? 0
                   : upright == TA_BOTTOM ? -layout.metrics.descent
                                          : layout.metrics.ascent;
  layout.base = {double(at.x), double(at.y)};
  layout.base = layout.at(u, v);
  return layout;
}

CSize extent_of_text(const PaintState& state, std::wstring_view words) {
  const GlyphFont font = glyph_font_of(state.font);
  const GlyphMetrics metrics = metrics_of(font);
  return {whole(run_width(font, words) + double(state.char_extra) * double(words.size())),
          whole(metrics.ascent) + whole(metrics.descent)};
}

TEXTMETRIC text_metric_of(const LOGFONT& font) {
  const GlyphFont glyphs = glyph_font_of(font);
  const GlyphMetrics metrics = metrics_of(glyphs);
  TEXTMETRIC out;
  out.tmAscent = whole(metrics.ascent);
  out.tmDescent = whole(metrics.descent);
  out.tmHeight = out.tmAscent + out.tmDescent;
  out.tmInternalLeading = std::max(out.tmHeight - whole(glyphs.em_size), 0);
  out.tmExternalLeading = whole(metrics.leading);
  out.tmAveCharWidth = whole(metrics.average_width);
  out.tmMaxCharWidth = whole(metrics.max_width);
  out.tmWeight = glyphs.weight;
  out.tmItalic = font.lfItalic;
  out.tmUnderlined = font.lfUnderline;
  out.tmStruckOut = font.lfStrikeOut;
  out.tmPitchAndFamily = font.lfPitchAndFamily;
  out.tmCharSet = font.lfCharSet;
  out.tmFirstChar = out.tmBreakChar = L' ';
  out.tmLastChar = 0xFFFD;
  out.tmDefaultChar = L'?';
  return out;
}

PlainText plain_text(const TransformedText& run) {
  constexpr double kSameWidth = 0.01;
  const double along = std::hypot(run.m11, run.m12), down = std::hypot(run.m21, run.m22);
  PlainText out;
  out.font.lfHeight = -whole(std::max(run.em_size * down, 1.0));
  const double turn = std::atan2(-run.m12, run.m11) / kRadiansPerTenth;
  out.font.lfEscapement = out.font.lfOrientation = whole(turn < 0 ? turn + 3600 : turn);
  out.font.lfWeight = run.weight;
  out.font.lfItalic = run.italic ? 1 : 0;
  out.font.lfCharSet = DEFAULT_CHARSET;
  const std::size_t count = std::min(run.face.size(), std::size_t{LF_FACESIZE - 1});
  std::copy_n(run.face.begin(), count, out.font.lfFaceName);
  if (down > 0 && std::abs(along - down) > kSameWidth * down) {
    const double average = metrics_of(glyph_font_of(out.font)).average_width;
    out.font.lfWidth = std::max(whole(average * along / down), 1);
  }
  out.at = {whole(run.dx), whole(run.dy)};
  return out;
}

}  // namespace brindle
