#include "brindle/platform/graphics/scaled_device.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {

struct ScaledDevice::Scaled : PaintState {
  Scaled(const ScaledDevice& device, const PaintState& state) : PaintState(state) {
    is_thin = state.pen.width < 2;
    pen.width = is_thin ? device.thin_ : device.length(state.pen.width);
    font = device.font_of(state.font);
    char_extra = device.length(state.char_extra);
    brush_origin = device.grid_.at(state.brush_origin);
    if (state.clip == nullptr) return;
    kept_clip = device.region_of(*state.clip);
    clip = &kept_clip;
  }
  Scaled(const Scaled&) = delete;
  Scaled& operator=(const Scaled&) = delete;

  bool is_thin = true;
  RegionData kept_clip;
};

ScaledDevice::ScaledDevice(std::shared_ptr<RasterBitmap> target, double dpi)
    : fine_(target, dpi),
      grid_(target->grid()),
      thin_(std::max(1, static_cast<int>(std::floor(grid_.scale + 0.25)))) {}

std::unique_ptr<PaintDevice> make_raster_device(std::shared_ptr<RasterBitmap> target, double dpi) {
  if (target->grid().is_plain()) return std::make_unique<RasterDevice>(std::move(target), dpi);
  return std::make_unique<ScaledDevice>(std::move(target), dpi);
}

int ScaledDevice::length(double units) const {
  return static_cast<int>(std::lround(std::clamp(units * grid_.scale, -1e9, 1e9)));
}

LOGFONT ScaledDevice::font_of(const LOGFONT& font) const {
  LOGFONT fine = font;
  fine.lfHeight = length(font.lfHeight);
  fine.lfWidth = length(font.lfWidth);
  return fine;
}

RegionData ScaledDevice::region_of(const RegionData& units) const {
  if (units.is_rectangle()) return RegionData(grid_.box(units.box()));
  std::vector<CRect> boxes;
  boxes.reserve(units.rects().size());
  for (const CRect& box : units) boxes.push_back(grid_.box(box));
  return RegionData::from_rects(boxes);
}

int ScaledDevice::caps(int index) const {
  const auto millimetres = [this](int units) {
    return static_cast<int>(std::lround(units * 25.4 / fine_.caps(LOGPIXELSX)));
  };
  switch (index) {
    case HORZRES:
    case PHYSICALWIDTH:
      return grid_.width;
    case VERTRES:
    case PHYSICALHEIGHT:
      return grid_.height;
    case HORZSIZE:
      return millimetres(grid_.width);
    case VERTSIZE:
      return millimetres(grid_.height);
  }
  return fine_.caps(index);
}

void ScaledDevice::line(const PaintState& state, CPoint from, CPoint to) {
  const CPoint points[] = {from, to};
  polyline(state, points, 2);
}

bool ScaledDevice::draw_straight(const Scaled& state, const CPoint* points, int count) {
  if (!state.is_thin || state.pen.style != PS_SOLID || count < 2) return false;
  for (int i = 1; i < count; ++i)
    if (points[i].x != points[i - 1].x && points[i].y != points[i - 1].y) return false;
  BrushData ink;
  ink.color = state.pen.color;
  for (int i = 1; i < count; ++i) {
    const CPoint from = points[i - 1], to = points[i];
    // Without the last unit, in both directions.
    const auto ends = [](int one, int other) {
      return one <= other ? std::pair(one, other) : std::pair(other + 1, one + 1);
    };
    CRect box(from, CSize(1, 1));
    if (from.y == to.y)
      std::tie(box.left, box.right) = ends(from.x, to.x);
    else
      std::tie(box.top, box.bottom) = ends(from.y, to.y);
    fine_.fill_region(state, RegionData(grid_.box(box)), ink);
  }
  return true;
}

void ScaledDevice::polyline(const PaintState& state, const CPoint* points, int count) {
  if (count < 1) return;
  const Scaled fine(*this, state);
  if (draw_straight(fine, points, count)) return;
  // A wide line runs through the middle of its points' pixels.
  const int middle = fine.pen.width / 2;
  std::vector<CPoint> mapped;
  for (int i = 0; i < count; ++i) mapped.push_back(grid_.at(points[i]) + CPoint(middle, middle));
  fine_.polyline(fine, mapped.data(), count);
}

void ScaledDevice::poly_polygon(const PaintState& state, const CPoint* points, const int* counts,
                                int rings) {
  Scaled fine(*this, state);
  int count = 0;
  for (int ring = 0; ring < rings; ++ring) count += counts[ring];
  std::vector<CPoint> mapped;
  for (int i = 0; i < count; ++i) mapped.push_back(grid_.at(points[i]));
  const int middle = fine.pen.width / 2;
  if (middle == 0 || fine.pen.style == PS_NULL)
    return fine_.poly_polygon(fine, mapped.data(), counts, rings);
  const PenData pen = std::exchange(fine.pen, PenData{PS_NULL, 1, 0});
  fine_.poly_polygon(fine, mapped.data(), counts, rings);
  fine.pen = pen;
  fine.brush = BrushData{BS_NULL, 0, 0, nullptr};
  for (CPoint& point : mapped) point.Offset(middle, middle);
  fine_.poly_polygon(fine, mapped.data(), counts, rings);
}

void ScaledDevice::rectangle(const PaintState& state, const CRect& box) {
  const Scaled fine(*this, state);
  CRect outer = box;
  outer.NormalizeRect();
  if (!fine.is_thin || fine.pen.style != PS_SOLID) return fine_.rectangle(fine, grid_.box(outer));
  CRect inner = outer;
  inner.DeflateRect(1, 1);
  outer = grid_.box(outer);
  inner = grid_.box(inner);
  const RegionData inside =
      inner.left < inner.right && inner.top < inner.bottom ? RegionData(inner) : RegionData();
  BrushData ink;
  ink.color = fine.pen.color;
  fine_.fill_region(fine, inside, fine.brush);
  fine_.fill_region(fine, RegionData(outer) - inside, ink);
}

void ScaledDevice::round_rectangle(const PaintState& state, const CRect& box, CSize corner) {
  fine_.round_rectangle(Scaled(*this, state), grid_.box(box),
                        CSize(length(corner.cx), length(corner.cy)));
}

void ScaledDevice::ellipse(const PaintState& state, const CRect& box) {
  fine_.ellipse(Scaled(*this, state), grid_.box(box));
}

void ScaledDevice::arc(const PaintState& state, ArcForm form, const CRect& box, CPoint start,
                       CPoint end) {
  fine_.arc(Scaled(*this, state), form, grid_.box(box), grid_.at(start), grid_.at(end));
}

void ScaledDevice::fill_region(const PaintState& state, const RegionData& region,
                               const BrushData& brush) {
  fine_.fill_region(Scaled(*this, state), region_of(region), brush);
}

void ScaledDevice::invert_region(const PaintState& state, const RegionData& region) {
  fine_.invert_region(Scaled(*this, state), region_of(region));
}

void ScaledDevice::pattern_blt(const PaintState& state, const CRect& box, DWORD rop) {
  fine_.pattern_blt(Scaled(*this, state), grid_.box(box), rop);
}

void ScaledDevice::set_pixel(const PaintState& state, CPoint at, COLORREF color) {
  Scaled fine(*this, state);
  fine.rop2 = R2_COPYPEN;
  BrushData ink;
  ink.color = color;
  fine_.fill_region(fine, RegionData(grid_.box(CRect(at, CSize(1, 1)))), ink);
}

COLORREF ScaledDevice::get_pixel(CPoint at) const {
  return fine_.get_pixel(grid_.at(at));
}

void ScaledDevice::text(const PaintState& state, CPoint at, UINT options, const CRect* box,
                        std::wstring_view words, const int* advances) {
  const CRect fine_box = box != nullptr ? grid_.box(*box) : CRect();
  std::vector<int> fine_advances;
  double along = 0;
  for (size_t i = 0; advances != nullptr && i < words.size(); ++i) {
    const int from = length(along);
    along += advances[i];
    fine_advances.push_back(length(along) - from);
  }
  fine_.text(Scaled(*this, state), grid_.at(at), options, box != nullptr ? &fine_box : nullptr,
             words, advances != nullptr ? fine_advances.data() : nullptr);
}

void ScaledDevice::transformed_text(const PaintState& state, const TransformedText& run) {
  TransformedText fine = run;
  for (double* part : {&fine.m11, &fine.m12, &fine.m21, &fine.m22}) *part *= grid_.scale;
  fine.dx = run.dx * grid_.scale + grid_.shift_x;
  fine.dy = run.dy * grid_.scale + grid_.shift_y;
  fine_.transformed_text(Scaled(*this, state), fine);
}

CSize ScaledDevice::text_extent(const PaintState& state, std::wstring_view words) {
  const CSize fine = fine_.text_extent(Scaled(*this, state), words);
  // A whole number of units that came out a hair larger is that number.
  const auto units = [this](int pixels) {
    return static_cast<int>(std::ceil(pixels / grid_.scale - 1e-6));
  };
  return {units(fine.cx), units(fine.cy)};
}

void ScaledDevice::font_metrics(const PaintState& state, TEXTMETRIC& metrics) {
  fine_.font_metrics(Scaled(*this, state), metrics);
  const auto units = [this](LONG pixels) {
    return static_cast<LONG>(std::ceil(pixels / grid_.scale - 1e-6));
  };
  metrics.tmHeight = units(metrics.tmHeight);
  metrics.tmAscent = units(metrics.tmAscent);
  metrics.tmDescent = metrics.tmHeight - metrics.tmAscent;
  metrics.tmInternalLeading = units(metrics.tmInternalLeading);
  metrics.tmExternalLeading = units(metrics.tmExternalLeading);
  metrics.tmAveCharWidth = units(metrics.tmAveCharWidth);
  metrics.tmMaxCharWidth = units(metrics.tmMaxCharWidth);
}

void ScaledDevice::bitmap(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                          const CRect& from, DWORD rop) {
  fine_.bitmap(Scaled(*this, state), grid_.box(to), picture, from, rop);
}

void ScaledDevice::blend(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                         const CRect& from, BYTE opacity, bool use_alpha) {
  fine_.blend(Scaled(*this, state), grid_.box(to), picture, from, opacity, use_alpha);
}

void ScaledDevice::gradient_triangles(const PaintState& state, const GradientVertex* vertices,
                                      int vertex_count, const unsigned* indexes, int triangles) {
  std::vector<GradientVertex> fine(vertices, vertices + std::max(vertex_count, 0));
  for (GradientVertex& vertex : fine) {
    vertex.x = grid_.x(vertex.x);
    vertex.y = grid_.y(vertex.y);
  }
  fine_.gradient_triangles(Scaled(*this, state), fine.data(), vertex_count, indexes, triangles);
}

}  // namespace brindle
