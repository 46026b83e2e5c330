#include "brindle/platform/graphics/glyph_renderer.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdlib>

#include "brindle/platform/base/code_page.h"

namespace brindle {
namespace {

constexpr double kDefaultEm = 12;
constexpr double kAscent = 0.86, kDescent = 0.14;  // of the em, for want of a face

std::atomic<GlyphRenderer*> installed{nullptr};

}  // namespace

GlyphRenderer* set_glyph_renderer(GlyphRenderer* renderer) {
  return installed.exchange(renderer);
}

GlyphRenderer* glyph_renderer() {
  return installed.load(std::memory_order_acquire);
}

GlyphMetrics metrics_of(const GlyphFont& font) {
  GlyphMetrics metrics;
  GlyphRenderer* renderer = glyph_renderer();
  if (renderer && renderer->metrics(font, metrics)) return metrics;
  const double em = font.em_size, width = em * font.x_scale;
  return {em * kAscent, em * kDescent, 0, width / 2, width};
}

GlyphFont glyph_font_of(const LOGFONT& font) {
  GlyphFont out;
  const wchar_t* face_end = std::find(font.lfFaceName, font.lfFaceName + LF_FACESIZE, L'\0');
  out.face.assign(font.lfFaceName, face_end);
  out.weight = font.lfWeight == FW_DONTCARE ? FW_NORMAL : font.lfWeight;
  out.italic = font.lfItalic != 0;
  out.underline = font.lfUnderline != 0;
  out.strike_out = font.lfStrikeOut != 0;
  out.smooth = font.lfQuality != NONANTIALIASED_QUALITY;
  out.em_size = font.lfHeight == 0 ? kDefaultEm : std::abs(static_cast<double>(font.lfHeight));
  if (font.lfHeight > 0) {
    const GlyphMetrics at_that_em = metrics_of(out);
    const double cell = at_that_em.ascent + at_that_em.descent;
    if (cell > 0) out.em_size *= out.em_size / cell;
  }
  if (font.lfWidth != 0) {
    const double natural = metrics_of(out).average_width;
    if (natural > 0) out.x_scale = std::abs(static_cast<double>(font.lfWidth)) / natural;
  }
  return out;
}

double run_width(const GlyphFont& font, std::wstring_view words) {
  std::vector<double> advances;
  GlyphRenderer* renderer = glyph_renderer();
  double width = 0;
  if (renderer && renderer->advances(font, words, advances)) {
    for (double advance : advances) width += advance;
    return width;
  }
  const CodePage* page = CodePage::find(936u);
  const std::size_t bytes = page ? page->encode(words).size() : words.size();
  return static_cast<double>(bytes) * font.em_size * font.x_scale / 2;
}

}  // namespace brindle
