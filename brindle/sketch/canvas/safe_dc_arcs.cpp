// Arcs and circles, thin and wide, as chains of chords.
#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include "brindle/geometry/point.h"
#include "brindle/sketch/canvas/safe_dc.h"
#include "brindle/sketch/canvas/safe_dc_internal.h"

namespace brindle {

using namespace canvas_internal;

namespace {

constexpr double kTurn = 6.283185307179586;

CFPoint centre_of(const CRect& box) {
  return {(static_cast<float>(box.left) + static_cast<float>(box.right)) / 2,
          (static_cast<float>(box.top) + static_cast<float>(box.bottom)) / 2, 0};
}

// Whether the box lies wholly outside of the canvas's limit.
bool out_of_limit(const CSafeDC& canvas, const CRect& box) {
  const auto [left, top, right, bottom] = canvas.m_fLimit;
  const auto beyond = [](LONG a, LONG b, float low, float high) {
    return static_cast<float>(std::max(a, b)) < low || static_cast<float>(std::min(a, b)) > high;
  };
  return beyond(box.left, box.right, left, right) || beyond(box.top, box.bottom, top, bottom);
}

// A number of chords cut to a whole one within its limits.
int chord_count(double wanted, int least) {
  if (!(wanted >= least)) return least;
  return static_cast<int>(std::min(wanted, double{kMostChords}));
}

}  // namespace

int CSafeDC::Arc(const tagRECT* box, tagPOINT start, tagPOINT end) {
  if (start == end) return 0;
  return Arc(box->left, box->top, box->right, box->bottom, start.x, start.y, end.x, end.y);
}

int CSafeDC::Arc(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4) {
  SetLimit(0);
  if (m_pDC == nullptr || (!on_metafile() && out_of_limit(*this, {left, top, right, bottom})))
    return 0;
  const CFPoint centre = centre_of({left, top, right, bottom});
  const double dx = x3 - double{centre.x}, dy = double{centre.y} - y3;
  const auto start = static_cast<float>(direction(dx, dy));
  auto end = static_cast<float>(direction(x4 - double{centre.x}, double{centre.y} - y4));
  if (end < start || (x3 == x4 && y3 == y4)) end += static_cast<float>(kTurn);
  DrawArc(round_to_pixel(centre.x), round_to_pixel(centre.y),
          round_to_pixel(static_cast<float>(std::sqrt(dx * dx + dy * dy))), start, end - start, 1);
  return 1;
}

int CSafeDC::PolyArc(const tagRECT* box, tagPOINT p1, tagPOINT p2, COLORREF color, int n,
                     const int* dash, float w1, float w2) {
  SetLimit(std::max(w1, w2));
  if (m_pDC == nullptr) return 0;
  const CFPoint centre = centre_of(*box);
  const double dx = p2.x - double{centre.x}, dy = p2.y - double{centre.y};
  const auto radius = static_cast<float>(std::sqrt(dx * dx + dy * dy));
  const auto start = static_cast<float>(direction(dx, dy));
  auto end = static_cast<float>(direction(p1.x - double{centre.x}, p1.y - double{centre.y}));
  if (end < start) end += static_cast<float>(kTurn);
  const float sweep = end - start;
  if (sweep < 1e-5f) return 0;
  float starts[kMostArcPieces], ends[kMostArcPieces];
  const int pieces = CutArc(centre.x, centre.y, radius, start, end, starts, ends);
  if (n > 0 && pattern_length(n, dash) < 2 * step_length(m_nPenStyle)) n = 0;
  const auto width_at = [&](float angle) { return (w1 - w2) * (angle - start) / sweep + w2; };
  for (int i = 0; i < pieces; ++i) {
    DrawPolyArc(centre.x, centre.y, radius, starts[i], ends[i], color, n, dash, width_at(starts[i]),
                width_at(ends[i]));
  }
  return pieces > 0 ? 1 : 0;
}

namespace {

// The points of a circle at angles that grow by equal steps, turned on from one to the next.
class TurningPoint {
 public:
  TurningPoint(int cx, int cy, int r, double first, double increment)
      : cx_(cx),
        cy_(cy),
        x_(r * std::cos(first)),
        y_(r * std::sin(first)),
        cosine_(std::cos(increment)),
        sine_(std::sin(increment)) {}

  CPoint pixel() const { return {to_pixel(cx_ + x_), to_pixel(cy_ + y_)}; }
  // The pixels of the next points.
  void take(CPoint* pixels, int count) {
    double x = x_, y = y_;
    for (int i = 0; i < count; ++i) {
      pixels[i] = CPoint(to_pixel(cx_ + x), to_pixel(cy_ + y));
      const double turned = x * cosine_ - y * sine_;
      y = x * sine_ + y * cosine_;
      x = turned;
    }
    x_ = x;
    y_ = y;
  }

 private:
  // trunc(2v + 1) / 2, the nearest pixel.
  static int to_pixel(double v) {
    constexpr double kFar = 1e9;
    return static_cast<int>(2 * std::min(std::max(v, -kFar), kFar) + 1) / 2;
  }

  double cx_, cy_, x_, y_, cosine_, sine_;
};

}  // namespace

void CSafeDC::DrawArc(int cx, int cy, int r, float start, float sweep, int y_down) {
  constexpr int kLeastChords = 5;
  if (r < 1 || m_pDC == nullptr || !std::isfinite(start) || !std::isfinite(sweep)) return;
  const double wanted = std::fabs(double{sweep}) * r / (step_length(m_nPenStyle) * 2);
  const int chords = chord_count(wanted + 0.5, kLeastChords);
  double increment = double{sweep} / chords;
  if (y_down) increment = -increment;
  // A negative sweep turns the chain the other way, and only its last chord goes to the end: meant
  // so.
  if (sweep < 0) increment = -increment;
  const double first = y_down ? kTurn - start : double{start};
  const double end = y_down ? first - sweep : first + sweep;

  SetLimit(0);
  const CircleBox box(static_cast<float>(cx), static_cast<float>(cy), static_cast<float>(r) + 1);
  const bool whole = box.lies_in(m_fLimit);
  TurningPoint turning(cx, cy, r, first, increment);
  CPoint pixels[65] = {turning.pixel()};
  for (int left = chords + 1; left > 0;) {
    const int count = std::min(left, static_cast<int>(std::size(pixels)) - 1);
    turning.take(pixels + 1, count);
    left -= count;
    // The last chord goes to the end, where the turning has come when it ran the right way.
    if (left == 0 && sweep < 0) pixels[count] = TurningPoint(cx, cy, r, end, 0).pixel();
    draw_chain(pixels, count + 1, whole);
    pixels[0] = pixels[count];
  }
  m_ptCur = pixels[0];
}

void CSafeDC::draw_chain(const CPoint* pixels, int count, bool whole) {
  const auto inside = [&](int i) { return whole || within_limit(pixels[i]); };
  for (int i = 1; i < count;) {
    if (!inside(i - 1) || !inside(i)) {
      cut_line(pixels[i - 1], pixels[i]);
      ++i;
      continue;
    }
    m_pDC->MoveTo(pixels[i - 1]);
    for (; i < count && inside(i); ++i) m_pDC->LineTo(pixels[i]);
  }
}

void CSafeDC::DrawPolyArc(float cx, float cy, float r, float start, float end, COLORREF color,
                          float w1, float w2) {
  const float sweep = end - start;
  if (m_pDC == nullptr || !(sweep >= 1e-5f)) return;
  const double wanted = (double{r} + std::max(w1, w2)) * sweep / (step_length(m_nPenStyle) * 2);
  const int m = chord_count(wanted, 0);
  if (m < 1) return;
  std::vector<CPoint> ring(static_cast<std::size_t>(2 * m + 2));
  for (int i = 0; i <= m; ++i) {
    const float part = static_cast<float>(i) / static_cast<float>(m);
    const float angle = start + sweep * part, half = (w1 + (w2 - w1) * part) / 2;
    const float c = std::cos(angle), s = std::sin(angle);
    const auto at = [&](float radius) {
      return CPoint(truncate_to_int(cx + radius * c), truncate_to_int(cy + radius * s));
    };
    ring[static_cast<std::size_t>(i)] = at(r - half);
    ring[static_cast<std::size_t>(2 * m + 1 - i)] = at(r + half);
  }
  if (outlines_wide_figures(*this)) {
    const ColorPen pen(*this, color);
    // The ring's last points close on its first each by itself: meant so.
    for (int k = 0; k < 2 * m + 2; ++k) {
      MoveTo(ring[static_cast<std::size_t>(k)]);
      LineTo(ring[static_cast<std::size_t>(k + 1 > 2 * m - 1 ? 0 : k + 1)]);
    }
  }
  fill_polygon(*this, ring.data(), 2 * m + 2, color);
}

void CSafeDC::DrawPolyArc(float cx, float cy, float r, float start, float end, COLORREF color,
                          int n, const int* dash, float w1, float w2) {
  const double sweep = double{end} - start;
  if (m_pDC == nullptr || !(sweep >= kNoSweep)) return;
  const bool thin = w1 <= 1 && w2 <= 1;
  DashWalk pattern(n, dash, sweep * r);
  const auto width_at = [&](double angle) {
    return static_cast<float>((w2 - w1) * angle / sweep + w1);
  };
  const auto point = [&](double angle, double radius) {
    return CPoint(truncate_to_int(static_cast<float>(cx + radius * std::cos(start + angle))),
                  truncate_to_int(static_cast<float>(cy + radius * std::sin(start + angle))));
  };
  std::optional<ColorPen> pen;
  for (double pos = 0; pos < sweep;) {
    const int element = pattern.solid() ? 1 : pattern.next();
    const double step = pattern.solid() ? sweep : std::fabs(static_cast<double>(element)) / r;
    const double next = element == 0 ? pos : std::min(pos + step, sweep);
    if (element >= 0 && !pen) pen.emplace(*this, color);
    if (element == 0 && thin) {
      SetPixel(point(pos, r), color);
    } else if (element == 0) {
      const double half = width_at(pos) / 2;
      MoveTo(point(pos, r - half));
      LineTo(point(pos, r + half));
    } else if (element > 0 && thin) {
      DrawArc(round_to_pixel(cx), round_to_pixel(cy), round_to_pixel(r),
              static_cast<float>(start + pos), static_cast<float>(next - pos), 0);
    } else if (element > 0) {
      DrawPolyArc(cx, cy, r, static_cast<float>(start + pos), static_cast<float>(start + next),
                  color, width_at(pos), width_at(next));
    }
    pos = next;
  }
}

BOOL CSafeDC::Ellipse(int left, int top, int right, int bottom) {
  const int middle = static_cast<int>((LONGLONG{top} + bottom) / 2);
  Arc(left, top, right, bottom, left, middle, left, middle);
  return 1;
}

BOOL CSafeDC::Ellipse(const tagRECT* box) {
  Arc(box->left, box->top, box->right, box->bottom, box->left, box->top, box->left, box->top);
  return 1;
}

}  // namespace brindle
