// Text of RasterDevice, by the installed glyph renderer.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "brindle/platform/graphics/glyph_renderer.h"
#include "brindle/platform/graphics/raster_clip_internal.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/raster_polygon_internal.h"
#include "brindle/platform/graphics/text_layout_internal.h"

namespace brindle {
namespace {

// Each channel is (color * coverage + below * (255 - coverage)) / 255, rounded. Two channels share
// a multiplication, and (t + (t >> 8)) >> 8 with t = v + 128 is v / 255 rounded for all v that
// occur.
std::uint32_t mixed(std::uint32_t below, std::uint32_t color, std::uint32_t coverage) {
  if (coverage == 255) return color;
  constexpr std::uint32_t kEven = 0x00ff00ff;
  const auto channels = [coverage](std::uint32_t b, std::uint32_t c) {
    const std::uint32_t t = c * coverage + b * (255 - coverage) + 0x00800080;
    return (t + (t >> 8 & kEven)) >> 8 & kEven;
  };
  const std::uint32_t odd = channels(below >> 8 & kEven, color >> 8 & kEven);
  return 0xff000000 | channels(below & kEven, color & kEven) | (odd & 0xff) << 8;
}

void paint_mask(RasterBitmap& target, const RasterClip& clip, const GlyphMask& mask,
                COLORREF color) {
  const std::uint32_t argb = argb_of(color);
  clip.boxes(CRect(mask.left, mask.top, mask.left + mask.width, mask.top + mask.height),
             [&](const CRect& box) {
               for (int y = box.top; y < box.bottom; ++y) {
                 std::uint32_t* row = target.row(y);
                 const std::uint8_t* coverage =
                     mask.coverage.data() + std::ptrdiff_t{y - mask.top} * mask.width - mask.left;
                 for (int x = box.left; x < box.right;) {
                   // Most of a text is no ink.
                   const int end = std::min(x + 8, static_cast<int>(box.right));
                   std::uint64_t eight = 1;
                   if (end - x == 8) std::memcpy(&eight, coverage + x, sizeof eight);
                   for (; eight != 0 && x < end; ++x)
                     if (coverage[x]) row[x] = mixed(row[x], argb, coverage[x]);
                   x = end;
                 }
               }
             });
}

void fill_corners(RasterBitmap& target, const RasterClip& clip,
                  const std::vector<FigurePoint>& corners, COLORREF color) {
  constexpr int kShift = 8;
  PolygonFiller filler(clip.box, kShift);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const FigurePoint &a = corners[i], &b = corners[(i + 1) % corners.size()];
    filler.add_scaled_edge(a.x, a.y, b.x, b.y);
  }
  const std::uint32_t argb = argb_of(color);
  filler.fill(true, [&](int y, int first, int last) {
    clip.spans(y, first, last, [&](int row, int from, int to) {
      std::fill(target.row(row) + from, target.row(row) + to, argb);
    });
  });
}

}  // namespace

void RasterDevice::text(const PaintState& state, CPoint at, UINT options, const CRect* box,
                        std::wstring_view words, const int* advances) {
  RasterClip clip(*target_, state.clip);
  if (box && (options & ETO_OPAQUE)) {
    clip.boxes(*box, [&](const CRect& part) {
      for (int y = part.top; y < part.bottom; ++y)
        std::fill(target_->row(y) + part.left, target_->row(y) + part.right,
                  argb_of(state.bk_color));
    });
  }
  if (box && (options & ETO_CLIPPED)) clip = RasterClip(clip, *box);
  if (words.empty() || clip.empty()) return;
  TextLayout layout = lay_out(state, at, words, advances);
  if (state.font.lfEscapement % 900 == 0) {
    // Upright and lying text keeps to the pixels.
    layout.base = {std::round(layout.base.x), std::round(layout.base.y)};
  }
  if (state.bk_mode == OPAQUE && !(box && (options & ETO_OPAQUE)))
    fill_corners(*target_, clip, layout.box(), state.bk_color);
  GlyphRenderer* renderer = glyph_renderer();
  const GlyphMap map{layout.along.x, layout.along.y, layout.down.x,
                     layout.down.y,  layout.base.x,  layout.base.y};
  GlyphMask mask;
  if (renderer && renderer->render(layout.font, words, layout.advances.data(), map, clip.box, mask))
    paint_mask(*target_, clip, mask, state.text_color);
}

void RasterDevice::transformed_text(const PaintState& state, const TransformedText& run) {
  const RasterClip clip(*target_, state.clip);
  GlyphRenderer* renderer = glyph_renderer();
  if (clip.empty() || !renderer || run.words.empty()) return;
  GlyphFont font;
  font.face = run.face;
  font.em_size = run.em_size;
  font.weight = run.weight;
  font.italic = run.italic;
  const double ascent = metrics_of(font).ascent;
  const GlyphMap map{
      run.m11, run.m12, run.m21, run.m22, run.m21 * ascent + run.dx, run.m22 * ascent + run.dy};
  GlyphMask mask;
  if (renderer->render(font, run.words, nullptr, map, clip.box, mask))
    paint_mask(*target_, clip, mask, run.color);
}

CSize RasterDevice::text_extent(const PaintState& state, std::wstring_view words) {
  return extent_of_text(state, words);
}

void RasterDevice::font_metrics(const PaintState& state, TEXTMETRIC& metrics) {
  metrics = text_metric_of(state.font);
}

}  // namespace brindle
