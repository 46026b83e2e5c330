// The blocks of rotated and aligned dimensions.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "brindle/dxf/dimension_block.h"
#include "brindle/dxf/dimension_builder_internal.h"
#include "brindle/dxf/dxf.h"
#include "brindle/geometry/helpers.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kNoLength = 1e-6;

struct MeasuredPoint {
  double x, y;
  double along = 0;  // on the dimension line's axis
};

// What a length is measured between and where its dimension line runs. Points are taken in single
// precision.
struct LengthGeometry {
  explicit LengthGeometry(const ACAD_DIMENSION& dim);

  MeasuredPoint left, right;  // as they lie along the axis
  bool swapped = false;       // the first measured point is the right one
  double line_x, line_y;      // on the dimension line
  double angle_deg;
  double length;
};

LengthGeometry::LengthGeometry(const ACAD_DIMENSION& dim)
    : left{static_cast<float>(dim.x13), static_cast<float>(dim.y13)},
      right{static_cast<float>(dim.x14), static_cast<float>(dim.y14)},
      line_x(static_cast<float>(dim.x10)),
      line_y(static_cast<float>(dim.y10)) {
  const bool rotated = dim.kind() == ACAD_DIMENSION::kRotated;
  angle_deg = tidy_angle(rotated ? dim.m_dAngle
                                 : get_line_angle(left.x, left.y, right.x, right.y) / kDegree);
  for (MeasuredPoint* point : {&left, &right}) {
    double x = point->x, y = point->y;
    rotate_coordinate(angle_deg * kDegree, &x, &y);
    point->along = x;
  }
  swapped = right.along < left.along;
  if (swapped) std::swap(left, right);
  length = right.along - left.along;
}

// From e1 before the measured point to e2 beyond the dimension line, at x of its frame. Where the
// point lies nearer to the line than e1, what is left is the stretch beyond it.
void add_extension(DimensionBuilder& builder, const DimFrame& frame, const LengthGeometry& geometry,
                   const MeasuredPoint& point, double x) {
  const double angle = geometry.angle_deg * kDegree;
  const double distance =
      get_dist_point_line(point.x, point.y, geometry.line_x, geometry.line_y, angle);
  const double visible = std::max(0.0, distance - builder.extension_offset());
  const int left =
      get_ChiCunJieXian_Left(point.x, point.y, angle, geometry.line_x, geometry.line_y);
  const double outwards = left != 0 ? 1 : -1;
  builder.extension_line(frame, x, -outwards * visible, x,
                         outwards * builder.extension_overshoot());
}

// The marks point outwards from between the extension lines, with their tips on these; where they
// don't fit in there, they point inwards from outside, each on a tail of twice its length.
void add_line_with_arrows(DimensionBuilder& builder, const DimFrame& frame, double length,
                          bool swapped, double (&tails)[2]) {
  const int first = swapped ? 1 : 0, second = 1 - first;
  const double reach[] = {builder.arrow(first).reach, builder.arrow(second).reach};
  const bool inside = reach[0] + reach[1] + (reach[0] + reach[1] > 0 ? builder.gap() : 0) <= length;
  const double over = builder.line_overshoot();
  builder.dimension_line(frame, -over, 0, length + over, 0);
  builder.arrow_mark(frame, first, 0, 0, inside ? 0 : 180);
  builder.arrow_mark(frame, second, length, 0, inside ? 180 : 0);
  tails[0] = tails[1] = over;
  if (inside) return;
  for (int end : {0, 1}) tails[end] = std::max(over, 2 * reach[end]);
  builder.dimension_line(frame, 0, 0, -tails[0], 0);
  builder.dimension_line(frame, length, 0, length + tails[1], 0);
}

}  // namespace

int DXF::Write_LengthDimVirtualBlock(const ACAD_DIMENSION* dim) {
  if (dim == nullptr) return 0;
  DimensionBuilder builder(*this, *dim);
  if (!builder.start()) return 0;
  const LengthGeometry geometry(*dim);
  if (geometry.length >= kNoLength && std::isfinite(geometry.length)) {
    // The dimension line starts at the foot of the left measured point.
    const double angle = geometry.angle_deg * kDegree;
    double foot_x = geometry.line_x, foot_y = geometry.line_y;
    rotate_coordinate(angle, &foot_x, &foot_y);
    foot_x = geometry.left.along;
    rotate_coordinate(-angle, &foot_x, &foot_y);
    const DimFrame frame(foot_x, foot_y, geometry.angle_deg);

    const bool hidden[] = {builder.style().DIMSE1 != 0, builder.style().DIMSE2 != 0};
    const int first = geometry.swapped ? 1 : 0;
    if (!hidden[first]) add_extension(builder, frame, geometry, geometry.left, 0);
    if (!hidden[1 - first])
      add_extension(builder, frame, geometry, geometry.right, geometry.length);
    double tails[2];
    add_line_with_arrows(builder, frame, geometry.length, geometry.swapped, tails);
    const double measured = geometry.length * dim->m_dLengthFactor;
    builder.text_on_line(frame, geometry.length, builder.words(measured, L"", L""), tails);
  }
  return keep_dimension_block(*dim, builder.take_block());
}

}  // namespace brindle
