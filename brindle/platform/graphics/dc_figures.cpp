// CDC: figures with an interior, areas and frames.
#include <algorithm>
#include <climits>
#include <cstdlib>

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/paint_functions.h"

namespace brindle {
namespace {

// Another brush for the time of a call.
class BrushScope {
 public:
  BrushScope(PaintState& state, const BrushData& brush)
      : state_(state), kept_(std::exchange(state.brush, brush)) {}
  BrushScope(const BrushScope&) = delete;
  BrushScope& operator=(const BrushScope&) = delete;
  ~BrushScope() { state_.brush = std::move(kept_); }

 private:
  PaintState& state_;
  BrushData kept_;
};

bool usable(const CRgn* region) {
  return region != nullptr && region->m_hObject != nullptr;
}

bool usable(const CBrush* brush) {
  return brush != nullptr && brush->m_hObject != nullptr;
}

bool paints(const CBrush* brush) {
  return usable(brush) && brush->data().style != BS_NULL;
}

// The region in device units: itself when it stands in them already, else `storage`.
const RegionData& to_device(const DeviceContext& context, const RegionData& region,
                            RegionData& storage) {
  const CoordinateMap& map = context.now.map;
  if (map.scales()) {
    std::vector<CRect> rects;
    rects.reserve(region.rects().size());
    for (const CRect& r : region) rects.push_back(context.to_device(r));
    storage = RegionData::from_rects(rects);
    return storage;
  }
  const CPoint shift = map.to_device(CPoint());
  if (shift == CPoint()) return region;
  storage = region;
  storage.offset(shift.x, shift.y);
  return storage;
}

// The pixels of the region that lie within `width` or `height` of its edge.
RegionData frame_of(const RegionData& region, int width, int height) {
  RegionData inner = region;
  const CPoint ways[] = {{width, 0}, {-width, 0}, {0, height}, {0, -height}};
  for (const CPoint& way : ways) {
    RegionData moved = region;
    moved.offset(way.x, way.y);
    inner &= moved;
  }
  return region - inner;
}

}  // namespace

BOOL CDC::Polygon(const POINT* points, int count) {
  return PolyPolygon(points, &count, 1);
}

BOOL CDC::PolyPolygon(const POINT* points, const int* counts, int rings) {
  if (device() == nullptr || points == nullptr || counts == nullptr || rings < 1) return FALSE;
  int total = 0;
  for (int i = 0; i < rings; ++i) {
    if (counts[i] < 2) return FALSE;
    total += counts[i];
  }
  m_hDC->device->poly_polygon(m_hDC->now.paint, m_hDC->to_device(points, total), counts, rings);
  return TRUE;
}

BOOL CDC::Rectangle(int left, int top, int right, int bottom) {
  if (device() == nullptr) return FALSE;
  m_hDC->device->rectangle(m_hDC->now.paint, m_hDC->to_device(CRect(left, top, right, bottom)));
  return TRUE;
}

BOOL CDC::RoundRect(int left, int top, int right, int bottom, int width, int height) {
  if (device() == nullptr) return FALSE;
  const CSize corner(std::abs(std::max(m_hDC->now.map.width_to_device(width), -INT_MAX)),
                     std::abs(std::max(m_hDC->now.map.height_to_device(height), -INT_MAX)));
  m_hDC->device->round_rectangle(m_hDC->now.paint,
                                 m_hDC->to_device(CRect(left, top, right, bottom)), corner);
  return TRUE;
}

BOOL CDC::RoundRect(LPCRECT box, const POINT& corner) {
  return RoundRect(box->left, box->top, box->right, box->bottom, corner.x, corner.y);
}

BOOL CDC::Ellipse(int left, int top, int right, int bottom) {
  if (device() == nullptr) return FALSE;
  m_hDC->device->ellipse(m_hDC->now.paint, m_hDC->to_device(CRect(left, top, right, bottom)));
  return TRUE;
}

BOOL CDC::FillRgn(CRgn* region, CBrush* brush) {
  if (device() == nullptr || !usable(region) || !usable(brush)) return FALSE;
  RegionData moved;
  m_hDC->device->fill_region(m_hDC->now.paint, to_device(*m_hDC, region->data(), moved),
                             brush->data());
  return TRUE;
}

BOOL CDC::PaintRgn(CRgn* region) {
  if (device() == nullptr || !usable(region)) return FALSE;
  RegionData moved;
  m_hDC->device->fill_region(m_hDC->now.paint, to_device(*m_hDC, region->data(), moved),
                             m_hDC->now.paint.brush);
  return TRUE;
}

BOOL CDC::FrameRgn(CRgn* region, CBrush* brush, int width, int height) {
  if (device() == nullptr || !usable(region) || !usable(brush)) return FALSE;
  RegionData moved;
  const RegionData& on_device = to_device(*m_hDC, region->data(), moved);
  const RegionData frame =
      frame_of(on_device, std::abs(std::max(m_hDC->now.map.width_to_device(width), -INT_MAX)),
               std::abs(std::max(m_hDC->now.map.height_to_device(height), -INT_MAX)));
  m_hDC->device->fill_region(m_hDC->now.paint, frame, brush->data());
  return TRUE;
}

BOOL CDC::InvertRgn(CRgn* region) {
  if (device() == nullptr || !usable(region)) return FALSE;
  RegionData moved;
  m_hDC->device->invert_region(m_hDC->now.paint, to_device(*m_hDC, region->data(), moved));
  return TRUE;
}

void CDC::FillRect(LPCRECT rect, CBrush* brush) {
  if (device() == nullptr || !paints(brush)) return;
  const BrushScope scope(m_hDC->now.paint, brush->data());
  m_hDC->device->pattern_blt(m_hDC->now.paint, m_hDC->to_device(CRect(rect)), PATCOPY);
}

void CDC::FrameRect(LPCRECT rect, CBrush* brush) {
  const CRect r(rect);
  if (r.IsRectEmpty()) return;
  const CRect sides[] = {{r.left, r.top, r.right, r.top + 1},
                         {r.left, r.bottom - 1, r.right, r.bottom},
                         {r.left, r.top, r.left + 1, r.bottom},
                         {r.right - 1, r.top, r.right, r.bottom}};
  for (const CRect& side : sides) FillRect(side, brush);
}

void CDC::InvertRect(LPCRECT rect) {
  if (device() == nullptr) return;
  m_hDC->device->pattern_blt(m_hDC->now.paint, m_hDC->to_device(CRect(rect)), DSTINVERT);
}

void CDC::FillSolidRect(LPCRECT rect, COLORREF color) {
  if (device() == nullptr) return;
  const BrushScope scope(m_hDC->now.paint, BrushData{BS_SOLID, color, 0, nullptr});
  m_hDC->device->pattern_blt(m_hDC->now.paint, m_hDC->to_device(CRect(rect)), PATCOPY);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF color) {
  FillSolidRect(CRect(CPoint(x, y), CSize(cx, cy)), color);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF top_left, COLORREF bottom_right) {
  FillSolidRect(x, y, cx - 1, 1, top_left);
  FillSolidRect(x, y, 1, cy - 1, top_left);
  FillSolidRect(x + cx, y, -1, cy, bottom_right);
  FillSolidRect(x, y + cy, cx, -1, bottom_right);
}

void CDC::Draw3dRect(LPCRECT rect, COLORREF top_left, COLORREF bottom_right) {
  const CRect r(rect);
  Draw3dRect(r.left, r.top, r.Width(), r.Height(), top_left, bottom_right);
}

void CDC::DrawFocusRect(LPCRECT rect) {
  if (device() == nullptr) return;
  const CRect box = m_hDC->to_device(CRect(rect));
  if (box.IsRectEmpty() || box.Width() > 0x7fff || box.Height() > 0x7fff) return;
  std::vector<CRect> dots;
  const auto dot = [&](int x, int y) {
    if ((x + y) % 2 == 0) dots.emplace_back(x, y, x + 1, y + 1);
  };
  for (int x = box.left; x < box.right; ++x) dot(x, box.top), dot(x, box.bottom - 1);
  for (int y = box.top; y < box.bottom; ++y) dot(box.left, y), dot(box.right - 1, y);
  m_hDC->device->invert_region(m_hDC->now.paint, RegionData::from_rects(dots));
}

BOOL CDC::GradientFill(const TRIVERTEX* vertices, ULONG vertex_count, const void* mesh,
                       ULONG mesh_count, DWORD mode) {
  return brindle::GradientFill(m_hDC, vertices, vertex_count, mesh, mesh_count, mode);
}

}  // namespace brindle
