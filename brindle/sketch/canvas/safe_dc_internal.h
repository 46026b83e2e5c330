// What the canvas's source files share.
#pragma once

#include <cmath>
#include <utility>

#include "brindle/geometry/pixel_rounding.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::canvas_internal {

// More chords than this in one arc, and more pattern elements than this in one line or arc, come
// from figures far beyond any device, which only a metafile gets: the arc is drawn coarser then,
// the pattern as a solid line.
constexpr int kMostChords = 100000;
constexpr double kMostElements = 1e6;

// Below these lengths and sweeps nothing is drawn.
constexpr float kNoLength = 1e-5f;
constexpr float kNoSweep = 1e-10f;

// The step length of a pen style: chords and patterns finer than two steps make no sense.
inline float step_length(int pen_style) {
  return pen_style == 0 ? 1.0f : 2.5f;
}

// A pen of one pixel in the canvas's style, selected for the life of the object.
class ColorPen {
 public:
  ColorPen(const CSafeDC& canvas, COLORREF color)
      : dc_(*canvas.m_pDC),
        pen_(canvas.m_nPenStyle, 1, color),
        previous_(dc_.SelectObject(&pen_)) {}
  ~ColorPen() {
    if (previous_ != nullptr) dc_.SelectObject(previous_);
  }
  ColorPen(const ColorPen&) = delete;
  ColorPen& operator=(const ColorPen&) = delete;

 private:
  CDC& dc_;
  CPen pen_;
  CPen* previous_;
};

// The sum of the dashes' and gaps' lengths; 0 without an array.
inline double pattern_length(int n, const int* dash) {
  double total = 0;
  for (int i = 0; dash != nullptr && i < n; ++i) total += std::fabs(static_cast<double>(dash[i]));
  return total;
}

// A dash array, walked again and again along `length_px`; solid when it would take too long.
class DashWalk {
 public:
  DashWalk(int n, const int* dash, double length_px) : n_(n), dash_(dash) {
    const double total = pattern_length(n, dash);
    // A pattern without length, or along a negative one, would never end.
    solid_ = !(total > 0) || !(length_px >= 0 && length_px / total * n < kMostElements);
  }

  bool solid() const { return solid_; }
  int next() { return dash_[std::exchange(at_, at_ + 1 == n_ ? 0 : at_ + 1)]; }

 private:
  int n_;
  const int* dash_;
  int at_ = 0;
  bool solid_;
};

// The box around a circle, against a limit in the order of CSafeDC::m_fLimit. NaN and radii below 0
// neither miss it nor lie in it.
struct CircleBox {
  CircleBox(float cx, float cy, float r)
      : left(cx - r), top(cy - r), right(cx + r), bottom(cy + r) {}
  bool misses(const float (&limit)[4]) const {
    return left <= right && top <= bottom &&
           (right < limit[0] || bottom < limit[1] || left > limit[2] || top > limit[3]);
  }
  bool lies_in(const float (&limit)[4]) const {
    return left <= right && left > limit[0] && top > limit[1] && right < limit[2] &&
           bottom < limit[3];
  }

  float left, top, right, bottom;
};

// The angle of a way, from 0 to a full turn.
inline double direction(double dx, double dy) {
  const double angle = std::atan2(dy, dx);
  return angle < 0 ? angle + 6.283185307179586 : angle;
}

// Fills a polygon (winding) in the canvas's look: a solid brush for style 0, else a hatch.
void fill_polygon(CSafeDC& canvas, const CPoint* points, int count, COLORREF color);
// Whether a wide figure gets an outline with the pen beside its filling.
inline bool outlines_wide_figures(const CSafeDC& canvas) {
  return canvas.m_nPenStyle != 0 || canvas.on_metafile();
}

}  // namespace brindle::canvas_internal

namespace brindle {

inline bool CSafeDC::within_limit(CPoint p) const {
  const auto x = static_cast<float>(p.x), y = static_cast<float>(p.y);
  return x >= m_fLimit[0] && x <= m_fLimit[2] && y >= m_fLimit[1] && y <= m_fLimit[3];
}

inline int CSafeDC::line_within_limit(CPoint from, CPoint to) {
  if (m_pDC == nullptr) return 0;
  // What needs no cut is what CutLine leaves as it is.
  if (!within_limit(from) || !within_limit(to)) return cut_line(from, to);
  m_pDC->MoveTo(from);
  m_pDC->LineTo(to);
  return 1;
}

}  // namespace brindle
