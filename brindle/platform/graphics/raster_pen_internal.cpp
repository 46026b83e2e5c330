#include "brindle/platform/graphics/raster_pen_internal.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "brindle/platform/graphics/raster_line_internal.h"
#include "brindle/platform/graphics/raster_polygon_internal.h"

namespace brindle {
namespace {

constexpr int kWideShift = 8;  // wide outlines are exact to 1/256 of a pixel

struct Dashes {
  std::uint32_t drawn;
  int period;
};

// Stretches in pixels: drawn, gap, drawn, gap ...
constexpr Dashes dashes_of(std::initializer_list<int> stretches) {
  Dashes dashes{0, 0};
  bool drawn = true;
  for (int length : stretches) {
    for (; length > 0; --length, ++dashes.period)
      if (drawn) dashes.drawn |= 1u << dashes.period;
    drawn = !drawn;
  }
  return dashes;
}

constexpr Dashes kDash = dashes_of({18, 6}), kDot = dashes_of({3, 3}),
                 kDashDot = dashes_of({9, 6, 3, 6}), kDashDotDot = dashes_of({9, 3, 3, 3, 3, 3}),
                 kAlternate = dashes_of({1, 1}), kNoDashes = {0, 1};

Dashes dashes_of_style(int style) {
  switch (style & PS_STYLE_MASK) {
    case PS_DASH:
      return kDash;
    case PS_DOT:
      return kDot;
    case PS_DASHDOT:
      return kDashDot;
    case PS_DASHDOTDOT:
      return kDashDotDot;
    case PS_ALTERNATE:
      return kAlternate;
    default:
      return kNoDashes;
  }
}

// The smallest rectangle of pixels around a line.
CRect box_around(CPoint a, CPoint b) {
  const auto after = [](int v) { return v == std::numeric_limits<int>::max() ? v : v + 1; };
  return {std::min(a.x, b.x), std::min(a.y, b.y), after(std::max(a.x, b.x)),
          after(std::max(a.y, b.y))};
}

// Lays the rings of a wide line into a filler, all in the same turning sense, so that the winding
// rule makes one figure of them.
class WideOutline {
 public:
  WideOutline(PolygonFiller& filler, double half_width) : filler_(filler), half_(half_width) {
    const int corners =
        std::clamp(static_cast<int>(std::ceil(4 * std::sqrt(half_width))) * 4, 8, 256);
    for (int i = 0; i < corners; ++i) {
      const double angle = -2 * std::numbers::pi * i / corners;
      circle_.push_back({half_ * std::cos(angle), half_ * std::sin(angle)});
    }
  }

  void disc(RealPoint at) {
    for (std::size_t i = 0; i < circle_.size(); ++i)
      edge(
          {at.x + circle_[i].x, at.y + circle_[i].y},
          {at.x + circle_[(i + 1) % circle_.size()].x, at.y + circle_[(i + 1) % circle_.size()].y});
  }
  // `along` is the unit vector from a to b.
  void bar(RealPoint a, RealPoint b, RealPoint along) {
    const double nx = -along.y * half_, ny = along.x * half_;
    const RealPoint ring[4] = {
        {a.x + nx, a.y + ny}, {b.x + nx, b.y + ny}, {b.x - nx, b.y - ny}, {a.x - nx, a.y - ny}};
    for (int i = 0; i < 4; ++i) edge(ring[i], ring[(i + 1) % 4]);
  }
  // Fills the outer wedge between two bars. Small turns, as curves have, take a triangle.
  void join(RealPoint at, RealPoint before, RealPoint after) {
    const double turn = before.x * after.y - before.y * after.x;
    if (before.x * after.x + before.y * after.y < 0.9) return disc(at);
    const double side = turn > 0 ? -half_ : half_;
    const RealPoint a{at.x - before.y * side, at.y + before.x * side};
    const RealPoint b{at.x - after.y * side, at.y + after.x * side};
    const bool swapped = (a.x - at.x) * (b.y - at.y) - (a.y - at.y) * (b.x - at.x) > 0;
    const RealPoint &first = swapped ? b : a, &second = swapped ? a : b;
    edge(at, first), edge(first, second), edge(second, at);
  }

 private:
  void edge(RealPoint a, RealPoint b) { filler_.add_scaled_edge(a.x, a.y, b.x, b.y); }

  PolygonFiller& filler_;
  double half_;
  std::vector<RealPoint> circle_;
};

}  // namespace

RasterPen::RasterPen(RasterBitmap& target, const PaintState& state, const RasterClip& clip)
    : target_(target),
      clip_(clip),
      op_(pixel_op(state.rop2, state.pen.color)),
      gap_op_(pixel_op(state.rop2, state.bk_color)),
      paints_((state.pen.style & PS_STYLE_MASK) != PS_NULL && state.rop2 != R2_NOP &&
              !clip.empty()),
      gaps_painted_(state.bk_mode != TRANSPARENT),
      style_(state.pen.style),
      width_(state.pen.width) {
  if (width_ >= 2) return;
  const Dashes dashes = dashes_of_style(style_);
  dashes_ = dashes.drawn, period_ = dashes.period;
}

void RasterPen::span(int y, std::int64_t first, std::int64_t last) {
  clip_.spans(y, first, last, [this](int row, int from, int to) {
    paint_run(target_.row(row) + from, target_.row(row) + to, op_);
  });
}

void RasterPen::thin_line(CPoint from, CPoint to) {
  const auto paint = [&](const CRect& box) {
    if (op_.copies()) {
      solid_line<true>(target_.data(), target_.stride(), box, from, to, op_);
    } else {
      solid_line<false>(target_.data(), target_.stride(), box, from, to, op_);
    }
  };
  if (!clip_.region) return paint(clip_.box);
  clip_.boxes(box_around(from, to), paint);
}

void RasterPen::dashed_line(CPoint from, CPoint to) {
  const LineSteps line(from, to);
  clip_.boxes(box_around(from, to), [&](const CRect& box) {
    std::int64_t first, last;
    line.clip(from, box, first, last);
    if (last <= first) return;
    LinePlace place(target_.data(), target_.stride(), from, line, first);
    int at = static_cast<int>((phase_ + first) % period_);
    for (std::int64_t i = first; i < last; ++i, place.move()) {
      if (dashes_ >> at & 1) {
        *place.pixel = op_(*place.pixel);
      } else if (gaps_painted_) {
        *place.pixel = gap_op_(*place.pixel);
      }
      if (++at == period_) at = 0;
    }
  });
  phase_ = (phase_ + line.steps) % period_;
}

void RasterPen::chain(const CPoint* points, std::size_t count, bool closed) {
  if (!paints_ || count == 0) return;
  if (width_ >= 2) {
    std::vector<RealPoint> corners(count);
    for (std::size_t i = 0; i < count; ++i)
      corners[i] = {static_cast<double>(points[i].x), static_cast<double>(points[i].y)};
    return wide_curve(corners, closed);
  }
  phase_ = 0;
  const auto draw = [&](CPoint from, CPoint to) {
    if (dashes_) {
      dashed_line(from, to);
    } else {
      thin_line(from, to);
    }
  };
  for (std::size_t i = 1; i < count; ++i) draw(points[i - 1], points[i]);
  if (closed) draw(points[count - 1], points[0]);
}

void RasterPen::curve(const std::vector<RealPoint>& points, bool closed) {
  if (!paints_) return;
  if (width_ >= 2) return wide_curve(points, closed);
  std::vector<CPoint> corners;
  for (const RealPoint& p : points) {
    const CPoint corner(
        static_cast<int>(std::lround(std::clamp(p.x, -2147483647.0, 2147483647.0))),
        static_cast<int>(std::lround(std::clamp(p.y, -2147483647.0, 2147483647.0))));
    if (corners.empty() || corners.back() != corner) corners.push_back(corner);
  }
  chain(corners.data(), corners.size(), closed);
}

void RasterPen::wide_curve(const std::vector<RealPoint>& given, bool closed) {
  std::vector<RealPoint> points;
  for (const RealPoint& p : given)
    if (points.empty() || !(points.back() == p)) points.push_back(p);
  while (closed && points.size() > 1 && points.back() == points.front()) points.pop_back();
  if (points.empty()) return;
  PolygonFiller filler(clip_.box, kWideShift);
  WideOutline outline(filler, width_ / 2.0);
  const std::size_t bars = points.size() == 1 ? 0 : closed ? points.size() : points.size() - 1;
  std::vector<RealPoint> along(bars);
  for (std::size_t i = 0; i < bars; ++i) {
    const RealPoint &a = points[i], &b = points[(i + 1) % points.size()];
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    along[i] = {(b.x - a.x) / length, (b.y - a.y) / length};
  }
  const int cap = style_ & PS_ENDCAP_MASK;
  const bool open = !closed && bars > 0;
  for (std::size_t i = 0; i < bars; ++i) {
    RealPoint a = points[i], b = points[(i + 1) % points.size()];
    if (open && cap == PS_ENDCAP_SQUARE && i == 0)
      a.x -= along[i].x * width_ / 2, a.y -= along[i].y * width_ / 2;
    if (open && cap == PS_ENDCAP_SQUARE && i + 1 == bars)
      b.x += along[i].x * width_ / 2, b.y += along[i].y * width_ / 2;
    outline.bar(a, b, along[i]);
    if (i > 0) outline.join(points[i], along[i - 1], along[i]);
  }
  if (bars == 0) {
    outline.disc(points[0]);
  } else if (closed) {
    outline.join(points[0], along[bars - 1], along[0]);
  } else if (cap == PS_ENDCAP_ROUND) {
    outline.disc(points.front());
    outline.disc(points.back());
  }
  filler.fill(true, [this](int y, int first, int last) { span(y, first, last); });
}

}  // namespace brindle
