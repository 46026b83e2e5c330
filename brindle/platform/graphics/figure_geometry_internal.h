// The geometry that devices without pixels share: parts of figures inside of a range, arcs,
// outlines of regions, patches of a gradient.
#pragma once

#include <functional>
#include <vector>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {

struct FigurePoint {
  double x = 0, y = 0;
};

// Closed rings, all in one.
struct Rings {
  std::vector<CPoint> points;
  std::vector<int> counts;
};

// The coordinate, held in -limit to limit.
int held_in(int coordinate, int limit);
bool in_range(CPoint point, int limit);
bool in_range(const CPoint* points, int count, int limit);
// The part of a line within -limit to limit each way; false when there is none.
bool cut_line(CPoint& from, CPoint& to, int limit);
// The part of each ring there; a ring that lies outside is gone.
Rings cut_rings(const CPoint* points, const int* counts, int rings, int limit);

// The box that an outline of the framework's figures runs along: without the last row and column.
CRect outline_box(CRect box);

// An arc as the framework tells it, counter-clockwise as seen: at the parameter t its point is
// (cx + rx cos t, cy - ry sin t), for t from `start` over `sweep` > 0, at most a full turn.
struct EllipseArc {
  double cx = 0, cy = 0, rx = 0, ry = 0, start = 0, sweep = 0;

  EllipseArc(const CRect& box, CPoint from, CPoint to);
  FigurePoint at(double t) const;
  FigurePoint first() const { return at(start); }
  FigurePoint last() const { return at(start + sweep); }
};
// Chords that leave the arc by at most a quarter of a unit (2 to 512 of them); with the centre as
// the last corner for a pie.
std::vector<CPoint> arc_corners(const EllipseArc& arc, PaintDevice::ArcForm form);

// The edge of a region, to be filled in ALTERNATE mode. With `smooth`, the stairs of slanting edges
// become straight lines that leave them by about a unit.
Rings region_outline(const RegionData& region, bool smooth);

// Cuts gradient triangles into patches of one colour, steps of at most 8 of 255 a part, and hands
// them out by colour: three corners a patch. Indexes out of range are passed over.
void for_each_patch(const GradientVertex* vertices, int vertex_count, const unsigned* indexes,
                    int triangles,
                    const std::function<void(COLORREF, const std::vector<FigurePoint>&)>& draw);

// Lengths drawn and left out in turn, in device units; empty for a pen that draws solid lines, as
// wide ones do unless they are PS_GEOMETRIC.
std::vector<double> dash_lengths(const PenData& pen);

// A family of a hatch brush's lines: where a x + b y is `offset` or differs from it by a multiple
// of kHatchPeriod, x and y counted from the brush's origin in pixels of a screen.
struct HatchFamily {
  int a, b;
  double offset;
};
inline constexpr int kHatchPeriod = 8;
std::vector<HatchFamily> hatch_families(int hatch);

// The colour that `rop2` draws on paper where nothing can be read back: what depends on what lies
// below gives the pen's colour, or black where it has none. False for R2_NOP.
bool plain_color(int rop2, COLORREF& color);

}  // namespace brindle
