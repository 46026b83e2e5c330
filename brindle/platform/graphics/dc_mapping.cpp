// CDC: the map from logical to device units.
#include <cmath>

#include "brindle/platform/graphics/dc.h"

namespace brindle {
namespace {

// Shrinks the viewport's longer side so that a unit is as long in x as in y.
void keep_isotropic(CoordinateMap& map) {
  if (map.mode != MM_ISOTROPIC) return;
  const double x = std::abs(static_cast<double>(map.viewport_ext.cx) / map.window_ext.cx);
  const double y = std::abs(static_cast<double>(map.viewport_ext.cy) / map.window_ext.cy);
  const auto shorten = [](LONG& extent, double by) {
    const LONG shorter = static_cast<LONG>(std::lround(extent * by));
    extent = shorter != 0 ? shorter : (extent < 0 ? -1 : 1);
  };
  if (x > y) shorten(map.viewport_ext.cx, y / x);
  if (y > x) shorten(map.viewport_ext.cy, x / y);
}

// Logical units in an inch of the modes with a fixed unit, 0 for the others.
int units_per_inch(int mode) {
  switch (mode) {
    case MM_LOMETRIC:
      return 254;
    case MM_HIMETRIC:
      return 2540;
    case MM_LOENGLISH:
      return 100;
    case MM_HIENGLISH:
      return 1000;
    case MM_TWIPS:
      return 1440;
    default:
      return 0;
  }
}

}  // namespace

int CDC::SetMapMode(int mode) {
  if (m_hDC == nullptr || mode < MM_TEXT || mode > MM_ANISOTROPIC) return 0;
  CoordinateMap& map = m_hDC->now.map;
  const int before = std::exchange(map.mode, mode);
  if (mode == MM_TEXT) {
    map.window_ext = map.viewport_ext = CSize(1, 1);
  } else if (const int units = mode == MM_ISOTROPIC ? 254 : units_per_inch(mode); units != 0) {
    const auto dots = [this](int index) {
      const int dpi = GetDeviceCaps(index);
      return dpi > 0 ? dpi : 96;
    };
    map.window_ext = CSize(units, units);
    map.viewport_ext = CSize(dots(LOGPIXELSX), -dots(LOGPIXELSY));
  }
  m_hDC->remap();
  return before;
}

int CDC::GetMapMode() const {
  return m_hDC != nullptr ? m_hDC->now.map.mode : 0;
}

CPoint CDC::SetWindowOrg(int x, int y) {
  return m_hDC != nullptr ? std::exchange(m_hDC->now.map.window_org, CPoint(x, y)) : CPoint();
}

CPoint CDC::OffsetWindowOrg(int dx, int dy) {
  const CPoint org = GetWindowOrg();
  return SetWindowOrg(wrap_add(org.x, dx), wrap_add(org.y, dy));
}

CPoint CDC::SetViewportOrg(int x, int y) {
  return m_hDC != nullptr ? std::exchange(m_hDC->now.map.viewport_org, CPoint(x, y)) : CPoint();
}

CPoint CDC::OffsetViewportOrg(int dx, int dy) {
  const CPoint org = GetViewportOrg();
  return SetViewportOrg(wrap_add(org.x, dx), wrap_add(org.y, dy));
}

CSize CDC::SetWindowExt(int cx, int cy) {
  const CSize before = GetWindowExt();
  const int mode = GetMapMode();
  if ((mode != MM_ANISOTROPIC && mode != MM_ISOTROPIC) || cx == 0 || cy == 0) return before;
  m_hDC->now.map.window_ext = CSize(cx, cy);
  keep_isotropic(m_hDC->now.map);
  m_hDC->remap();
  return before;
}

CSize CDC::SetViewportExt(int cx, int cy) {
  const CSize before = GetViewportExt();
  const int mode = GetMapMode();
  if ((mode != MM_ANISOTROPIC && mode != MM_ISOTROPIC) || cx == 0 || cy == 0) return before;
  m_hDC->now.map.viewport_ext = CSize(cx, cy);
  keep_isotropic(m_hDC->now.map);
  m_hDC->remap();
  return before;
}

CPoint CDC::GetWindowOrg() const {
  return m_hDC != nullptr ? m_hDC->now.map.window_org : CPoint();
}

CPoint CDC::GetViewportOrg() const {
  return m_hDC != nullptr ? m_hDC->now.map.viewport_org : CPoint();
}

CSize CDC::GetWindowExt() const {
  return m_hDC != nullptr ? m_hDC->now.map.window_ext : CSize();
}

CSize CDC::GetViewportExt() const {
  return m_hDC != nullptr ? m_hDC->now.map.viewport_ext : CSize();
}

void CDC::LPtoDP(LPPOINT points, int count) const {
  if (m_hDC == nullptr) return;
  for (int i = 0; i < count; ++i) points[i] = m_hDC->now.map.to_device(points[i]);
}

void CDC::LPtoDP(LPRECT rect) const {
  if (m_hDC == nullptr) return;
  const CRect box(rect);
  *rect =
      CRect(m_hDC->now.map.to_device(box.TopLeft()), m_hDC->now.map.to_device(box.BottomRight()));
}

void CDC::LPtoDP(LPSIZE size) const {
  if (m_hDC == nullptr) return;
  *size = SIZE{std::abs(m_hDC->now.map.width_to_device(size->cx)),
               std::abs(m_hDC->now.map.height_to_device(size->cy))};
}

void CDC::DPtoLP(LPPOINT points, int count) const {
  if (m_hDC == nullptr) return;
  for (int i = 0; i < count; ++i) points[i] = m_hDC->now.map.to_logical(points[i]);
}

void CDC::DPtoLP(LPRECT rect) const {
  if (m_hDC == nullptr) return;
  const CRect box(rect);
  *rect =
      CRect(m_hDC->now.map.to_logical(box.TopLeft()), m_hDC->now.map.to_logical(box.BottomRight()));
}

void CDC::DPtoLP(LPSIZE size) const {
  if (m_hDC == nullptr) return;
  *size = SIZE{std::abs(m_hDC->now.map.width_to_logical(size->cx)),
               std::abs(m_hDC->now.map.height_to_logical(size->cy))};
}

}  // namespace brindle
