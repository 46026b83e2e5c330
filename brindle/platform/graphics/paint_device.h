// What a CDC draws on: a bitmap, a metafile, a page, a recorder. The device gets whole figures in
// its own units with the state that they are drawn in, and keeps no selection of its own.
#pragma once

#include <memory>
#include <string_view>

#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/gdi_types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

class RasterBitmap;
class RegionData;

struct PenData {
  int style = PS_SOLID;  // PS_*
  int width = 1;         // device units; below 2 is one pixel
  COLORREF color = 0;    // 0x00bbggrr
  bool operator==(const PenData&) const = default;
};

struct BrushData {
  int style = BS_SOLID;  // BS_*
  COLORREF color = 0xffffff;
  int hatch = 0;                                // HS_*, for BS_HATCHED
  std::shared_ptr<const RasterBitmap> pattern;  // for BS_PATTERN
  bool operator==(const BrushData&) const = default;
};

// What a figure is drawn in, all in device units: the font's height and the pen's width too. `clip`
// is null when nothing is clipped.
struct PaintState {
  PenData pen;
  BrushData brush;
  LOGFONT font;
  COLORREF text_color = 0;
  COLORREF bk_color = 0xffffff;
  int bk_mode = OPAQUE;
  UINT text_align = TA_LEFT | TA_TOP;
  int rop2 = R2_COPYPEN;
  int poly_fill_mode = ALTERNATE;
  int stretch_mode = COLORONCOLOR;
  int char_extra = 0;
  CPoint brush_origin;
  const RegionData* clip = nullptr;
};

// A corner of a gradient: a point in device units with its colour, 0 to 255 a part.
struct GradientVertex {
  int x = 0, y = 0;
  BYTE red = 0, green = 0, blue = 0, alpha = 255;
};

// A string under an affine map, for exact sizes, turns and widths: a point (u, v) of the string's
// own frame (u along it, v down, the top left of its first cell at 0) lands on
// (m11 u + m21 v + dx, m12 u + m22 v + dy).
struct TransformedText {
  std::wstring_view face;
  double em_size = 0;  // device units before the map
  int weight = 400;
  bool italic = false;
  COLORREF color = 0;
  double m11 = 1, m12 = 0, m21 = 0, m22 = 1, dx = 0, dy = 0;
  std::wstring_view words;
};

class PaintDevice {
 public:
  enum class Kind { kRaster, kPrinter, kMetafile, kRecorder };

  virtual ~PaintDevice() = default;
  virtual Kind kind() const = 0;
  // The answer of GetDeviceCaps; 0 for an index that the device knows nothing of.
  virtual int caps(int index) const = 0;

  // From one point to, and without, the other, as the framework draws lines.
  virtual void line(const PaintState& state, CPoint from, CPoint to) = 0;
  virtual void polyline(const PaintState& state, const CPoint* points, int count) = 0;
  // Interior by brush and fill mode, outline by pen; `counts` holds the corners of each ring.
  virtual void poly_polygon(const PaintState& state, const CPoint* points, const int* counts,
                            int rings) = 0;
  virtual void rectangle(const PaintState& state, const CRect& box) = 0;
  virtual void round_rectangle(const PaintState& state, const CRect& box, CSize corner) = 0;
  virtual void ellipse(const PaintState& state, const CRect& box) = 0;
  enum class ArcForm { kArc, kPie, kChord };
  // Counter-clockwise from the ray through `start` to the ray through `end`.
  virtual void arc(const PaintState& state, ArcForm form, const CRect& box, CPoint start,
                   CPoint end) = 0;
  virtual void fill_region(const PaintState& state, const RegionData& region,
                           const BrushData& brush) = 0;
  virtual void invert_region(const PaintState& state, const RegionData& region) = 0;
  // A brush over a box, combined by a raster operation (PATCOPY, PATINVERT, BLACKNESS ...).
  virtual void pattern_blt(const PaintState& state, const CRect& box, DWORD rop) = 0;
  virtual void set_pixel(const PaintState& state, CPoint at, COLORREF color) = 0;
  // CLR_INVALID for a device that can't be read, and outside of it.
  virtual COLORREF get_pixel(CPoint at) const = 0;
  // One run of text; `box` (may be null) and `options` (ETO_*) as ExtTextOut has them, `advances`
  // (may be null) the way from each character to the next.
  virtual void text(const PaintState& state, CPoint at, UINT options, const CRect* box,
                    std::wstring_view words, const int* advances) = 0;
  virtual void transformed_text(const PaintState& state, const TransformedText& run) = 0;
  virtual CSize text_extent(const PaintState& state, std::wstring_view words) = 0;
  virtual void font_metrics(const PaintState& state, TEXTMETRIC& metrics) = 0;
  // A picture's part into a box; a negative extent mirrors.
  virtual void bitmap(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                      const CRect& from, DWORD rop) = 0;
  // The same, mixed by constant opacity (0 to 255), times the picture's own when `use_alpha`.
  virtual void blend(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                     const CRect& from, BYTE opacity, bool use_alpha) = 0;
  // Colours run linearly between the corners of each triangle (three indexes each).
  virtual void gradient_triangles(const PaintState& state, const GradientVertex* vertices,
                                  int vertex_count, const unsigned* indexes, int triangles) = 0;
  // The pixels behind the device, null when it has none.
  virtual RasterBitmap* pixels() { return nullptr; }
  // The part of pixels() that a box of device units covers.
  virtual CRect to_pixels(const CRect& box) const { return box; }
  // Pages of a printer, comments of a metafile; true when the device makes use of it.
  virtual bool start_page() { return false; }
  virtual bool end_page() { return false; }
};

// A device that ends in a file: WMF, EMF, SVG, PDF.
class FileDevice : public PaintDevice {
 public:
  // Completes and closes the file. False when anything could not be written; the file that stood
  // there before is whole then. A device that is destroyed unfinished leaves no file.
  virtual bool finish() = 0;
};

}  // namespace brindle
