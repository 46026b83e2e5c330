// CDC: lines, curves and arcs.
#include <algorithm>
#include <cmath>

#include "brindle/platform/graphics/dc.h"

namespace brindle {
namespace {

// The curve as chords of about three pixels, from behind its first point to its last.
void flatten(const CPoint* p, std::vector<CPoint>& out) {
  double length = 0;
  for (int i = 0; i < 3; ++i)
    length += std::hypot(static_cast<double>(p[i + 1].x) - p[i].x,
                         static_cast<double>(p[i + 1].y) - p[i].y);
  const int steps = static_cast<int>(std::clamp(length / 3, 4.0, 200.0));
  for (int i = 1; i <= steps; ++i) {
    const double t = static_cast<double>(i) / steps, s = 1 - t;
    const double w[4] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    double x = 0, y = 0;
    for (int k = 0; k < 4; ++k) x += w[k] * p[k].x, y += w[k] * p[k].y;
    out.emplace_back(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)));
  }
}

// Where the ray from the middle of `box` through `toward` meets the ellipse in it.
CPoint on_ellipse(const CRect& box, CPoint toward) {
  const double cx = (static_cast<double>(box.left) + box.right) / 2;
  const double cy = (static_cast<double>(box.top) + box.bottom) / 2;
  const double a = std::abs(static_cast<double>(box.right) - box.left) / 2;
  const double b = std::abs(static_cast<double>(box.bottom) - box.top) / 2;
  const double dx = toward.x - cx, dy = toward.y - cy;
  const double reach = std::hypot(dx * b, dy * a);
  const double f = reach > 0 ? a * b / reach : 0;
  return {static_cast<int>(std::lround(cx + f * dx)), static_cast<int>(std::lround(cy + f * dy))};
}

}  // namespace

CPoint CDC::GetCurrentPosition() const {
  return m_hDC != nullptr ? m_hDC->now.position : CPoint();
}

BOOL CDC::Polyline(const POINT* points, int count) {
  if (device() == nullptr || points == nullptr || count < 2) return FALSE;
  m_hDC->device->polyline(m_hDC->now.paint, m_hDC->to_device(points, count), count);
  return TRUE;
}

BOOL CDC::PolylineTo(const POINT* points, int count) {
  if (device() == nullptr || points == nullptr || count < 1) return FALSE;
  std::vector<CPoint> line{m_hDC->now.position};
  line.insert(line.end(), points, points + count);
  m_hDC->now.position = line.back();
  return Polyline(line.data(), count + 1);
}

BOOL CDC::PolyPolyline(const POINT* points, const DWORD* counts, int lines) {
  if (device() == nullptr || points == nullptr || counts == nullptr || lines < 1) return FALSE;
  if (std::any_of(counts, counts + lines, [](DWORD n) { return n < 2 || n > 0x7fffffff; }))
    return FALSE;
  for (int i = 0; i < lines; points += counts[i], ++i)
    Polyline(points, static_cast<int>(counts[i]));
  return TRUE;
}

BOOL CDC::PolyBezier(const POINT* points, int count) {
  if (device() == nullptr || points == nullptr || count < 4 || count % 3 != 1) return FALSE;
  const CPoint* at = m_hDC->to_device(points, count);
  std::vector<CPoint> line{at[0]};
  for (int i = 0; i + 3 < count; i += 3) flatten(at + i, line);
  m_hDC->device->polyline(m_hDC->now.paint, line.data(), static_cast<int>(line.size()));
  return TRUE;
}

BOOL CDC::PolyBezierTo(const POINT* points, int count) {
  if (device() == nullptr || points == nullptr || count < 3 || count % 3 != 0) return FALSE;
  std::vector<CPoint> curve{m_hDC->now.position};
  curve.insert(curve.end(), points, points + count);
  m_hDC->now.position = curve.back();
  return PolyBezier(curve.data(), count + 1);
}

BOOL CDC::arc(PaintDevice::ArcForm form, const CRect& box, CPoint start, CPoint end) {
  if (device() == nullptr) return FALSE;
  const CoordinateMap& map = m_hDC->now.map;
  start = map.to_device(start);
  end = map.to_device(end);
  if (m_hDC->now.arc_direction == AD_CLOCKWISE) std::swap(start, end);
  m_hDC->device->arc(m_hDC->now.paint, form, m_hDC->to_device(box), start, end);
  return TRUE;
}

BOOL CDC::Arc(LPCRECT box, const POINT& start, const POINT& end) {
  return arc(PaintDevice::ArcForm::kArc, CRect(box), start, end);
}

BOOL CDC::Arc(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4) {
  return Arc(CRect(left, top, right, bottom), CPoint(x3, y3), CPoint(x4, y4));
}

BOOL CDC::ArcTo(LPCRECT box, const POINT& start, const POINT& end) {
  if (!LineTo(on_ellipse(CRect(box), start))) return FALSE;
  MoveTo(on_ellipse(CRect(box), end));
  return Arc(box, start, end);
}

BOOL CDC::ArcTo(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4) {
  return ArcTo(CRect(left, top, right, bottom), CPoint(x3, y3), CPoint(x4, y4));
}

BOOL CDC::Pie(LPCRECT box, const POINT& start, const POINT& end) {
  return arc(PaintDevice::ArcForm::kPie, CRect(box), start, end);
}

BOOL CDC::Pie(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4) {
  return Pie(CRect(left, top, right, bottom), CPoint(x3, y3), CPoint(x4, y4));
}

BOOL CDC::Chord(LPCRECT box, const POINT& start, const POINT& end) {
  return arc(PaintDevice::ArcForm::kChord, CRect(box), start, end);
}

BOOL CDC::Chord(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4) {
  return Chord(CRect(left, top, right, bottom), CPoint(x3, y3), CPoint(x4, y4));
}

}  // namespace brindle
