// SvgWriter: the elements of an SVG picture, and what they refer to: patterns, clip paths.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "brindle/platform/graphics/figure_geometry_internal.h"
#include "brindle/platform/graphics/file_device_internal.h"

namespace brindle {

// A number with two decimals at most, without zeros at its end.
std::string svg_number(double value);
// "#rrggbb".
std::string svg_color(COLORREF color);
// Path data. Figures run through the middles of pixels, which stand at whole numbers; areas have
// their corners where pixels meet.
std::string figure_path(const CPoint* points, int count, bool closed);
std::string area_path(const Rings& rings);
std::string area_path(const CRect& box);
std::string polygon_path(const std::vector<FigurePoint>& corners);
// Text with what would be markup replaced, and what no XML may hold by U+FFFD.
std::string xml_text(std::wstring_view text);

class SvgWriter {
 public:
  SvgWriter(const wchar_t* path, const FileExtent& extent_) : extent(extent_), path_(path) {}

  const FileExtent extent;

  // One element under the state's clip: `start` is its name with its attributes.
  void element(const PaintState& state, const std::string& start, const std::string& content = {});
  // A path filled by the state's brush and outlined by its pen, as its raster operation has it.
  void figure(const PaintState& state, const std::string& path);
  // A path filled by a brush alone, or by a colour.
  void area(const PaintState& state, const std::string& path, const BrushData& brush);
  void area(const PaintState& state, const std::string& path, COLORREF color);
  void picture(const PaintState& state, const CRect& to, const RasterBitmap& pixels);

  bool finish();

 private:
  // The reference to a definition of that kind, made when there is none alike: "url(#id)".
  std::string reference(const std::string& kind, const std::string& attributes,
                        const std::string& content);
  // The value of `fill`, empty for a brush that draws nothing.
  std::string fill_of(const PaintState& state, const BrushData& brush);
  std::string stroke_of(const PaintState& state, const PenData& pen);
  void end_lines();

  std::wstring path_;
  std::string definitions_, body_;
  std::map<std::string, std::string> references_;  // by what they hold
  std::string line_attributes_, lines_;            // lines that go into one path
  bool finished_ = false;
};

}  // namespace brindle
