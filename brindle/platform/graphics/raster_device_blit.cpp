// Blits of RasterDevice: brushes and pictures over boxes, under ternary raster operations.
#include <algorithm>
#include <vector>

#include "brindle/platform/graphics/raster_arithmetic_internal.h"
#include "brindle/platform/graphics/raster_brush_internal.h"
#include "brindle/platform/graphics/raster_clip_internal.h"
#include "brindle/platform/graphics/raster_device.h"

namespace brindle {
namespace {

// A ternary raster operation: bit 4 P + 2 S + D of its code tells the result for the bits of
// pattern, source and destination.
class TernaryOp {
 public:
  explicit TernaryOp(DWORD rop) : code_(rop >> 16 & 0xff) {
    for (int i = 0; i < 8; ++i) mask_[i] = code_ >> i & 1 ? 0xffffffffu : 0;
  }
  bool uses_pattern() const { return (code_ >> 4) != (code_ & 15); }
  bool copies_source() const { return code_ == 0xcc; }
  std::uint32_t operator()(std::uint32_t p, std::uint32_t s, std::uint32_t d) const {
    const std::uint32_t one = (s & mix(d, 6)) | (~s & mix(d, 4));
    const std::uint32_t zero = (s & mix(d, 2)) | (~s & mix(d, 0));
    return (p & one) | (~p & zero) | 0xff000000;
  }

 private:
  std::uint32_t mix(std::uint32_t d, int i) const { return (d & mask_[i + 1]) | (~d & mask_[i]); }

  DWORD code_;
  std::uint32_t mask_[8];
};

CRect ordered(CRect box) {
  if (box.left > box.right) std::swap(box.left, box.right);
  if (box.top > box.bottom) std::swap(box.top, box.bottom);
  return box;
}

// The source columns (or rows) from which the pixels of a side come.
class SideMap {
 public:
  // `to` and `from` may run backwards; `size` is the picture's extent, visible pixels are those
  // from `first` to `last` - 1.
  SideMap(int to_first, int to_last, int from_first, int from_last, int size, int first, int last)
      : visible_(first) {
    const std::int64_t to_size = std::abs(std::int64_t{to_last} - to_first);
    from_size_ = std::abs(std::int64_t{from_last} - from_first);
    to_size_ = to_size, size_ = size;
    start_ = std::min(to_first, to_last), from_start_ = std::min(from_first, from_last);
    mirrored_ = (to_last < to_first) != (from_last < from_first);
    for (int x = first; x < last; ++x) {
      const std::int64_t source = from_start_ + place(2 * step(x) + 1, 2 * to_size);
      places_.push_back(source >= 0 && source < size ? static_cast<int>(source) : -1);
    }
  }
  // The source's column for a pixel, -1 outside of the picture.
  int operator()(int x) const { return places_[static_cast<std::size_t>(x - visible_)]; }
  bool shrinks() const { return from_size_ > to_size_; }
  // All source columns under a pixel: [first, last), at least one, cut to the picture.
  void range(int x, int& first, int& last) const {
    const std::int64_t a = from_start_ + place(step(x), to_size_);
    const std::int64_t b = std::max(a + 1, from_start_ + place(step(x) + 1, to_size_));
    first = static_cast<int>(std::clamp<std::int64_t>(a, 0, size_));
    last = static_cast<int>(std::clamp<std::int64_t>(b, 0, size_));
  }
  // Whether source and destination run side by side, pixel by pixel.
  bool plain() const { return from_size_ == to_size_ && !mirrored_; }

 private:
  std::int64_t step(int x) const {
    const std::int64_t at = std::int64_t{x} - start_;
    return mirrored_ ? to_size_ - 1 - at : at;
  }
  std::int64_t place(std::int64_t at, std::int64_t of) const {
    return multiply_divide(static_cast<std::uint64_t>(at), static_cast<std::uint64_t>(from_size_),
                           static_cast<std::uint64_t>(of))
        .whole;
  }

  int visible_;
  std::int64_t to_size_ = 0, from_size_ = 0, start_ = 0, from_start_ = 0, size_ = 0;
  bool mirrored_ = false;
  std::vector<int> places_;
};

std::uint32_t average(const RasterBitmap& picture, const SideMap& columns, const SideMap& rows,
                      int x, int y) {
  int left, right, top, bottom;
  columns.range(x, left, right), rows.range(y, top, bottom);
  std::uint64_t sum[4] = {}, count = 0;
  for (int j = top; j < bottom; ++j) {
    for (int i = left; i < right; ++i, ++count) {
      const std::uint32_t pixel = picture.row(j)[i];
      for (int part = 0; part < 4; ++part) sum[part] += pixel >> 8 * part & 0xff;
    }
  }
  std::uint32_t pixel = 0;
  for (int part = 0; count && part < 4; ++part)
    pixel |= static_cast<std::uint32_t>((sum[part] + count / 2) / count) << 8 * part;
  return pixel;
}

// Calls paint(row, x, y, source pixel) for the visible pixels that have a source.
template <class Paint>
void for_each_source_pixel(RasterBitmap& target, const PaintState& state, const CRect& to,
                           const RasterBitmap& given, const CRect& from, Paint&& paint) {
  if (given.empty()) return;
  RasterBitmap copy;  // a picture that is painted on itself
  if (given.data() == target.data()) copy = given;
  const RasterBitmap& picture = copy.empty() ? given : copy;
  const RasterClip clip(RasterClip(target, state.clip), ordered(to));
  if (clip.empty()) return;
  const SideMap columns(to.left, to.right, from.left, from.right, picture.width(), clip.box.left,
                        clip.box.right);
  const SideMap rows(to.top, to.bottom, from.top, from.bottom, picture.height(), clip.box.top,
                     clip.box.bottom);
  const bool averages = state.stretch_mode == HALFTONE && (columns.shrinks() || rows.shrinks());
  clip.boxes(clip.box, [&](const CRect& box) {
    for (int y = box.top; y < box.bottom; ++y) {
      if (rows(y) < 0) continue;
      const std::uint32_t* source = picture.row(rows(y));
      std::uint32_t* row = target.row(y);
      for (int x = box.left; x < box.right; ++x) {
        if (columns(x) < 0) continue;
        paint(row, x, y, averages ? average(picture, columns, rows, x, y) : source[columns(x)]);
      }
    }
  });
}

}  // namespace

void RasterDevice::pattern_blt(const PaintState& state, const CRect& given, DWORD rop) {
  const RasterClip clip(*target_, state.clip);
  const TernaryOp op(rop);
  RasterBrush brush(*target_, state, state.brush, R2_COPYPEN);
  if (op.uses_pattern() && !brush.paints()) return;
  const bool plain = rop == PATCOPY && brush.is_solid();
  clip.boxes(ordered(given), [&](const CRect& box) {
    if (plain && box.top < box.bottom) {  // the first row, and copies of it: much the fastest
      brush.span(box.top, box.left, box.right);
      const std::uint32_t* const first = target_->row(box.top);
      for (int y = box.top + 1; y < box.bottom; ++y)
        std::copy(first + box.left, first + box.right, target_->row(y) + box.left);
      return;
    }
    for (int y = box.top; y < box.bottom; ++y) {
      std::uint32_t* row = target_->row(y);
      for (int x = box.left; x < box.right; ++x) {
        bool found = true;
        const std::uint32_t pattern = op.uses_pattern() ? brush.color_at(x, y, found) : 0;
        if (found) row[x] = op(pattern, 0, row[x]);
      }
    }
  });
}

void RasterDevice::bitmap(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                          const CRect& from, DWORD rop) {
  const TernaryOp op(rop);
  if (op.copies_source()) {
    for_each_source_pixel(
        *target_, state, to, picture, from,
        [](std::uint32_t* row, int x, int, std::uint32_t source) { row[x] = source | 0xff000000; });
    return;
  }
  const RasterBrush brush(*target_, state, state.brush, R2_COPYPEN);
  if (op.uses_pattern() && !brush.paints()) return;
  for_each_source_pixel(*target_, state, to, picture, from,
                        [&](std::uint32_t* row, int x, int y, std::uint32_t source) {
                          bool found = true;
                          const std::uint32_t pattern =
                              op.uses_pattern() ? brush.color_at(x, y, found) : 0;
                          if (found) row[x] = op(pattern, source, row[x]);
                        });
}

void RasterDevice::blend(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                         const CRect& from, BYTE opacity, bool use_alpha) {
  for_each_source_pixel(
      *target_, state, to, picture, from,
      [=](std::uint32_t* row, int x, int, std::uint32_t source) {
        const std::uint32_t weight =
            use_alpha ? (opacity * (source >> 24) + 127) / 255 : std::uint32_t{opacity};
        std::uint32_t mixed = 0xff000000;
        for (int shift = 0; shift < 24; shift += 8) {
          const std::uint32_t s = source >> shift & 0xff, d = row[x] >> shift & 0xff;
          mixed |= (s * weight + d * (255 - weight) + 127) / 255 << shift;
        }
        row[x] = mixed;
      });
}

}  // namespace brindle
