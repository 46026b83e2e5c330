// A device that keeps every call, to be read back or drawn on another device.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {

// One call with copies of all that it was given. Which fields count depends on the kind.
struct RecordedCall {
  enum class Kind {
    kLine,             // points: from, to
    kPolyline,         // points
    kPolyPolygon,      // points, counts
    kRectangle,        // box
    kRoundRectangle,   // box, extent: corner
    kEllipse,          // box
    kArc,              // form, box, points: start, end
    kFillRegion,       // region, state.brush
    kInvertRegion,     // region
    kPatternBlt,       // box, rop
    kSetPixel,         // points: at; color
    kText,             // points: at; options, has_box, box, words, counts: advances
    kTransformedText,  // words, face, run
    kBitmap,           // box, picture, from, rop
    kBlend,            // box, picture, from, rop: opacity, use_alpha
    kGradient,         // vertices, indexes
    kStartPage,
    kEndPage,
  };
  Kind kind = Kind::kLine;
  PaintState state;  // its clip points to `clip`'s value
  std::shared_ptr<const RegionData> clip;
  std::vector<CPoint> points;
  std::vector<int> counts;
  CRect box, from;
  CSize extent;
  PaintDevice::ArcForm form = PaintDevice::ArcForm::kArc;
  std::shared_ptr<const RegionData> region;
  DWORD rop = 0;
  UINT options = 0;
  bool has_box = false, use_alpha = false;
  COLORREF color = 0;
  std::wstring words, face;
  TransformedText run;  // its texts are `words` and `face`
  std::shared_ptr<const RasterBitmap> picture;
  std::vector<GradientVertex> vertices;
  std::vector<unsigned> indexes;
};

// Texts measure half an em a byte of code page 936, so that layouts don't hang on any font.
class RecordingDevice : public PaintDevice {
 public:
  // Pixels, and 96 dots an inch unless `dpi` says otherwise.
  explicit RecordingDevice(CSize size = {1920, 1080}, int dpi = 96) : size_(size), dpi_(dpi) {}

  const std::vector<RecordedCall>& calls() const { return calls_; }
  void clear() { calls_.clear(); }
  // Makes the same calls on `device`.
  void replay(PaintDevice& device) const;
  // What kind() and caps(TECHNOLOGY) tell: a recorder can stand in for a printer or a metafile.
  void set_kind(Kind kind) { kind_ = kind; }

  Kind kind() const override { return kind_; }
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
  bool start_page() override;
  bool end_page() override;

 private:
  RecordedCall& add(RecordedCall::Kind kind, const PaintState& state);
  static void replay(const RecordedCall& call, PaintDevice& device);

  std::vector<RecordedCall> calls_;
  CSize size_;
  int dpi_;
  Kind kind_ = Kind::kRecorder;
};

}  // namespace brindle
