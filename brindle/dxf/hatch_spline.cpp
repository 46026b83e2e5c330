// Spline edges of hatch boundaries.
#include <algorithm>
#include <array>
#include <cmath>

#include "brindle/dxf/hatch_edge.h"

namespace brindle::Varnholt {
namespace {

constexpr int kMostDegree = 15;

// A control point in homogeneous coordinates.
struct WeightedPoint {
  double x = 0, y = 0, w = 1;
};

// The point of the spline at `t` in the span that begins at knot `span` (de Boor's scheme).
WeightedPoint point_at(const HATCH_SPLINE_EDGEDATA& spline, std::size_t degree, std::size_t span,
                       double t) {
  std::array<WeightedPoint, kMostDegree + 1> points;
  for (std::size_t i = 0; i <= degree; ++i) {
    const std::size_t at = span - degree + i;
    const HatchPoint& control = spline.m_Controls[at];
    const double w = spline.m_Weights.size() == spline.m_Controls.size() ? spline.m_Weights[at] : 1;
    points[i] = {control.x * w, control.y * w, w};
  }
  for (std::size_t level = 1; level <= degree; ++level) {
    for (std::size_t i = degree; i >= level; --i) {
      const double low = spline.m_Knots[span - degree + i];
      const double high = spline.m_Knots[span + 1 + i - level];
      const double part = high > low ? (t - low) / (high - low) : 0;
      WeightedPoint& to = points[i];
      const WeightedPoint& from = points[i - 1];
      to = {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part,
            from.w + (to.w - from.w) * part};
    }
  }
  return points[degree];
}

// Whether degree, knots and control points fit together.
bool is_sound(const HATCH_SPLINE_EDGEDATA& spline) {
  const std::size_t controls = spline.m_Controls.size();
  if (spline.m_nDegree < 1 || spline.m_nDegree > kMostDegree) return false;
  const auto degree = static_cast<std::size_t>(spline.m_nDegree);
  if (controls <= degree || spline.m_Knots.size() < controls + degree + 1) return false;
  return std::is_sorted(spline.m_Knots.begin(), spline.m_Knots.end()) &&
         std::all_of(spline.m_Knots.begin(), spline.m_Knots.end(),
                     [](double knot) { return std::isfinite(knot); });
}

}  // namespace

bool HATCH_SPLINE_EDGEDATA::take(const DxfPair& pair) {
  switch (pair.code) {
    case 94:
      m_nDegree = DxfPairReader::integer(pair);
      return true;
    case 73:
      m_bRational = DxfPairReader::integer(pair);
      return true;
    case 74:
      m_bPeriodic = DxfPairReader::integer(pair);
      return true;
    case 40:
      m_Knots.push_back(DxfPairReader::real(pair));
      return true;
    case 10:
      m_Controls.push_back({DxfPairReader::real(pair), 0});
      return true;
    case 20:
      if (!m_Controls.empty()) m_Controls.back().y = DxfPairReader::real(pair);
      return true;
    case 42:
      m_Weights.push_back(DxfPairReader::real(pair));
      return true;
    // The numbers of knots and control points, told by those that come; points and tangents that
    // the spline was fitted to.
    case 95:
    case 96:
    case 11:
    case 21:
    case 12:
    case 22:
    case 13:
    case 23:
      return true;
    default:
      return false;
  }
}

void HATCH_SPLINE_EDGEDATA::write_to(DxfPairWriter& writer) const {
  const bool weighted = !m_Weights.empty() && m_Weights.size() == m_Controls.size();
  writer.group(72, GetType());
  writer.group(94, m_nDegree);
  writer.group(73, m_bRational);
  writer.group(74, m_bPeriodic);
  writer.group(95, static_cast<int>(m_Knots.size()));
  writer.group(96, static_cast<int>(m_Controls.size()));
  for (double knot : m_Knots) writer.group(40, knot);
  for (std::size_t i = 0; i < m_Controls.size(); ++i) {
    writer.group(10, m_Controls[i].x);
    writer.group(20, m_Controls[i].y);
    if (weighted) writer.group(42, m_Weights[i]);
  }
}

void HATCH_SPLINE_EDGEDATA::transfer(const PlaneMap& map) {
  for (HatchPoint& control : m_Controls) control = map.point(control);
}

void HATCH_SPLINE_EDGEDATA::flatten(std::vector<HatchPoint>& points, const Flattening& how) const {
  if (!is_sound(*this)) {
    points.insert(points.end(), m_Controls.begin(), m_Controls.end());
    return;
  }
  const auto degree = static_cast<std::size_t>(m_nDegree);
  const std::size_t spans = m_Controls.size() - degree;
  const std::size_t most = static_cast<std::size_t>(std::max(how.most_chords, 1));
  const int chords = static_cast<int>(std::clamp<std::size_t>(4 * most / spans, 2, 32));
  const auto add = [&](const WeightedPoint& p) { points.push_back({p.x / p.w, p.y / p.w}); };
  std::size_t last = degree;
  for (std::size_t span = degree; span < m_Controls.size(); ++span) {
    const double low = m_Knots[span], high = m_Knots[span + 1];
    if (!(high > low)) continue;
    last = span;
    for (int i = 0; i < chords; ++i) {
      add(point_at(*this, degree, span, low + (high - low) * i / chords));
    }
  }
  add(point_at(*this, degree, last, m_Knots[m_Controls.size()]));
}

}  // namespace brindle::Varnholt
