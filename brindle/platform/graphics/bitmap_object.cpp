// CBitmap.
#include <algorithm>
#include <cstring>

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {
namespace {

constexpr std::uint32_t kBlack = 0xff000000;

// One row of `bits` as pixels.
void read_row(const BYTE* bits, UINT bits_per_pixel, std::uint32_t* out, int width) {
  for (int x = 0; x < width; ++x) {
    if (bits_per_pixel == 1) {
      out[x] = bits[x / 8] >> (7 - x % 8) & 1 ? 0xffffffff : kBlack;
    } else {
      const BYTE* pixel = bits + static_cast<size_t>(x) * (bits_per_pixel / 8);
      out[x] = kBlack | static_cast<std::uint32_t>(pixel[2]) << 16 |
               static_cast<std::uint32_t>(pixel[1]) << 8 | pixel[0];
    }
  }
}

}  // namespace

BOOL CBitmap::CreateCompatibleBitmap(CDC* dc, int width, int height) {
  const PaintDevice* device = dc != nullptr ? dc->device() : nullptr;
  const RasterBitmap* like = device != nullptr ? dc->device()->pixels() : nullptr;
  if (like == nullptr || like->grid().is_plain())
    return CreateBitmap(width, height, 1, 32, nullptr);
  PixelGrid grid = like->grid();
  grid.width = width;
  grid.height = height;
  auto pixels = std::make_shared<RasterBitmap>();
  return pixels->create(grid, kBlack) && Attach(std::move(pixels));
}

BOOL CBitmap::CreateBitmap(int width, int height, UINT planes, UINT bits_per_pixel,
                           const void* bits) {
  if (planes != 1) return FALSE;
  if (bits != nullptr && bits_per_pixel != 1 && bits_per_pixel != 24 && bits_per_pixel != 32)
    return FALSE;
  auto pixels = std::make_shared<RasterBitmap>();
  if (!pixels->create(width, height, kBlack)) return FALSE;
  if (bits != nullptr) {
    const size_t row_bytes = (static_cast<size_t>(width) * bits_per_pixel + 15) / 16 * 2;
    for (int y = 0; y < height; ++y)
      read_row(static_cast<const BYTE*>(bits) + static_cast<size_t>(y) * row_bytes, bits_per_pixel,
               pixels->row(y), width);
  }
  return Attach(std::move(pixels));
}

BOOL CBitmap::CreateBitmapIndirect(const BITMAP* bitmap) {
  return CreateBitmap(bitmap->bmWidth, bitmap->bmHeight, bitmap->bmPlanes, bitmap->bmBitsPixel,
                      bitmap->bmBits);
}

BOOL CBitmap::Attach(std::shared_ptr<RasterBitmap> pixels) {
  if (pixels == nullptr || pixels->empty()) return FALSE;
  pixels_ = std::move(pixels);
  return made();
}

DWORD CBitmap::GetBitmapBits(DWORD count, void* out) const {
  if (pixels_ == nullptr) return 0;
  const size_t bytes = static_cast<size_t>(pixels_->width()) * pixels_->height() * 4;
  const DWORD copied = static_cast<DWORD>(std::min<size_t>(bytes, count));
  std::memcpy(out, pixels_->data(), copied);
  return copied;
}

DWORD CBitmap::SetBitmapBits(DWORD count, const void* bits) {
  if (pixels_ == nullptr) return 0;
  const size_t bytes = static_cast<size_t>(pixels_->width()) * pixels_->height() * 4;
  const DWORD copied = static_cast<DWORD>(std::min<size_t>(bytes, count));
  std::memcpy(pixels_->data(), bits, copied);
  return copied;
}

BOOL CBitmap::DeleteObject() {
  if (!stays_) pixels_ = nullptr;
  return CGdiObject::DeleteObject();
}

int CBitmap::GetObject(int count, void* out) const {
  if (pixels_ == nullptr) return 0;
  BITMAP bitmap;
  if (out == nullptr) return sizeof bitmap;
  if (count < static_cast<int>(sizeof bitmap)) return 0;
  bitmap.bmWidth = pixels_->grid().width;
  bitmap.bmHeight = pixels_->grid().height;
  bitmap.bmWidthBytes = pixels_->width() * 4;
  bitmap.bmBits = pixels_->grid().is_plain() ? pixels_->data() : nullptr;
  std::memcpy(out, &bitmap, sizeof bitmap);
  return sizeof bitmap;
}

}  // namespace brindle
