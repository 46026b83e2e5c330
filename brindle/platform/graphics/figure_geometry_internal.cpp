#include "brindle/platform/graphics/figure_geometry_internal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <numbers>

namespace brindle {

namespace {

constexpr double kPi = std::numbers::pi;

// One side of the range: the points whose signed coordinate isn't above the limit.
struct Side {
  bool horizontal;
  double sign;
};
constexpr std::array<Side, 4> kSides{{{true, 1}, {true, -1}, {false, 1}, {false, -1}}};

double beyond(const FigurePoint& p, const Side& side, double limit) {
  return side.sign * (side.horizontal ? p.x : p.y) - limit;
}

FigurePoint between(const FigurePoint& a, const FigurePoint& b, double t) {
  return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

CPoint rounded(const FigurePoint& p) {
  return {static_cast<int>(std::lround(p.x)), static_cast<int>(std::lround(p.y))};
}

std::vector<FigurePoint> cut_ring(std::vector<FigurePoint> ring, double limit) {
  std::vector<FigurePoint> kept;
  for (const Side& side : kSides) {
    kept.clear();
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const FigurePoint& from = ring[i];
      const FigurePoint& to = ring[(i + 1) % ring.size()];
      const double a = beyond(from, side, limit), b = beyond(to, side, limit);
      if (a <= 0) kept.push_back(from);
      if ((a <= 0) != (b <= 0)) kept.push_back(between(from, to, a / (a - b)));
    }
    ring.swap(kept);
  }
  return ring;
}

}  // namespace

int held_in(int coordinate, int limit) {
  return std::clamp(coordinate, -limit, limit);
}

bool in_range(CPoint point, int limit) {
  return -limit <= point.x && point.x <= limit && -limit <= point.y && point.y <= limit;
}

bool in_range(const CPoint* points, int count, int limit) {
  return std::all_of(points, points + count, [=](CPoint p) { return in_range(p, limit); });
}

bool cut_line(CPoint& from, CPoint& to, int limit) {
  if (in_range(from, limit) && in_range(to, limit)) return true;
  const FigurePoint a{double(from.x), double(from.y)}, b{double(to.x), double(to.y)};
  double first = 0, last = 1;
  for (const Side& side : kSides) {
    const double at_a = beyond(a, side, limit), at_b = beyond(b, side, limit);
    if (at_a > 0 && at_b > 0) return false;
    const double t = at_a == at_b ? 0 : at_a / (at_a - at_b);
    if (at_a > 0) first = std::max(first, t);
    if (at_b > 0) last = std::min(last, t);
  }
  if (first > last) return false;
  if (first > 0) from = rounded(between(a, b, first));
  if (last < 1) to = rounded(between(a, b, last));
  return true;
}

Rings cut_rings(const CPoint* points, const int* counts, int rings, int limit) {
  Rings out;
  for (int i = 0; i < rings; points += counts[i], ++i) {
    const std::size_t before = out.points.size();
    if (in_range(points, counts[i], limit)) {
      out.points.insert(out.points.end(), points, points + counts[i]);
    } else {
      std::vector<FigurePoint> ring;
      for (int k = 0; k < counts[i]; ++k) {
        ring.push_back({double(points[k].x), double(points[k].y)});
      }
      for (const FigurePoint& p : cut_ring(std::move(ring), limit)) {
        out.points.push_back(rounded(p));
      }
    }
    if (out.points.size() > before) out.counts.push_back(int(out.points.size() - before));
  }
  return out;
}

CRect outline_box(CRect box) {
  box.NormalizeRect();
  return {box.left, box.top, std::max(box.right - 1, box.left), std::max(box.bottom - 1, box.top)};
}

EllipseArc::EllipseArc(const CRect& box, CPoint from, CPoint to) {
  const CRect edge = outline_box(box);
  cx = (double(edge.left) + edge.right) / 2, cy = (double(edge.top) + edge.bottom) / 2;
  rx = (double(edge.right) - edge.left) / 2, ry = (double(edge.bottom) - edge.top) / 2;
  // A ray through a point meets the ellipse at the parameter of the point scaled to the circle.
  const auto parameter = [this](CPoint p) { return std::atan2((cy - p.y) * rx, (p.x - cx) * ry); };
  start = parameter(from);
  sweep = parameter(to) - start;
  if (sweep <= 0) sweep += 2 * kPi;
}

FigurePoint EllipseArc::at(double t) const {
  return {cx + rx * std::cos(t), cy - ry * std::sin(t)};
}

std::vector<CPoint> arc_corners(const EllipseArc& arc, PaintDevice::ArcForm form) {
  const double radius = std::max({arc.rx, arc.ry, 1.0});
  const double step = 2 * std::acos(1 - std::min(0.25 / radius, 1.0));
  const int count = std::clamp(static_cast<int>(std::ceil(arc.sweep / step)), 2, 512);
  std::vector<CPoint> corners;
  for (int i = 0; i <= count; ++i) {
    corners.push_back(rounded(arc.at(arc.start + arc.sweep * i / count)));
  }
  if (form == PaintDevice::ArcForm::kPie) corners.push_back(rounded({arc.cx, arc.cy}));
  return corners;
}

void for_each_patch(const GradientVertex* vertices, int vertex_count, const unsigned* indexes,
                    int triangles,
                    const std::function<void(COLORREF, const std::vector<FigurePoint>&)>& draw) {
  constexpr int kStep = 8, kMostParts = 32;
  std::map<COLORREF, std::vector<FigurePoint>> patches;
  for (int i = 0; i < triangles; ++i, indexes += 3) {
    const auto missing = [=](unsigned index) {
      return index >= unsigned(std::max(vertex_count, 0));
    };
    if (std::any_of(indexes, indexes + 3, missing)) continue;
    const GradientVertex &a = vertices[indexes[0]], &b = vertices[indexes[1]],
                         &c = vertices[indexes[2]];
    const auto range = [](int x, int y, int z) {
      return std::max({x, y, z}) - std::min({x, y, z});
    };
    const int steps = std::max({range(a.red, b.red, c.red), range(a.green, b.green, c.green),
                                range(a.blue, b.blue, c.blue)});
    const int parts = std::clamp((steps + kStep - 1) / kStep, 1, kMostParts);
    // Corners at whole numbers of parts along ab (u) and ac (v).
    const auto corner = [&](int u, int v) {
      const double s = double(u) / parts, t = double(v) / parts;
      return FigurePoint{a.x + (double(b.x) - a.x) * s + (double(c.x) - a.x) * t,
                         a.y + (double(b.y) - a.y) * s + (double(c.y) - a.y) * t};
    };
    const auto color = [&](double u, double v) {
      const double s = u / parts, t = v / parts;
      const auto part = [=](int x, int y, int z) {
        return static_cast<int>(x + (y - x) * s + (z - x) * t + 0.5);
      };
      return RGB(part(a.red, b.red, c.red), part(a.green, b.green, c.green),
                 part(a.blue, b.blue, c.blue));
    };
    for (int u = 0; u < parts; ++u) {
      for (int v = 0; u + v < parts; ++v) {
        auto& upper = patches[color(u + 1 / 3.0, v + 1 / 3.0)];
        upper.insert(upper.end(), {corner(u, v), corner(u + 1, v), corner(u, v + 1)});
        if (u + v + 1 == parts) continue;
        auto& lower = patches[color(u + 2 / 3.0, v + 2 / 3.0)];
        lower.insert(lower.end(), {corner(u + 1, v + 1), corner(u, v + 1), corner(u + 1, v)});
      }
    }
  }
  for (const auto& [color, corners] : patches) draw(color, corners);
}

std::vector<double> dash_lengths(const PenData& pen) {
  static const std::map<int, std::vector<double>> kLengths{
      {PS_DASH, {18, 6}},         {PS_DOT, {3, 3}},
      {PS_DASHDOT, {9, 6, 3, 6}}, {PS_DASHDOTDOT, {9, 3, 3, 3, 3, 3}},
      {PS_ALTERNATE, {1, 1}},
  };
  const bool geometric = (pen.style & PS_TYPE_MASK) == PS_GEOMETRIC;
  const auto found = kLengths.find(pen.style & PS_STYLE_MASK);
  if (found == kLengths.end() || (pen.width > 1 && !geometric)) return {};
  std::vector<double> lengths = found->second;
  // A wide pen's dashes are told in widths: three and one, one and one ...
  for (double& length : lengths) length *= geometric ? std::max(pen.width, 1) / 3.0 : 1;
  return lengths;
}

std::vector<HatchFamily> hatch_families(int hatch) {
  constexpr double kMiddle = kHatchPeriod / 2 + 0.5;
  constexpr HatchFamily kLevel{0, 1, kMiddle}, kUpright{1, 0, kMiddle}, kFalling{-1, 1, 0},
      kRising{1, 1, 0};
  switch (hatch) {
    case HS_HORIZONTAL:
      return {kLevel};
    case HS_VERTICAL:
      return {kUpright};
    case HS_FDIAGONAL:
      return {kFalling};
    case HS_BDIAGONAL:
      return {kRising};
    case HS_CROSS:
      return {kLevel, kUpright};
    default:
      return {kFalling, kRising};
  }
}

bool plain_color(int rop2, COLORREF& color) {
  switch (rop2) {
    case R2_NOP:
      return false;
    case R2_BLACK:
    case R2_NOT:
      color = 0;
      return true;
    case R2_WHITE:
      color = 0xffffff;
      return true;
    case R2_NOTCOPYPEN:
      color = ~color & 0xffffff;
      return true;
    default:
      return true;
  }
}

}  // namespace brindle
