// SvgDevice: a picture in SVG 1.1.
#pragma once

#include <memory>
#include <string>

#include "brindle/platform/graphics/paint_device.h"

namespace brindle {

class SvgWriter;

// One unit of the picture is a device unit; a pixel's centre lies half a unit in. Raster operations
// can't be told: those that depend on what lies below draw the plain colour. Hatch brushes are
// patterns, clip regions clip paths, texts stay texts with their length. Pixels can't be read back.
class SvgDevice : public FileDevice {
 public:
  // `size` in device units, at least 1 each way; `dpi` is device units an inch, 96 when it isn't
  // above 0.
  SvgDevice(const wchar_t* path, CSize size, double dpi = 96);
  ~SvgDevice() override;

  // A page: entities keep their colours on it where these are asked for, and stand out from the
  // background, which a metafile has none of.
  Kind kind() const override { return Kind::kPrinter; }
  // As a plotter's.
  int caps(int index) const override;

  void line(const PaintState& state, CPoint from, CPoint to) override;
  void polyline(const PaintState& state, const CPoint* points, int count) override;
  void poly_polygon(const PaintState& state, const CPoint* points, const int* counts,
                    int rings) override;
  void rectangle(const PaintState& state, const CRect& box) override;
  void round_rectangle(const PaintState& state, const CRect& box, CSize corner) override;
  void ellipse(const PaintState& state, const CRect& box) override;
  void arc(const PaintState& state, ArcForm form, const CRect& box, CPoint start,
           CPoint end) override;
  void fill_region(const PaintState& state, const RegionData& region,
                   const BrushData& brush) override;
  // Black.
  void invert_region(const PaintState& state, const RegionData& region) override;
  void pattern_blt(const PaintState& state, const CRect& box, DWORD rop) override;
  void set_pixel(const PaintState& state, CPoint at, COLORREF color) override;
  COLORREF get_pixel(CPoint at) const override;
  void text(const PaintState& state, CPoint at, UINT options, const CRect* box,
            std::wstring_view words, const int* advances) override;
  void transformed_text(const PaintState& state, const TransformedText& run) override;
  CSize text_extent(const PaintState& state, std::wstring_view words) override;
  void font_metrics(const PaintState& state, TEXTMETRIC& metrics) override;
  void bitmap(const PaintState& state, const CRect& to, const RasterBitmap& picture,
              const CRect& from, DWORD rop) override;
  void blend(const PaintState& state, const CRect& to, const RasterBitmap& picture,
             const CRect& from, BYTE opacity, bool use_alpha) override;
  void gradient_triangles(const PaintState& state, const GradientVertex* vertices, int vertex_count,
                          const unsigned* indexes, int triangles) override;

  bool finish() override;

 private:
  std::unique_ptr<SvgWriter> writer_;
};

}  // namespace brindle
