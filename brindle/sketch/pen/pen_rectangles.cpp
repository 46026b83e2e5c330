// Rectangles as lines and as polylines.
#include <algorithm>
#include <iterator>

#include "brindle/geometry/arrays.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_placing_internal.h"

namespace brindle {
namespace {

enum class Turn { kClockwise, kCounterClockwise };

// The corners from the lower left one on, about the origin.
struct Corners {
  Corners(float w, float h) : x{-w / 2, w / 2, w / 2, -w / 2}, y{-h / 2, -h / 2, h / 2, h / 2} {}

  // Turned, then shifted.
  void place(float angle, Turn turn, float dx, float dy) {
    const auto a = radians_of(angle);
    rotate_points(turn == Turn::kClockwise ? a : -a, 4, x, y);
    shift_points(-dx, -dy, 4, x, y);
  }

  float x[4], y[4];
};

// Sides that one polyline shows: its first corner and its number of vertices.
struct SidePath {
  bool sides[4];  // bottom, right, top, left
  int first, count;
  bool closed;
};
constexpr SidePath kSidePaths[] = {
    {{true, true, true, true}, 0, 4, true},
    {{false, true, true, true}, 1, 4, false},
    {{true, false, true, true}, 2, 4, false},
    {{true, true, false, true}, 3, 4, false},
    {{true, true, true, false}, 0, 4, false},
    {{false, true, true, false}, 1, 4, false},  // draws the left side too: meant
    {{false, false, true, true}, 2, 3, false},
    {{true, false, false, true}, 3, 3, false},
    {{true, true, false, false}, 0, 3, false},
};

const SidePath* find_path(const int (&sides)[4]) {
  const auto* path = std::find_if(
      std::begin(kSidePaths), std::end(kSidePaths), [&sides](const SidePath& candidate) {
        return std::equal(std::begin(sides), std::end(sides), std::begin(candidate.sides),
                          [](int side, bool on) { return (side != 0) == on; });
      });
  return path != std::end(kSidePaths) ? path : nullptr;
}

}  // namespace

void CBase_SGT::Draw_Rect_C(float w, float h, float cx, float cy, float angle) {
  Corners p(w, h);
  p.place(angle, Turn::kCounterClockwise, cx, cy);
  for (int i = 0; i < 4; ++i) {
    const int next = (i + 1) % 4;
    if (m_bRectSide[i] != 0) Draw_Line(p.x[i], p.y[i], p.x[next], p.y[next]);
  }
}

void CBase_SGT::Draw_Rect_C(float w, float h, float cx, float cy, float angle, float pen) {
  Corners p(w, h);
  p.place(angle, Turn::kClockwise, cx, cy);
  if (const SidePath* path = find_path(m_bRectSide); path != nullptr) {
    float starts[] = {pen, pen, pen, pen}, ends[] = {pen, pen, pen, pen};
    std::rotate(p.x, p.x + path->first, p.x + 4);
    std::rotate(p.y, p.y + path->first, p.y + 4);
    Draw_Pline(path->count, p.x, p.y, nullptr, path->closed ? 1 : 0, starts, ends);
    return;
  }
  for (int i = 0; i < 4; ++i) {
    const int next = (i + 1) % 4;
    if (m_bRectSide[i] != 0) Draw_Pline(p.x[i], p.y[i], p.x[next], p.y[next], pen, pen);
  }
}

void CBase_SGT::Draw_Rect_LB(float w, float h, float left, float bottom, float angle) {
  float cx, cy;
  corner_to_centre(w, h, left, bottom, angle, &cx, &cy);
  Draw_Rect_C(w, h, cx, cy, angle);
}

void CBase_SGT::Draw_Rect_LB(float w, float h, float left, float bottom, float angle, float pen) {
  float cx, cy;
  corner_to_centre(w, h, left, bottom, angle, &cx, &cy);
  Draw_Rect_C(w, h, cx, cy, angle, pen);
}

}  // namespace brindle
