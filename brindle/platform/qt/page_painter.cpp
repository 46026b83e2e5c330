// Painting of pages.
#include "brindle/platform/qt/page_painter_internal.h"

#include "brindle/platform/graphics/figure_geometry_internal.h"
#include "brindle/platform/graphics/text_layout_internal.h"

#include <algorithm>
#include <cmath>
#include <QPagedPaintDevice>
#include <QTransform>

namespace brindle {
namespace {

constexpr int kPageLimit = 1 << 22;  // the painter's own arithmetic is exact up to there
constexpr double kHalfPixel = 0.5;

QColor page_color(COLORREF color) {
  return QColor(GetRValue(color), GetGValue(color), GetBValue(color));
}

QPainterPath page_path(const CPoint* points, const int* counts, int rings, bool closed,
                       double shift = 0) {
  QPainterPath path;
  for (int i = 0; i < rings; ++i) {
    for (int k = 0; k < counts[i]; ++k, ++points) {
      const QPointF point(points->x - shift, points->y - shift);
      k == 0 ? path.moveTo(point) : path.lineTo(point);
    }
    if (closed) path.closeSubpath();
  }
  return path;
}

QPainterPath page_path(const Rings& rings) {
  return page_path(rings.points.data(), rings.counts.data(), int(rings.counts.size()), true,
                   kHalfPixel);
}

QRectF pixel_box(const CRect& box) {
  const auto edge = [](int value) { return held_in(value, kPageLimit) - kHalfPixel; };
  return {QPointF(edge(box.left), edge(box.top)), QPointF(edge(box.right), edge(box.bottom))};
}

QPainterPath page_path(const QRectF& box) {
  QPainterPath path;
  path.addRect(box);
  return path;
}

QPainterPath page_path(const std::vector<FigurePoint>& corners) {
  QPolygonF polygon;
  for (const FigurePoint& corner : corners) polygon << QPointF(corner.x, corner.y);
  QPainterPath path;
  path.addPolygon(polygon);
  path.closeSubpath();
  return path;
}

QImage page_image(const RasterBitmap& pixels) {
  return QImage(reinterpret_cast<const uchar*>(pixels.data()), pixels.width(), pixels.height(),
                qsizetype(pixels.stride()) * 4, QImage::Format_ARGB32);
}

QPen page_pen(const PenData& pen, COLORREF color) {
  const int end = pen.style & PS_ENDCAP_MASK, join = pen.style & PS_JOIN_MASK;
  const double width = std::max(pen.width, 1);
  QPen out(page_color(color), width);
  out.setCapStyle(pen.width < 2 || end == PS_ENDCAP_FLAT ? Qt::FlatCap
                  : end == PS_ENDCAP_SQUARE              ? Qt::SquareCap
                                                         : Qt::RoundCap);
  out.setJoinStyle(join == PS_JOIN_BEVEL   ? Qt::BevelJoin
                   : join == PS_JOIN_MITER ? Qt::MiterJoin
                                           : Qt::RoundJoin);
  QList<qreal> dashes;
  for (const double length : dash_lengths(pen)) dashes << length / width;
  if (!dashes.isEmpty()) out.setDashPattern(dashes);
  return out;
}

const BrushData kEmptyBrush{BS_NULL, 0, 0, nullptr};

}  // namespace

bool PagePainter::begin(QPagedPaintDevice& page, double scale) {
  page_ = &page;
  scale_ = scale;
  if (!painter_.begin(&page)) return false;
  painter_.setRenderHint(QPainter::LosslessImageRendering);
  painter_.scale(scale_, scale_);
  painter_.translate(kHalfPixel, kHalfPixel);
  return true;
}

bool PagePainter::start_page() {
  if (started_pages_++ == 0) return true;
  return page_->newPage();
}

void PagePainter::clip_to(const PaintState& state) {
  if (state.clip == nullptr ? !clip_ : clip_ && *clip_ == *state.clip) return;
  if (state.clip == nullptr) {
    clip_.reset();
    painter_.setClipping(false);
  } else {
    clip_ = *state.clip;
    painter_.setClipPath(page_path(region_outline(*clip_, false)));
  }
}

void PagePainter::hatch(const QPainterPath& path, const BrushData& brush, CPoint origin,
                        COLORREF color) {
  const double unit = extent_.dpi / 96;  // as large as on a screen
  const QRectF page(-kHalfPixel, -kHalfPixel, extent_.size.cx, extent_.size.cy);
  const QRectF box = path.boundingRect() & page;
  if (box.isEmpty()) return;
  painter_.save();
  painter_.setClipPath(path, Qt::IntersectClip);
  painter_.setPen(QPen(page_color(color), std::max(unit, 1.0), Qt::SolidLine, Qt::FlatCap));
  for (const HatchFamily& family : hatch_families(brush.hatch)) {
    // The range of a x + b y over the box, in pixels of a screen from the brush's origin.
    double least = HUGE_VAL, most = -HUGE_VAL;
    for (const QPointF& corner :
         {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
      const double value = (family.a * (corner.x() + kHalfPixel - origin.x) +
                            family.b * (corner.y() + kHalfPixel - origin.y)) /
                           unit;
      least = std::min(least, value), most = std::max(most, value);
    }
    const double first = std::ceil((least - family.offset) / kHatchPeriod);
    const double last = std::floor((most - family.offset) / kHatchPeriod);
    for (double k = first; k <= last; ++k) {
      const double c = (family.offset + k * kHatchPeriod) * unit;
      if (family.b == 0) {
        const double x = c / family.a + origin.x - kHalfPixel;
        painter_.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
      } else {
        const auto y_at = [&](double x) {
          return (c - family.a * (x + kHalfPixel - origin.x)) / family.b + origin.y - kHalfPixel;
        };
        painter_.drawLine(QPointF(box.left(), y_at(box.left())),
                          QPointF(box.right(), y_at(box.right())));
      }
    }
  }
  painter_.restore();
}

void PagePainter::fill_color(const PaintState& state, const QPainterPath& path, COLORREF color) {
  clip_to(state);
  painter_.fillPath(path, page_color(color));
}

void PagePainter::fill(const PaintState& state, const QPainterPath& path, const BrushData& brush) {
  COLORREF color = brush.color;
  if (brush.style == BS_NULL || !plain_color(state.rop2, color)) return;
  clip_to(state);
  if (brush.style == BS_HATCHED) {
    if (state.bk_mode == OPAQUE) painter_.fillPath(path, page_color(state.bk_color));
    hatch(path, brush, state.brush_origin, color);
  } else if (brush.style == BS_PATTERN) {
    if (brush.pattern == nullptr || brush.pattern->empty()) return;
    QImage tile = page_image(*brush.pattern).convertToFormat(QImage::Format_RGB32);
    painter_.setBrushOrigin(QPointF(state.brush_origin.x, state.brush_origin.y));
    painter_.fillPath(path, QBrush(tile));
  } else {
    painter_.fillPath(path, page_color(color));
  }
}

void PagePainter::figure(const PaintState& state, const QPainterPath& path,
                         const BrushData& brush) {
  fill(state, path, brush);
  COLORREF color = state.pen.color;
  if ((state.pen.style & PS_STYLE_MASK) == PS_NULL || !plain_color(state.rop2, color)) return;
  clip_to(state);
  if (state.bk_mode == OPAQUE && !dash_lengths(state.pen).empty()) {
    PenData below = state.pen;
    below.style = PS_SOLID;
    painter_.strokePath(path, page_pen(below, state.bk_color));
  }
  painter_.strokePath(path, page_pen(state.pen, color));
}

void PagePainter::line(const PaintState& state, CPoint from, CPoint to) {
  if (from == to || !cut_line(from, to, kPageLimit)) return;
  const CPoint ends[]{from, to};
  const int count = 2;
  figure(state, page_path(ends, &count, 1, false), kEmptyBrush);
}

void PagePainter::polyline(const PaintState& state, const CPoint* points, int count) {
  if (in_range(points, count, kPageLimit)) {
    if (count > 1) figure(state, page_path(points, &count, 1, false), kEmptyBrush);
    return;
  }
  for (int i = 1; i < count; ++i) line(state, points[i - 1], points[i]);
}

void PagePainter::poly_polygon(const PaintState& state, const CPoint* points, const int* counts,
                               int rings) {
  const Rings cut = cut_rings(points, counts, rings, kPageLimit);
  QPainterPath path = page_path(cut.points.data(), cut.counts.data(), int(cut.counts.size()), true);
  path.setFillRule(state.poly_fill_mode == WINDING ? Qt::WindingFill : Qt::OddEvenFill);
  figure(state, path, state.brush);
}

void PagePainter::rectangle(const PaintState& state, const CRect& box) {
  round_rectangle(state, box, {0, 0});
}

void PagePainter::round_rectangle(const PaintState& state, const CRect& box, CSize corner) {
  if (box.IsRectEmpty()) return;
  const auto held = [](int value) { return held_in(value, kPageLimit); };
  const CRect edge =
      outline_box({held(box.left), held(box.top), held(box.right), held(box.bottom)});
  const QRectF outline(edge.left, edge.top, edge.Width(), edge.Height());
  const double rx = std::clamp(corner.cx, 0, edge.Width()) / 2.0;
  const double ry = std::clamp(corner.cy, 0, edge.Height()) / 2.0;
  QPainterPath path;
  if (rx > 0 && ry > 0) {
    path.addRoundedRect(outline, rx, ry);
  } else {
    path.addRect(outline);
  }
  figure(state, path, state.brush);
}

void PagePainter::ellipse(const PaintState& state, const CRect& box) {
  const CPoint right(box.right, box.CenterPoint().y);
  arc(state, ArcForm::kChord, box, right, right);
}

void PagePainter::arc(const PaintState& state, ArcForm form, const CRect& box, CPoint start,
                      CPoint end) {
  if (box.IsRectEmpty()) return;
  const EllipseArc arc(box, start, end);
  if (!in_range(box.TopLeft(), kPageLimit) || !in_range(box.BottomRight(), kPageLimit)) {
    const std::vector<CPoint> corners = arc_corners(arc, form);
    const int count = int(corners.size());
    return form == ArcForm::kArc ? polyline(state, corners.data(), count)
                                 : poly_polygon(state, corners.data(), &count, 1);
  }
  const QRectF outline(arc.cx - arc.rx, arc.cy - arc.ry, 2 * arc.rx, 2 * arc.ry);
  const FigurePoint first = arc.first();
  QPainterPath path(QPointF(first.x, first.y));
  path.arcTo(outline, arc.start * 180 / M_PI, arc.sweep * 180 / M_PI);
  if (form == ArcForm::kPie) path.lineTo(arc.cx, arc.cy);
  if (form != ArcForm::kArc) path.closeSubpath();
  figure(state, path, form == ArcForm::kArc ? kEmptyBrush : state.brush);
}

void PagePainter::fill_region(const PaintState& state, const RegionData& region,
                              const BrushData& brush) {
  fill(state, page_path(region_outline(region, true)), brush);
}

void PagePainter::invert_region(const PaintState& state, const RegionData& region) {
  fill_color(state, page_path(region_outline(region, false)), 0);
}

void PagePainter::pattern_blt(const PaintState& state, const CRect& box, DWORD rop) {
  const QPainterPath path = page_path(pixel_box(box));
  if (rop == BLACKNESS || rop == DSTINVERT) return fill_color(state, path, 0);
  if (rop == WHITENESS) return fill_color(state, path, 0xffffff);
  fill(state, path, state.brush);
}

void PagePainter::set_pixel(const PaintState& state, CPoint at, COLORREF color) {
  fill_color(state, page_path(pixel_box(CRect(at, CSize(1, 1)))), color);
}

COLORREF PagePainter::get_pixel(CPoint) const {
  return CLR_INVALID;
}

void PagePainter::run(const GlyphFont& font, std::wstring_view words, double width,
                      COLORREF color) {
  constexpr int kPageFontSize = 64;  // whole pixels are too coarse: the painter scales
  QFont face(QString::fromWCharArray(font.face.data(), qsizetype(font.face.size())));
  face.setPixelSize(kPageFontSize);
  face.setWeight(QFont::Weight(std::clamp(font.weight, 1, 1000)));
  face.setItalic(font.italic);
  face.setUnderline(font.underline);
  face.setStrikeOut(font.strike_out);
  face.setHintingPreference(QFont::PreferNoHinting);
  face.setKerning(false);
  const QString text = QString::fromWCharArray(words.data(), qsizetype(words.size()));
  // The run is as long as it was laid out to be, also in another face.
  const double natural = QFontMetricsF(face, page_).horizontalAdvance(text);
  const double scale = font.em_size / kPageFontSize;
  painter_.save();
  painter_.scale(natural > 0 && width > 0 ? width / natural : scale, scale);
  painter_.setFont(face);
  painter_.setPen(page_color(color));
  painter_.drawText(QPointF(0, 0), text);
  painter_.restore();
}

void PagePainter::text(const PaintState& state, CPoint at, UINT options, const CRect* box,
                       std::wstring_view words, const int* advances) {
  if (!in_range(at, kPageLimit)) return;
  PaintState inside = state;
  RegionData clip;
  const bool opaque_box = box != nullptr && (options & ETO_OPAQUE) != 0;
  if (opaque_box) fill_color(state, page_path(pixel_box(*box)), state.bk_color);
  if (box != nullptr && (options & ETO_CLIPPED) != 0) {
    clip = RegionData(*box);
    if (state.clip != nullptr) clip &= *state.clip;
    inside.clip = &clip;
  }
  if (words.empty()) return;
  const TextLayout layout = lay_out(state, at, words, advances);
  if (state.bk_mode == OPAQUE && !opaque_box) {
    fill_color(inside, page_path(layout.box()), state.bk_color);
  }
  clip_to(inside);
  painter_.save();
  painter_.setTransform(QTransform(layout.along.x, layout.along.y, layout.down.x, layout.down.y,
                                   layout.base.x, layout.base.y),
                        true);
  if (advances == nullptr && state.char_extra == 0) {
    run(layout.font, words, layout.width, state.text_color);
  } else {
    const std::vector<double> natural = natural_advances(layout.font, words);
    for (std::size_t i = 0; i < words.size();) {
      const bool pair = sizeof(wchar_t) == 2 && words[i] >= 0xD800 && words[i] < 0xDC00;
      const std::size_t count = std::min<std::size_t>(pair ? 2 : 1, words.size() - i);
      run(layout.font, words.substr(i, count), natural[i], state.text_color);
      for (const std::size_t next = i + count; i < next; ++i) {
        painter_.translate(layout.advances[i], 0);
      }
    }
  }
  painter_.restore();
}

void PagePainter::transformed_text(const PaintState& state, const TransformedText& text) {
  if (text.words.empty()) return;
  GlyphFont font;
  font.face = text.face;
  font.em_size = text.em_size;
  font.weight = text.weight;
  font.italic = text.italic;
  clip_to(state);
  painter_.save();
  painter_.setTransform(QTransform(text.m11, text.m12, text.m21, text.m22, text.dx, text.dy), true);
  painter_.translate(0, metrics_of(font).ascent);
  run(font, text.words, run_width(font, text.words), text.color);
  painter_.restore();
}

CSize PagePainter::text_extent(const PaintState& state, std::wstring_view words) {
  return extent_of_text(state, words);
}

void PagePainter::font_metrics(const PaintState& state, TEXTMETRIC& metrics) {
  metrics = text_metric_of(state.font);
}

void PagePainter::picture(const PaintState& state, const CRect& to, const RasterBitmap& pixels) {
  clip_to(state);
  painter_.drawImage(pixel_box(to), page_image(pixels));
}

void PagePainter::bitmap(const PaintState& state, const CRect& to, const RasterBitmap& source,
                         const CRect& from, DWORD rop) {
  PlacedPicture placed;
  if (!place_picture(to, source, from, placed)) return;
  apply_plain_rop(placed.picture, rop);
  picture(state, placed.to, placed.picture);
}

void PagePainter::blend(const PaintState& state, const CRect& to, const RasterBitmap& source,
                        const CRect& from, BYTE opacity, bool use_alpha) {
  PlacedPicture placed;
  if (!place_picture(to, source, from, placed)) return;
  apply_opacity(placed.picture, opacity, use_alpha);
  picture(state, placed.to, placed.picture);
}

void PagePainter::gradient_triangles(const PaintState& state, const GradientVertex* vertices,
                                     int vertex_count, const unsigned* indexes, int triangles) {
  constexpr std::size_t kCorners = 3;
  clip_to(state);
  const auto draw = [&](COLORREF color, const std::vector<FigurePoint>& corners) {
    QPainterPath path;
    for (std::size_t i = 0; i < corners.size(); i += kCorners) {
      path.addPath(page_path({corners.begin() + long(i), corners.begin() + long(i + kCorners)}));
    }
    // The outline hides the seams between neighbours.
    painter_.fillPath(path, page_color(color));
    painter_.strokePath(path, QPen(page_color(color), kHalfPixel));
  };
  for_each_patch(vertices, vertex_count, indexes, triangles, draw);
}

}  // namespace brindle
