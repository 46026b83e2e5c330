// ScaledDevice: painting in units of a PixelGrid on a bitmap of finer pixels.
#pragma once

#include <memory>

#include "brindle/platform/graphics/raster_device.h"

namespace brindle {

// Boxes, pixels and thin lines along the axes cover the pixels of their units, so that neighbours
// leave no gap; other thin lines are as many whole pixels wide as fit into a unit; text is drawn in
// its size on the screen. So everything is as sharp as the screen is. Extents of text are told in
// units, rounded up.
class ScaledDevice final : public PaintDevice {
 public:
  // The bitmap has been made on a grid.
  explicit ScaledDevice(std::shared_ptr<RasterBitmap> target, double dpi = 96);

  Kind kind() const override { return Kind::kRaster; }
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
  RasterBitmap* pixels() override { return fine_.pixels(); }
  CRect to_pixels(const CRect& box) const override { return grid_.box(box); }

 private:
  struct Scaled;  // a state in pixels

  RegionData region_of(const RegionData& units) const;
  // Thin solid lines along the axes; false, and nothing drawn, for others.
  bool draw_straight(const Scaled& state, const CPoint* points, int count);
  int length(double units) const;
  LOGFONT font_of(const LOGFONT& font) const;

  RasterDevice fine_;
  PixelGrid grid_;
  int thin_;  // pixels of a slanting line of one unit
};

// The device that paints on the bitmap in its own units.
std::unique_ptr<PaintDevice> make_raster_device(std::shared_ptr<RasterBitmap> target,
                                                double dpi = 96);

}  // namespace brindle
