// Rectangles with a gap between two break symbols.
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_placing_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"

namespace brindle {
namespace {

enum Side { kBottom, kRight, kTop, kLeft };

// Draws the two pieces of a rectangle with a gap by draw(h, cx, cy), and their break symbols.
template <class Draw>
void draw_cut_rectangle(CBase_SGT& pen, float w, float h, float cx, float cy, float angle,
                        float cut, float gap, Draw draw) {
  // A piece of height `height` about the local height `y`, whose edge `open` is the cut.
  const auto draw_piece = [&](float height, float y, Side open, int symbol) {
    float px = 0, py = y;
    place_point(angle, cx, cy, &px, &py);
    {
      EnvironmentScope scope(pen);
      pen.m_bRectSide[open] = 0;
      draw(height, px, py);
    }
    if (symbol == 0) return;
    const float edge = open == kTop ? height / 2 : -height / 2;
    float x1 = -w / 2, y1 = edge, x2 = w / 2, y2 = edge;
    place_point(angle, px, py, &x1, &y1);
    place_point(angle, px, py, &x2, &y2);
    pen.Draw_Cut_Sym(x1, y1, x2, y2);
  };
  const float lower = cut - gap / 2, upper = h - cut - gap / 2;
  draw_piece(lower, -(h / 2 - lower / 2), kTop, pen.m_bCutLow);
  draw_piece(upper, upper / 2 - (h / 2 - cut - gap / 2), kBottom, pen.m_bCutHigh);
}

}  // namespace

void CBase_SGT::Draw_Rect_C_CutL(float w, float h, float cx, float cy, float angle, float cut,
                                 float gap) {
  draw_cut_rectangle(*this, w, h, cx, cy, angle, cut, gap,
                     [&](float height, float x, float y) { Draw_Rect_C(w, height, x, y, angle); });
}

void CBase_SGT::Draw_Rect_C_CutL(float w, float h, float cx, float cy, float angle, float pen,
                                 float cut, float gap) {
  draw_cut_rectangle(*this, w, h, cx, cy, angle, cut, gap, [&](float height, float x, float y) {
    Draw_Rect_C(w, height, x, y, angle, pen);
  });
}

void CBase_SGT::Draw_Rect_LB_CutL(float w, float h, float left, float bottom, float angle,
                                  float cut, float gap) {
  float cx, cy;
  corner_to_centre(w, h, left, bottom, angle, &cx, &cy);
  Draw_Rect_C_CutL(w, h, cx, cy, angle, cut, gap);
}

void CBase_SGT::Draw_Rect_LB_CutL(float w, float h, float left, float bottom, float angle,
                                  float pen, float cut, float gap) {
  float cx, cy;
  corner_to_centre(w, h, left, bottom, angle, &cx, &cy);
  Draw_Rect_C_CutL(w, h, cx, cy, angle, pen, cut, gap);
}

}  // namespace brindle
