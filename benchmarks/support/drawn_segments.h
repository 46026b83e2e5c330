// SegmentCollector: a device that keeps the segments and pixels that a drawing makes on it, for a
// bare loop to draw again.
#pragma once

#include <vector>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/raster_device.h"

namespace brindle::benchmarks {

// A pixel counts as a segment of one pixel. Filled figures and pictures are counted, not kept.
class SegmentCollector final : public PaintDevice {
 public:
  const std::vector<Segment>& segments() const { return segments_; }
  long others() const { return others_; }

  Kind kind() const override { return Kind::kRaster; }
  int caps(int) const override { return 0; }
  void line(const PaintState&, CPoint from, CPoint to) override { segments_.push_back({from, to}); }
  void polyline(const PaintState& state, const CPoint* points, int count) override {
    for (int i = 1; i < count; ++i) line(state, points[i - 1], points[i]);
  }
  void set_pixel(const PaintState&, CPoint at, COLORREF) override {
    segments_.push_back({at, CPoint(at.x + 1, at.y)});
  }
  void poly_polygon(const PaintState&, const CPoint*, const int*, int) override { ++others_; }
  void rectangle(const PaintState&, const CRect&) override { ++others_; }
  void round_rectangle(const PaintState&, const CRect&, CSize) override { ++others_; }
  void ellipse(const PaintState&, const CRect&) override { ++others_; }
  void arc(const PaintState&, ArcForm, const CRect&, CPoint, CPoint) override { ++others_; }
  void fill_region(const PaintState&, const RegionData&, const BrushData&) override { ++others_; }
  void invert_region(const PaintState&, const RegionData&) override { ++others_; }
  void pattern_blt(const PaintState&, const CRect&, DWORD) override { ++others_; }
  COLORREF get_pixel(CPoint) const override { return CLR_INVALID; }
  void text(const PaintState&, CPoint, UINT, const CRect*, std::wstring_view, const int*) override {
    ++others_;
  }
  void transformed_text(const PaintState&, const TransformedText&) override { ++others_; }
  CSize text_extent(const PaintState&, std::wstring_view) override { return {}; }
  void font_metrics(const PaintState&, TEXTMETRIC&) override {}
  void bitmap(const PaintState&, const CRect&, const RasterBitmap&, const CRect&, DWORD) override {
    ++others_;
  }
  void blend(const PaintState&, const CRect&, const RasterBitmap&, const CRect&, BYTE,
             bool) override {
    ++others_;
  }
  void gradient_triangles(const PaintState&, const GradientVertex*, int, const unsigned*,
                          int) override {
    ++others_;
  }

 private:
  std::vector<Segment> segments_;
  long others_ = 0;
};

}  // namespace brindle::benchmarks
