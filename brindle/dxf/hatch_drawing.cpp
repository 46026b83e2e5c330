#include <algorithm>
#include <cmath>

#include "brindle/dxf/acad_hatch.h"
#include "brindle/dxf/hatch_drawing_internal.h"
#include "brindle/platform/graphics/dc.h"

namespace brindle::Varnholt {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;
// Lines of one family, and dashes of one line, that a device shows at most.
constexpr double kMostRows = 20000;
constexpr double kMostDashes = 50000;
// Below so many pixels the dashes of a pattern run together.
constexpr double kLeastPatternPixels = 2;

PlaneBox common_part(PlaneBox a, const PlaneBox& b) {
  a.left = std::max(a.left, b.left);
  a.right = std::min(a.right, b.right);
  a.bottom = std::max(a.bottom, b.bottom);
  a.top = std::min(a.top, b.top);
  return a;
}

// Cuts the range of t in which at + t * step lies between two bounds.
void cut_range(double at, double step, double low, double high, double& first, double& last) {
  if (step == 0) {
    if (!(at >= low && at <= high)) last = first - 1;
    return;
  }
  const double a = (low - at) / step, b = (high - at) / step;
  first = std::max(first, std::min(a, b));
  last = std::min(last, std::max(a, b));
}

}  // namespace

// The visible piece of a line: from `first` to `last` along it, and where its ends are.
struct HatchLines::Way {
  double first, last;
  CPoint from, to;

  CPoint at(double t) const {
    const double part = (t - first) / (last - first);
    return CPoint(ACAD_HATCH::Cell(from.x + (static_cast<double>(to.x) - from.x) * part),
                  ACAD_HATCH::Cell(from.y + (static_cast<double>(to.y) - from.y) * part));
  }
};

void RingCuts::pieces(HatchPoint at, HatchPoint step, std::vector<Piece>& out) {
  crossings_.clear();
  inside_.assign(rings_.size(), false);
  out.clear();
  for (std::size_t ring = 0; ring < rings_.size(); ++ring) {
    const DeviceArea::Ring& points = rings_[ring];
    HatchPoint from = points.back();
    double from_side = step.x * (from.y - at.y) - step.y * (from.x - at.x);
    for (const HatchPoint& to : points) {
      const double to_side = step.x * (to.y - at.y) - step.y * (to.x - at.x);
      // A corner on the line belongs to its left side, so that it is crossed once or not at all.
      if ((from_side < 0) != (to_side < 0)) {
        const double part = from_side / (from_side - to_side);
        crossings_.push_back({step.x * (from.x + (to.x - from.x) * part - at.x) +
                                  step.y * (from.y + (to.y - from.y) * part - at.y),
                              ring});
      }
      from = to;
      from_side = to_side;
    }
  }
  std::sort(crossings_.begin(), crossings_.end());
  std::size_t around = 0;
  for (const Crossing& crossing : crossings_) {
    const bool before = is_filled(around);
    const bool entered = !inside_[crossing.ring];
    inside_[crossing.ring] = entered;
    entered ? ++around : --around;
    if (is_filled(around) == before) continue;
    if (before) {
      out.back().last = crossing.way;
    } else {
      out.push_back({crossing.way, crossing.way});
    }
  }
}

long RingCuts::cost() const {
  constexpr std::size_t kPointsPerStroke = 32;
  std::size_t points = 0;
  for (const DeviceArea::Ring& ring : rings_) points += ring.size();
  return static_cast<long>(points / kPointsPerStroke);
}

bool RingCuts::is_filled(std::size_t rings_around) const {
  if (style_ == 0) return rings_around % 2 == 1;
  return style_ == 1 ? rings_around == 1 : rings_around > 0;
}

HatchLines::HatchLines(CDC* dc, const CFCoor* coor, const PlaneBox& box, double dx, double dy)
    : dc_(dc), area_(dc, coor, dx, dy), box_(common_part(box, area_.world())) {}

void HatchLines::draw_family(const HATCH_PATTERN_DATA& family, double x, double y) {
  const double angle = family.m_dAngle * kDegree;
  const double sine = std::sin(angle), cosine = std::cos(angle);
  const double spacing = std::fabs(family.m_dOffsetY);
  if (box_.empty() || !std::isfinite(x + y + sine)) return;
  if (!(spacing > 0)) {
    draw_line(family, x, y, angle);
    return;
  }
  // How far the box reaches from the point across the lines, in their order.
  double low = 0, high = 0;
  bool any = false;
  for (double corner_x : {box_.left, box_.right}) {
    for (double corner_y : {box_.bottom, box_.top}) {
      const double across = (corner_x - x) * sine - (corner_y - y) * cosine;
      low = any ? std::min(low, across) : across;
      high = any ? std::max(high, across) : across;
      any = true;
    }
  }
  double every = 1;
  if (spacing < area_.pixel()) every = std::ceil(area_.pixel() / spacing);
  every = std::max(every, std::ceil((high - low) / spacing / kMostRows));
  const double first = std::ceil(low / spacing / every), last = std::floor(high / spacing / every);
  if (!(std::fabs(first) < 1e15 && std::fabs(last) < 1e15)) return;
  const double shift = family.m_dOffsetY > 0 ? -family.m_dOffsetX : family.m_dOffsetX;
  for (double i = first; i <= last && strokes_left_ > 0; ++i) {
    const double row = i * every;
    draw_line(family, x + sine * row * spacing + cosine * row * shift,
              y - cosine * row * spacing + sine * row * shift, angle);
  }
}

void HatchLines::draw_line(const HATCH_PATTERN_DATA& family, double x, double y, double angle) {
  double step_x = std::cos(angle), step_y = std::sin(angle);
  // A line along an axis must not leave the box by rounding.
  if (std::fabs(step_x) < 1e-12) step_x = 0;
  if (std::fabs(step_y) < 1e-12) step_y = 0;
  RingCuts::Piece whole{-1e300, 1e300};
  if (box_.empty() || !std::isfinite(x + y + step_x)) return;
  cut_range(x, step_x, box_.left, box_.right, whole.first, whole.last);
  cut_range(y, step_y, box_.bottom, box_.top, whole.first, whole.last);
  if (!(whole.first < whole.last) || !std::isfinite(whole.last - whole.first)) return;
  pieces_.assign(1, whole);
  --strokes_left_;
  if (cuts_ != nullptr) {
    strokes_left_ -= cuts_->cost();
    cuts_->pieces({x, y}, {step_x, step_y}, pieces_);
  }
  for (const RingCuts::Piece& piece : pieces_) {
    const RingCuts::Piece shown{std::max(piece.first, whole.first),
                                std::min(piece.last, whole.last)};
    if (shown.first < shown.last) draw_piece(family, {x, y}, {step_x, step_y}, shown);
  }
}

void HatchLines::draw_piece(const HATCH_PATTERN_DATA& family, HatchPoint at, HatchPoint step,
                            RingCuts::Piece piece) {
  const auto pixel_at = [&](double t) {
    return area_.to_device({at.x + step.x * t, at.y + step.y * t});
  };
  const Way way{piece.first, piece.last, pixel_at(piece.first), pixel_at(piece.last)};
  double pattern_length = 0;
  for (double dash : family.m_Dashes) pattern_length += std::fabs(dash);
  if (is_solid(family, pattern_length, way.last - way.first)) {
    stroke(way.from, way.to);
  } else {
    draw_dashes(family, pattern_length, way);
  }
}

bool HatchLines::is_solid(const HATCH_PATTERN_DATA& family, double pattern_length,
                          double length) const {
  const auto dashes = static_cast<double>(family.m_Dashes.size());
  return dashes == 0 || !(pattern_length >= kLeastPatternPixels * area_.pixel()) ||
         !(length / pattern_length * dashes < kMostDashes);
}

void HatchLines::draw_dashes(const HATCH_PATTERN_DATA& family, double pattern_length,
                             const Way& way) {
  double round = std::floor(way.first / pattern_length);
  if (!(std::fabs(round) < 1e15)) return;
  for (; strokes_left_ > 0; ++round) {
    double from = round * pattern_length;
    if (!(from < way.last)) return;
    for (double dash : family.m_Dashes) {
      const double to = from + std::fabs(dash);
      --strokes_left_;
      if (dash == 0 && from >= way.first && from <= way.last) {
        const CPoint dot = way.at(from);
        stroke(dot, CPoint(wrap_add(dot.x, 1), dot.y));
      } else if (dash > 0 && to > way.first && from < way.last) {
        stroke(way.at(std::max(from, way.first)), way.at(std::min(to, way.last)));
      }
      from = to;
    }
  }
}

void HatchLines::stroke(CPoint from, CPoint to) {
  --strokes_left_;
  dc_->MoveTo(from);
  dc_->LineTo(to);
}

}  // namespace brindle::Varnholt
