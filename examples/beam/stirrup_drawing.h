// Draws stirrups and ties by both edges of their bar, bent round the bars that they hold.
#pragma once

#include "examples/beam/drawing_sheet.h"

namespace brindle::beam {

// A closed stirrup by the inner faces of its bar and the radii of the corner bars, in world mm.
struct StirrupLoop {
  double left = 0;
  double bottom = 0;
  double right = 0;
  double top = 0;
  double diameter = 0;
  double bottom_radius = 0;
  double top_radius = 0;
};

// Draws the loop with a 135-degree hook at the top left corner. An inner stirrup lies against the
// outer one along its horizontal parts; `with_horizontals` false leaves them out, so that no line
// is drawn twice.
void draw_stirrup(DrawingSheet& sheet, const StirrupLoop& loop, bool with_horizontals);

// Draws the tie between two side bars of `bar_diameter` at (left, y) and (right, y): it passes over
// them and hooks round them by 135 degrees.
void draw_tie(DrawingSheet& sheet, double left, double right, double y, double bar_diameter,
              double tie_diameter);

}  // namespace brindle::beam
