#include <cmath>

#include "brindle/dxf/acad_entity.h"
#include "brindle/dxf/device_area_internal.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/rgn.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

// Coordinates that every device and metafile can hold.
constexpr int kSafeRange = 30000;
// So far beyond the device areas are cut, in pixels: their cut edges stay out of sight.
constexpr int kMargin = 16;

CRect visible_pixels(CDC* dc) {
  if (is_metafile(dc)) return CRect(-kSafeRange, -kSafeRange, kSafeRange, kSafeRange);
  CSafeDC& canvas = shared_safe_dc();
  canvas.SetLimit(0);
  const auto edge = [](float value) {
    return static_cast<int>(
        std::fmin(std::fmax(value, static_cast<float>(-kSafeRange)), float{kSafeRange}));
  };
  return CRect(edge(canvas.m_fLimit[0]), edge(canvas.m_fLimit[1]), edge(canvas.m_fLimit[2]),
               edge(canvas.m_fLimit[3]));
}

bool keeps_figures(const PaintDevice* device) {
  return device != nullptr && device->kind() != PaintDevice::Kind::kRaster &&
         device->kind() != PaintDevice::Kind::kRecorder;
}

// The part of a ring on one side of a line: sign * coordinate <= sign * bound.
void cut_ring(DeviceArea::Ring& ring, double HatchPoint::*axis, double bound, double sign) {
  DeviceArea::Ring kept;
  kept.reserve(ring.size() + 4);
  const auto inside = [&](HatchPoint p) { return sign * (p.*axis) <= sign * bound; };
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const HatchPoint from = ring[i], to = ring[i + 1 < ring.size() ? i + 1 : 0];
    if (inside(from)) kept.push_back(from);
    if (inside(from) == inside(to)) continue;
    const double part = (bound - from.*axis) / (to.*axis - from.*axis);
    HatchPoint crossing{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
    crossing.*axis = bound;
    kept.push_back(crossing);
  }
  ring.swap(kept);
}

}  // namespace

void area_brush(const ACAD_ENTITY& entity, CBrush& brush) {
  const COLORREF color = drawing_color(entity);
  if (entity.m_bSelected != 0) {
    brush.CreateHatchBrush(HS_DIAGCROSS, color);
  } else {
    brush.CreateSolidBrush(color);
  }
}

DeviceArea::DeviceArea(CDC* dc, const CFCoor* coor, double dx, double dy)
    : dc_(dc),
      coor_(coor),
      dx_(dx),
      dy_(dy),
      limit_(visible_pixels(dc)),
      pixel_(std::fabs(coor->DPtoFP(1))),
      has_figures_(keeps_figures(dc->device())) {
  CRect wide = limit_;
  wide.InflateRect(kMargin, kMargin);
  for (const CPoint& corner : {wide.TopLeft(), wide.BottomRight()}) {
    const CFPoint p = coor->DPtoFP(corner);
    world_.add(static_cast<double>(p.x) - dx, static_cast<double>(p.y) - dy);
  }
}

CPoint DeviceArea::to_device(HatchPoint p) const {
  return Varnholt::to_device(coor_, p.x, p.y, dx_, dy_);
}

bool DeviceArea::corners_of(const Ring* rings, std::size_t count, std::vector<CPoint>& points,
                            std::vector<int>& counts) const {
  if (world_.empty()) return false;
  for (std::size_t i = 0; i < count; ++i) {
    Ring ring = rings[i];
    cut_ring(ring, &HatchPoint::x, world_.left, -1);
    cut_ring(ring, &HatchPoint::x, world_.right, 1);
    cut_ring(ring, &HatchPoint::y, world_.bottom, -1);
    cut_ring(ring, &HatchPoint::y, world_.top, 1);
    const std::size_t before = points.size();
    for (const HatchPoint& p : ring) {
      const CPoint at = to_device(p);
      if (points.size() == before || !(points.back() == at)) points.push_back(at);
    }
    if (points.size() - before < 3) {
      points.resize(before);
      continue;
    }
    counts.push_back(static_cast<int>(points.size() - before));
  }
  return !counts.empty();
}

bool DeviceArea::region_of(const Ring* rings, std::size_t count, int mode, CRgn& region) const {
  std::vector<CPoint> points;
  std::vector<int> counts;
  if (!corners_of(rings, count, points, counts)) return false;
  return region.CreatePolyPolygonRgn(points.data(), counts.data(), static_cast<int>(counts.size()),
                                     mode) != 0;
}

void DeviceArea::fill(const Ring* rings, std::size_t count, int mode, CBrush& brush) const {
  if (!has_figures_) {
    CRgn region;
    if (region_of(rings, count, mode, region)) shared_safe_dc().FillRgn(&region, &brush);
    return;
  }
  std::vector<CPoint> points;
  std::vector<int> counts;
  if (!corners_of(rings, count, points, counts)) return;
  const int state = dc_->SaveDC();
  dc_->SelectStockObject(NULL_PEN);
  dc_->SelectObject(&brush);
  dc_->SetPolyFillMode(mode);
  dc_->PolyPolygon(points.data(), counts.data(), static_cast<int>(counts.size()));
  dc_->RestoreDC(state);
}

void DeviceArea::make_clip(CRgn& region) const {
  CRgn device;
  device.CreateRectRgnIndirect(limit_);
  region.CombineRgn(&region, &device, RGN_AND);
  // A clip counts in the device's own pixels, which the window's origin shifts.
  CPoint origin(0, 0);
  dc_->LPtoDP(&origin);
  region.OffsetRgn(origin.x, origin.y);
}

}  // namespace brindle::Varnholt
