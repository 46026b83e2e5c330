// One-pixel lines: which pixels they have, and the loops that set them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "brindle/platform/graphics/geometry_types.h"
#include "brindle/platform/graphics/raster_arithmetic_internal.h"

namespace brindle {

// Step i, from 0 to steps - 1, goes i pixels along the longer axis and
// floor((2 i * rise + bias) / (2 steps)) along the other. The bias makes ties go left or up
// whichever way the line runs.
struct LineSteps {
  bool steep;
  std::int64_t steps, rise, bias;
  int major_sign, minor_sign;

  LineSteps(CPoint from, CPoint to) {
    const std::int64_t dx = std::int64_t{to.x} - from.x, dy = std::int64_t{to.y} - from.y;
    const std::int64_t width = dx < 0 ? -dx : dx, height = dy < 0 ? -dy : dy;
    steep = height > width;
    steps = steep ? height : width;
    rise = steep ? width : height;
    major_sign = (steep ? dy : dx) < 0 ? -1 : 1;
    minor_sign = (steep ? dx : dy) < 0 ? -1 : 1;
    bias = minor_sign > 0 ? steps - 1 : steps;
  }

  // The first step whose way along the shorter axis is at least `way`; steps when there is none.
  std::int64_t first_step_at(std::int64_t way) const {
    if (way <= 0) return 0;
    if (way > rise) return steps;
    const Quotient q =
        multiply_divide(static_cast<std::uint64_t>(way), static_cast<std::uint64_t>(2 * steps),
                        static_cast<std::uint64_t>(2 * rise));
    const std::int64_t over = q.rest - bias;
    const std::int64_t step =
        q.whole + (over > 0 ? (over + 2 * rise - 1) / (2 * rise) : -(-over / (2 * rise)));
    return std::clamp<std::int64_t>(step, 0, steps);
  }

  // The steps whose pixels lie in the box: first to last - 1, none when last <= first.
  void clip(CPoint from, const CRect& box, std::int64_t& first, std::int64_t& last) const {
    const auto range = [](std::int64_t start, int sign, std::int64_t low, std::int64_t high) {
      return sign > 0 ? std::pair(low - start, high - start)
                      : std::pair(start - high + 1, start - low + 1);
    };
    const auto along = steep ? range(from.y, major_sign, box.top, box.bottom)
                             : range(from.x, major_sign, box.left, box.right);
    const auto across = steep ? range(from.x, minor_sign, box.left, box.right)
                              : range(from.y, minor_sign, box.top, box.bottom);
    first = std::max<std::int64_t>(0, along.first);
    last = std::min(steps, along.second);
    if (across.second <= 0) {
      last = first;
      return;
    }
    first = std::max(first, first_step_at(across.first));
    if (across.first > rise) last = first;
    if (across.second <= rise) last = std::min(last, first_step_at(across.second));
  }
};

// Where a walk along a line stands: the pixel, and the error term, which is negative.
struct LinePlace {
  std::uint32_t* pixel;
  std::ptrdiff_t major_move, minor_move;
  std::int64_t error, error_step, error_turn;

  // At step `at` of the line, which must lie in the bitmap.
  LinePlace(std::uint32_t* pixels, std::ptrdiff_t stride, CPoint from, const LineSteps& line,
            std::int64_t at) {
    error_step = 2 * line.rise;
    error_turn = 2 * line.steps;
    std::int64_t way = 0;
    error = line.bias;
    if (at) {
      const Quotient q =
          multiply_divide(static_cast<std::uint64_t>(at), static_cast<std::uint64_t>(error_step),
                          static_cast<std::uint64_t>(error_turn));
      way = q.whole;
      error += q.rest;
      if (error >= error_turn) error -= error_turn, ++way;
    }
    error -= error_turn;
    const std::int64_t along = at * line.major_sign, across = way * line.minor_sign;
    const std::int64_t x = from.x + (line.steep ? across : along);
    const std::int64_t y = from.y + (line.steep ? along : across);
    pixel = pixels + y * stride + x;
    major_move = line.steep ? line.major_sign * stride : line.major_sign;
    minor_move = line.steep ? line.minor_sign : line.minor_sign * stride;
  }

  // Without a branch: whether the short axis moves is as good as random.
  void move() {
    error += error_step;
    const std::int64_t turn = ~(error >> 63);
    pixel += major_move + (static_cast<std::ptrdiff_t>(turn) & minor_move);
    error -= error_turn & turn;
  }
};

inline bool inside(const CRect& box, CPoint p) {
  return p.x >= box.left && p.x < box.right && p.y >= box.top && p.y < box.bottom;
}

// Whether both ends lie beyond the same side of the box.
inline bool beyond_one_side(const CRect& box, CPoint a, CPoint b) {
  return (a.x < box.left && b.x < box.left) || (a.x >= box.right && b.x >= box.right) ||
         (a.y < box.top && b.y < box.top) || (a.y >= box.bottom && b.y >= box.bottom);
}

// The pixels of a solid line that lie in the box, which lies in the bitmap.
template <bool kCopies>
inline void solid_line(std::uint32_t* pixels, std::ptrdiff_t stride, const CRect& box, CPoint from,
                       CPoint to, PixelOp op) {
  std::int64_t first = 0, last = 0;
  const bool whole = inside(box, from) && inside(box, to);
  if (!whole && beyond_one_side(box, from, to)) return;
  const LineSteps line(from, to);
  last = line.steps;
  if (!whole) line.clip(from, box, first, last);
  if (last <= first) return;
  LinePlace place(pixels, stride, from, line, first);
  for (std::int64_t i = first; i < last; ++i) {
    *place.pixel = kCopies ? op.flip : op(*place.pixel);
    place.move();
  }
}

}  // namespace brindle
