#include "brindle/platform/graphics/raster_brush_internal.h"

namespace brindle {
namespace {

// Rows of a falling hatch run \, of a rising one /.
constexpr std::uint8_t kHatches[6][8] = {
    {0, 0, 0, 0, 0xff, 0, 0, 0},
    {0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10},
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01},
    {0x10, 0x10, 0x10, 0x10, 0xff, 0x10, 0x10, 0x10},
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},
};

int wrapped(std::int64_t value, int period) {
  const std::int64_t rest = value % period;
  return static_cast<int>(rest < 0 ? rest + period : rest);
}

}  // namespace

const std::uint8_t* hatch_rows(int hatch) {
  return kHatches[hatch >= 0 && hatch < 6 ? hatch : HS_DIAGCROSS];
}

RasterBrush::RasterBrush(RasterBitmap& target, const PaintState& state, const BrushData& brush,
                         int rop2)
    : target_(target), origin_(state.brush_origin), rop2_(rop2) {
  if (rop2 == R2_NOP || brush.style == BS_NULL) return;
  line_ = pixel_op(rop2, brush.color);
  line_color_ = argb_of(brush.color);
  if (brush.style == BS_HATCHED) {
    form_ = Form::kHatch;
    hatch_ = hatch_rows(brush.hatch);
    gap_ = pixel_op(rop2, state.bk_color);
    gap_color_ = argb_of(state.bk_color);
    gaps_painted_ = state.bk_mode != TRANSPARENT;
  } else if (brush.style == BS_PATTERN) {
    if (!brush.pattern || brush.pattern->empty()) return;
    form_ = Form::kPattern;
    pattern_ = brush.pattern.get();
  } else {
    form_ = Form::kSolid;
  }
}

void RasterBrush::span(int y, int first, int last) {
  std::uint32_t* row = target_.row(y);
  switch (form_) {
    case Form::kNothing:
      break;
    case Form::kSolid:
      paint_run(row + first, row + last, line_);
      break;
    case Form::kHatch: {
      const unsigned bits = hatch_[wrapped(std::int64_t{y} - origin_.y, 8)];
      unsigned column = static_cast<unsigned>(wrapped(std::int64_t{first} - origin_.x, 8));
      for (int x = first; x < last; ++x, column = (column + 1) & 7) {
        if (bits >> column & 1) {
          row[x] = line_(row[x]);
        } else if (gaps_painted_) {
          row[x] = gap_(row[x]);
        }
      }
      break;
    }
    case Form::kPattern:
      for (int x = first; x < last; ++x)
        row[x] = pixel_op(rop2_, color_of(pattern_at(x, y)))(row[x]);
      break;
  }
}

std::uint32_t RasterBrush::pattern_at(int x, int y) const {
  return pattern_->row(
      wrapped(std::int64_t{y} - origin_.y,
              pattern_->height()))[wrapped(std::int64_t{x} - origin_.x, pattern_->width())];
}

std::uint32_t RasterBrush::color_at(int x, int y, bool& found) const {
  found = paints();
  if (form_ == Form::kPattern) return pattern_at(x, y);
  if (form_ != Form::kHatch) return line_color_;
  if (hatch_[wrapped(std::int64_t{y} - origin_.y, 8)] >> wrapped(std::int64_t{x} - origin_.x, 8) &
      1)
    return line_color_;
  found = gaps_painted_;
  return gap_color_;
}

}  // namespace brindle
