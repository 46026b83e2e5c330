// MetafileDevice: what the two metafile forms have in common. It turns figures into records and
// keeps the objects, the state and the bounds; the form of the records comes from outside.
#pragma once

#include <memory>
#include <string>

#include "brindle/platform/graphics/paint_device.h"

namespace brindle {

struct FileExtent;
class MetafileRecords;
class MetafileRecorder;

// Figures stay figures: nothing is clipped to the picture, so that a reader may look beyond its
// edge. Lines and polygons that leave the range of the form's coordinates are cut there, without
// turning; a box is cut to the range, and a text that starts outside is left out. Colours run
// through triangles as small patches of one colour. Pixels can't be read back.
class MetafileDevice : public FileDevice {
 public:
  ~MetafileDevice() override;

  Kind kind() const override { return Kind::kMetafile; }
  // Of the picture that was asked for: HORZRES, VERTRES, HORZSIZE, VERTSIZE, LOGPIXELSX,
  // LOGPIXELSY; TECHNOLOGY is DT_METAFILE.
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
  // A map that mirrors or shears is drawn as its turn and its two sizes alone.
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

 protected:
  // `size` in device units; an empty one stands for the box around all that is drawn. `dpi` is
  // device units an inch, 96 when it isn't above 0.
  MetafileDevice(const wchar_t* path, CSize size, double dpi,
                 std::unique_ptr<MetafileRecords> records);

 private:
  std::wstring path_;
  std::unique_ptr<FileExtent> extent_;
  std::unique_ptr<MetafileRecorder> recorder_;
  bool finished_ = false;
};

}  // namespace brindle
