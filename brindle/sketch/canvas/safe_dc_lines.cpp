// Lines with a pattern and a width.
#include <algorithm>
#include <optional>

#include "brindle/platform/graphics/rgn.h"
#include "brindle/sketch/canvas/safe_dc.h"
#include "brindle/sketch/canvas/safe_dc_internal.h"

namespace brindle {

using namespace canvas_internal;

void canvas_internal::fill_polygon(CSafeDC& canvas, const CPoint* points, int count,
                                   COLORREF color) {
  CRgn region;
  if (!region.CreatePolygonRgn(points, count, WINDING)) return;
  CBrush brush;
  if (canvas.m_nPenStyle == 0) {
    brush.CreateSolidBrush(color);
  } else {
    brush.CreateHatchBrush(HS_DIAGCROSS, color);
  }
  canvas.FillRgn(&region, &brush);
}

int CSafeDC::PolyLine(tagPOINT p1, tagPOINT p2, COLORREF color, int n, const int* dash, float w1,
                      float w2) {
  auto x1 = static_cast<float>(p1.x), y1 = static_cast<float>(p1.y);
  auto x2 = static_cast<float>(p2.x), y2 = static_cast<float>(p2.y);
  SetLimit(std::max(w1, w2));
  if (!CutLine(x1, y1, x2, y2)) return 1;
  if (n > 0 && pattern_length(n, dash) < 2 * step_length(m_nPenStyle)) n = 0;
  DrawPolyLine(x1, y1, x2, y2, color, n, dash, w1, w2);
  return 1;
}

namespace {

// A line's frame: points at a way along it and to its right.
struct LineFrame {
  LineFrame(float x1, float y1, float x2, float y2, double length_)
      : x(x1),
        y(y1),
        length(length_),
        cosine((double{x2} - x1) / length),
        sine((double{y2} - y1) / length) {}
  CPoint at(double along, double right = 0) const {
    return {truncate_to_int(static_cast<float>(x + cosine * along + sine * right)),
            truncate_to_int(static_cast<float>(y + sine * along - cosine * right))};
  }

  double x, y, length, cosine, sine;
};

}  // namespace

void CSafeDC::DrawPolyLine(float x1, float y1, float x2, float y2, COLORREF color, int n,
                           const int* dash, float w1, float w2) {
  const double dx = double{x2} - x1, dy = double{y2} - y1;
  const double length = std::sqrt(dx * dx + dy * dy);
  if (m_pDC == nullptr || !(length >= kNoLength)) return;
  const bool thin = w1 <= 1 && w2 <= 1;
  DashWalk pattern(n, dash, length);
  if (thin && pattern.solid()) {
    const ColorPen pen(*this, color);
    m_pDC->MoveTo(truncate_to_int(x1), truncate_to_int(y1));
    m_pDC->LineTo(truncate_to_int(x2), truncate_to_int(y2));
    return;
  }
  const LineFrame line(x1, y1, x2, y2, length);
  const auto stroke = [this](CPoint from, CPoint to) {
    m_pDC->MoveTo(from);
    m_pDC->LineTo(to);
  };
  const auto half_width = [&](double t) { return ((w2 - w1) * t / line.length + w1) / 2; };
  std::optional<ColorPen> pen;
  for (double pos = 0; pos < line.length;) {
    const double element = pattern.solid() ? line.length : pattern.next();
    const double next = std::min(pos + std::fabs(element), line.length);
    if (element >= 0 && !pen) pen.emplace(*this, color);
    if (element == 0) {
      if (thin) {
        SetPixel(line.at(pos), color);
      } else {
        stroke(line.at(pos, half_width(pos)), line.at(pos, -half_width(pos)));
      }
    } else if (element > 0) {
      if (thin) {
        stroke(line.at(pos), line.at(next));
      } else {
        const double from = half_width(pos), to = half_width(next);
        const CPoint corners[] = {line.at(pos, from), line.at(next, to), line.at(next, -to),
                                  line.at(pos, -from)};
        if (outlines_wide_figures(*this)) Polygon(corners, 4);
        fill_polygon(*this, corners, 4, color);
      }
    }
    pos = next;
  }
}

}  // namespace brindle
