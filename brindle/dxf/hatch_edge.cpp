#include "brindle/dxf/hatch_edge.h"

#include <algorithm>
#include <cmath>

#include "brindle/platform/base/code_page.h"

namespace brindle::Varnholt {
namespace {

constexpr double kTurn = 360;
constexpr double kPi = 3.14159265358979323846;
constexpr double kDegree = kPi / 180;

bool is_finite(HatchPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

// The angle from start on, above 0 and one turn at most; 0 for angles that are no numbers.
double sweep_of(double start, double end) {
  const double way = end - start;
  if (!std::isfinite(way)) return 0;
  if (way > 0) return std::min(way, kTurn);
  const double folded = std::fmod(way, kTurn);
  return folded < 0 ? folded + kTurn : kTurn;
}

int chord_count(double radius, double sweep_deg, const Flattening& how) {
  const int most = std::max(how.most_chords, 1);
  const double turns = sweep_deg / kTurn;
  double chords = std::max(most * turns, 8.0);  // a flat arc too must show its rise
  if (how.tolerance > 0) {
    // A chord of half-angle h stands off by radius (1 - cos h).
    const double half_angle = std::acos(std::max(0.0, 1 - how.tolerance / radius));
    chords = half_angle > 0 ? turns * kPi / half_angle : most;
  }
  const double least = std::ceil(8 * turns);
  return static_cast<int>(std::min(std::max({chords, least, 1.0}), static_cast<double>(most)));
}

// Points of centre + u cos t + v sin t, t from start by sweep (degrees).
void flatten_ellipse(std::vector<HatchPoint>& points, HatchPoint centre, HatchPoint u, HatchPoint v,
                     double start, double sweep, const Flattening& how) {
  const double size = std::max(std::hypot(u.x, u.y), std::hypot(v.x, v.y));
  if (!is_finite(centre) || !std::isfinite(size) || !(sweep > 0)) return;
  const int chords = chord_count(size, sweep, how);
  for (int i = 0; i <= chords; ++i) {
    const double t = (start + sweep * i / chords) * kDegree;
    const double cosine = std::cos(t), sine = std::sin(t);
    points.push_back({centre.x + u.x * cosine + v.x * sine, centre.y + u.y * cosine + v.y * sine});
  }
}

}  // namespace

template <class T>
PlaneMap PlaneMap::of(const T* rot, const T* move, const T* scale) {
  constexpr T kUnit[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  const T* const r = rot != nullptr ? rot : kUnit;
  const T* const s = scale != nullptr ? scale : kUnit;
  const auto product = [&](int row, int column) {
    double sum = 0;
    for (int i = 0; i < 3; ++i) {
      sum += static_cast<double>(s[3 * row + i]) * static_cast<double>(r[3 * i + column]);
    }
    return sum;
  };
  PlaneMap map;
  map.xx = product(0, 0);
  map.xy = product(0, 1);
  map.yx = product(1, 0);
  map.yy = product(1, 1);
  if (move != nullptr) {
    map.x0 = static_cast<double>(move[0]);
    map.y0 = static_cast<double>(move[1]);
  }
  map.size = std::fabs(static_cast<double>(s[0]));
  return map;
}
template PlaneMap PlaneMap::of<float>(const float*, const float*, const float*);
template PlaneMap PlaneMap::of<double>(const double*, const double*, const double*);

int HATCH_EDGE_DATA::Read(FILE* stream) {
  if (stream == nullptr) return 0;
  DxfPairReader reader(stream, ansi_code_page());
  DxfPair pair;
  const bool mine =
      reader.read(pair) && pair.code == 72 && DxfPairReader::integer(pair) == GetType();
  if (mine) {
    while (reader.read(pair)) {
      if (take(pair)) continue;
      reader.unread();
      break;
    }
  }
  reader.sync_stream();
  return mine ? 1 : 0;
}

int HATCH_EDGE_DATA::Write(FILE* stream) const {
  DxfPairWriter writer(stream);
  write_to(writer);
  return 1;
}

int HATCH_EDGE_DATA::Write2000(FILE* stream) const {
  return Write(stream);
}

HATCH_EDGE_DATA* HATCH_EDGE_DATA::create(int type) {
  switch (type) {
    case kHatchLine:
      return new HATCH_LINE_EDGEDATA;
    case kHatchArc:
      return new HATCH_ARC_EDGEDATA;
    case kHatchEllipse:
      return new HATCH_ELLIPSE_EDGEDATA;
    case kHatchSpline:
      return new HATCH_SPLINE_EDGEDATA;
    default:
      return nullptr;
  }
}

// --- section

bool HATCH_LINE_EDGEDATA::take(const DxfPair& pair) {
  double* const value = pair.code == 10   ? &x1
                        : pair.code == 20 ? &y1
                        : pair.code == 11 ? &x2
                        : pair.code == 21 ? &y2
                                          : nullptr;
  if (value == nullptr) return false;
  *value = DxfPairReader::real(pair);
  return true;
}

void HATCH_LINE_EDGEDATA::write_to(DxfPairWriter& writer) const {
  writer.group(72, GetType());
  writer.group(10, x1);
  writer.group(20, y1);
  writer.group(11, x2);
  writer.group(21, y2);
}

void HATCH_LINE_EDGEDATA::transfer(const PlaneMap& map) {
  const HatchPoint from = map.point({x1, y1}), to = map.point({x2, y2});
  x1 = from.x;
  y1 = from.y;
  x2 = to.x;
  y2 = to.y;
}

void HATCH_LINE_EDGEDATA::flatten(std::vector<HatchPoint>& points, const Flattening&) const {
  points.push_back({x1, y1});
  points.push_back({x2, y2});
}

// --- arc

bool HATCH_ARC_EDGEDATA::take(const DxfPair& pair) {
  switch (pair.code) {
    case 10:
      x = DxfPairReader::real(pair);
      return true;
    case 20:
      y = DxfPairReader::real(pair);
      return true;
    case 40:
      m_dRadius = DxfPairReader::real(pair);
      return true;
    case 50:
      m_dStartAngle = DxfPairReader::real(pair);
      return true;
    case 51:
      m_dEndAngle = DxfPairReader::real(pair);
      return true;
    case 73:
      m_bCounterClockwise = DxfPairReader::integer(pair);
      return true;
    default:
      return false;
  }
}

void HATCH_ARC_EDGEDATA::write_to(DxfPairWriter& writer) const {
  writer.group(72, GetType());
  writer.group(10, x);
  writer.group(20, y);
  writer.group(40, m_dRadius);
  writer.group(50, m_dStartAngle);
  writer.group(51, m_dEndAngle);
  writer.group(73, m_bCounterClockwise);
}

void HATCH_ARC_EDGEDATA::transfer(const PlaneMap& map) {
  const HatchPoint centre = map.point({x, y});
  x = centre.x;
  y = centre.y;
  m_dRadius *= map.size;
  const double sign = m_bCounterClockwise != 0 ? 1 : -1;
  const double start = m_dStartAngle * kDegree * sign;
  const HatchPoint to_start = map.direction({std::cos(start), std::sin(start)});
  if (map.turns_over()) m_bCounterClockwise = m_bCounterClockwise != 0 ? 0 : 1;
  const double new_sign = m_bCounterClockwise != 0 ? 1 : -1;
  const double way = m_dEndAngle - m_dStartAngle;
  m_dStartAngle = std::atan2(to_start.y, to_start.x) / kDegree * new_sign;
  if (m_dStartAngle < 0) m_dStartAngle += kTurn;
  m_dEndAngle = m_dStartAngle + way;
}

void HATCH_ARC_EDGEDATA::flatten(std::vector<HatchPoint>& points, const Flattening& how) const {
  const double across = m_bCounterClockwise != 0 ? m_dRadius : -m_dRadius;
  flatten_ellipse(points, {x, y}, {m_dRadius, 0}, {0, across}, m_dStartAngle,
                  sweep_of(m_dStartAngle, m_dEndAngle), how);
}

// --- ellipse

bool HATCH_ELLIPSE_EDGEDATA::take(const DxfPair& pair) {
  switch (pair.code) {
    case 10:
      x = DxfPairReader::real(pair);
      return true;
    case 20:
      y = DxfPairReader::real(pair);
      return true;
    case 11:
      m_dMajorX = DxfPairReader::real(pair);
      return true;
    case 21:
      m_dMajorY = DxfPairReader::real(pair);
      return true;
    case 40:
      m_dRatio = DxfPairReader::real(pair);
      return true;
    case 50:
      m_dStartAngle = DxfPairReader::real(pair);
      return true;
    case 51:
      m_dEndAngle = DxfPairReader::real(pair);
      return true;
    case 73:
      m_bCounterClockwise = DxfPairReader::integer(pair);
      return true;
    default:
      return false;
  }
}

void HATCH_ELLIPSE_EDGEDATA::write_to(DxfPairWriter& writer) const {
  writer.group(72, GetType());
  writer.group(10, x);
  writer.group(20, y);
  writer.group(11, m_dMajorX);
  writer.group(21, m_dMajorY);
  writer.group(40, m_dRatio);
  writer.group(50, m_dStartAngle);
  writer.group(51, m_dEndAngle);
  writer.group(73, m_bCounterClockwise);
}

void HATCH_ELLIPSE_EDGEDATA::transfer(const PlaneMap& map) {
  const HatchPoint centre = map.point({x, y}), major = map.direction({m_dMajorX, m_dMajorY});
  x = centre.x;
  y = centre.y;
  m_dMajorX = major.x;
  m_dMajorY = major.y;
  // The angles count from the major axis, which has moved along: only their sense may change.
  if (map.turns_over()) m_bCounterClockwise = m_bCounterClockwise != 0 ? 0 : 1;
}

void HATCH_ELLIPSE_EDGEDATA::flatten(std::vector<HatchPoint>& points, const Flattening& how) const {
  const double ratio = m_bCounterClockwise != 0 ? m_dRatio : -m_dRatio;
  flatten_ellipse(points, {x, y}, {m_dMajorX, m_dMajorY}, {-m_dMajorY * ratio, m_dMajorX * ratio},
                  m_dStartAngle, sweep_of(m_dStartAngle, m_dEndAngle), how);
}

}  // namespace brindle::Varnholt
