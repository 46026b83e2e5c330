#include "brindle/geometry/rect.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "brindle/geometry/pixel_rounding.h"
#include "brindle/geometry/predicates.h"
#include "brindle/geometry/shape.h"

namespace brindle {
namespace {

// The corners counter-clockwise from (left, bottom).
struct Corners {
  explicit Corners(const CFRect& r)
      : points{{r.left, r.bottom, 0},
               {r.right, r.bottom, 0},
               {r.right, r.top, 0},
               {r.left, r.top, 0}} {}
  CFPoint points[4];
};

void extend(CFRect& box, double x, double y) {
  JH_Update_OutLook_Rect(&box.left, &box.bottom, &box.right, &box.top, static_cast<float>(x),
                         static_cast<float>(y));
}

CFRect section_box(float half, const CFShape& section) {
  CFRect box(section.GetStartPoint(), section.GetEndPoint());
  const double angle = section.GetStartAngle();
  const auto dx = static_cast<float>(std::fabs(half * std::sin(angle)));
  const auto dy = static_cast<float>(std::fabs(half * std::cos(angle)));
  box.Inflect(dx, dy, dx, dy);
  return box;
}

CFRect arc_box(float half, const CFShape& arc) {
  const double radius = arc.GetRadius(), start = arc.GetStartAngle(), end = arc.GetEndAngle();
  const double inner = radius - half, outer = radius + half;
  CFRect box;
  box.Init(static_cast<float>(arc.x + inner * std::cos(start)),
           static_cast<float>(arc.y + inner * std::sin(start)),
           static_cast<float>(arc.x + outer * std::cos(start)),
           static_cast<float>(arc.y + outer * std::sin(start)));
  extend(box, arc.x + inner * std::cos(end), arc.y + inner * std::sin(end));
  extend(box, arc.x + outer * std::cos(end), arc.y + outer * std::sin(end));

  // The predicate wants the arc counter-clockwise and its first angle reduced.
  const float first = JH_Set2PI(static_cast<float>(std::min(start, end)));
  const auto last = static_cast<float>(first + std::fabs(double{arc.b}));
  constexpr float kPi = 3.1415927f;
  constexpr struct {
    float angle;
    int dx, dy;
  } kAxes[] = {{0, 1, 0}, {kPi, -1, 0}, {kPi / 2, 0, 1}, {4.712389f, 0, -1}};
  for (const auto& axis : kAxes) {
    if (!JH_TestAngleInArc(axis.angle, first, last, 1e-8f)) continue;
    // Along its axis only: the other coordinate stays within the box.
    if (axis.dx) extend(box, arc.x + axis.dx * outer, box.bottom);
    if (axis.dy) extend(box, box.left, arc.y + axis.dy * outer);
  }
  return box;
}

}  // namespace

CFRect::CFRect(float width, CFShape& shape) : CFRect() {
  const float half = width / 2;
  if (shape.IsLine()) {
    *this = section_box(half, shape);
  } else if (shape.IsArc()) {
    *this = arc_box(half, shape);
  } else if (shape.IsCircle()) {
    const float reach = std::fabs(shape.r) + half;
    Init(shape.x - reach, shape.y - reach, shape.x + reach, shape.y + reach);
  } else {
    Init(shape, shape);
  }
}

void CFRect::Init(float x0, float y0, float x1, float y1) {
  left = std::min(x0, x1);
  bottom = std::min(y0, y1);
  right = std::max(x0, x1);
  top = std::max(y0, y1);
}

float CFRect::Area() const {
  return static_cast<float>(std::fabs(double{Width()}) * std::fabs(double{Height()}));
}

BOOL CFRect::IsFRectEmpty(float eps) const {
  return std::fabs(Width()) < eps || std::fabs(Height()) < eps;
}

BOOL CFRect::IsFRectNull(float eps) const {
  return std::fabs(left) < eps && std::fabs(bottom) < eps && std::fabs(right) < eps &&
         std::fabs(top) < eps;
}

BOOL CFRect::FpInFRect(float x, float y, float eps) const {
  return x - left >= -eps && eps >= x - right && y - bottom >= -eps && eps >= y - top;
}

BOOL CFRect::IntersectWith(const CFRect& r) const {
  for (const CFPoint& corner : Corners(*this).points) {
    if (r.FpInFRect(corner, 0)) return 1;
  }
  for (const CFPoint& corner : Corners(r).points) {
    if (FpInFRect(corner, 0)) return 1;
  }
  return 0;
}

BOOL CFRect::Contains(const CFRect& r) const {
  const Corners corners(r);
  return std::all_of(std::begin(corners.points), std::end(corners.points),
                     [this](const CFPoint& corner) { return FpInFRect(corner, 0); });
}

CFRect CFRect::IntersectFRect(const CFRect& r) const {
  if (!JH_TestCrossRegon_Rect(left, bottom, right, top, r.left, r.bottom, r.right, r.top, 1e-5f)) {
    return {};
  }
  return {std::max(left, r.left), std::max(bottom, r.bottom), std::min(right, r.right),
          std::min(top, r.top)};
}

CFRect CFRect::UnionFRect(const CFRect& r) const {
  return {std::min(left, r.left), std::min(bottom, r.bottom), std::max(right, r.right),
          std::max(top, r.top)};
}

CFRect& CFRect::operator+=(const CFPoint& p) {
  left += p.x;
  bottom += p.y;
  right += p.x;
  top += p.y;
  return *this;
}

CFRect& CFRect::operator-=(const CFPoint& p) {
  left -= p.x;
  bottom -= p.y;
  right -= p.x;
  top -= p.y;
  return *this;
}

void CFRect::OffSet(CSize size) {
  const auto cx = static_cast<float>(size.cx), cy = static_cast<float>(size.cy);
  Inflect(cx, cy, cx, cy);
}

void CFRect::Inflect(float l, float b, float r, float t) {
  left -= l;
  bottom -= b;
  right += r;
  top += t;
}

CFRect& CFRect::Rotate(const CFPoint& centre, double angle) {
  Corners corners(*this);
  for (CFPoint& corner : corners.points) corner.Rotate(centre, angle);
  Init(corners.points[0], corners.points[0]);
  for (const CFPoint& corner : corners.points) extend(*this, corner.x, corner.y);
  return *this;
}

CFRect::operator CRect() const {
  return {truncate_to_int(left), truncate_to_int(bottom), truncate_to_int(right),
          truncate_to_int(top)};
}

}  // namespace brindle
