// What the blocks of all kinds of dimensions are built with: the style that was looked up, the
// frame of a dimension line, and its pieces. Not for use outside this folder.
#pragma once

#include <memory>
#include <string>

#include "brindle/dxf/acad_block.h"
#include "brindle/dxf/acad_dimension.h"

namespace brindle {

class DXF;

namespace Varnholt {

class ACAD_DIMSTYLE;
class ACAD_STYLE;

// A plane frame: (0, 0) lies at (x, y), and the x axis runs at an angle (degrees, [0, 360)).
class DimFrame {
 public:
  DimFrame(double x, double y, double angle_deg);
  double angle_deg() const { return angle_deg_; }
  double world_x(double x, double y) const { return x_ + x * cosine_ - y * sine_; }
  double world_y(double x, double y) const { return y_ + x * sine_ + y * cosine_; }

 private:
  double x_, y_, angle_deg_, cosine_, sine_;
};

// The angle in [0, 360).
double fold_angle(double degrees);
// An angle in [0, 360), exact for the right angles that it is within a hair of: a vertical
// dimension reads from the right however its points were rounded.
double tidy_angle(double degrees);
// Whether a text along a line of this angle, [0, 360), would read from above or from the left.
inline bool is_upside(double angle_deg) {
  return angle_deg > 90 && angle_deg <= 270;
}

// The mark at an end of the dimension line.
struct DimArrow {
  const ACAD_BLOCK* block = nullptr;  // null: a filled triangle
  double reach = 0;                   // how far it lies from its tip; 0 for a centred tick
};

// Builds the block of one dimension. Sizes are those of the style times the dimension's scale.
class DimensionBuilder {
 public:
  DimensionBuilder(DXF& drawing, const ACAD_DIMENSION& dim) : drawing_(drawing), dim_(dim) {}

  // Looks up style, text style, arrow blocks and line type, and starts the block. False, with the
  // messages that are due, when one is missing.
  bool start();
  std::unique_ptr<ACAD_BLOCK> take_block() { return std::move(block_); }

  double extension_offset() const;  // between a measured point and its extension line
  double extension_overshoot() const;
  double gap() const;
  // Beyond the extension lines, for dimension lines that end in ticks.
  double line_overshoot() const;
  const DimArrow& arrow(int end) const { return arrows_[end]; }
  const ACAD_DIMSTYLE& style() const { return *style_; }

  // The dimension's text, with the measurement (drawing units times the length factor, or degrees)
  // where the text is empty or has "<>"; for an empty one `prefix` stands in front of it.
  std::wstring words(double measurement, const wchar_t* prefix, const wchar_t* suffix) const;
  double width_of(const std::wstring& words) const;

  // Pieces in the world. A line without length is left out.
  void dimension_line(const DimFrame& frame, double x1, double y1, double x2, double y2);
  void extension_line(const DimFrame& frame, double x1, double y1, double x2, double y2);
  void dimension_arc(double cx, double cy, double radius, double start_deg, double end_deg);
  // The mark of end 0 or 1 with its tip at (x, y) of the frame; the mark lies at `body_deg` from
  // there (of the frame; 0 along its x axis).
  void arrow_mark(const DimFrame& frame, int end, double x, double y, double body_deg);
  // A text that starts at (x, y) of the frame.
  void text(const DimFrame& frame, double x, double y, double world_angle_deg,
            const std::wstring& words);
  // A text on a straight dimension line from (0, 0) to (length, 0), and a line under it where it
  // stands beside the line. `tails` are the lines that are there beside its two ends already.
  void text_on_line(const DimFrame& frame, double length, const std::wstring& words,
                    const double (&tails)[2]);

 private:
  bool find_arrows();
  bool find_arrow(const WText<100>& name, DimArrow& arrow) const;
  int color_of(int variable) const;
  template <class Entity>
  Entity& add(int color_variable);
  void line(const DimFrame& frame, double x1, double y1, double x2, double y2, int color_variable);

  DXF& drawing_;
  const ACAD_DIMENSION& dim_;
  const ACAD_DIMSTYLE* style_ = nullptr;
  const ACAD_STYLE* text_style_ = nullptr;
  DimArrow arrows_[2];
  std::unique_ptr<ACAD_BLOCK> block_;
};

}  // namespace Varnholt
}  // namespace brindle
