#include "brindle/platform/graphics/file_device_internal.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "brindle/platform/base/save_file.h"

namespace brindle {

int FileExtent::caps(int index, int technology) const {
  constexpr double kMillimetresPerInch = 25.4;
  const auto millimetres = [this](int units) {
    return static_cast<int>(std::lround(units * kMillimetresPerInch / dpi));
  };
  switch (index) {
    case TECHNOLOGY:
      return technology;
    case HORZRES:
    case PHYSICALWIDTH:
      return size.cx;
    case VERTRES:
    case PHYSICALHEIGHT:
      return size.cy;
    case HORZSIZE:
      return millimetres(size.cx);
    case VERTSIZE:
      return millimetres(size.cy);
    case LOGPIXELSX:
    case LOGPIXELSY:
      return static_cast<int>(std::lround(dpi));
    case BITSPIXEL:
      return 24;
    case PLANES:
      return 1;
    case NUMCOLORS:
      return -1;  // as many as there are
    default:
      return 0;
  }
}

bool write_whole_file(const wchar_t* path, std::string_view bytes) {
  SaveFile file(path);
  if (file.stream() == nullptr) return false;
  return std::fwrite(bytes.data(), 1, bytes.size(), file.stream()) == bytes.size() && file.commit();
}

namespace {

// Along one axis: cuts [from, from + length) to the picture and `to` in proportion; both extents
// may be negative, then the part is mirrored if one of them is.
struct AxisPart {
  int from, to, target_from, target_to;
  bool mirrored;
};

bool cut_axis(int target_from, int target_to, int from, int to, int size, AxisPart& out) {
  out.mirrored = (target_to < target_from) != (to < from);
  if (target_to < target_from) std::swap(target_from, target_to);
  if (to < from) std::swap(from, to);
  out.from = std::max(from, 0), out.to = std::min(to, size);
  if (out.to <= out.from || target_to == target_from) return false;
  const double scale = (double(target_to) - target_from) / (double(to) - from);
  const double before = (double(out.from) - from) * scale, after = (double(to) - out.to) * scale;
  const int left = static_cast<int>(std::lround(out.mirrored ? after : before));
  const int right = static_cast<int>(std::lround(out.mirrored ? before : after));
  out.target_from = wrap_add(target_from, left), out.target_to = wrap_subtract(target_to, right);
  return out.target_to > out.target_from;
}

std::uint32_t pixel_on_paper(std::uint32_t pixel, DWORD rop) {
  constexpr std::uint32_t kOpaque = 0xff000000u, kColor = 0xffffffu;
  const std::uint32_t color = pixel & kColor;
  switch (rop) {
    case SRCAND:
      return color == kColor ? 0 : kOpaque | color;
    case SRCPAINT:
    case SRCINVERT:
      return color == 0 ? 0 : kOpaque | color;
    case NOTSRCCOPY:
      return kOpaque | (~color & kColor);
    case BLACKNESS:
      return kOpaque;
    case WHITENESS:
      return kOpaque | kColor;
    default:
      return kOpaque | color;
  }
}

}  // namespace

bool place_picture(const CRect& to, const RasterBitmap& picture, const CRect& from,
                   PlacedPicture& out) {
  AxisPart x, y;
  if (!cut_axis(to.left, to.right, from.left, from.right, picture.width(), x) ||
      !cut_axis(to.top, to.bottom, from.top, from.bottom, picture.height(), y)) {
    return false;
  }
  out.to = CRect(x.target_from, y.target_from, x.target_to, y.target_to);
  if (!out.picture.create(x.to - x.from, y.to - y.from)) return false;
  for (int row = 0; row < out.picture.height(); ++row) {
    const std::uint32_t* source = picture.row(y.mirrored ? y.to - 1 - row : y.from + row) + x.from;
    std::uint32_t* target = out.picture.row(row);
    if (x.mirrored) {
      std::reverse_copy(source, source + out.picture.width(), target);
    } else {
      std::copy_n(source, out.picture.width(), target);
    }
  }
  return true;
}

void apply_plain_rop(RasterBitmap& picture, DWORD rop) {
  std::uint32_t* pixels = picture.data();
  const std::size_t count = std::size_t(picture.width()) * std::size_t(picture.height());
  std::transform(pixels, pixels + count, pixels,
                 [=](std::uint32_t pixel) { return pixel_on_paper(pixel, rop); });
}

void apply_opacity(RasterBitmap& picture, BYTE opacity, bool use_alpha) {
  std::uint32_t* pixels = picture.data();
  const std::size_t count = std::size_t(picture.width()) * std::size_t(picture.height());
  std::transform(pixels, pixels + count, pixels, [=](std::uint32_t pixel) {
    const std::uint32_t own = use_alpha ? pixel >> 24 : 255;
    return (own * opacity + 127) / 255 << 24 | (pixel & 0xffffff);
  });
}

std::uint32_t mixed_with(std::uint32_t pixel, std::uint32_t background) {
  const std::uint32_t alpha = pixel >> 24;
  std::uint32_t out = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    const std::uint32_t part = pixel >> shift & 0xff, below = background >> shift & 0xff;
    out |= (part * alpha + below * (255 - alpha) + 127) / 255 << shift;
  }
  return out;
}

}  // namespace brindle
