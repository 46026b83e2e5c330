// What fills a run of pixels: a colour, a hatch or a pattern, under a raster operation.
#pragma once

#include <cstdint>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/raster_arithmetic_internal.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

// The 8 rows of a hatch (HS_*); bit x of a row is set where a line passes column x.
const std::uint8_t* hatch_rows(int hatch);

class RasterBrush {
 public:
  RasterBrush(RasterBitmap& target, const PaintState& state, const BrushData& brush, int rop2);

  // Whether it does anything at all.
  bool paints() const { return form_ != Form::kNothing; }
  bool is_solid() const { return form_ == Form::kSolid; }
  PixelOp solid_op() const { return line_; }
  // The run must lie in the target.
  void span(int y, int first, int last);
  // What the brush holds at a pixel, for the raster operations of blits; `found` is false in the
  // gaps of a hatch over a transparent background.
  std::uint32_t color_at(int x, int y, bool& found) const;

 private:
  enum class Form { kNothing, kSolid, kHatch, kPattern };
  std::uint32_t pattern_at(int x, int y) const;

  RasterBitmap& target_;
  Form form_ = Form::kNothing;
  PixelOp line_{}, gap_{};
  std::uint32_t line_color_ = 0, gap_color_ = 0;
  bool gaps_painted_ = false;
  const std::uint8_t* hatch_ = nullptr;
  const RasterBitmap* pattern_ = nullptr;
  CPoint origin_;
  int rop2_;
};

}  // namespace brindle
