// What the entities' Draw and HitTest share: the shared canvas and its pen style, colours, mapping,
// dash patterns, grips, and the test of a shape against a region.
#pragma once

#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

class CDC;
class CFCoor;
class CFRegion;
class CFShape;
class CSafeDC;

namespace Varnholt {

class ACAD_ENTITY;
class ACAD_LTYPE;

// Makes a device the shared canvas's for the life of the object; the one before comes back then.
// One thread draws at a time.
class CanvasScope {
 public:
  explicit CanvasScope(CDC* dc);
  ~CanvasScope();
  CanvasScope(const CanvasScope&) = delete;
  CanvasScope& operator=(const CanvasScope&) = delete;

  CSafeDC& canvas() const { return canvas_; }

 private:
  CSafeDC& canvas_;
  CDC* previous_;
};

// Gives the shared canvas an entity's pen style (GetPenStyle), and style 0 at the end.
class PenStyleScope {
 public:
  explicit PenStyleScope(const ACAD_ENTITY& entity);
  ~PenStyleScope();
  PenStyleScope(const PenStyleScope&) = delete;
  PenStyleScope& operator=(const PenStyleScope&) = delete;
};

// A line type's pattern in pixels, as ACAD_ENTITY::LineType_FP2DP gives it. `scale` is the
// entity's own; the drawing's comes on top.
class DashPattern {
 public:
  DashPattern(const ACAD_ENTITY& entity, ACAD_LTYPE* ltype, CFCoor* coor, double scale);
  ~DashPattern();
  DashPattern(const DashPattern&) = delete;
  DashPattern& operator=(const DashPattern&) = delete;

  int count() const { return count_; }
  int* data() const { return dashes_; }  // null for a solid line

 private:
  int count_ = 0;
  int* dashes_;
};

// Whether a device keeps a drawing's picture as a metafile; false for null.
bool is_metafile(const CDC* dc);
// Whether everything is drawn black: on a printer or metafile without the print colour flag.
bool draws_black(const CDC* dc);
// The colour (0x00bbggrr) that an entity is drawn in on the shared canvas: black where everything
// is, else GetColor of its own colour or of the index.
COLORREF drawing_color(const ACAD_ENTITY& entity);
COLORREF drawing_color(const ACAD_ENTITY& entity, int index);

// A world point, shifted and cut to single precision, in pixels (FP2toDP: without projection).
CPoint to_device(const CFCoor* coor, double x, double y, double dx, double dy);
// The box of a circle in pixels.
CRect circle_box(const CFCoor* coor, double x, double y, double radius);
// A world length in pixels cut to a whole number; 0 for NaN, the nearest int beyond an int's range.
int length_to_pixels(double pixels);

// The mark of a selected entity's key point: the outline of 7 by 7 pixels about it. Nothing outside
// of 0 to 2000 in x and y.
void draw_grip(CDC* dc, CPoint at);

// "fhx", "swx", "bzhjcx", "jdbzh", "pxbzh" in any case, and names that hold "ZDY_" (ZiDingYi: made
// by the user) in this case: lines with symbols, drawn by CSymbolLineDrawer.
bool is_symbol_line_type(const wchar_t* name);

// 1 when a shape lies in a region: both ends of a section; ends and middle of an arc; the four
// extreme points of a circle; the point of any other shape. Mode 0 also takes what meets an edge.
// 0 for a region without vertices.
int hit_shape(const CFShape& shape, const CFRegion& region, int mode);
// The same for an area: all corners inside, or for mode 0 anything in common.
int hit_area(const CFRegion& area, const CFRegion& region, int mode);

}  // namespace Varnholt
}  // namespace brindle
