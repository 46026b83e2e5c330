// Closed figures and arcs of RasterDevice.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "brindle/platform/graphics/raster_brush_internal.h"
#include "brindle/platform/graphics/raster_clip_internal.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/raster_ellipse_internal.h"
#include "brindle/platform/graphics/raster_pen_internal.h"
#include "brindle/platform/graphics/raster_polygon_internal.h"

namespace brindle {
namespace {

constexpr double kFullTurn = 2 * std::numbers::pi;
constexpr int kCurveShift = 8;

// All that a figure is painted with.
struct Painting {
  RasterBitmap& target;
  RasterClip clip;
  RasterBrush brush;
  RasterPen pen;

  Painting(RasterBitmap& bitmap, const PaintState& state)
      : target(bitmap),
        clip(bitmap, state.clip),
        brush(bitmap, state, state.brush, state.rop2),
        pen(bitmap, state, clip) {}

  void fill(int y, std::int64_t first, std::int64_t last) {
    clip.spans(y, first, last, [this](int row, int from, int to) { brush.span(row, from, to); });
  }
  void fill_box(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom) {
    if (!brush.paints()) return;
    top = std::max<std::int64_t>(top, clip.box.top);
    bottom = std::min<std::int64_t>(bottom, clip.box.bottom);
    for (; top < bottom; ++top) fill(static_cast<int>(top), left, right);
  }
  void fill_polygon(PolygonFiller& filler, bool winding) {
    filler.fill(winding, [this](int y, int first, int last) { fill(y, first, last); });
  }
};

// The box that a figure's own pixels have: ordered, smaller by a pixel at the right and below
// without a pen, and by half the pen's width for a pen that stays inside.
CRect figure_box(const PaintState& state, CRect box) {
  if (box.left > box.right) std::swap(box.left, box.right);
  if (box.top > box.bottom) std::swap(box.top, box.bottom);
  const int style = state.pen.style & PS_STYLE_MASK;
  if (style == PS_NULL && !box.IsRectEmpty()) --box.right, --box.bottom;
  if (style == PS_INSIDEFRAME && state.pen.width > 1) {
    const int less = state.pen.width / 2, more = state.pen.width - less - 1;
    if (std::int64_t{box.right} - box.left > state.pen.width) box.left += less, box.right -= more;
    if (std::int64_t{box.bottom} - box.top > state.pen.width) box.top += less, box.bottom -= more;
  }
  return box;
}

void frame(RasterPen& pen, const CRect& clip, const CRect& box) {
  const int right = box.right - 1, bottom = box.bottom - 1;
  if (!pen.thin_solid()) {
    const CPoint corners[] = {
        {box.left, box.top}, {right, box.top}, {right, bottom}, {box.left, bottom}};
    return pen.chain(corners, 4, true);
  }
  // Each pixel once, also in a box of one row or column.
  pen.span(box.top, box.left, box.right);
  if (bottom > box.top) pen.span(bottom, box.left, box.right);
  const int end = std::min<int>(bottom, clip.bottom);
  for (int y = std::max<int>(box.top, clip.top - 1) + 1; y < end; ++y) {
    pen.pixel(box.left, y);
    if (right > box.left) pen.pixel(right, y);
  }
}

// Whether the direction (x, y) lies in the sweep from `start` counter-clockwise as seen to `end`,
// the start included. Equal directions are a full turn.
class Sweep {
 public:
  Sweep(RealPoint start, RealPoint end) : start_(start), end_(end) {
    const double turn = cross(start, end);
    full_ = turn == 0 && dot(start, end) >= 0;
    large_ = turn < 0;
  }
  bool holds(double x, double y) const {
    if (full_) return true;
    const RealPoint v{x, y};
    if (!large_) return at_or_after(start_, v) && !at_or_after(end_, v);
    return !(at_or_after(end_, v) && !at_or_after(start_, v));
  }
  bool full() const { return full_; }

 private:
  // Positive when b lies counter-clockwise of a as seen, y down.
  static double cross(RealPoint a, RealPoint b) { return a.y * b.x - a.x * b.y; }
  static double dot(RealPoint a, RealPoint b) { return a.x * b.x + a.y * b.y; }
  // In the half turn that begins at a.
  static bool at_or_after(RealPoint a, RealPoint v) {
    const double turn = cross(a, v);
    return turn > 0 || (turn == 0 && dot(a, v) > 0);
  }
  RealPoint start_, end_;
  bool full_, large_;
};

}  // namespace

void RasterDevice::poly_polygon(const PaintState& state, const CPoint* points, const int* counts,
                                int rings) {
  Painting paint(*target_, state);
  if (paint.clip.empty()) return;
  if (paint.brush.paints()) {
    PolygonFiller filler(paint.clip.box, 0);
    const CPoint* ring = points;
    for (int i = 0; i < rings; ring += counts[i++])
      if (counts[i] > 2) filler.add_ring(ring, static_cast<std::size_t>(counts[i]));
    paint.fill_polygon(filler, state.poly_fill_mode == WINDING);
  }
  for (int i = 0; i < rings; points += counts[i++])
    if (counts[i] > 0) paint.pen.chain(points, static_cast<std::size_t>(counts[i]), true);
}

void RasterDevice::rectangle(const PaintState& state, const CRect& given) {
  Painting paint(*target_, state);
  const CRect box = figure_box(state, given);
  if (paint.clip.empty() || box.IsRectEmpty()) return;
  const int edge = paint.pen.paints() && paint.pen.thin_solid() ? 1 : 0;
  paint.fill_box(std::int64_t{box.left} + edge, std::int64_t{box.top} + edge,
                 std::int64_t{box.right} - edge, std::int64_t{box.bottom} - edge);
  if (paint.pen.paints()) frame(paint.pen, paint.clip.box, box);
}

void RasterDevice::round_rectangle(const PaintState& state, const CRect& given, CSize corner) {
  const CRect box = figure_box(state, given);
  if (box.IsRectEmpty()) return;
  const auto bounded = [](int size, std::int64_t side) {
    return static_cast<int>(
        std::min({std::abs(std::int64_t{size}), side, std::int64_t{0x7fffffff}}));
  };
  const std::int64_t width = std::int64_t{box.right} - box.left;
  const std::int64_t height = std::int64_t{box.bottom} - box.top;
  corner = CSize(bounded(corner.cx, width), bounded(corner.cy, height));
  if (corner.cx < 2 || corner.cy < 2) {
    PaintState square = state;
    if ((state.pen.style & PS_STYLE_MASK) == PS_INSIDEFRAME) square.pen.style = PS_SOLID;
    return rectangle(square, (state.pen.style & PS_STYLE_MASK) == PS_NULL ? given : box);
  }
  Painting paint(*target_, state);
  if (paint.clip.empty()) return;
  const CRect& visible = paint.clip.box;
  const RasterEllipse round(CRect(box.left, box.top, box.left + corner.cx, box.top + corner.cy));
  const std::int64_t shift_x = width - corner.cx, shift_y = height - corner.cy;
  if (paint.brush.paints()) {
    for (int y = std::max(visible.top, box.top); y < std::min(visible.bottom, box.bottom); ++y) {
      const double dy = std::max({round.cy - y, double(y - shift_y) - round.cy, 0.0});
      const double half = round.half_width(dy);
      paint.fill(y, static_cast<std::int64_t>(std::ceil(round.cx - half)),
                 static_cast<std::int64_t>(std::floor(round.cx + double(shift_x) + half)) + 1);
    }
  }
  if (!paint.pen.paints()) return;
  if (paint.pen.thin_solid()) {
    round.outline(visible, double(shift_x), double(shift_y),
                  [&](int x, int y) { paint.pen.pixel(x, y); });
    // The straight parts between the quarters' end pixels.
    const auto left = static_cast<std::int64_t>(std::ceil(round.cx));
    const auto right = static_cast<std::int64_t>(std::ceil(round.cx)) + shift_x;
    const auto top = static_cast<std::int64_t>(std::ceil(round.cy));
    const auto bottom = static_cast<std::int64_t>(std::ceil(round.cy)) + shift_y;
    paint.pen.span(box.top, left, right);
    paint.pen.span(box.bottom - 1, left, right);
    for (std::int64_t y = std::max<std::int64_t>(top, visible.top);
         y < std::min<std::int64_t>(bottom, visible.bottom); ++y) {
      paint.pen.pixel(box.left, static_cast<int>(y));
      paint.pen.pixel(box.right - 1, static_cast<int>(y));
    }
    return;
  }
  std::vector<RealPoint> points;
  for (int quarter = 0; quarter < 4; ++quarter)
    append_arc(points, round.cx + double(quarter == 0 || quarter == 3 ? shift_x : 0),
               round.cy + double(quarter < 2 ? shift_y : 0), round.a, round.b,
               quarter * kFullTurn / 4, (quarter + 1) * kFullTurn / 4);
  paint.pen.curve(points, true);
}

void RasterDevice::ellipse(const PaintState& state, const CRect& given) {
  Painting paint(*target_, state);
  const CRect box = figure_box(state, given);
  if (paint.clip.empty() || box.IsRectEmpty()) return;
  const RasterEllipse curve(box);
  const CRect& visible = paint.clip.box;
  if (paint.brush.paints()) {
    for (int y = std::max(visible.top, box.top); y < std::min(visible.bottom, box.bottom); ++y) {
      const double half = curve.half_width(y - curve.cy);
      paint.fill(y, static_cast<std::int64_t>(std::ceil(curve.cx - half)),
                 static_cast<std::int64_t>(std::floor(curve.cx + half)) + 1);
    }
  }
  if (!paint.pen.paints()) return;
  if (paint.pen.thin_solid()) {
    curve.outline(visible, 0, 0, [&](int x, int y) { paint.pen.pixel(x, y); });
    return;
  }
  std::vector<RealPoint> points;
  append_arc(points, curve.cx, curve.cy, curve.a, curve.b, 0, kFullTurn);
  points.pop_back();
  paint.pen.curve(points, true);
}

void RasterDevice::arc(const PaintState& state, ArcForm form, const CRect& given, CPoint start,
                       CPoint end) {
  Painting paint(*target_, state);
  const CRect box = figure_box(state, given);
  if (paint.clip.empty() || box.IsRectEmpty()) return;
  const RasterEllipse curve(box);
  const Sweep sweep({start.x - curve.cx, start.y - curve.cy}, {end.x - curve.cx, end.y - curve.cy});
  // Parameter angles, clockwise as seen: from the end back to the start.
  const auto parameter = [&](CPoint p) {
    return std::atan2((p.y - curve.cy) * curve.a, (p.x - curve.cx) * curve.b);
  };
  const double from = parameter(start);
  double to = sweep.full() ? from : parameter(end);
  if (to >= from) to -= kFullTurn;
  std::vector<RealPoint> points;
  append_arc(points, curve.cx, curve.cy, curve.a, curve.b, from, to);
  if (form == ArcForm::kPie) points.push_back({curve.cx, curve.cy});
  if (form != ArcForm::kArc && paint.brush.paints()) {
    PolygonFiller filler(paint.clip.box, kCurveShift);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const RealPoint &a = points[i], &b = points[(i + 1) % points.size()];
      filler.add_scaled_edge(a.x, a.y, b.x, b.y);
    }
    paint.fill_polygon(filler, true);
  }
  if (!paint.pen.paints()) return;
  if (!paint.pen.thin_solid()) return paint.pen.curve(points, form != ArcForm::kArc);
  curve.outline(paint.clip.box, 0, 0, [&](int x, int y) {
    if (sweep.holds(x - curve.cx, y - curve.cy)) paint.pen.pixel(x, y);
  });
  if (form == ArcForm::kArc) return;
  std::vector<RealPoint> sides = {
      points[form == ArcForm::kPie ? points.size() - 2 : points.size() - 1]};
  if (form == ArcForm::kPie) sides.push_back({curve.cx, curve.cy});
  sides.push_back(points.front());
  paint.pen.curve(sides, false);
}

}  // namespace brindle
