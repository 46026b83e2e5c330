// Pixels and blits: CDC's operations and the free functions under them.
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/paint_functions.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {
namespace {

bool ready(HDC hdc) {
  return hdc != nullptr && hdc->device != nullptr;
}

bool clipped_away(HDC hdc, CPoint at) {
  return hdc->now.clip != nullptr && !hdc->now.clip->contains(at);
}

// Whether the result of a raster operation hangs on the source: its table's rows for source 0 and
// source 1 differ.
bool needs_source(DWORD rop) {
  const DWORD table = rop >> 16 & 0xff;
  return ((table ^ table >> 2) & 0x33) != 0;
}

// The box of device units between the images of two opposite corners; not normalised, so that a
// mirrored box is told from a plain one.
CRect mapped(HDC hdc, int x, int y, int width, int height) {
  return {hdc->now.map.to_device(POINT{x, y}),
          hdc->now.map.to_device(POINT{wrap_add(x, width), wrap_add(y, height)})};
}

// The part of a picture in a box as a picture of its own; transparent black beyond the edge.
RasterBitmap part_of(const RasterBitmap& picture, const CRect& box) {
  RasterBitmap part;
  if (!part.create(box.Width(), box.Height(), 0)) return part;
  for (int y = 0; y < part.height(); ++y)
    for (int x = 0; x < part.width(); ++x)
      part.row(y)[x] = picture.at(wrap_add(box.left, x), wrap_add(box.top, y));
  return part;
}

// What a blit reads: the source's pixels, or a copy when it reads what it writes.
struct Source {
  const RasterBitmap* picture = nullptr;
  CRect from;
  RasterBitmap copy;

  Source(HDC target, HDC source, CRect box) : from(box) {
    picture = ready(source) ? source->device->pixels() : nullptr;
    if (picture == nullptr) return;
    from = box = source->device->to_pixels(box);
    if (picture != target->device->pixels()) return;
    CRect upright = box;
    upright.NormalizeRect();
    copy = part_of(*picture, upright);
    picture = copy.empty() ? nullptr : &copy;
    from.OffsetRect(-upright.TopLeft());
  }
};

}  // namespace

BOOL StretchBlt(HDC hdc, int x, int y, int width, int height, HDC source, int source_x,
                int source_y, int source_width, int source_height, DWORD rop) {
  if (!ready(hdc)) return FALSE;
  if (!needs_source(rop)) return PatBlt(hdc, x, y, width, height, rop);
  if (!ready(source)) return FALSE;
  const Source read(hdc, source, mapped(source, source_x, source_y, source_width, source_height));
  if (read.picture == nullptr) return FALSE;
  hdc->device->bitmap(hdc->now.paint, mapped(hdc, x, y, width, height), *read.picture, read.from,
                      rop);
  return TRUE;
}

BOOL BitBlt(HDC hdc, int x, int y, int width, int height, HDC source, int source_x, int source_y,
            DWORD rop) {
  return StretchBlt(hdc, x, y, width, height, source, source_x, source_y, width, height, rop);
}

BOOL PatBlt(HDC hdc, int x, int y, int width, int height, DWORD rop) {
  if (!ready(hdc) || needs_source(rop)) return FALSE;
  CRect box = mapped(hdc, x, y, width, height);
  box.NormalizeRect();
  hdc->device->pattern_blt(hdc->now.paint, box, rop);
  return TRUE;
}

BOOL AlphaBlend(HDC hdc, int x, int y, int width, int height, HDC source, int source_x,
                int source_y, int source_width, int source_height, BLENDFUNCTION blend) {
  if (!ready(hdc) || !ready(source) || blend.BlendOp != AC_SRC_OVER) return FALSE;
  const Source read(hdc, source, mapped(source, source_x, source_y, source_width, source_height));
  if (read.picture == nullptr) return FALSE;
  hdc->device->blend(hdc->now.paint, mapped(hdc, x, y, width, height), *read.picture, read.from,
                     blend.SourceConstantAlpha, (blend.AlphaFormat & AC_SRC_ALPHA) != 0);
  return TRUE;
}

BOOL TransparentBlt(HDC hdc, int x, int y, int width, int height, HDC source, int source_x,
                    int source_y, int source_width, int source_height, UINT transparent_color) {
  if (!ready(hdc) || !ready(source) || source->device->pixels() == nullptr) return FALSE;
  CRect box = mapped(source, source_x, source_y, source_width, source_height);
  box.NormalizeRect();
  RasterBitmap part = part_of(*source->device->pixels(), source->device->to_pixels(box));
  if (part.empty()) return FALSE;
  const std::uint32_t key = argb_of(transparent_color) & 0xffffff;
  for (int row = 0; row < part.height(); ++row) {
    for (std::uint32_t* pixel = part.row(row); pixel != part.row(row) + part.width(); ++pixel)
      *pixel = (*pixel & 0xffffff) == key ? 0 : *pixel | 0xff000000;
  }
  hdc->device->blend(hdc->now.paint, mapped(hdc, x, y, width, height), part,
                     CRect(0, 0, part.width(), part.height()), 255, true);
  return TRUE;
}

COLORREF CDC::GetPixel(int x, int y) const {
  if (device() == nullptr) return CLR_INVALID;
  const CPoint at = m_hDC->now.map.to_device(POINT{x, y});
  return clipped_away(m_hDC, at) ? CLR_INVALID : m_hDC->device->get_pixel(at);
}

COLORREF CDC::SetPixel(int x, int y, COLORREF color) {
  return SetPixelV(x, y, color) ? color & 0xffffff : CLR_INVALID;
}

BOOL CDC::SetPixelV(int x, int y, COLORREF color) {
  if (device() == nullptr) return FALSE;
  const CPoint at = m_hDC->now.map.to_device(POINT{x, y});
  if (clipped_away(m_hDC, at)) return FALSE;
  m_hDC->device->set_pixel(m_hDC->now.paint, at, color);
  return TRUE;
}

BOOL CDC::PatBlt(int x, int y, int width, int height, DWORD rop) {
  return brindle::PatBlt(m_hDC, x, y, width, height, rop);
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int source_x, int source_y,
                 DWORD rop) {
  return brindle::BitBlt(m_hDC, x, y, width, height, source != nullptr ? source->m_hDC : nullptr,
                         source_x, source_y, rop);
}

BOOL CDC::StretchBlt(int x, int y, int width, int height, CDC* source, int source_x, int source_y,
                     int source_width, int source_height, DWORD rop) {
  return brindle::StretchBlt(m_hDC, x, y, width, height,
                             source != nullptr ? source->m_hDC : nullptr, source_x, source_y,
                             source_width, source_height, rop);
}

BOOL CDC::AlphaBlend(int x, int y, int width, int height, CDC* source, int source_x, int source_y,
                     int source_width, int source_height, BLENDFUNCTION blend) {
  return brindle::AlphaBlend(m_hDC, x, y, width, height,
                             source != nullptr ? source->m_hDC : nullptr, source_x, source_y,
                             source_width, source_height, blend);
}

BOOL CDC::TransparentBlt(int x, int y, int width, int height, CDC* source, int source_x,
                         int source_y, int source_width, int source_height,
                         UINT transparent_color) {
  return brindle::TransparentBlt(m_hDC, x, y, width, height,
                                 source != nullptr ? source->m_hDC : nullptr, source_x, source_y,
                                 source_width, source_height, transparent_color);
}

BOOL MoveToEx(HDC hdc, int x, int y, LPPOINT before) {
  if (hdc == nullptr) return FALSE;
  const CPoint was = std::exchange(hdc->now.position, CPoint(x, y));
  if (before != nullptr) *before = was;
  return TRUE;
}

BOOL LineTo(HDC hdc, int x, int y) {
  if (!ready(hdc)) return FALSE;
  const CoordinateMap& map = hdc->now.map;
  hdc->device->line(hdc->now.paint, map.to_device(hdc->now.position), map.to_device(POINT{x, y}));
  hdc->now.position = CPoint(x, y);
  return TRUE;
}

int SetBkMode(HDC hdc, int mode) {
  return hdc != nullptr ? std::exchange(hdc->now.paint.bk_mode, mode) : 0;
}

COLORREF SetTextColor(HDC hdc, COLORREF color) {
  return hdc != nullptr ? std::exchange(hdc->now.paint.text_color, color) : CLR_INVALID;
}

}  // namespace brindle
