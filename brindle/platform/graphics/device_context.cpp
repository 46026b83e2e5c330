#include "brindle/platform/graphics/device_context.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/scaled_device.h"

namespace brindle {
namespace {

int magnitude(int length) {
  return std::abs(std::max(length, -INT_MAX));
}

}  // namespace

DeviceContext::DeviceContext(PaintDevice* device_) : device(device_) {
  select(*static_cast<CPen*>(stock_object(BLACK_PEN)));
  select(*static_cast<CBrush*>(stock_object(WHITE_BRUSH)));
  select(*static_cast<CFont*>(stock_object(SYSTEM_FONT)));
}

DeviceContext::~DeviceContext() = default;

void DeviceContext::select(CPen& pen) {
  now.pen.select(&pen);
  now.paint.pen = pen.data();
  now.pen_width = pen.data().width;
  if (now.map.scales()) remap();
}

void DeviceContext::select(CBrush& brush) {
  now.brush.select(&brush);
  now.paint.brush = brush.data();
}

void DeviceContext::select(CFont& font) {
  now.font.select(&font);
  now.paint.font = font.data();
  now.font_height = font.data().lfHeight;
  now.font_width = font.data().lfWidth;
  if (now.map.scales()) remap();
}

bool DeviceContext::select(CBitmap& bitmap) {
  if (!is_memory || bitmap.pixels() == nullptr) return false;
  now.bitmap.select(&bitmap);
  now.pixels = bitmap.pixels();
  draw_on_pixels();
  return true;
}

void DeviceContext::restore(size_t level) {
  now = saved[level];
  saved.resize(level);
  if (is_memory) draw_on_pixels();
}

void DeviceContext::draw_on_pixels() {
  own_device = make_raster_device(now.pixels, device->caps(LOGPIXELSX));
  device = own_device.get();
}

CPen* DeviceContext::pen() {
  if (now.pen.get() == nullptr) {
    pen_left_.CreatePen(now.paint.pen.style, now.pen_width, now.paint.pen.color);
    now.pen.select(&pen_left_);
  }
  return static_cast<CPen*>(now.pen.get());
}

CBrush* DeviceContext::brush() {
  if (now.brush.get() == nullptr) {
    brush_left_.set_data(now.paint.brush);
    now.brush.select(&brush_left_);
  }
  return static_cast<CBrush*>(now.brush.get());
}

CFont* DeviceContext::font() {
  if (now.font.get() == nullptr) {
    LOGFONT font = now.paint.font;
    font.lfHeight = now.font_height;
    font.lfWidth = now.font_width;
    font_left_.CreateFontIndirect(&font);
    now.font.select(&font_left_);
  }
  return static_cast<CFont*>(now.font.get());
}

CBitmap* DeviceContext::bitmap() {
  if (!is_memory) return nullptr;
  if (now.bitmap.get() == nullptr) {
    bitmap_left_.Attach(now.pixels);
    now.bitmap.select(&bitmap_left_);
  }
  return static_cast<CBitmap*>(now.bitmap.get());
}

void DeviceContext::set_clip(std::shared_ptr<const RegionData> clip) {
  now.clip = std::move(clip);
  now.paint.clip = now.clip.get();
}

void DeviceContext::remap() {
  now.paint.pen.width = magnitude(now.map.width_to_device(now.pen_width));
  const int height = magnitude(now.map.height_to_device(now.font_height));
  now.paint.font.lfHeight = now.font_height < 0 ? -height : height;
  now.paint.font.lfWidth = magnitude(now.map.width_to_device(now.font_width));
}

const CPoint* DeviceContext::to_device(const POINT* points, int count) {
  const CoordinateMap& map = now.map;
  if (!map.scales() && map.window_org == map.viewport_org)
    return static_cast<const CPoint*>(points);
  scratch.resize(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) scratch[static_cast<size_t>(i)] = map.to_device(points[i]);
  return scratch.data();
}

CRect DeviceContext::to_device(const CRect& box) const {
  CRect mapped(now.map.to_device(box.TopLeft()), now.map.to_device(box.BottomRight()));
  mapped.NormalizeRect();
  return mapped;
}

}  // namespace brindle
