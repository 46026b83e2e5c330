#include "examples/beam/stirrup_drawing.h"

#include <cmath>
#include <numbers>

namespace brindle::beam {
namespace {

constexpr double kTailDiameters = 5;  // straight part of a hook

// The straight part behind a bend: starts on the circle of radius `radius` round the bar's axis at
// `start_deg` and runs along `along_deg`; both edges and the cut end.
void draw_tail(DrawingSheet& sheet, double x, double y, double radius, double diameter,
               double start_deg, double along_deg) {
  const double start = start_deg * std::numbers::pi / 180;
  const double along = along_deg * std::numbers::pi / 180;
  const double dx = kTailDiameters * diameter * std::cos(along);
  const double dy = kTailDiameters * diameter * std::sin(along);
  const double inner_x = x + radius * std::cos(start);
  const double inner_y = y + radius * std::sin(start);
  const double outer_x = x + (radius + diameter) * std::cos(start);
  const double outer_y = y + (radius + diameter) * std::sin(start);
  sheet.line(Layer::kStirrup, inner_x, inner_y, inner_x + dx, inner_y + dy);
  sheet.line(Layer::kStirrup, outer_x, outer_y, outer_x + dx, outer_y + dy);
  sheet.line(Layer::kStirrup, inner_x + dx, inner_y + dy, outer_x + dx, outer_y + dy);
}

}  // namespace

void draw_stirrup(DrawingSheet& sheet, const StirrupLoop& loop, bool with_horizontals) {
  const double rb = loop.bottom_radius;
  const double rt = loop.top_radius;
  for (const double offset : {0.0, loop.diameter}) {
    sheet.line(Layer::kStirrup, loop.left - offset, loop.bottom + rb, loop.left - offset,
               loop.top - rt);
    sheet.line(Layer::kStirrup, loop.right + offset, loop.bottom + rb, loop.right + offset,
               loop.top - rt);
    if (with_horizontals) {
      sheet.line(Layer::kStirrup, loop.left + rb, loop.bottom - offset, loop.right - rb,
                 loop.bottom - offset);
      sheet.line(Layer::kStirrup, loop.left + rt, loop.top + offset, loop.right - rt,
                 loop.top + offset);
    }
    sheet.arc(Layer::kStirrup, loop.left + rb, loop.bottom + rb, rb + offset, 180, 270);
    sheet.arc(Layer::kStirrup, loop.right - rb, loop.bottom + rb, rb + offset, 270, 360);
    sheet.arc(Layer::kStirrup, loop.right - rt, loop.top - rt, rt + offset, 0, 90);
    // Both ends of the bar meet here: each turns by 135 degrees, one from the leg, one from the
    // top.
    sheet.arc(Layer::kStirrup, loop.left + rt, loop.top - rt, rt + offset, 45, 225);
  }
  draw_tail(sheet, loop.left + rt, loop.top - rt, rt, loop.diameter, 45, -45);
  draw_tail(sheet, loop.left + rt, loop.top - rt, rt, loop.diameter, 225, -45);
}

void draw_tie(DrawingSheet& sheet, double left, double right, double y, double bar_diameter,
              double tie_diameter) {
  const double radius = bar_diameter / 2;
  for (const double r : {radius, radius + tie_diameter}) {
    sheet.line(Layer::kStirrup, left, y + r, right, y + r);
    sheet.arc(Layer::kStirrup, left, y, r, 90, 225);
    sheet.arc(Layer::kStirrup, right, y, r, 315, 90);
  }
  draw_tail(sheet, left, y, radius, tie_diameter, 225, -45);
  draw_tail(sheet, right, y, radius, tie_diameter, 315, 225);
}

}  // namespace brindle::beam
