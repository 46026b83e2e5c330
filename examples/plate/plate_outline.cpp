#include "examples/plate/plate_outline.h"

#include <algorithm>
#include <cmath>

namespace brindle::plate {
namespace {

// Paper millimetres.
constexpr float kFixedStroke = 2, kSimpleInside = 1.5f, kDash = 3;

struct Place {
  float x, y;
};

class SlabPicture {
 public:
  SlabPicture(CBase_SGT& pen, double unit) : pen_(pen), unit_(unit), s_(pen.m_fBiLiChi) {}

  // `turn` is 1 to run counter-clockwise, -1 for clockwise: the slab then lies on the left.
  void ring(const Ring& ring, int turn) {
    const size_t n = ring.points.size();
    const bool forward = ring_area(ring) * turn > 0;
    for (size_t i = 0; i < n; ++i) {
      Place a = place(ring.points[i]), b = place(ring.points[(i + 1) % n]);
      if (!forward) std::swap(a, b);
      edge(a, b, ring.edges[i]);
    }
  }

  void cross(const Ring& ring) {
    if (ring.points.size() != 4) return;
    for (const size_t i : {size_t{0}, size_t{1}}) {
      const Place a = place(ring.points[i]), b = place(ring.points[i + 2]);
      pen_.Draw_Line(a.x, a.y, b.x, b.y);
    }
  }

  void column(const Column& column) {
    const Place c = place(column.centre);
    const auto dx = static_cast<float>(column.width / 2 * unit_);
    const auto dy = static_cast<float>(column.depth / 2 * unit_);
    pen_.Draw_Solid(c.x - dx, c.y - dy, c.x + dx, c.y - dy, c.x - dx, c.y + dy, c.x + dx, c.y + dy);
  }

 private:
  Place place(Point p) const {
    return {static_cast<float>(p.x * unit_), static_cast<float>(p.y * unit_)};
  }

  void edge(Place a, Place b, Edge kind) {
    if (kind == Edge::kFixed) {
      pen_.Draw_TuMianXian(a.x, a.y, b.x, b.y, kFixedStroke * s_, 1);
      return;
    }
    pen_.Draw_Pline(a.x, a.y, b.x, b.y, pen_.m_fBiKuan05, pen_.m_fBiKuan05);
    if (kind == Edge::kFree) return;
    const float length = std::hypot(b.x - a.x, b.y - a.y), in = kSimpleInside * s_ / length;
    const float x = -(b.y - a.y) * in, y = (b.x - a.x) * in;
    pen_.Push_ENV();
    pen_.SetCurLType(L"DASHED");
    pen_.Draw_Line(a.x + x, a.y + y, b.x + x, b.y + y, kDash * s_);
    pen_.Pop_ENV();
  }

  CBase_SGT& pen_;
  double unit_;
  float s_;
};

}  // namespace

Box bounding_box(const Ring& ring) {
  Box box{ring.points[0].x, ring.points[0].y, ring.points[0].x, ring.points[0].y};
  for (const Point& p : ring.points) {
    box.left = std::min(box.left, p.x), box.right = std::max(box.right, p.x);
    box.bottom = std::min(box.bottom, p.y), box.top = std::max(box.top, p.y);
  }
  return box;
}

void draw_slab(CBase_SGT& pen, const PlateInput& plate, double unit) {
  SlabPicture picture(pen, unit);
  picture.ring(plate.outline, 1);
  for (const Ring& opening : plate.openings) {
    picture.ring(opening, -1);
    picture.cross(opening);
  }
  for (const Column& column : plate.columns) picture.column(column);
}

}  // namespace brindle::plate
