// The canvas's limit, clipping, and the operations that go through it point by point.
#include "brindle/sketch/canvas/safe_dc.h"

#include <algorithm>

#include "brindle/geometry/arrays.h"
#include "brindle/geometry/predicates.h"
#include "brindle/platform/graphics/rgn.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/sketch/canvas/safe_dc_internal.h"

namespace brindle {

using namespace canvas_internal;

namespace {

enum Side { kLeft, kTop, kRight, kBottom };

constexpr double kTurn = 6.283185307179586;
// Regions beyond this aren't filled: devices count in 16 bits.
constexpr int kSafeRange = 30000;

// Whether both values lie on the same side of the range from low to high.
bool out_of_range(float a, float b, float low, float high) {
  return (a < low && b < low) || (a > high && b > high);
}

// Moves an end of a line, when it lies beyond `bound` (below it for `sign` -1), onto it along `u`;
// `v` follows by the slope dv/du, cut to a whole number.
void cut_end(float& u, float& v, float slope, float bound, int sign) {
  if (sign < 0 ? !(u < bound) : !(u > bound)) return;
  v += std::trunc(slope * (bound - u));
  u = bound;
}

}  // namespace

CSafeDC::CSafeDC() : CSafeDC(nullptr) {}

CSafeDC::CSafeDC(CDC* dc)
    : m_pDC(dc),
      m_fLimit{0, 0, static_cast<float>(GetSystemMetrics(SM_CXSCREEN)),
               static_cast<float>(GetSystemMetrics(SM_CYSCREEN))} {}

CSafeDC& shared_safe_dc() {
  static CSafeDC canvas;
  return canvas;
}

bool CSafeDC::on_metafile() const {
  const PaintDevice* device = m_pDC != nullptr ? m_pDC->device() : nullptr;
  return device != nullptr && device->kind() == PaintDevice::Kind::kMetafile;
}

int CSafeDC::SetLimit(float margin) {
  m_bPrinting = m_pDC != nullptr ? m_pDC->m_bPrinting : 0;
  const int width = m_bPrinting ? m_pDC->GetDeviceCaps(HORZRES) : GetSystemMetrics(SM_CXSCREEN);
  const int height = m_bPrinting ? m_pDC->GetDeviceCaps(VERTRES) : GetSystemMetrics(SM_CYSCREEN);
  m_fLimit[kLeft] = m_fLimit[kTop] = 0 - margin;  // never -0, which would come out of CutLine
  m_fLimit[kRight] = static_cast<float>(width) + margin;
  m_fLimit[kBottom] = static_cast<float>(height) + margin;
  return 1;
}

int CSafeDC::CutLine(float& x1, float& y1, float& x2, float& y2) {
  if (on_metafile()) return 1;
  const float left = m_fLimit[kLeft], top = m_fLimit[kTop];
  const float right = m_fLimit[kRight], bottom = m_fLimit[kBottom];
  if (out_of_range(x1, x2, left, right) || out_of_range(y1, y2, top, bottom)) return 0;
  if (x1 != x2) {
    const float slope = (y2 - y1) / (x2 - x1);
    for (const auto& [bound, sign] : {std::pair{left, -1}, std::pair{right, 1}}) {
      cut_end(x1, y1, slope, bound, sign);
      cut_end(x2, y2, slope, bound, sign);
    }
  }
  if (out_of_range(y1, y2, top, bottom)) return 0;
  if (y1 == y2) return 1;
  const float slope = (x2 - x1) / (y2 - y1);
  for (const auto& [bound, sign] : {std::pair{top, -1}, std::pair{bottom, 1}}) {
    cut_end(y1, x1, slope, bound, sign);
    cut_end(y2, x2, slope, bound, sign);
  }
  return 1;
}

int CSafeDC::CutArc(float cx, float cy, float r, float start, float end, float starts[],
                    float ends[]) {
  constexpr float kTolerance = 1e-5f;
  if (on_metafile()) {
    starts[0] = start;
    ends[0] = end;
    return 1;
  }
  // A circle that stays clear of the limit's edges is whole or not there at all.
  const CircleBox box(cx, cy, r + 1);
  if (box.misses(m_fLimit)) return 0;
  if (box.lies_in(m_fLimit)) {
    starts[0] = start;
    ends[0] = end;
    return end - start > kTolerance ? 1 : 0;
  }
  CArray<float, float> angles;
  AddOneX2Array(&angles, start, 1, kTolerance);
  AddOneX2Array(&angles, end, 1, kTolerance);
  // The corners from the top left one on, so that the edges come as top, right, bottom, left.
  const float xs[] = {m_fLimit[kLeft], m_fLimit[kRight], m_fLimit[kRight], m_fLimit[kLeft]};
  const float ys[] = {m_fLimit[kTop], m_fLimit[kTop], m_fLimit[kBottom], m_fLimit[kBottom]};
  for (int i = 0; i < 4; ++i) {
    const int j = (i + 1) % 4;
    float x[2] = {}, y[2] = {};
    const int found = JH_GetInterPoint_LineSection_Arc(xs[i], ys[i], xs[j], ys[j], cx, cy, r, start,
                                                       end, &x[0], &y[0], &x[1], &y[1], kTolerance);
    for (int k = 0; k < found; ++k) {
      double angle = direction(x[k] - cx, y[k] - cy);
      if (angle < start) angle += kTurn;
      AddOneX2Array(&angles, std::min(static_cast<float>(angle), end), 1, kTolerance);
    }
  }
  int pieces = 0;
  for (INT_PTR i = 0; i + 1 < angles.GetSize(); ++i) {
    const double middle = (double{angles[i]} + angles[i + 1]) / 2;
    const auto x = static_cast<float>(cx + r * std::cos(middle));
    const auto y = static_cast<float>(cy + r * std::sin(middle));
    if (!JH_TestPointIn_TuPolygon(x, y, 4, xs, ys, kTolerance)) continue;
    starts[pieces] = angles[i];
    ends[pieces] = angles[i + 1];
    ++pieces;
  }
  return pieces;
}

CPoint CSafeDC::MoveTo(int x, int y) {
  return m_ptCur = CPoint(x, y);
}

int CSafeDC::LineTo(int x, int y) {
  SetLimit(0);
  return line_within_limit(std::exchange(m_ptCur, CPoint(x, y)), m_ptCur);
}

int CSafeDC::cut_line(CPoint from, CPoint to) {
  auto x1 = static_cast<float>(from.x), y1 = static_cast<float>(from.y);
  auto x2 = static_cast<float>(to.x), y2 = static_cast<float>(to.y);
  if (!CutLine(x1, y1, x2, y2)) return 0;
  m_pDC->MoveTo(truncate_to_int(x1), truncate_to_int(y1));
  m_pDC->LineTo(truncate_to_int(x2), truncate_to_int(y2));
  return 1;
}

COLORREF CSafeDC::SetPixel(int x, int y, COLORREF color) {
  SetLimit(0);
  if (m_pDC == nullptr) return color;
  if (within_limit({x, y}) || on_metafile()) m_pDC->SetPixel(x, y, color);
  return color;
}

BOOL CSafeDC::FillRgn(CRgn* region, CBrush* brush) {
  SetLimit(0);
  if (m_pDC == nullptr || region == nullptr || brush == nullptr) return 0;
  if (!on_metafile()) {
    const CRect limit(truncate_to_int(m_fLimit[kLeft]), truncate_to_int(m_fLimit[kTop]),
                      truncate_to_int(m_fLimit[kRight]), truncate_to_int(m_fLimit[kBottom]));
    if (!region->RectInRegion(&limit)) return 0;
    CRect box;
    region->GetRgnBox(&box);
    for (const LONG side : {box.left, box.top, box.right, box.bottom}) {
      if (side < -kSafeRange || side > kSafeRange) return 0;
    }
  }
  return m_pDC->FillRgn(region, brush);
}

BOOL CSafeDC::Polygon(const tagPOINT* points, int count) {
  for (int i = 0; i < count; ++i) {
    MoveTo(points[i]);
    LineTo(points[i + 1 == count ? 0 : i + 1]);
  }
  return 1;
}

BOOL CSafeDC::Rectangle(int left, int top, int right, int bottom) {
  MoveTo(left, top);
  LineTo(left, bottom);
  LineTo(right, bottom);
  LineTo(right, top);
  LineTo(left, top);
  return 1;
}

}  // namespace brindle
