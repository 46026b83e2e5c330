#include "brindle/platform/qt/qt_units_internal.h"

#include <cmath>

namespace brindle {
namespace {

int low(double value) {
  return static_cast<int>(std::floor(value));
}

int high(double value) {
  return static_cast<int>(std::ceil(value));
}

}  // namespace

int to_units(double pixels) {
  return static_cast<int>(std::lround(pixels / system_zoom()));
}

int to_pixels(int units) {
  return static_cast<int>(std::lround(units * system_zoom()));
}

CRect to_units(const QRect& pixels) {
  return CRect(CPoint(to_units(pixels.x()), to_units(pixels.y())),
               CSize(to_units(pixels.width()), to_units(pixels.height())));
}

QRect to_pixels(const CRect& units) {
  return QRect(to_pixels(units.left), to_pixels(units.top), to_pixels(units.Width()),
               to_pixels(units.Height()));
}

CPoint unit_at(QPointF pixel) {
  return CPoint(low(pixel.x() / system_zoom()), low(pixel.y() / system_zoom()));
}

CRect units_over(const QRect& pixels) {
  const double zoom = system_zoom();
  return CRect(low(pixels.x() / zoom), low(pixels.y() / zoom),
               high((pixels.x() + pixels.width()) / zoom),
               high((pixels.y() + pixels.height()) / zoom));
}

QRect pixels_over(const CRect& units) {
  const double zoom = system_zoom();
  return QRect(QPoint(low(units.left * zoom), low(units.top * zoom)),
               QPoint(high(units.right * zoom) - 1, high(units.bottom * zoom) - 1));
}

}  // namespace brindle
