#include "brindle/platform/graphics/svg_device.h"

#include <algorithm>
#include <cmath>

#include "brindle/platform/graphics/svg_writer_internal.h"
#include "brindle/platform/graphics/text_layout_internal.h"

namespace brindle {

namespace {

// Beyond this readers lose the digits of their own coordinates.
constexpr int kLimit = 1 << 22;

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

CRect held_box(const CRect& box) {
  return {held_in(box.left, kLimit), held_in(box.top, kLimit), held_in(box.right, kLimit),
          held_in(box.bottom, kLimit)};
}

std::string point_text(const FigurePoint& p) {
  return svg_number(p.x) + ' ' + svg_number(p.y);
}

// An arc as path data: two parts, as a full turn can't be told in one.
std::string arc_path(const EllipseArc& arc) {
  std::string out = 'M' + point_text(arc.first());
  for (const double part : {0.5, 1.0}) {
    out += 'A' + svg_number(arc.rx) + ' ' + svg_number(arc.ry) + " 0 0 0 " +
           point_text(arc.at(arc.start + arc.sweep * part));
  }
  return out;
}

PaintState with_brush(const PaintState& state, const BrushData& brush) {
  PaintState other = state;
  other.brush = brush;
  return other;
}

const BrushData kNoBrush{BS_NULL, 0, 0, nullptr};

std::string font_attributes(const GlyphFont& font, COLORREF color) {
  std::wstring face = font.face;
  std::erase(face, L'\'');
  std::string out;
  if (!face.empty()) out += attribute("font-family", '\'' + xml_text(face) + "', sans-serif");
  out += attribute("font-size", svg_number(font.em_size)) + attribute("fill", svg_color(color));
  if (font.weight != FW_NORMAL) out += attribute("font-weight", std::to_string(font.weight));
  if (font.italic) out += attribute("font-style", "italic");
  if (font.underline || font.strike_out) {
    out += attribute("text-decoration", font.underline && font.strike_out ? "underline line-through"
                                        : font.underline                  ? "underline"
                                                                          : "line-through");
  }
  return out + attribute("xml:space", "preserve");
}

// Each character in a place of its own, which more readers follow than a list of places.
std::string spaced_text(const TextLayout& layout, std::wstring_view words, double left,
                        double scale) {
  std::string out;
  double u = left;
  for (std::size_t i = 0; i < words.size();) {
    const bool pair = sizeof(wchar_t) == 2 && words[i] >= 0xD800 && words[i] < 0xDC00;
    const std::size_t count = std::min<std::size_t>(pair ? 2 : 1, words.size() - i);
    out += "<tspan" + attribute("x", svg_number(u)) + '>' + xml_text(words.substr(i, count)) +
           "</tspan>";
    for (const std::size_t end = i + count; i < end; ++i) u += layout.advances[i] / scale;
  }
  return out;
}

}  // namespace

SvgDevice::SvgDevice(const wchar_t* path, CSize size, double dpi)
    : writer_(std::make_unique<SvgWriter>(
          path, FileExtent({std::max(size.cx, 1), std::max(size.cy, 1)}, dpi))) {}

SvgDevice::~SvgDevice() = default;

int SvgDevice::caps(int index) const {
  return writer_->extent.caps(index, DT_PLOTTER);
}

void SvgDevice::line(const PaintState& state, CPoint from, CPoint to) {
  const CPoint ends[]{from, to};
  polyline(state, ends, 2);
}

void SvgDevice::polyline(const PaintState& state, const CPoint* points, int count) {
  const PaintState open = with_brush(state, kNoBrush);
  if (in_range(points, count, kLimit)) {
    if (count > 1) writer_->figure(open, figure_path(points, count, false));
    return;
  }
  for (int i = 1; i < count; ++i) {
    CPoint ends[]{points[i - 1], points[i]};
    if (cut_line(ends[0], ends[1], kLimit)) writer_->figure(open, figure_path(ends, 2, false));
  }
}

void SvgDevice::poly_polygon(const PaintState& state, const CPoint* points, const int* counts,
                             int rings) {
  const Rings cut = cut_rings(points, counts, rings, kLimit);
  std::string path;
  const CPoint* at = cut.points.data();
  for (const int count : cut.counts) path += figure_path(at, count, true), at += count;
  writer_->figure(state, path);
}

void SvgDevice::rectangle(const PaintState& state, const CRect& box) {
  round_rectangle(state, box, {0, 0});
}

void SvgDevice::round_rectangle(const PaintState& state, const CRect& box, CSize corner) {
  const CRect edge = outline_box(held_box(box));
  if (box.IsRectEmpty()) return;
  const double rx = std::clamp(corner.cx, 0, edge.Width()) / 2.0;
  const double ry = std::clamp(corner.cy, 0, edge.Height()) / 2.0;
  if (rx == 0 || ry == 0) {
    const CPoint corners[]{{edge.left, edge.top},
                           {edge.right, edge.top},
                           {edge.right, edge.bottom},
                           {edge.left, edge.bottom}};
    return writer_->figure(state, figure_path(corners, 4, true));
  }
  const std::string turn = 'A' + svg_number(rx) + ' ' + svg_number(ry) + " 0 0 1 ";
  const double l = edge.left, t = edge.top, r = edge.right, b = edge.bottom;
  writer_->figure(state, 'M' + point_text({l + rx, t}) + 'L' + point_text({r - rx, t}) + turn +
                             point_text({r, t + ry}) + 'L' + point_text({r, b - ry}) + turn +
                             point_text({r - rx, b}) + 'L' + point_text({l + rx, b}) + turn +
                             point_text({l, b - ry}) + 'L' + point_text({l, t + ry}) + turn +
                             point_text({l + rx, t}) + 'Z');
}

void SvgDevice::ellipse(const PaintState& state, const CRect& box) {
  if (box.IsRectEmpty()) return;
  const CPoint right(box.right, box.CenterPoint().y);
  arc(state, ArcForm::kChord, box, right, right);
}

void SvgDevice::arc(const PaintState& state, ArcForm form, const CRect& box, CPoint start,
                    CPoint end) {
  if (box.IsRectEmpty()) return;
  const EllipseArc arc(box, start, end);
  if (!in_range(box.TopLeft(), kLimit) || !in_range(box.BottomRight(), kLimit)) {
    const std::vector<CPoint> corners = arc_corners(arc, form);
    const int count = int(corners.size());
    return form == ArcForm::kArc ? polyline(state, corners.data(), count)
                                 : poly_polygon(state, corners.data(), &count, 1);
  }
  std::string path = arc_path(arc);
  if (form == ArcForm::kArc) return writer_->figure(with_brush(state, kNoBrush), path);
  if (form == ArcForm::kPie) path += 'L' + point_text({arc.cx, arc.cy});
  writer_->figure(state, path + 'Z');
}

void SvgDevice::fill_region(const PaintState& state, const RegionData& region,
                            const BrushData& brush) {
  writer_->area(state, area_path(region_outline(region, true)), brush);
}

void SvgDevice::invert_region(const PaintState& state, const RegionData& region) {
  if (!region.empty()) writer_->area(state, area_path(region_outline(region, false)), COLORREF{0});
}

void SvgDevice::pattern_blt(const PaintState& state, const CRect& box, DWORD rop) {
  const CRect held = held_box(box);
  if (held.IsRectEmpty()) return;
  if (rop == BLACKNESS || rop == DSTINVERT) {
    return writer_->area(state, area_path(held), COLORREF{0});
  }
  if (rop == WHITENESS) return writer_->area(state, area_path(held), RGB(255, 255, 255));
  writer_->area(state, area_path(held), state.brush);
}

void SvgDevice::set_pixel(const PaintState& state, CPoint at, COLORREF color) {
  if (!in_range(at, kLimit)) return;
  writer_->area(state, area_path(CRect(at, CSize(1, 1))), color);
}

COLORREF SvgDevice::get_pixel(CPoint) const {
  return CLR_INVALID;
}

void SvgDevice::text(const PaintState& state, CPoint at, UINT options, const CRect* box,
                     std::wstring_view words, const int* advances) {
  if (!in_range(at, kLimit)) return;
  PaintState inside = state;
  RegionData clip;
  const bool opaque_box = box != nullptr && (options & ETO_OPAQUE) != 0;
  if (opaque_box) writer_->area(state, area_path(held_box(*box)), state.bk_color);
  if (box != nullptr && (options & ETO_CLIPPED) != 0) {
    clip = RegionData(held_box(*box));
    if (state.clip != nullptr) clip &= *state.clip;
    inside.clip = &clip;
  }
  if (words.empty()) return;
  const TextLayout layout = lay_out(state, at, words, advances);
  if (state.bk_mode == OPAQUE && !opaque_box) {
    writer_->area(inside, polygon_path(layout.box()), state.bk_color);
  }
  const double scale = layout.font.x_scale > 0 ? layout.font.x_scale : 1;
  std::string start = "text";
  const bool mapped = layout.along.x != 1 || scale != 1;
  if (!mapped) {
    start += attribute("y", svg_number(layout.base.y));
  } else {
    const auto exact = [](double value) { return std::to_string(value); };
    start += attribute("transform", "matrix(" + exact(layout.along.x * scale) + ' ' +
                                        exact(layout.along.y * scale) + ' ' + exact(layout.down.x) +
                                        ' ' + exact(layout.down.y) + ' ' + point_text(layout.base) +
                                        ')');
  }
  const double left = mapped ? 0 : layout.base.x;
  const std::string font = font_attributes(layout.font, state.text_color);
  if (advances == nullptr && state.char_extra == 0) {
    return writer_->element(inside,
                            start + attribute("x", svg_number(left)) +
                                attribute("textLength", svg_number(layout.width / scale)) + font,
                            xml_text(words));
  }
  writer_->element(inside, start + font, spaced_text(layout, words, left, scale));
}

void SvgDevice::transformed_text(const PaintState& state, const TransformedText& run) {
  if (run.words.empty()) return;
  GlyphFont font;
  font.face = run.face;
  font.em_size = run.em_size;
  font.weight = run.weight;
  font.italic = run.italic;
  std::string map;
  for (const double value : {run.m11, run.m12, run.m21, run.m22, run.dx, run.dy}) {
    map += (map.empty() ? "" : " ") + std::to_string(value);
  }
  writer_->element(state,
                   "text" + attribute("transform", "matrix(" + map + ')') +
                       attribute("y", svg_number(metrics_of(font).ascent)) +
                       attribute("textLength", svg_number(run_width(font, run.words))) +
                       font_attributes(font, run.color),
                   xml_text(run.words));
}

CSize SvgDevice::text_extent(const PaintState& state, std::wstring_view words) {
  return extent_of_text(state, words);
}

void SvgDevice::font_metrics(const PaintState& state, TEXTMETRIC& metrics) {
  metrics = text_metric_of(state.font);
}

void SvgDevice::bitmap(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                       const CRect& from, DWORD rop) {
  PlacedPicture placed;
  if (!place_picture(to, picture, from, placed)) return;
  apply_plain_rop(placed.picture, rop);
  writer_->picture(state, placed.to, placed.picture);
}

void SvgDevice::blend(const PaintState& state, const CRect& to, const RasterBitmap& picture,
                      const CRect& from, BYTE opacity, bool use_alpha) {
  PlacedPicture placed;
  if (!place_picture(to, picture, from, placed)) return;
  apply_opacity(placed.picture, opacity, use_alpha);
  writer_->picture(state, placed.to, placed.picture);
}

void SvgDevice::gradient_triangles(const PaintState& state, const GradientVertex* vertices,
                                   int vertex_count, const unsigned* indexes, int triangles) {
  constexpr std::size_t kCorners = 3;
  const auto draw = [&](COLORREF color, const std::vector<FigurePoint>& corners) {
    std::string path;
    for (std::size_t i = 0; i < corners.size(); i += kCorners) {
      path += polygon_path({corners.begin() + long(i), corners.begin() + long(i + kCorners)});
    }
    // The outline hides the seams between neighbours.
    const std::string paint = svg_color(color);
    writer_->element(state, "path" + attribute("fill", paint) + attribute("stroke", paint) +
                                attribute("stroke-width", "0.5") + attribute("d", path));
  };
  for_each_patch(vertices, vertex_count, indexes, triangles, draw);
}

bool SvgDevice::finish() {
  return writer_->finish();
}

}  // namespace brindle
