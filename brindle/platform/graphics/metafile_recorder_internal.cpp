// How figures become records: objects, state, bounds.
#include <algorithm>

#include "brindle/platform/graphics/metafile_records_internal.h"

namespace brindle {

int ObjectTable::slot_for_new() const {
  if (slots() < kMostSlots) return slots();
  int oldest = -1;
  for (int slot = 0; slot < slots(); ++slot) {
    if (std::find(selected_.begin(), selected_.end(), slot) != selected_.end()) continue;
    if (oldest < 0 || entries_[slot].last_use < entries_[oldest].last_use) oldest = slot;
  }
  return oldest;
}

void ObjectTable::use(const DrawingObject& object, MetafileRecords& records) {
  int& selected = selected_[object.index()];
  if (selected >= 0 && entries_[selected].object == object) {
    entries_[selected].last_use = ++clock_;
    return;
  }
  int slot = 0;
  while (slot < slots() && !(entries_[slot].object == object)) ++slot;
  if (slot == slots()) {
    slot = slot_for_new();
    if (slot == slots()) {
      entries_.push_back({object, 0});
    } else {
      records.remove(slot);
      entries_[slot].object = object;
    }
    records.create(slot, object);
  }
  entries_[slot].last_use = ++clock_;
  selected = slot;
  records.select(slot);
}

void MetafileRecorder::mode(StateMode mode, DWORD value) {
  std::optional<DWORD>& known = modes_[std::size_t(mode)];
  if (known == value) return;
  known = value;
  records_->set_mode(mode, value);
}

void MetafileRecorder::prepare_clip(const PaintState& state) {
  if (state.clip == nullptr ? !clip_ : clip_ && *clip_ == *state.clip) return;
  if (state.clip == nullptr) {
    clip_.reset();
  } else {
    clip_ = *state.clip;
  }
  if (!records_->clip(state.clip)) return;
  objects_.forget_selection();
  modes_ = {};
  position_.reset();
}

void MetafileRecorder::prepare_outline(const PaintState& state, const PenData& pen) {
  prepare_clip(state);
  mode(StateMode::kRop2, state.rop2);
  PenData told = pen;
  if (!dash_lengths(pen).empty()) {
    mode(StateMode::kBkMode, state.bk_mode);
    if (state.bk_mode == OPAQUE) mode(StateMode::kBkColor, state.bk_color);
    // One pixel at any size: readers draw wide dashed lines solid.
    if (pen.width == 1) told.width = 0;
  }
  objects_.use(told, *records_);
}

void MetafileRecorder::prepare_fill(const PaintState& state, const BrushData& brush) {
  prepare_clip(state);
  mode(StateMode::kRop2, state.rop2);
  if (brush.style == BS_HATCHED) {
    mode(StateMode::kBkMode, state.bk_mode);
    if (state.bk_mode == OPAQUE) mode(StateMode::kBkColor, state.bk_color);
  }
  objects_.use(brush, *records_);
}

void MetafileRecorder::prepare_figure(const PaintState& state, const PenData& pen,
                                      const BrushData& brush) {
  prepare_outline(state, pen);
  prepare_fill(state, brush);
}

void MetafileRecorder::prepare_text(const PaintState& state) {
  prepare_clip(state);
  mode(StateMode::kBkMode, state.bk_mode);
  mode(StateMode::kBkColor, state.bk_color);
  mode(StateMode::kTextColor, state.text_color);
  mode(StateMode::kTextAlign, state.text_align & ~TA_UPDATECP);
  objects_.use(state.font, *records_);
}

void MetafileRecorder::prepare_bitmap(const PaintState& state) {
  prepare_clip(state);
  mode(StateMode::kStretch, state.stretch_mode);
}

void MetafileRecorder::line(CPoint from, CPoint to, int pen_width) {
  if (from == to || !cut_line(from, to, limit())) return;
  if (position_ != from) records_->move_to(from);
  records_->line_to(to);
  position_ = to;
  const CPoint ends[]{from, to};
  touch(box_around(ends, 2), pen_width / 2);
}

void MetafileRecorder::polyline(const CPoint* points, int count, int pen_width) {
  const int most = records_->most_corners();
  if (count <= most && in_range(points, count, limit()) && records_->polyline(points, count)) {
    return touch(box_around(points, count), pen_width / 2);
  }
  for (int i = 1; i < count; ++i) line(points[i - 1], points[i], pen_width);
}

void MetafileRecorder::polygons(const CPoint* points, const int* counts, int rings, int pen_width) {
  const Rings cut = cut_rings(points, counts, rings, limit());
  if (cut.counts.empty()) return;
  const int most = records_->most_corners();
  Rings held;
  const CPoint* at = cut.points.data();
  for (const int count : cut.counts) {
    if (int(held.counts.size()) == most) break;
    const int every = (count + most - 1) / most;  // a ring too long is thinned
    const std::size_t before = held.points.size();
    for (int i = 0; i < count; i += every) held.points.push_back(at[i]);
    held.counts.push_back(int(held.points.size() - before));
    at += count;
  }
  touch(box_around(held.points.data(), int(held.points.size())), pen_width / 2);
  records_->poly_polygon(held.points.data(), held.counts.data(), int(held.counts.size()));
}

void MetafileRecorder::touch(const CRect& box, int margin) {
  const int most = limit();
  const auto grown = [=](int edge, int by) {
    return static_cast<int>(std::clamp<LONGLONG>(LONGLONG{edge} + by, -most, most));
  };
  CRect part(grown(box.left, -margin), grown(box.top, -margin), grown(box.right, margin),
             grown(box.bottom, margin));
  part.NormalizeRect();
  if (clip_) part &= clip_->box();
  if (part.IsRectEmpty()) return;
  drawn_ = drawn_ ? *drawn_ | part : part;
}

std::string MetafileRecorder::file(CSize size, double dpi) {
  MetafilePicture picture;
  picture.drawn = drawn_.value_or(CRect(0, 0, 1, 1));
  picture.frame = size.cx > 0 && size.cy > 0 ? CRect({0, 0}, size) : picture.drawn;
  picture.dpi = dpi;
  picture.object_slots = objects_.slots();
  return records_->file(picture);
}

CRect box_around(const CPoint* points, int count) {
  if (count < 1) return {};
  CRect box(points[0], points[0]);
  for (int i = 1; i < count; ++i) {
    box.left = std::min(box.left, points[i].x), box.right = std::max(box.right, points[i].x);
    box.top = std::min(box.top, points[i].y), box.bottom = std::max(box.bottom, points[i].y);
  }
  return {box.left, box.top, wrap_add(box.right, 1), wrap_add(box.bottom, 1)};
}

}  // namespace brindle
