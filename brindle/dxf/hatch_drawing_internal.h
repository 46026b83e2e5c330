// Drawing the lines of hatch patterns. Not for use outside this folder.
#pragma once

#include "brindle/dxf/device_area_internal.h"
#include "brindle/dxf/hatch_pattern.h"

namespace brindle::Varnholt {

// Where lines run inside an area that is bounded by rings of points.
class RingCuts {
 public:
  struct Piece {
    double first, last;
  };

  // The style as in a hatch: 0 by turns from outside, 1 what lies in one ring only, 2 all. The
  // rings must outlive the object.
  RingCuts(const std::vector<DeviceArea::Ring>& rings, int style) : rings_(rings), style_(style) {}

  // The work for one line, in strokes.
  long cost() const;
  // The pieces of the line through a point with a step of length 1, by way along it, in order.
  void pieces(HatchPoint at, HatchPoint step, std::vector<Piece>& out);

 private:
  struct Crossing {
    double way;
    std::size_t ring;
    bool operator<(const Crossing& other) const { return way < other.way; }
  };

  bool is_filled(std::size_t rings_around) const;

  const std::vector<DeviceArea::Ring>& rings_;
  int style_;
  std::vector<Crossing> crossings_;
  std::vector<bool> inside_;
};

// Draws with the pen that the device has. The strokes of one hatch are counted: a pattern that
// needs more than any device can show is drawn solid, and ends where even that is too much.
class HatchLines {
 public:
  // `box` bounds the lines, world units before the shift.
  HatchLines(CDC* dc, const CFCoor* coor, const PlaneBox& box, double dx, double dy);

  // Lines are cut to an area by `cuts`, or run through the whole box without.
  void cut_by(RingCuts* cuts) { cuts_ = cuts; }
  // All lines of a family that pass the box, the first through the point (x, y).
  void draw_family(const HATCH_PATTERN_DATA& family, double x, double y);
  // The line through a point, where its dashes start, in a direction (radians).
  void draw_line(const HATCH_PATTERN_DATA& family, double x, double y, double angle);

 private:
  struct Way;

  void draw_piece(const HATCH_PATTERN_DATA& family, HatchPoint at, HatchPoint step,
                  RingCuts::Piece piece);
  bool is_solid(const HATCH_PATTERN_DATA& family, double pattern_length, double length) const;
  void draw_dashes(const HATCH_PATTERN_DATA& family, double pattern_length, const Way& way);
  void stroke(CPoint from, CPoint to);

  CDC* dc_;
  DeviceArea area_;
  PlaneBox box_;
  RingCuts* cuts_ = nullptr;
  std::vector<RingCuts::Piece> pieces_;
  long strokes_left_ = 3000000;
};

}  // namespace brindle::Varnholt
