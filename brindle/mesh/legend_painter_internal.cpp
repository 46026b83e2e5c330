#include "brindle/mesh/legend_painter_internal.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cwchar>

#include "brindle/dxf/shx_font.h"
#include "brindle/geometry/pixel_rounding.h"
#include "brindle/mesh/legend.h"
#include "brindle/platform/graphics/glyph_renderer.h"

namespace brindle {
namespace {

constexpr float kFontFactor = 4.0f / 3;  // pixels of a 96 dpi screen to a point
constexpr float kStrokeWidthFactor = 0.75f;

// Pixels of a scaled size, `least` at least.
int pixels_of(float size, int least) {
  constexpr int kLargest = 1 << 15;
  return std::clamp(truncate_to_int(size), least, kLargest);
}

int brightness(COLORREF color) {
  return (GetRValue(color) * 3 + GetGValue(color) * 6 + GetBValue(color)) / 10;
}

// `wanted` if it can be told from what is at a place, else black or white. A device that can't be
// read is paper.
COLORREF readable_on(const CDC& dc, int x, int y, COLORREF wanted) {
  constexpr int kLeastContrast = 64;
  COLORREF ground = dc.GetPixel(x, y);
  if (ground == CLR_INVALID) ground = RGB(255, 255, 255);
  if (std::abs(brightness(ground) - brightness(wanted)) >= kLeastContrast) return wanted;
  return brightness(ground) >= 128 ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

}  // namespace

LegendPainter::LegendPainter(CDC& dc, const CChang& field, float scale, int x, int y)
    : dc_(dc),
      x_(legend_pixel(x)),
      scale_(scale),
      saved_(dc.SaveDC()),
      row_height_(pixels_of(static_cast<float>(field.m_nLegendRowHeight) * scale, 1)),
      bar_width_(pixels_of(20 * scale, 1)),
      font_height_(
          pixels_of(static_cast<float>(field.m_nLegendFontSize) * scale * kFontFactor, 1)) {
  const COLORREF wanted = static_cast<COLORREF>(field.m_nLegendTextColor) & 0xffffff;
  text_color_ = readable_on(dc, first_column(), y, wanted);
  strokes_ = dc.device() != nullptr && dc.device()->kind() == PaintDevice::Kind::kRaster &&
             glyph_renderer() == nullptr;
  LOGFONT font;
  font.lfHeight = -font_height_;
  font.lfCharSet = GB2312_CHARSET;
  std::wcsncpy(font.lfFaceName, GetLegendFontFace(), std::size(font.lfFaceName) - 1);
  font_.CreateFontIndirect(&font);
  pen_.CreatePen(PS_SOLID, 1, text_color_);
  dc_.SelectObject(&font_);
  dc_.SelectObject(&pen_);
  dc_.SetTextAlign(TA_LEFT | TA_TOP);
  dc_.SetBkMode(TRANSPARENT);
  dc_.SetTextColor(text_color_);
}

LegendPainter::~LegendPainter() {
  dc_.RestoreDC(saved_);
}

void LegendPainter::box(int top, int height, COLORREF color) {
  const POINT corners[4] = {
      {x_, top}, {x_ + bar_width_, top}, {x_ + bar_width_, top + height}, {x_, top + height}};
  CRgn region;
  CBrush brush;
  if (region.CreatePolygonRgn(corners, 4, WINDING) && brush.CreateSolidBrush(color))
    dc_.FillRgn(&region, &brush);
}

void LegendPainter::frame(int top, int height) {
  const int right = x_ + bar_width_, bottom = top + height;
  dc_.MoveTo(x_, top);
  dc_.LineTo(right, top);
  dc_.LineTo(right, bottom);
  dc_.LineTo(x_, bottom);
  dc_.LineTo(x_, top);
}

void LegendPainter::tick(int y) {
  dc_.MoveTo(x_ + bar_width_, y);
  dc_.LineTo(x_ + bar_width_ + pixels_of(4 * scale_, 1), y);
}

int LegendPainter::first_column() const {
  return x_ + bar_width_ + pixels_of(8 * scale_, 0);
}

CSize LegendPainter::extent(const CString& words) const {
  if (!strokes_) return dc_.GetTextExtent(words);
  const auto height = static_cast<float>(font_height_);
  return {truncate_to_int(G_ShapeFont.GetHzWidth(words, height, kStrokeWidthFactor)), font_height_};
}

int LegendPainter::text(int column, int y, const CString& words) {
  const CSize size = extent(words);
  if (strokes_) {
    // The insertion point is on the base line, the capitals' height above it.
    G_ShapeFont.DrawHzShx(&dc_, column, y + font_height_ / 2, words,
                          static_cast<float>(font_height_), 0, kStrokeWidthFactor, 1);
  } else {
    TEXTMETRIC metrics{};
    dc_.GetTextMetrics(&metrics);
    dc_.TextOut(column, y - metrics.tmHeight / 2, words);
  }
  return column + size.cx + font_height_;
}

}  // namespace brindle
