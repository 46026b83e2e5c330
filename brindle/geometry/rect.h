// CFRect: an axis-parallel box in world units, y upwards, single precision.
#pragma once

#include "brindle/geometry/point.h"
#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

class CFShape;

// What takes coordinates puts them in order: left is at most right, bottom at most top. Queries
// return 1 or 0.
class CFRect {
 public:
  constexpr CFRect() : left(0), bottom(0), right(0), top(0) {}
  CFRect(float x0, float y0, float x1, float y1) { Init(x0, y0, x1, y1); }
  // Of the points only x and y count.
  CFRect(const CFPoint& p, const CFPoint& q) { Init(p, q); }
  // The box of a shape drawn with a pen `width` wide: a section, an arc, a circle, or the bare
  // point for anything else. The ends are cut straight.
  CFRect(float width, CFShape& shape);

  void Init(float x0, float y0, float x1, float y1);
  void Init(const CFPoint& p, const CFPoint& q) { Init(p.x, p.y, q.x, q.y); }
  void SetFRect(float x0, float y0, float x1, float y1) { Init(x0, y0, x1, y1); }
  void SetFRect(const CFPoint& p, const CFPoint& q) { Init(p, q); }

  float Width() const { return right - left; }
  float Height() const { return top - bottom; }
  float Area() const;
  // The corners (left, bottom, 0) and (right, top, 0).
  CFPoint Nearest() const { return {left, bottom, 0}; }
  CFPoint Furthest() const { return {right, top, 0}; }

  // One side below `eps` is enough; strict, so no box is empty for eps 0.
  BOOL IsFRectEmpty(float eps) const;
  // All four coordinates are below `eps` in magnitude.
  BOOL IsFRectNull(float eps) const;
  // The closed box, wider by `eps` on each side, holds the point.
  BOOL FpInFRect(float x, float y, float eps) const;
  BOOL FpInFRect(const CFPoint& p, float eps) const { return FpInFRect(p.x, p.y, eps); }
  // A corner of one box lies in the other. Boxes that cross without that count as apart: meant so.
  BOOL IntersectWith(const CFRect& r) const;
  // All corners of `r` lie in this box.
  BOOL Contains(const CFRect& r) const;

  // The common part of boxes that meet within 1e-5, else the zero box.
  CFRect IntersectFRect(const CFRect& r) const;
  CFRect operator&(const CFRect& r) const { return IntersectFRect(r); }
  // The box around both. A zero box isn't taken as absent: it pulls the result to the origin.
  CFRect UnionFRect(const CFRect& r) const;
  CFRect operator|(const CFRect& r) const { return UnionFRect(r); }

  CFRect& operator+=(const CFPoint& p);
  CFRect& operator-=(const CFPoint& p);
  // Grows the box by the size on every side, whatever the name says; not a move.
  void OffSet(CSize size);
  // Moves each side outwards by its number.
  void Inflect(float l, float b, float r, float t);
  // Becomes the box around this one turned about `centre` by `angle` radians, counter-clockwise.
  CFRect& Rotate(const CFPoint& centre, double angle);

  // Left, bottom, right, top, each cut towards zero, become left, top, right, bottom. What an int
  // can't hold becomes its lowest value.
  operator CRect() const;

  float left, bottom, right, top;
};

}  // namespace brindle
