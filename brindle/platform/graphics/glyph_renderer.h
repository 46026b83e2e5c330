// GlyphRenderer: where outline fonts come from. The backend installs one; without it the library
// has stroke fonts only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "brindle/platform/graphics/gdi_types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

// A face at a size. All lengths that belong to it are in its own units (pixels for most users).
struct GlyphFont {
  std::wstring face;    // family name; one that the system lacks is replaced
  double em_size = 16;  // height of the em square
  double x_scale = 1;   // widths over those of the face, lfWidth's effect
  int weight = FW_NORMAL;
  bool italic = false;
  bool underline = false;
  bool strike_out = false;
  bool smooth = true;  // false: coverage is 0 or 255 only
  bool operator==(const GlyphFont&) const = default;
};

// Units of the font, all positive.
struct GlyphMetrics {
  double ascent = 0, descent = 0;  // above and below the base line
  double leading = 0;              // between lines, not in ascent and descent
  double average_width = 0, max_width = 0;
};

// (x, y) lands on (m11 x + m21 y + dx, m12 x + m22 y + dy).
struct GlyphMap {
  double m11 = 1, m12 = 0, m21 = 0, m22 = 1, dx = 0, dy = 0;
  bool operator==(const GlyphMap&) const = default;
};

// How much of each pixel is covered, 0 to 255, rows from the top down. The pixel of column i and
// row j is the unit square whose top left corner is (left + i, top + j).
struct GlyphMask {
  int left = 0, top = 0, width = 0, height = 0;
  std::vector<std::uint8_t> coverage;  // width * height
};

// Closed rings of corners; what is inside follows from the winding rule.
struct GlyphOutline {
  struct Point {
    double x, y;
  };
  std::vector<std::vector<Point>> rings;
};

// A run stands on the base line from (0, 0) along x, y down, before the map. `advances` (may be
// null) holds the way from each wchar_t to the next, else the face's own. All functions return
// false, and leave the output empty, when they can't help.
class GlyphRenderer {
 public:
  virtual ~GlyphRenderer() = default;

  virtual bool metrics(const GlyphFont& font, GlyphMetrics& out) = 0;
  // One advance for each wchar_t of `words`, 0 for the second half of a pair.
  virtual bool advances(const GlyphFont& font, std::wstring_view words,
                        std::vector<double>& out) = 0;
  // Only the part of the run inside of `bounds` need be in the mask.
  virtual bool render(const GlyphFont& font, std::wstring_view words, const double* advances,
                      const GlyphMap& map, const CRect& bounds, GlyphMask& out) = 0;
  // Curves are replaced by chords that leave them by at most `tolerance` (after the map).
  virtual bool outline(const GlyphFont& font, std::wstring_view words, const double* advances,
                       const GlyphMap& map, double tolerance, GlyphOutline& out) = 0;
};

// Makes it the process's renderer (null for none) and returns the one before. Not owned.
GlyphRenderer* set_glyph_renderer(GlyphRenderer* renderer);
// Null when none is installed.
GlyphRenderer* glyph_renderer();

// What a LOGFONT asks for: a negative lfHeight is the em square's height, a positive one that of
// the cell (ascent and descent), 0 a default of 12 pixels; lfWidth is the average width.
GlyphFont glyph_font_of(const LOGFONT& font);
// The whole run's length: by the renderer, else half an em for each byte of the text in code page
// 936.
double run_width(const GlyphFont& font, std::wstring_view words);
// The renderer's metrics, else an estimate: ascent 0.86 and descent 0.14 of the em.
GlyphMetrics metrics_of(const GlyphFont& font);

}  // namespace brindle
