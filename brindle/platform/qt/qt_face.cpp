#include "brindle/platform/qt/qt_face_internal.h"

#include "brindle/platform/qt/qt_coverage_internal.h"

#include <algorithm>
#include <cmath>
#include <QGlyphRun>
#include <QTextLayout>

namespace brindle {
namespace {

constexpr int kBoldParts = 24;  // a second strike stands this part of the em off

// As the face itself says, 0 when it doesn't.
int weight_of_face(const QRawFont& font) {
  const QByteArray table = font.fontTable("OS/2");
  if (table.size() < 6) return 0;
  return static_cast<unsigned char>(table[4]) << 8 | static_cast<unsigned char>(table[5]);
}

QFont font_of(const QtFace::Key& key, int weight) {
  const auto& [family, ignored, italic, size, smooth] = key;
  QFont font(QString::fromStdWString(family));
  font.setPixelSize(size);
  font.setWeight(static_cast<QFont::Weight>(weight));
  font.setItalic(italic);
  if (size == kReferenceSize) font.setHintingPreference(QFont::PreferNoHinting);
  if (!smooth) font.setStyleStrategy(QFont::NoAntialias);
  return font;
}

}  // namespace

QtFace::Key QtFace::key_of(const GlyphFont& font, int pixel_size) {
  std::wstring family = font.face;
  if (!family.empty() && family.front() == L'@') family.erase(0, 1);  // a mark of upright columns
  if (family.empty()) family = L"宋体";
  return {std::move(family), std::clamp(font.weight, 1, 1000), font.italic, pixel_size,
          font.smooth || pixel_size == kReferenceSize};
}

QtFace::QtFace(const Key& key)
    : font_(font_of(key, std::get<1>(key))),
      primary_(QRawFont::fromFont(font_)),
      size_(std::get<3>(key)) {
  const int weight = std::get<1>(key), own = weight_of_face(primary_);
  if (weight < FW_SEMIBOLD || own == 0 || own >= FW_SEMIBOLD) return;
  strikes_twice_ = true;
  font_ = font_of(key, FW_NORMAL);
  primary_ = QRawFont::fromFont(font_);
}

const QtGlyph& QtFace::glyph(char32_t character) {
  const auto known = glyphs_.find(character);
  if (known != glyphs_.end()) return known->second;
  const QString text = QString::fromUcs4(&character, 1);
  QtGlyph glyph;
  const QList<quint32> own = primary_.glyphIndexesForString(text);
  if (!own.isEmpty() && own.first() != 0) {
    glyph.font = primary_, glyph.index = own.first();
  } else {
    QTextLayout layout(text, font_);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    for (const QGlyphRun& run : layout.glyphRuns()) {
      if (run.glyphIndexes().isEmpty()) continue;
      glyph.font = run.rawFont(), glyph.index = run.glyphIndexes().first();
      break;
    }
  }
  if (glyph.font.isValid()) {
    const QList<QPointF> ways = glyph.font.advancesForGlyphIndexes({glyph.index});
    if (!ways.isEmpty()) glyph.advance = ways.first().x();
  }
  return glyphs_.emplace(character, glyph).first->second;
}

QPainterPath QtFace::path(char32_t character) {
  const QtGlyph& found = glyph(character);
  if (!found.font.isValid()) return {};
  QPainterPath path = found.font.pathForGlyph(found.index);
  path.setFillRule(Qt::WindingFill);
  // Equal turning senses: the winding rule makes one figure of both strikes.
  if (strikes_twice_) path.addPath(path.translated(double{1} * size_ / kBoldParts, 0));
  return path;
}

QtFace::Images& QtFace::images(const QTransform& linear, bool smooth) {
  const std::tuple key(linear.m11(), linear.m12(), linear.m21(), linear.m22(), smooth);
  return images_.try_emplace(key, *this, linear, smooth).first->second;
}

const QtGlyphImage& QtFace::Images::image(char32_t character, int quarters_x, int quarters_y,
                                          std::size_t& bytes) {
  const std::uint64_t key = std::uint64_t{character} << 4 |
                            static_cast<unsigned>(quarters_x & 3) << 2 |
                            static_cast<unsigned>(quarters_y & 3);
  const auto known = kept_.find(key);
  if (known != kept_.end()) return known->second;
  const QtGlyphImage& made =
      kept_.emplace(key, draw(character, quarters_x, quarters_y)).first->second;
  bytes += made.coverage.size() + sizeof(QtGlyphImage);
  return made;
}

QtGlyphImage QtFace::Images::draw(char32_t character, int quarters_x, int quarters_y) const {
  constexpr int kMargin = 2;  // hinted glyphs may leave their box
  const QtGlyph& glyph = face_.glyph(character);
  if (!glyph.font.isValid()) return {};
  if (face_.size_ == kReferenceSize) {
    const QTransform place(linear_.m11(), linear_.m12(), linear_.m21(), linear_.m22(),
                           quarters_x / 4.0, quarters_y / 4.0);
    const QPainterPath path = place.map(face_.path(character));
    const QRect box =
        path.boundingRect().toAlignedRect().adjusted(-kMargin, -kMargin, kMargin, kMargin);
    return draw_coverage(box, smooth_,
                         [&](QPainter& painter) { painter.fillPath(path, Qt::black); });
  }
  const int second = face_.strikes_twice_ ? std::max(1, face_.size_ / kBoldParts) : 0;
  const QRect box = glyph.font.boundingRect(glyph.index)
                        .toAlignedRect()
                        .adjusted(-kMargin, -kMargin, kMargin + second, kMargin);
  return draw_coverage(box, smooth_, [&](QPainter& painter) {
    QGlyphRun run;
    run.setRawFont(glyph.font);
    run.setGlyphIndexes({glyph.index});
    run.setPositions({QPointF(0, 0)});
    painter.drawGlyphRun(QPointF(0, 0), run);
    if (second) painter.drawGlyphRun(QPointF(second, 0), run);
  });
}

}  // namespace brindle
