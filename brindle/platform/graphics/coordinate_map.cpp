// How logical units become device units.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>

#include "brindle/platform/graphics/device_context.h"

namespace brindle {
namespace {

LONG fit(std::int64_t value) {
  return static_cast<LONG>(std::clamp<std::int64_t>(value, INT_MIN, INT_MAX));
}

// value * times / by to the nearest whole number, halves away from zero; `by` isn't 0.
std::int64_t scale(std::int64_t value, int times, int by) {
  if (std::abs(value) > INT_MAX)  // the product may not fit; such a result is beyond any device
    return static_cast<std::int64_t>(
        std::clamp(static_cast<double>(value) * times / by, -0x1p40, 0x1p40));
  const std::int64_t product = value * times;
  const std::int64_t half = std::abs(std::int64_t{by}) / 2;
  return (product < 0 ? product - half : product + half) / by;
}

}  // namespace

CPoint CoordinateMap::scaled(const POINT& p) const {
  return {
      fit(scale(std::int64_t{p.x} - window_org.x, viewport_ext.cx, window_ext.cx) + viewport_org.x),
      fit(scale(std::int64_t{p.y} - window_org.y, viewport_ext.cy, window_ext.cy) +
          viewport_org.y)};
}

CPoint CoordinateMap::to_logical(const POINT& p) const {
  const std::int64_t x = std::int64_t{p.x} - viewport_org.x;
  const std::int64_t y = std::int64_t{p.y} - viewport_org.y;
  if (!scales()) return {fit(x + window_org.x), fit(y + window_org.y)};
  return {fit(scale(x, window_ext.cx, viewport_ext.cx) + window_org.x),
          fit(scale(y, window_ext.cy, viewport_ext.cy) + window_org.y)};
}

int CoordinateMap::width_to_device(int width) const {
  return scales() ? fit(scale(width, viewport_ext.cx, window_ext.cx)) : width;
}

int CoordinateMap::height_to_device(int height) const {
  return scales() ? fit(scale(height, viewport_ext.cy, window_ext.cy)) : height;
}

int CoordinateMap::width_to_logical(int width) const {
  return scales() ? fit(scale(width, window_ext.cx, viewport_ext.cx)) : width;
}

int CoordinateMap::height_to_logical(int height) const {
  return scales() ? fit(scale(height, window_ext.cy, viewport_ext.cy)) : height;
}

}  // namespace brindle
