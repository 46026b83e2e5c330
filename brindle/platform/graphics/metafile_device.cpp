#include "brindle/platform/graphics/metafile_device.h"

#include <algorithm>
#include <cmath>

#include "brindle/platform/graphics/file_device_internal.h"
#include "brindle/platform/graphics/metafile_records_internal.h"
#include "brindle/platform/graphics/text_layout_internal.h"

namespace brindle {

namespace {

constexpr PenData kNoPen{PS_NULL, 1, 0};

CRect held_box(const CRect& box, int limit) {
  return {held_in(box.left, limit), held_in(box.top, limit), held_in(box.right, limit),
          held_in(box.bottom, limit)};
}

bool box_in_range(const CRect& box, int limit) {
  return in_range(box.TopLeft(), limit) && in_range(box.BottomRight(), limit);
}

CPoint rounded(const FigurePoint& p) {
  constexpr double kMost = 1e9;
  return {static_cast<int>(std::lround(std::clamp(p.x, -kMost, kMost))),
          static_cast<int>(std::lround(std::clamp(p.y, -kMost, kMost)))};
}

PaintState with_rop2(const PaintState& state, int rop2) {
  PaintState other = state;
  other.rop2 = rop2;
  return other;
}

}  // namespace

MetafileDevice::MetafileDevice(const wchar_t* path, CSize size, double dpi,
                               std::unique_ptr<MetafileRecords> records)
    : path_(path),
      extent_(std::make_unique<FileExtent>(size, dpi)),
      recorder_(std::make_unique<MetafileRecorder>(std::move(records))) {}

MetafileDevice::~MetafileDevice() = default;

int MetafileDevice::caps(int index) const {
  return extent_->caps(index, DT_METAFILE);
}

void MetafileDevice::line(const PaintState& state, CPoint from, CPoint to) {
  recorder_->prepare_outline(state, state.pen);
  recorder_->line(from, to, state.pen.width);
}

void MetafileDevice::polyline(const PaintState& state, const CPoint* points, int count) {
  if (count < 2) return;
  recorder_->prepare_outline(state, state.pen);
  recorder_->polyline(points, count, state.pen.width);
}

void MetafileDevice::poly_polygon(const PaintState& state, const CPoint* points, const int* counts,
                                  int rings) {
  recorder_->prepare_figure(state, state.pen, state.brush);
  recorder_->mode(StateMode::kFillMode, state.poly_fill_mode);
  recorder_->polygons(points, counts, rings, state.pen.width);
}

void MetafileDevice::rectangle(const PaintState& state, const CRect& box) {
  const CRect held = held_box(box, recorder_->limit());
  if (held.IsRectEmpty()) return;
  recorder_->prepare_figure(state, state.pen, state.brush);
  recorder_->touch(held, state.pen.width / 2);
  recorder_->records().rectangle(held);
}

void MetafileDevice::round_rectangle(const PaintState& state, const CRect& box, CSize corner) {
  const CRect held = held_box(box, recorder_->limit());
  if (held.IsRectEmpty()) return;
  recorder_->prepare_figure(state, state.pen, state.brush);
  recorder_->touch(held, state.pen.width / 2);
  recorder_->records().round_rectangle(
      held, {held_in(corner.cx, held.Width()), held_in(corner.cy, held.Height())});
}

void MetafileDevice::ellipse(const PaintState& state, const CRect& box) {
  if (box.IsRectEmpty()) return;
  if (!box_in_range(box, recorder_->limit())) {
    const CPoint right(box.right, box.CenterPoint().y);
    const std::vector<CPoint> corners = arc_corners(EllipseArc(box, right, right), ArcForm::kChord);
    const int count = int(corners.size());
    return poly_polygon(state, corners.data(), &count, 1);
  }
  recorder_->prepare_figure(state, state.pen, state.brush);
  recorder_->touch(box, state.pen.width / 2);
  recorder_->records().ellipse(box);
}

void MetafileDevice::arc(const PaintState& state, ArcForm form, const CRect& box, CPoint start,
                         CPoint end) {
  if (box.IsRectEmpty()) return;
  const EllipseArc arc(box, start, end);
  const std::vector<CPoint> corners = arc_corners(arc, form);
  const int count = int(corners.size()), most = recorder_->limit();
  if (!box_in_range(box, most)) {
    return form == ArcForm::kArc ? polyline(state, corners.data(), count)
                                 : poly_polygon(state, corners.data(), &count, 1);
  }
  if (form == ArcForm::kArc) {
    recorder_->prepare_outline(state, state.pen);
  } else {
    recorder_->prepare_figure(state, state.pen, state.brush);
  }
  recorder_->touch(box_around(corners.data(), count), state.pen.width / 2);
  // The points only tell directions: those on the curve do as well as those given, and are in
  // range.
  recorder_->records().arc(form, box, in_range(start, most) ? start : rounded(arc.first()),
                           in_range(end, most) ? end : rounded(arc.last()));
}

void MetafileDevice::fill_region(const PaintState& state, const RegionData& region,
                                 const BrushData& brush) {
  const Rings outline = region_outline(region, true);
  recorder_->prepare_figure(state, kNoPen, brush);
  recorder_->mode(StateMode::kFillMode, ALTERNATE);
  recorder_->polygons(outline.points.data(), outline.counts.data(), int(outline.counts.size()), 0);
}

void MetafileDevice::invert_region(const PaintState& state, const RegionData& region) {
  const Rings outline = region_outline(region, false);
  recorder_->prepare_figure(with_rop2(state, R2_NOT), kNoPen, BrushData{BS_SOLID, 0, 0, nullptr});
  recorder_->mode(StateMode::kFillMode, ALTERNATE);
  recorder_->polygons(outline.points.data(), outline.counts.data(), int(outline.counts.size()), 0);
}

void MetafileDevice::pattern_blt(const PaintState& state, const CRect& box, DWORD rop) {
  const CRect held = held_box(box, recorder_->limit());
  if (held.IsRectEmpty()) return;
  recorder_->prepare_fill(state, state.brush);
  recorder_->touch(held);
  recorder_->records().pattern_blt(held, rop);
}

void MetafileDevice::set_pixel(const PaintState& state, CPoint at, COLORREF color) {
  if (!in_range(at, recorder_->limit())) return;
  recorder_->prepare_clip(state);
  recorder_->touch(box_around(&at, 1));
  recorder_->records().set_pixel(at, color);
}

COLORREF MetafileDevice::get_pixel(CPoint) const {
  return CLR_INVALID;
}

void MetafileDevice::text(const PaintState& state, CPoint at, UINT options, const CRect* box,
                          std::wstring_view words, const int* advances) {
  const int most = recorder_->limit();
  if (!in_range(at, most)) return;
  const TextLayout layout = lay_out(state, at, words, advances);
  TextRecord record;
  record.at = at;
  record.words = words;
  record.advances = whole_advances(layout.advances);
  record.advances_natural = advances == nullptr && state.char_extra == 0;
  std::vector<CPoint> corners;
  for (const FigurePoint& corner : layout.box()) corners.push_back(rounded(corner));
  record.around = held_box(box_around(corners.data(), int(corners.size())), most);
  if (box != nullptr) {
    record.options = options & (ETO_OPAQUE | ETO_CLIPPED);
    record.box = held_box(*box, most);
    if ((options & ETO_CLIPPED) != 0) record.around &= record.box;
    if ((options & ETO_OPAQUE) != 0) record.around |= record.box;
  }
  recorder_->prepare_text(state);
  recorder_->touch(record.around);
  recorder_->records().text(record);
}

void MetafileDevice::transformed_text(const PaintState& state, const TransformedText& run) {
  const PlainText plain = plain_text(run);
  PaintState plain_state = state;
  plain_state.font = plain.font;
  plain_state.text_color = run.color;
  plain_state.text_align = TA_LEFT | TA_TOP;
  plain_state.char_extra = 0;
  text(plain_state, plain.at, 0, nullptr, run.words, nullptr);
}

CSize MetafileDevice::text_extent(const PaintState& state, std::wstring_view words) {
  return extent_of_text(state, words);
}

void MetafileDevice::font_metrics(const PaintState& state, TEXTMETRIC& metrics) {
  metrics = text_metric_of(state.font);
}

void MetafileDevice::bitmap(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                            const CRect& from, DWORD rop) {
  PlacedPicture placed;
  if (!place_picture(to, picture, from, placed)) return;
  const CRect held = held_box(placed.to, recorder_->limit());
  if (held.IsRectEmpty()) return;
  recorder_->prepare_bitmap(state);
  recorder_->touch(held);
  recorder_->records().bitmap(held, placed.picture, rop);
}

void MetafileDevice::blend(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                           const CRect& from, BYTE opacity, bool use_alpha) {
  PlacedPicture placed;
  if (!place_picture(to, picture, from, placed)) return;
  const CRect held = held_box(placed.to, recorder_->limit());
  if (held.IsRectEmpty()) return;
  recorder_->prepare_bitmap(state);
  recorder_->touch(held);
  recorder_->records().blend(held, placed.picture, opacity, use_alpha);
}

void MetafileDevice::gradient_triangles(const PaintState& state, const GradientVertex* vertices,
                                        int vertex_count, const unsigned* indexes, int triangles) {
  constexpr int kPatchesPerRecord = 1000, kCorners = 3;
  const PaintState plain = with_rop2(state, R2_COPYPEN);
  const auto draw = [&](COLORREF color, const std::vector<FigurePoint>& corners) {
    std::vector<CPoint> points;
    for (const FigurePoint& corner : corners) points.push_back(rounded(corner));
    // The pen hides the seams between neighbours.
    recorder_->prepare_figure(plain, {PS_SOLID, 1, color}, {BS_SOLID, color, 0, nullptr});
    recorder_->mode(StateMode::kFillMode, WINDING);
    const int patches = int(points.size()) / kCorners;
    const std::vector<int> counts(std::min(patches, kPatchesPerRecord), kCorners);
    for (int first = 0; first < patches; first += kPatchesPerRecord) {
      recorder_->polygons(points.data() + first * kCorners, counts.data(),
                          std::min(patches - first, kPatchesPerRecord), 1);
    }
  };
  for_each_patch(vertices, vertex_count, indexes, triangles, draw);
}

bool MetafileDevice::finish() {
  if (finished_) return false;
  finished_ = true;
  const std::string bytes = recorder_->file(extent_->size, extent_->dpi);
  return !bytes.empty() && write_whole_file(path_.c_str(), bytes);
}

}  // namespace brindle
