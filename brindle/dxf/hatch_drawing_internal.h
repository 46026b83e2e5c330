// Drawing the lines of hatch patterns. Not for use outside this folder.
#pragma once

#include "brindle/dxf/device_area_internal.h"
#include "brindle/dxf/hatch_pattern.h"

namespace brindle::Varnholt {

// Draws with the pen that the device has. The strokes of one hatch are counted: a pattern that
// needs more than any device can show is drawn solid, and ends where even that is too much.
class HatchLines {
 public:
  // `box` bounds the lines, world units before the shift.
  HatchLines(CDC* dc, const CFCoor* coor, const PlaneBox& box, double dx, double dy);

  // All lines of a family that pass the box, the first through the point (x, y).
  void draw_family(const HATCH_PATTERN_DATA& family, double x, double y);
  // The line through a point, where its dashes start, in a direction (radians).
  void draw_line(const HATCH_PATTERN_DATA& family, double x, double y, double angle);

 private:
  struct Way;

  bool is_solid(const HATCH_PATTERN_DATA& family, double pattern_length, double length) const;
  void draw_dashes(const HATCH_PATTERN_DATA& family, double pattern_length, const Way& way);
  void stroke(CPoint from, CPoint to);

  CDC* dc_;
  DeviceArea area_;
  PlaneBox box_;
  long strokes_left_ = 3000000;
};

}  // namespace brindle::Varnholt
