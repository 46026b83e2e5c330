#include "brindle/platform/graphics/raster_device.h"

#include <algorithm>
#include <cmath>

#include "brindle/platform/graphics/raster_brush_internal.h"
#include "brindle/platform/graphics/raster_clip_internal.h"
#include "brindle/platform/graphics/raster_line_internal.h"
#include "brindle/platform/graphics/raster_pen_internal.h"

namespace brindle {

RasterDevice::RasterDevice(int width, int height, double dpi)
    : target_(std::make_shared<RasterBitmap>(width, height)), dpi_(dpi) {}

RasterDevice::RasterDevice(RasterBitmap& target, double dpi)
    : target_(std::shared_ptr<void>(), &target), dpi_(dpi) {}

RasterDevice::RasterDevice(std::shared_ptr<RasterBitmap> target, double dpi)
    : target_(std::move(target)), dpi_(dpi) {}

int RasterDevice::caps(int index) const {
  const auto millimetres = [this](int pixels) {
    return static_cast<int>(std::lround(pixels * 25.4 / dpi_));
  };
  switch (index) {
    case TECHNOLOGY:
      return DT_RASDISPLAY;
    case HORZRES:
    case PHYSICALWIDTH:
      return target_->width();
    case VERTRES:
    case PHYSICALHEIGHT:
      return target_->height();
    case HORZSIZE:
      return millimetres(target_->width());
    case VERTSIZE:
      return millimetres(target_->height());
    case LOGPIXELSX:
    case LOGPIXELSY:
      return static_cast<int>(std::lround(dpi_));
    case BITSPIXEL:
      return 32;
    case PLANES:
      return 1;
    case NUMCOLORS:
      return -1;  // more than can be counted here
    case COLORRES:
      return 24;
    case ASPECTX:
    case ASPECTY:
      return 36;
    case ASPECTXY:
      return 51;
    default:
      return 0;
  }
}

void RasterDevice::line(const PaintState& state, CPoint from, CPoint to) {
  const bool thin = state.pen.style == PS_SOLID && state.pen.width < 2;
  if (thin && state.rop2 == R2_COPYPEN && (!state.clip || state.clip->is_rectangle())) {
    CRect box(0, 0, target_->width(), target_->height());
    if (state.clip) box = common_part(box, state.clip->box());
    const PixelOp op{0, argb_of(state.pen.color)};
    solid_line<true>(target_->data(), target_->stride(), box, from, to, op);
    return;
  }
  const CPoint points[] = {from, to};
  polyline(state, points, 2);
}

void RasterDevice::polyline(const PaintState& state, const CPoint* points, int count) {
  if (count < 1) return;
  const RasterClip clip(*target_, state.clip);
  RasterPen(*target_, state, clip).chain(points, static_cast<std::size_t>(count), false);
}

void RasterDevice::fill_region(const PaintState& state, const RegionData& region,
                               const BrushData& brush) {
  const RasterClip clip(*target_, state.clip);
  RasterBrush fill(*target_, state, brush, state.rop2);
  if (!fill.paints()) return;
  for (const CRect& part : region.from_row(clip.box.top)) {
    if (part.top >= clip.box.bottom) break;
    clip.boxes(part, [&](const CRect& box) {
      for (int y = box.top; y < box.bottom; ++y) fill.span(y, box.left, box.right);
    });
  }
}

void RasterDevice::invert_region(const PaintState& state, const RegionData& region) {
  PaintState inverse = state;
  inverse.rop2 = R2_NOT;
  fill_region(inverse, region, BrushData{});
}

void RasterDevice::set_pixel(const PaintState& state, CPoint at, COLORREF color) {
  if (RasterClip(*target_, state.clip).contains(at.x, at.y))
    target_->row(at.y)[at.x] = argb_of(color);
}

COLORREF RasterDevice::get_pixel(CPoint at) const {
  return target_->contains(at.x, at.y) ? color_of(target_->row(at.y)[at.x]) : CLR_INVALID;
}

void draw_segments(RasterBitmap& target, const Segment* segments, std::size_t count,
                   COLORREF color) {
  const CRect box(0, 0, target.width(), target.height());
  const PixelOp op{0, argb_of(color)};
  std::uint32_t* pixels = target.data();
  const std::ptrdiff_t stride = target.stride();
  for (std::size_t i = 0; i < count; ++i)
    solid_line<true>(pixels, stride, box, segments[i].from, segments[i].to, op);
}

}  // namespace brindle
