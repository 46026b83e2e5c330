// What a painter covers.
#pragma once

#include <QImage>
#include <QPainter>

#include "brindle/platform/qt/qt_face_internal.h"

namespace brindle {

// The coverage of what draw(painter) paints in black into the box; 0 or 255 only when not smooth.
template <class Draw>
QtGlyphImage draw_coverage(const QRect& box, bool smooth, Draw&& draw) {
  QImage image(box.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(0);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing, smooth);
  painter.setRenderHint(QPainter::TextAntialiasing, smooth);
  painter.setPen(Qt::black);
  painter.translate(-box.topLeft());
  draw(painter);
  painter.end();

  QtGlyphImage made{box.left(), box.top(), image.width(), image.height(), {}};
  made.coverage.reserve(static_cast<std::size_t>(image.width()) *
                        static_cast<std::size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const int alpha = qAlpha(row[x]);
      made.coverage.push_back(static_cast<std::uint8_t>(smooth ? alpha : alpha < 128 ? 0 : 255));
    }
  }
  return made;
}

}  // namespace brindle
