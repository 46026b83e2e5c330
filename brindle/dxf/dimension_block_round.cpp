// The blocks of radial and angular dimensions.
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

// An angle in degrees between two sides, counter-clockwise from start to end.
struct AngleGeometry {
  explicit AngleGeometry(const ACAD_DIMENSION& dim);
  bool is_drawable() const {
    return radius >= kNoLength && sweep >= kNoLength && std::isfinite(radius + sweep);
  }

  double x, y;             // vertex
  double radius;           // of the dimension's arc
  double start, sweep;     // degrees
  double side_lengths[2];  // from the vertex to the point on the side, at the start and at the end
  bool swapped = false;    // the start is the second side
};

// The arc is the one of the two between the sides on which the definition point lies.
AngleGeometry::AngleGeometry(const ACAD_DIMENSION& dim)
    : x(static_cast<float>(dim.x15)), y(static_cast<float>(dim.y15)) {
  const double first_x = static_cast<float>(dim.x13), first_y = static_cast<float>(dim.y13);
  const double second_x = static_cast<float>(dim.x14), second_y = static_cast<float>(dim.y14);
  const double on_x = static_cast<float>(dim.x10), on_y = static_cast<float>(dim.y10);
  radius = get_dist(x, y, on_x, on_y);
  start = get_line_angle(x, y, first_x, first_y) / kDegree;
  double end = get_line_angle(x, y, second_x, second_y) / kDegree;
  const double through = get_line_angle(x, y, on_x, on_y) / kDegree;
  sweep = fold_angle(end - start);
  swapped = fold_angle(through - start) > sweep;
  if (swapped) {
    std::swap(start, end);
    sweep = fold_angle(end - start);
  }
  side_lengths[0] = get_dist(x, y, first_x, first_y);
  side_lengths[1] = get_dist(x, y, second_x, second_y);
  if (swapped) std::swap(side_lengths[0], side_lengths[1]);
}

// Along a side, from e1 off the point on it to e2 beyond the arc.
void add_side(DimensionBuilder& builder, const AngleGeometry& geometry, double angle_deg,
              double side_length) {
  const DimFrame side(geometry.x, geometry.y, angle_deg);
  const double outwards = side_length <= geometry.radius ? 1 : -1;
  const double visible =
      std::max(0.0, std::fabs(geometry.radius - side_length) - builder.extension_offset());
  builder.extension_line(side, geometry.radius - outwards * visible, 0,
                         geometry.radius + outwards * builder.extension_overshoot(), 0);
}

// The angle at the vertex of a chord of this length, in degrees.
double chord_angle(double chord, double radius) {
  return 2 * std::asin(std::clamp(chord / (2 * radius), -1.0, 1.0)) / kDegree;
}

// An arrow lies along the chord of the arc that it covers, so that tip and tail are on the arc.
// Whether the arrows fit between the sides.
bool add_arc_with_arrows(DimensionBuilder& builder, const AngleGeometry& geometry) {
  const int first = geometry.swapped ? 1 : 0, second = 1 - first;
  const double reach[] = {builder.arrow(first).reach, builder.arrow(second).reach};
  const double arc_length = geometry.radius * geometry.sweep * kDegree;
  const bool inside =
      reach[0] + reach[1] + (reach[0] + reach[1] > 0 ? builder.gap() : 0) <= arc_length;
  const double end = geometry.start + geometry.sweep;
  const double chords[] = {chord_angle(reach[0], geometry.radius),
                           chord_angle(reach[1], geometry.radius)};
  // In the frame of a side the arc runs along +y at the start, and comes along +y at the end.
  const DimFrame at_start(geometry.x, geometry.y, geometry.start);
  const DimFrame at_end(geometry.x, geometry.y, end);
  builder.arrow_mark(at_start, first, geometry.radius, 0,
                     inside ? 90 + chords[0] / 2 : -90 - chords[0] / 2);
  builder.arrow_mark(at_end, second, geometry.radius, 0,
                     inside ? -90 - chords[1] / 2 : 90 + chords[1] / 2);
  // Outside marks stand on tails of twice their length.
  const double before = inside ? 0 : 2 * chords[0], behind = inside ? 0 : 2 * chords[1];
  const double most = 360 - geometry.sweep;  // tails must not meet behind the vertex
  const double fitting = before + behind > most ? most / (before + behind) : 1;
  builder.dimension_arc(geometry.x, geometry.y, geometry.radius, geometry.start - before * fitting,
                        end + behind * fitting);
  return inside;
}

// The text stands on a tangent of the arc whose x axis runs clockwise, so that above it is outside
// of the arc: in the middle, or at an end for a text that stands beside the arc, with a line under
// it where no tail is. On the hollow side it moves away by as much as the arc rises towards its
// ends.
void add_angle_text(DimensionBuilder& builder, const ACAD_DIMENSION& dim,
                    const AngleGeometry& geometry, bool has_tails) {
  const std::wstring words = builder.words(geometry.sweep, L"", L"\u00b0");
  const double width = builder.width_of(words);
  const double length = geometry.radius * geometry.sweep * kDegree;
  const double middle = geometry.start + geometry.sweep / 2;
  const auto place_for = [&](double angle_deg) {
    return Cal_Text_Position(builder.style(), dim.m_dScale, dim.m_szTextPos, length, angle_deg,
                             width);
  };
  // Whether the text stands beside the arc is told as it reads in the middle.
  const double middle_angle = tidy_angle(middle - 90);
  const double from = place_for(middle_angle).x - (is_upside(middle_angle) ? width : 0);
  const bool before = from + width <= kNoLength, behind = from >= length - kNoLength;

  const double at = before ? geometry.start + geometry.sweep : behind ? geometry.start : middle;
  const DimFrame side(geometry.x, geometry.y, at);
  const DimFrame tangent(side.world_x(geometry.radius, 0), side.world_y(geometry.radius, 0),
                         at - 90);
  const bool upside = is_upside(tangent.angle_deg());
  const DimTextPlace place = place_for(tangent.angle_deg());
  const double left = before ? -width : behind ? 0 : -width / 2;
  double y = place.y;
  if (before || behind) {
    if (!has_tails) builder.dimension_line(tangent, 0, 0, before ? -width : width, 0);
  } else if (upside ? y <= 0 : y < 0) {
    const double half = std::min(width / 2, geometry.radius);
    y -= geometry.radius - std::sqrt(geometry.radius * geometry.radius - half * half);
  }
  builder.text(tangent, upside ? left + width : left, y, place.angle_deg, words);
}

}  // namespace

// The line runs from the centre to the point on the arc, which the mark touches from within; where
// it doesn't fit in there, it touches from outside on a tail of twice its length. The text stands
// on the line; its length for the file, m_dLeader, plays no part.
int DXF::Write_RadiusDimVirtualBlock(const ACAD_DIMENSION* dim) {
  if (dim == nullptr) return 0;
  DimensionBuilder builder(*this, *dim);
  if (!builder.start()) return 0;
  const double x = static_cast<float>(dim->x10), y = static_cast<float>(dim->y10);
  const double on_x = static_cast<float>(dim->x15), on_y = static_cast<float>(dim->y15);
  const double radius = get_dist(x, y, on_x, on_y);
  if (radius >= kNoLength && std::isfinite(radius)) {
    const DimFrame frame(x, y, get_line_angle(x, y, on_x, on_y) / kDegree);
    constexpr int kEnd = 1;
    const double reach = builder.arrow(kEnd).reach;
    const bool inside = reach + builder.gap() <= radius;
    double tails[] = {0, inside ? 0 : 2 * reach};
    builder.dimension_line(frame, 0, 0, radius + tails[1], 0);
    builder.arrow_mark(frame, kEnd, radius, 0, inside ? 180 : 0);
    const double measured = radius * dim->m_dLengthFactor;
    builder.text_on_line(frame, radius, builder.words(measured, L"R", L""), tails);
  }
  return keep_dimension_block(*dim, builder.take_block());
}

int DXF::Write_AngularDimVirtualBlock(const ACAD_DIMENSION* dim) {
  if (dim == nullptr) return 0;
  DimensionBuilder builder(*this, *dim);
  if (!builder.start()) return 0;
  const AngleGeometry geometry(*dim);
  if (geometry.is_drawable()) {
    const double end = geometry.start + geometry.sweep;
    const bool hidden[] = {builder.style().DIMSE1 != 0, builder.style().DIMSE2 != 0};
    const int first = geometry.swapped ? 1 : 0;
    if (!hidden[first]) add_side(builder, geometry, geometry.start, geometry.side_lengths[0]);
    if (!hidden[1 - first]) add_side(builder, geometry, end, geometry.side_lengths[1]);
    const bool inside = add_arc_with_arrows(builder, geometry);
    add_angle_text(builder, *dim, geometry, !inside);
  }
  return keep_dimension_block(*dim, builder.take_block());
}

}  // namespace brindle
