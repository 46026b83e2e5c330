// Painting a picture that lies anyhow in the world. Not for use outside this folder.
#pragma once

#include <vector>

#include "brindle/geometry/point.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

class CDC;
class CFCoor;

namespace Varnholt {

// Where the upper left corner of a picture lies, and how far a column and a row lead, in the world.
struct PicturePlace {
  double x = 0, y = 0;
  double column_x = 0, column_y = 0;
  double row_x = 0, row_y = 0;
};

struct PictureLook {
  int brightness = 50, contrast = 50;  // 0 to 100, 50 as it is
  int fade = 0;                        // 0 to 100: towards the background
  bool transparent = false;            // the picture's own alpha counts
};

// Paints the part of the picture that lies in the outline (world units, shifted by (dx, dy) as the
// place is already), with the nearest pixel of the picture at each pixel of the device.
void paint_picture(CDC* dc, const CFCoor& coor, const RasterBitmap& picture,
                   const PicturePlace& place, const PictureLook& look,
                   const std::vector<CFPoint>& outline, double dx, double dy);

}  // namespace Varnholt
}  // namespace brindle
