// RasterDevice: painting into a RasterBitmap, by one rasteriser, so that the same calls set the
// same pixels everywhere.
#pragma once

#include <cstddef>
#include <memory>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

// Pixel (x, y) stands for the point (x, y). A line sets one pixel for each step along its longer
// axis, the nearest to the true line, ties to the left or up: the same pixels in both directions,
// without its last one. A filled figure sets the pixels whose points are inside, with those on a
// left or top edge and without those on a right or bottom edge; figures that share an edge leave
// no gap and no pixel is set twice. Coordinates may be any int. The alpha byte of a painted pixel
// is 0xFF.
class RasterDevice final : public PaintDevice {
 public:
  // A white bitmap of its own. Nothing is painted when the size is beyond a bitmap's limits.
  RasterDevice(int width, int height, double dpi = 96);
  // Paints into `target`, which must outlive the device.
  explicit RasterDevice(RasterBitmap& target, double dpi = 96);
  explicit RasterDevice(std::shared_ptr<RasterBitmap> target, double dpi = 96);

  RasterBitmap& bitmap() { return *target_; }
  const RasterBitmap& bitmap() const { return *target_; }
  // Goes on in another bitmap (not null).
  void set_target(std::shared_ptr<RasterBitmap> target) { target_ = std::move(target); }

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
  RasterBitmap* pixels() override { return target_.get(); }

 private:
  std::shared_ptr<RasterBitmap> target_;
  double dpi_;
};

// The bare loop under RasterDevice::line: solid lines in one colour over the whole bitmap.
struct Segment {
  CPoint from, to;
};
void draw_segments(RasterBitmap& target, const Segment* segments, std::size_t count,
                   COLORREF color);

}  // namespace brindle
