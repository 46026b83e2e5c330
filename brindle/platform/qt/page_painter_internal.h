// PagePainter: what PDF files and printers have in common, painting by a QPainter.
#pragma once

#include "brindle/platform/graphics/file_device_internal.h"
#include "brindle/platform/graphics/region_data.h"

#include <optional>
#include <QPainter>
#include <QPainterPath>

class QPagedPaintDevice;

namespace brindle {

struct TextLayout;
struct Rings;

// A pixel's centre stands at its whole coordinates, half a unit in from the page's corner.
class PagePainter : public FileDevice {
 public:
  Kind kind() const override { return Kind::kPrinter; }
  int caps(int index) const override { return extent_.caps(index, DT_RASPRINTER); }

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
  bool start_page() override;
  bool end_page() override { return true; }

 protected:
  PagePainter(CSize size, double dpi) : extent_(size, dpi) {}
  // Starts painting on a page whose device has `scale` of its own units a unit of ours.
  bool begin(QPagedPaintDevice& page, double scale);
  bool end() { return painter_.isActive() && painter_.end(); }

  const FileExtent extent_;

 private:
  void clip_to(const PaintState& state);
  void figure(const PaintState& state, const QPainterPath& path, const BrushData& brush);
  void fill(const PaintState& state, const QPainterPath& path, const BrushData& brush);
  void fill_color(const PaintState& state, const QPainterPath& path, COLORREF color);
  void hatch(const QPainterPath& path, const BrushData& brush, CPoint origin, COLORREF color);
  // A run on a base line that starts at the painter's origin, `width` long.
  void run(const struct GlyphFont& font, std::wstring_view words, double width, COLORREF color);
  void picture(const PaintState& state, const CRect& to, const RasterBitmap& pixels);

  QPainter painter_;
  QPagedPaintDevice* page_ = nullptr;
  double scale_ = 1;
  std::optional<RegionData> clip_;
  int started_pages_ = 0;
};

}  // namespace brindle
