#include "brindle/dxf/acad_wipeout.h"

#include <algorithm>
#include <cmath>

#include "brindle/dxf/entity_drawing.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/graphics/rgn.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

// Cuts a ring to what lies on one side of a bound on an axis; sign 1 keeps what is above it. A
// hollow ring may get edges on the bound, where they enclose nothing.
std::vector<CPoint> cut_ring(const std::vector<CPoint>& ring, LONG CPoint::*u, LONG CPoint::*v,
                             LONG bound, int sign) {
  std::vector<CPoint> cut;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const CPoint& a = ring[i];
    const CPoint& b = ring[(i + 1) % ring.size()];
    const bool a_in = sign > 0 ? a.*u >= bound : a.*u <= bound;
    const bool b_in = sign > 0 ? b.*u >= bound : b.*u <= bound;
    if (a_in) cut.push_back(a);
    if (a_in == b_in) continue;
    const double part = (double(bound) - a.*u) / (double(b.*u) - a.*u);
    CPoint at;
    at.*u = bound;
    at.*v = static_cast<LONG>(std::lround(a.*v + part * (double(b.*v) - a.*v)));
    cut.push_back(at);
  }
  return cut;
}

}  // namespace

void ACAD_WIPEOUT::set_polygon(const double* xs, const double* ys, int n) {
  m_ClipX.RemoveAll();
  m_ClipY.RemoveAll();
  if (n < 1) return;
  const auto [left, right] = std::minmax_element(xs, xs + n);
  const auto [bottom, top] = std::minmax_element(ys, ys + n);
  const double width = *right - *left, height = *top - *bottom;
  x = static_cast<float>(*left);
  y = static_cast<float>(*bottom);
  z = 0;
  ux = static_cast<float>(width), uy = uz = 0;
  vy = static_cast<float>(height), vx = vz = 0;
  m_fWidth = m_fHeight = 1;
  m_nClip = 1;
  // A rectangle is two corners, a polygon closes with its first point.
  m_nClipType = n == 2 ? 1 : 2;
  const auto add = [&](double column, double row) {
    m_ClipX.Add(static_cast<float>(column));
    m_ClipY.Add(static_cast<float>(row));
  };
  if (n == 2) {
    add(-0.5, -0.5);
    add(0.5, 0.5);
    return;
  }
  for (int i = 0; i <= n; ++i) {
    const double right_part = width > 0 ? (xs[i % n] - *left) / width : 0;
    const double up_part = height > 0 ? (ys[i % n] - *bottom) / height : 0;
    add(right_part - 0.5, 0.5 - up_part);
  }
}

void ACAD_WIPEOUT::paint(CDC* dc, CFCoor* coor, double dx, double dy) const {
  // Devices count in 16 bits.
  constexpr LONG kFar = 14000;
  std::vector<CPoint> ring;
  for (const CFPoint& corner : outline()) {
    ring.push_back(to_device(coor, corner.x, corner.y, dx, dy));
  }
  for (int sign : {1, -1}) {
    ring = cut_ring(ring, &CPoint::x, &CPoint::y, -sign * kFar, sign);
    ring = cut_ring(ring, &CPoint::y, &CPoint::x, -sign * kFar, sign);
  }
  if (ring.size() < 3) return;
  CRgn region;
  if (!region.CreatePolygonRgn(ring.data(), static_cast<int>(ring.size()), WINDING)) return;
  CBrush brush(dc->GetBkColor());
  shared_safe_dc().FillRgn(&region, &brush);
}

}  // namespace brindle::Varnholt
