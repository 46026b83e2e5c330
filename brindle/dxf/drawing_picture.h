// A picture of a whole drawing: the transform that fits it into a size, and its painting.
#pragma once

#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

class CDC;
class DXF;

// What a picture shows: the drawing as large as the size allows, centred.
struct PictureView {
  CSize size{1600, 1000};         // device units
  double margin = 0.03;           // free border on each side, against the size
  COLORREF background = 0;        // entities of this colour are drawn inverted
  bool fills_background = true;   // false: what is there already stays
  bool axonometric = false;       // seen under the two angles below, else from above
  double angle1 = 0, angle2 = 0;  // radians: turn about the z axis, tilt away from it
};

// The transform under which the picture shows the drawing. A drawing without extent lies in the
// middle at scale 1.
CFCoor picture_transform(DXF& drawing, const PictureView& view);

// Paints the drawing onto the device, whose clipping limits are the view's size meanwhile. The
// document's current transform is as before afterwards. 1; 0 outside memory mode.
int draw_picture(DXF& drawing, CDC& dc, const PictureView& view);

}  // namespace brindle
