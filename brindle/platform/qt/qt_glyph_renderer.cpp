#include "brindle/platform/qt/qt_glyph_renderer_internal.h"

#include "brindle/platform/qt/qt_coverage_internal.h"

#include <algorithm>
#include <cmath>
#include <QGuiApplication>
#include <QThread>

namespace brindle {
namespace {

constexpr int kMostHintedSize = 64;    // upright text up to here is drawn with the face's hints
constexpr double kMostKeptSize = 512;  // larger glyphs are drawn each time
constexpr std::size_t kMostKeptBytes = std::size_t{16} << 20;
constexpr double kMostPixels = 1e6;  // of an em square; nobody sees such text

bool qt_has_fonts(const GlyphFont& font) {
  return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) &&
         QThread::currentThread() == QCoreApplication::instance()->thread() &&
         std::isfinite(font.em_size) && font.em_size > 0 && std::isfinite(font.x_scale);
}

bool is_finite(const GlyphMap& map) {
  return std::isfinite(map.m11) && std::isfinite(map.m12) && std::isfinite(map.m21) &&
         std::isfinite(map.m22) && std::isfinite(map.dx) && std::isfinite(map.dy);
}

QTransform transform_of(const GlyphMap& map) {
  return QTransform(map.m11, map.m12, map.m21, map.m22, map.dx, map.dy);
}

// Calls visit(character, index) for each character; a surrogate pair is one, at its first half.
template <class Visit>
void each_character(std::wstring_view words, Visit&& visit) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    char32_t character = static_cast<char32_t>(words[i]);
    const std::size_t at = i;
    if (character >= 0xd800 && character < 0xdc00 && i + 1 < words.size()) {
      const char32_t low = static_cast<char32_t>(words[i + 1]);
      if (low >= 0xdc00 && low < 0xe000) {
        character = 0x10000 + ((character - 0xd800) << 10) + (low - 0xdc00);
        ++i;
      }
    }
    visit(character, at);
  }
}

// A glyph's picture with its origin on a pixel.
struct PlacedImage {
  const QtGlyphImage* image;
  int x, y;
  CRect box() const {
    const int left = x + image->left, top = y + image->top;
    return {left, top, left + image->width, top + image->height};
  }
};

void add_image(GlyphMask& mask, const PlacedImage& placed) {
  const CRect box = placed.box();
  const int left = std::max(box.left, mask.left);
  const int right = std::min(box.right, mask.left + mask.width);
  const int bottom = std::min(box.bottom, mask.top + mask.height);
  for (int y = std::max(box.top, mask.top); y < bottom; ++y) {
    const std::uint8_t* from =
        placed.image->coverage.data() + std::ptrdiff_t{y - box.top} * box.Width() + left - box.left;
    std::uint8_t* to =
        mask.coverage.data() + std::ptrdiff_t{y - mask.top} * mask.width + left - mask.left;
    for (int i = 0; i < right - left; ++i) to[i] = std::max(to[i], from[i]);
  }
}

}  // namespace

void substitute_chinese_faces() {
  const QStringList song = {"AR PL UMing CN", "Noto Serif CJK SC", "Noto Sans CJK SC"};
  const QStringList kai = {"AR PL UKai CN", "AR PL UMing CN", "Noto Serif CJK SC"};
  const QStringList hei = {"Noto Sans CJK SC", "WenQuanYi Zen Hei", "AR PL UMing CN"};
  const struct {
    const QStringList& shown_with;
    QStringList faces;
  } kSubstitutes[] = {
      {song, {"宋体", "新宋体", "SimSun", "NSimSun"}},
      {song, {"仿宋", "仿宋_GB2312", "FangSong", "FangSong_GB2312"}},
      {kai, {"楷体", "楷体_GB2312", "KaiTi", "KaiTi_GB2312"}},
      {hei, {"黑体", "SimHei"}},
  };
  for (const auto& [shown_with, faces] : kSubstitutes)
    for (const QString& face : faces)
      if (QFont::substitutes(face).isEmpty()) QFont::insertSubstitutions(face, shown_with);
}

QtFace& QtGlyphRenderer::face(const GlyphFont& font, int pixel_size) {
  const QtFace::Key key = QtFace::key_of(font, pixel_size);
  std::unique_ptr<QtFace>& face = faces_[key];
  if (!face) face = std::make_unique<QtFace>(key);
  return *face;
}

void QtGlyphRenderer::clear() {
  faces_.clear();
  image_bytes_ = 0;
}

bool QtGlyphRenderer::metrics(const GlyphFont& font, GlyphMetrics& out) {
  out = {};
  if (!qt_has_fonts(font)) return false;
  QtFace& reference = face(font, kReferenceSize);
  const QRawFont& raw = reference.primary();
  if (!raw.isValid()) return false;
  const double scale = font.em_size / kReferenceSize;
  out.ascent = raw.ascent() * scale;
  out.descent = raw.descent() * scale;
  out.leading = raw.leading() * scale;
  out.average_width = reference.glyph(U'x').advance * scale * font.x_scale;
  out.max_width = raw.maxCharWidth() * scale * font.x_scale;
  return true;
}

bool QtGlyphRenderer::advances(const GlyphFont& font, std::wstring_view words,
                               std::vector<double>& out) {
  out.clear();
  if (!qt_has_fonts(font)) return false;
  QtFace& reference = face(font, kReferenceSize);
  if (!reference.primary().isValid()) return false;
  out.assign(words.size(), 0);
  const double scale = font.em_size / kReferenceSize * font.x_scale;
  each_character(words, [&](char32_t character, std::size_t at) {
    out[at] = reference.glyph(character).advance * scale;
  });
  return true;
}

QPainterPath QtGlyphRenderer::run_path(const GlyphFont& font, std::wstring_view words,
                                       const double* advances) {
  QtFace& reference = face(font, kReferenceSize);
  const double scale = font.em_size / kReferenceSize;
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  double along = 0;
  each_character(words, [&](char32_t character, std::size_t at) {
    const QTransform place(scale * font.x_scale, 0, 0, scale, along, 0);
    path.addPath(place.map(reference.path(character)));
    along += advances ? advances[at] : reference.glyph(character).advance * scale * font.x_scale;
  });
  const QRawFont& raw = reference.primary();
  const double thick = std::max(raw.lineThickness(), 1.0) * scale;
  if (font.underline)
    path.addRect(QRectF(0, raw.underlinePosition() * scale - thick / 2, along, thick));
  if (font.strike_out) path.addRect(QRectF(0, -raw.ascent() * scale / 3 - thick / 2, along, thick));
  return path;
}

bool QtGlyphRenderer::outline(const GlyphFont& font, std::wstring_view words,
                              const double* advances, const GlyphMap& map, double tolerance,
                              GlyphOutline& out) {
  out.rings.clear();
  if (!qt_has_fonts(font) || !is_finite(map)) return false;
  // Qt's own flattening leaves curves by up to about a fifth of a unit: blow them up accordingly.
  const double finer = std::clamp(0.2 / std::max(tolerance, 1e-9), 1e-3, 1e6);
  const QPainterPath path = transform_of(map).map(run_path(font, words, advances));
  for (const QPolygonF& polygon : path.toSubpathPolygons(QTransform::fromScale(finer, finer))) {
    std::vector<GlyphOutline::Point> ring;
    for (const QPointF& p : polygon) ring.push_back({p.x() / finer, p.y() / finer});
    if (polygon.isClosed() && !ring.empty()) ring.pop_back();
    if (ring.size() > 2) out.rings.push_back(std::move(ring));
  }
  return true;
}

bool QtGlyphRenderer::render(const GlyphFont& font, std::wstring_view words, const double* advances,
                             const GlyphMap& map, const CRect& bounds, GlyphMask& out) {
  out = {};
  if (!qt_has_fonts(font) || !is_finite(map) || bounds.IsRectEmpty()) return false;
  const double size = font.em_size * std::max(std::hypot(map.m11, map.m12) * std::abs(font.x_scale),
                                              std::hypot(map.m21, map.m22));
  if (!(size < kMostPixels)) return false;
  if (size > kMostKeptSize || font.underline || font.strike_out) {
    render_path(transform_of(map).map(run_path(font, words, advances)), bounds, font.smooth, out);
  } else {
    render_kept(font, words, advances, map, bounds, out);
  }
  return true;
}

void QtGlyphRenderer::render_path(const QPainterPath& path, const CRect& bounds, bool smooth,
                                  GlyphMask& out) {
  const QRectF visible = path.boundingRect().adjusted(-1, -1, 1, 1) &
                         QRectF(bounds.left, bounds.top, bounds.Width(), bounds.Height());
  if (visible.isEmpty()) return;
  QtGlyphImage image = draw_coverage(visible.toAlignedRect(), smooth,
                                     [&](QPainter& painter) { painter.fillPath(path, Qt::black); });
  out = {image.left, image.top, image.width, image.height, std::move(image.coverage)};
}

void QtGlyphRenderer::render_kept(const GlyphFont& font, std::wstring_view words,
                                  const double* advances, const GlyphMap& map, const CRect& bounds,
                                  GlyphMask& out) {
  const bool hinted = map.m11 == 1 && map.m12 == 0 && map.m21 == 0 && map.m22 == 1 &&
                      font.x_scale == 1 && font.em_size == std::floor(font.em_size) &&
                      font.em_size <= kMostHintedSize;
  const double scale = hinted ? 1 : font.em_size / kReferenceSize;
  const double across = scale * font.x_scale;
  QtFace& reference = face(font, kReferenceSize);
  QtFace& used = hinted ? face(font, static_cast<int>(font.em_size)) : reference;
  if (image_bytes_ > kMostKeptBytes) {
    for (auto& [key, kept] : faces_) kept->forget_images();
    image_bytes_ = 0;
  }
  QtFace::Images& images = used.images(
      QTransform(map.m11 * across, map.m12 * across, map.m21 * scale, map.m22 * scale, 0, 0),
      font.smooth);

  const double natural = font.em_size / kReferenceSize * font.x_scale;
  const double reach = 4 * kMostKeptSize;            // ink doesn't stand farther from its origin
  const int parts = font.smooth && !hinted ? 4 : 1;  // hinted and one-bit glyphs keep to the pixels
  std::vector<PlacedImage> run;
  CRect box(bounds.right, bounds.bottom, bounds.left, bounds.top);
  double along = 0;
  each_character(words, [&](char32_t character, std::size_t at) {
    const double x = map.m11 * along + map.dx, y = map.m12 * along + map.dy;
    along += advances ? advances[at] : reference.glyph(character).advance * natural;
    if (!(x > bounds.left - reach && x < bounds.right + reach && y > bounds.top - reach &&
          y < bounds.bottom + reach))
      return;
    const double pixel_x = std::floor((x * parts + 0.5) / parts);
    const double pixel_y = std::floor((y * parts + 0.5) / parts);
    const int quarters_x = static_cast<int>(std::floor((x - pixel_x) * parts + 0.5));
    const int quarters_y = static_cast<int>(std::floor((y - pixel_y) * parts + 0.5));
    const QtGlyphImage& image = images.image(character, parts == 1 ? 0 : quarters_x,
                                             parts == 1 ? 0 : quarters_y, image_bytes_);
    run.push_back({&image, static_cast<int>(pixel_x), static_cast<int>(pixel_y)});
    const CRect glyph_box = run.back().box();
    box = CRect(std::min(box.left, glyph_box.left), std::min(box.top, glyph_box.top),
                std::max(box.right, glyph_box.right), std::max(box.bottom, glyph_box.bottom));
  });
  CRect part;
  if (run.empty() || !part.IntersectRect(box, bounds)) return;
  out = {part.left, part.top, part.Width(), part.Height(), {}};
  out.coverage.assign(static_cast<std::size_t>(out.width) * static_cast<std::size_t>(out.height),
                      0);
  for (const PlacedImage& placed : run) add_image(out, placed);
}

}  // namespace brindle
