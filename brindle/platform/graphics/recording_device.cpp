#include "brindle/platform/graphics/recording_device.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {
namespace {

using Call = RecordedCall;

constexpr int kLargest = 1 << 20;  // what measures of a font are cut to

int em_of(const LOGFONT& font) {
  return font.lfHeight != 0 ? std::abs(std::clamp(font.lfHeight, -kLargest, kLargest)) : 16;
}

int bytes_of(std::wstring_view words) {
  static const CodePage* page = CodePage::find(936u);
  return static_cast<int>(page->encode(words).size());
}

}  // namespace

Call& RecordingDevice::add(Call::Kind kind, const PaintState& state) {
  Call& call = calls_.emplace_back();
  call.kind = kind;
  call.state = state;
  if (state.clip != nullptr) {
    // Calls in a row mostly share their clip.
    const Call* before = calls_.size() > 1 ? &calls_[calls_.size() - 2] : nullptr;
    call.clip = before != nullptr && before->clip != nullptr && *before->clip == *state.clip
                    ? before->clip
                    : std::make_shared<const RegionData>(*state.clip);
  }
  call.state.clip = call.clip.get();
  return call;
}

int RecordingDevice::caps(int index) const {
  switch (index) {
    case HORZRES:
    case PHYSICALWIDTH:
      return size_.cx;
    case VERTRES:
    case PHYSICALHEIGHT:
      return size_.cy;
    case LOGPIXELSX:
    case LOGPIXELSY:
      return dpi_;
    case HORZSIZE:
      return static_cast<int>(size_.cx * 25.4 / dpi_ + 0.5);
    case VERTSIZE:
      return static_cast<int>(size_.cy * 25.4 / dpi_ + 0.5);
    case BITSPIXEL:
      return 32;
    case PLANES:
      return 1;
    case NUMCOLORS:
      return -1;
    case TECHNOLOGY:
      if (kind_ == Kind::kPrinter) return DT_RASPRINTER;
      return kind_ == Kind::kMetafile ? DT_METAFILE : DT_RASDISPLAY;
    default:
      return 0;
  }
}

void RecordingDevice::line(const PaintState& state, CPoint from, CPoint to) {
  add(Call::Kind::kLine, state).points = {from, to};
}

void RecordingDevice::polyline(const PaintState& state, const CPoint* points, int count) {
  add(Call::Kind::kPolyline, state).points.assign(points, points + count);
}

void RecordingDevice::poly_polygon(const PaintState& state, const CPoint* points, const int* counts,
                                   int rings) {
  Call& call = add(Call::Kind::kPolyPolygon, state);
  call.counts.assign(counts, counts + rings);
  int total = 0;
  for (const int count : call.counts) total += count;
  call.points.assign(points, points + total);
}

void RecordingDevice::rectangle(const PaintState& state, const CRect& box) {
  add(Call::Kind::kRectangle, state).box = box;
}

void RecordingDevice::round_rectangle(const PaintState& state, const CRect& box, CSize corner) {
  Call& call = add(Call::Kind::kRoundRectangle, state);
  call.box = box;
  call.extent = corner;
}

void RecordingDevice::ellipse(const PaintState& state, const CRect& box) {
  add(Call::Kind::kEllipse, state).box = box;
}

void RecordingDevice::arc(const PaintState& state, ArcForm form, const CRect& box, CPoint start,
                          CPoint end) {
  Call& call = add(Call::Kind::kArc, state);
  call.form = form;
  call.box = box;
  call.points = {start, end};
}

void RecordingDevice::fill_region(const PaintState& state, const RegionData& region,
                                  const BrushData& brush) {
  Call& call = add(Call::Kind::kFillRegion, state);
  call.region = std::make_shared<const RegionData>(region);
  call.state.brush = brush;
}

void RecordingDevice::invert_region(const PaintState& state, const RegionData& region) {
  add(Call::Kind::kInvertRegion, state).region = std::make_shared<const RegionData>(region);
}

void RecordingDevice::pattern_blt(const PaintState& state, const CRect& box, DWORD rop) {
  Call& call = add(Call::Kind::kPatternBlt, state);
  call.box = box;
  call.rop = rop;
}

void RecordingDevice::set_pixel(const PaintState& state, CPoint at, COLORREF color) {
  Call& call = add(Call::Kind::kSetPixel, state);
  call.points = {at};
  call.color = color;
}

COLORREF RecordingDevice::get_pixel(CPoint) const {
  return CLR_INVALID;
}

void RecordingDevice::text(const PaintState& state, CPoint at, UINT options, const CRect* box,
                           std::wstring_view words, const int* advances) {
  Call& call = add(Call::Kind::kText, state);
  call.points = {at};
  call.options = options;
  call.words = words;
  if (box != nullptr) call.has_box = true, call.box = *box;
  if (advances != nullptr) call.counts.assign(advances, advances + words.size());
}

void RecordingDevice::transformed_text(const PaintState& state, const TransformedText& run) {
  Call& call = add(Call::Kind::kTransformedText, state);
  call.run = run;
  call.run.words = call.run.face = {};
  call.words = run.words;
  call.face = run.face;
}

CSize RecordingDevice::text_extent(const PaintState& state, std::wstring_view words) {
  const int em = em_of(state.font);
  const int wide = std::abs(std::clamp(state.font.lfWidth, -kLargest, kLargest));
  const std::int64_t width = std::int64_t{bytes_of(words)} * (wide != 0 ? 2 * wide : em) / 2 +
                             static_cast<std::int64_t>(words.size()) * state.char_extra;
  return {static_cast<int>(std::clamp<std::int64_t>(width, 0, INT_MAX)), em};
}

void RecordingDevice::font_metrics(const PaintState& state, TEXTMETRIC& metrics) {
  const int em = em_of(state.font);
  metrics.tmHeight = em;
  metrics.tmAscent = em - em / 5;
  metrics.tmDescent = em / 5;
  metrics.tmAveCharWidth = em / 2;
  metrics.tmMaxCharWidth = em;
  metrics.tmWeight = state.font.lfWeight;
  metrics.tmItalic = state.font.lfItalic;
  metrics.tmCharSet = state.font.lfCharSet;
}

void RecordingDevice::bitmap(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                             const CRect& from, DWORD rop) {
  Call& call = add(Call::Kind::kBitmap, state);
  call.box = to;
  call.from = from;
  call.rop = rop;
  call.picture = std::make_shared<const RasterBitmap>(picture);
}

void RecordingDevice::blend(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                            const CRect& from, BYTE opacity, bool use_alpha) {
  bitmap(state, to, picture, from, opacity);
  calls_.back().kind = Call::Kind::kBlend;
  calls_.back().use_alpha = use_alpha;
}

void RecordingDevice::gradient_triangles(const PaintState& state, const GradientVertex* vertices,
                                         int vertex_count, const unsigned* indexes, int triangles) {
  Call& call = add(Call::Kind::kGradient, state);
  call.vertices.assign(vertices, vertices + vertex_count);
  call.indexes.assign(indexes, indexes + 3 * static_cast<size_t>(triangles));
}

bool RecordingDevice::start_page() {
  add(Call::Kind::kStartPage, PaintState());
  return true;
}

bool RecordingDevice::end_page() {
  add(Call::Kind::kEndPage, PaintState());
  return true;
}

void RecordingDevice::replay(PaintDevice& device) const {
  for (const Call& call : calls_) replay(call, device);
}

void RecordingDevice::replay(const Call& call, PaintDevice& device) {
  const PaintState& state = call.state;
  const int count = static_cast<int>(call.points.size());
  switch (call.kind) {
    case Call::Kind::kLine:
      return device.line(state, call.points[0], call.points[1]);
    case Call::Kind::kPolyline:
      return device.polyline(state, call.points.data(), count);
    case Call::Kind::kPolyPolygon:
      return device.poly_polygon(state, call.points.data(), call.counts.data(),
                                 static_cast<int>(call.counts.size()));
    case Call::Kind::kRectangle:
      return device.rectangle(state, call.box);
    case Call::Kind::kRoundRectangle:
      return device.round_rectangle(state, call.box, call.extent);
    case Call::Kind::kEllipse:
      return device.ellipse(state, call.box);
    case Call::Kind::kArc:
      return device.arc(state, call.form, call.box, call.points[0], call.points[1]);
    case Call::Kind::kFillRegion:
      return device.fill_region(state, *call.region, state.brush);
    case Call::Kind::kInvertRegion:
      return device.invert_region(state, *call.region);
    case Call::Kind::kPatternBlt:
      return device.pattern_blt(state, call.box, call.rop);
    case Call::Kind::kSetPixel:
      return device.set_pixel(state, call.points[0], call.color);
    case Call::Kind::kText:
      return device.text(state, call.points[0], call.options, call.has_box ? &call.box : nullptr,
                         call.words, call.counts.empty() ? nullptr : call.counts.data());
    case Call::Kind::kTransformedText: {
      TransformedText run = call.run;
      run.words = call.words;
      run.face = call.face;
      return device.transformed_text(state, run);
    }
    case Call::Kind::kBitmap:
      return device.bitmap(state, call.box, *call.picture, call.from, call.rop);
    case Call::Kind::kBlend:
      return device.blend(state, call.box, *call.picture, call.from, static_cast<BYTE>(call.rop),
                          call.use_alpha);
    case Call::Kind::kGradient:
      return device.gradient_triangles(state, call.vertices.data(),
                                       static_cast<int>(call.vertices.size()), call.indexes.data(),
                                       static_cast<int>(call.indexes.size() / 3));
    case Call::Kind::kStartPage:
      device.start_page();
      return;
    case Call::Kind::kEndPage:
      device.end_page();
      return;
  }
}

}  // namespace brindle
