// Gradient triangles of RasterDevice.
#include <algorithm>
#include <cmath>

#include "brindle/platform/graphics/raster_arithmetic_internal.h"
#include "brindle/platform/graphics/raster_clip_internal.h"
#include "brindle/platform/graphics/raster_device.h"

namespace brindle {
namespace {

// The left (right) side of a triangle on its way down: for each row the first pixel not left of it.
class TriangleSide {
 public:
  // From the upper to the lower point, which lies in a lower row.
  TriangleSide(CPoint upper, CPoint lower) : upper_(upper) {
    width_ = std::int64_t{lower.x} - upper.x, height_ = std::int64_t{lower.y} - upper.y;
    Quotient step = signed_multiply_divide(1, width_, height_);
    step_ = step.whole, step_rest_ = step.rest;
  }
  void start(int y) {
    const Quotient at = signed_multiply_divide(std::int64_t{y} - upper_.y, width_, height_);
    x_ = upper_.x + at.whole, rest_ = at.rest;
  }
  std::int64_t pixel() const { return x_ + (rest_ != 0); }
  void move_down() {
    x_ += step_, rest_ += step_rest_;
    if (rest_ >= height_) ++x_, rest_ -= height_;
  }

 private:
  CPoint upper_;
  std::int64_t width_, height_, step_ = 0, step_rest_ = 0, x_ = 0, rest_ = 0;
};

constexpr double kOne = 4294967296.0;  // colours run in 2^-32 of a step

// A colour part as a plane over the triangle.
struct ColorPlane {
  double base, dx, dy;
  std::int64_t step;

  // e1 and e2 run from the first corner to the others.
  ColorPlane(double c0, double c1, double c2, double e1x, double e1y, double e2x, double e2y,
             double area)
      : base(c0) {
    dx = ((c1 - c0) * e2y - (c2 - c0) * e1y) / area;
    dy = ((c2 - c0) * e1x - (c1 - c0) * e2x) / area;
    step = std::llrint(std::clamp(dx, -256.0, 256.0) * kOne);
  }
  // Rounded values only need their upper part afterwards.
  std::int64_t at(double x, double y) const {
    return std::llrint(std::clamp(base + dx * x + dy * y + 0.5, 0.0, 255.999) * kOne);
  }
};

std::uint32_t part(std::int64_t value) {
  return static_cast<std::uint32_t>(std::clamp<std::int64_t>(value >> 32, 0, 255));
}

class GradientTriangle {
 public:
  GradientTriangle(const GradientVertex& a, const GradientVertex& b, const GradientVertex& c)
      : corner_{&a, &b, &c} {}

  void paint(RasterBitmap& target, const RasterClip& clip) {
    std::sort(corner_, corner_ + 3,
              [](const GradientVertex* p, const GradientVertex* q) { return p->y < q->y; });
    const CPoint top = point(0), middle = point(1), bottom = point(2);
    const double e1x = double{1} * middle.x - top.x, e1y = double{1} * middle.y - top.y;
    const double e2x = double{1} * bottom.x - top.x, e2y = double{1} * bottom.y - top.y;
    const double area = e1x * e2y - e1y * e2x;
    if (area == 0 || top.y == bottom.y) return;
    if (bottom.y <= clip.box.top || top.y >= clip.box.bottom) return;
    const ColorPlane planes[3] = {{double{1} * corner_[0]->red, double{1} * corner_[1]->red,
                                   double{1} * corner_[2]->red, e1x, e1y, e2x, e2y, area},
                                  {double{1} * corner_[0]->green, double{1} * corner_[1]->green,
                                   double{1} * corner_[2]->green, e1x, e1y, e2x, e2y, area},
                                  {double{1} * corner_[0]->blue, double{1} * corner_[1]->blue,
                                   double{1} * corner_[2]->blue, e1x, e1y, e2x, e2y, area}};
    TriangleSide whole(top, bottom);
    // The corner in the middle lies left of the long side when the area is negative.
    const bool long_is_left = area > 0;
    const auto half = [&](CPoint upper, CPoint lower) {
      const int first = std::max<int>(upper.y, clip.box.top);
      const int end = std::min<int>(lower.y, clip.box.bottom);
      if (first >= end) return;
      TriangleSide side(upper, lower);
      whole.start(first), side.start(first);
      for (int y = first; y < end; ++y, whole.move_down(), side.move_down()) {
        const std::int64_t left = long_is_left ? whole.pixel() : side.pixel();
        const std::int64_t right = long_is_left ? side.pixel() : whole.pixel();
        clip.spans(y, left, right, [&](int row, int from, int to) {
          run(target.row(row), from, to, planes, double{1} * from - top.x, double{1} * row - top.y);
        });
      }
    };
    half(top, middle);
    half(middle, bottom);
  }

 private:
  CPoint point(int i) const { return {corner_[i]->x, corner_[i]->y}; }
  static void run(std::uint32_t* row, int from, int to, const ColorPlane (&planes)[3], double x,
                  double y) {
    std::int64_t red = planes[0].at(x, y), green = planes[1].at(x, y), blue = planes[2].at(x, y);
    for (int i = from; i < to; ++i) {
      row[i] = 0xff000000 | part(red) << 16 | part(green) << 8 | part(blue);
      red += planes[0].step, green += planes[1].step, blue += planes[2].step;
    }
  }

  const GradientVertex* corner_[3];
};

}  // namespace

void RasterDevice::gradient_triangles(const PaintState& state, const GradientVertex* vertices,
                                      int vertex_count, const unsigned* indexes, int triangles) {
  const RasterClip clip(*target_, state.clip);
  if (clip.empty()) return;
  const unsigned count = static_cast<unsigned>(std::max(vertex_count, 0));
  for (int i = 0; i < triangles; ++i, indexes += 3) {
    if (indexes[0] >= count || indexes[1] >= count || indexes[2] >= count) continue;
    GradientTriangle(vertices[indexes[0]], vertices[indexes[1]], vertices[indexes[2]])
        .paint(*target_, clip);
  }
}

}  // namespace brindle
