// Units of the library's windows and the toolkit's pixels. Sizes in windows are thought of for a
// font of 9 points; where the desktop's is larger, a unit is so much larger too, and grids and
// dialogs grow as a whole.
#pragma once

#include "brindle/platform/graphics/geometry_types.h"

#include <QPoint>
#include <QRect>

namespace brindle {

// Device-independent pixels for a unit: at least 1, in eighths.
double system_zoom();

int to_units(double pixels);  // the nearest
int to_pixels(int units);
CRect to_units(const QRect& pixels);  // place and size each by itself
QRect to_pixels(const CRect& units);
CPoint unit_at(QPointF pixel);          // that holds the point
CRect units_over(const QRect& pixels);  // all that these pixels belong to
QRect pixels_over(const CRect& units);

}  // namespace brindle
