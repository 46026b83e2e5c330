// A drawing in memory at a paper scale: strokes, texts and dimensions on named layers.
#pragma once

#include <string>
#include <vector>

#include "brindle/dxf/dxf.h"

namespace brindle::beam {

enum class Layer { kOutline, kStirrup, kBars, kDimension, kText, kAxis };

enum class Align { kLeft, kCentre, kRight };

// Positions are world millimetres (of the structure, y up), heights of texts and all sizes that
// belong to the paper are paper millimetres; angles in degrees, counter-clockwise. A call that the
// drawing refuses is remembered in good().
class DrawingSheet {
 public:
  // `drawing` must outlive the sheet. `scale` is world millimetres in one of paper: 20 for 1:20.
  // Starts the drawing anew, with the layers, line types and text styles of the sheet.
  DrawingSheet(DXF& drawing, double scale);

  bool good() const { return good_; }
  double scale() const { return scale_; }
  double paper(double paper_mm) const { return paper_mm * scale_; }

  void line(Layer layer, double x1, double y1, double x2, double y2);
  // From `start_deg` counter-clockwise to `end_deg`.
  void arc(Layer layer, double x, double y, double radius, double start_deg, double end_deg);
  void circle(Layer layer, double x, double y, double radius);
  void rectangle(Layer layer, double left, double bottom, double right, double top);

  // The anchor lies on the base line, at the start, the middle or the end of the text.
  void text(double x, double y, double height_mm, const std::wstring& content,
            Align align = Align::kLeft, double angle_deg = 0, Layer layer = Layer::kText);
  // Expected width on paper, in paper millimetres. Shape fonts differ a little from each other.
  double text_width(const std::wstring& content, double height_mm) const;

  // A chain of dimensions with ticks, extension lines and numbers above the line. `points` are the
  // measured places, rising, two at least. `at` is the place of the dimension line, `from` that of
  // the edge, or of the inner dimension line, that the extension lines start at. The horizontal
  // form lies below its edge and measures in x, the vertical one lies left of it and measures in
  // y. Where a number is wider than its length it stands beyond the end of the chain, so only the
  // first and the last length may be that short.
  void horizontal_dimensions(const std::vector<double>& points, double from, double at);
  void vertical_dimensions(const std::vector<double>& points, double from, double at);

 private:
  void dimensions(const std::vector<double>& points, double from, double at, bool vertical);
  void keep(const void* entity) { good_ = good_ && entity != nullptr; }

  DXF& drawing_;
  double scale_;
  bool good_ = true;
};

// The number as a dimension shows it: at most one decimal, none when it is whole.
std::wstring dimension_number(double value);

}  // namespace brindle::beam
