#include "examples/plate/plate_input.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/geometry/polygons.h"
#include "brindle/geometry/predicates_distance.h"
#include "examples/common/project_file.h"

namespace brindle::plate {
namespace {

using examples::Fields;
using examples::NumberRange;
using examples::ProjectFile;

constexpr const wchar_t* kTag = L"BRINDLE-PLATE";
constexpr size_t kLongestName = 30;
constexpr int kMostPoints = 200;
constexpr double kFarthest = 1000;
constexpr double kMostNodes = 5000;  // beyond it the solution takes too long

struct NumberField {
  NumberRange range;
  double PlateInput::*place;
};

constexpr NumberField kNumbers[] = {
    {{L"板厚 h", 40, 2000, L"mm"}, &PlateInput::thickness_mm},
    {{L"弹性模量 E", 1000, 300000, L"N/mm2"}, &PlateInput::modulus},
    {{L"泊松比", 0, 0.45, L""}, &PlateInput::poisson},
    {{L"均布荷载 q", 0.01, 10000, L"kN/m2"}, &PlateInput::load},
    {{L"网格尺寸", 0.05, 10, L"m"}, &PlateInput::mesh_size},
};

bool read_numbers(ProjectFile& file, PlateInput* out) {
  if (!file.next(L"板厚与荷载")) return false;
  const Fields line(file.line());
  bool good = true;
  int i = 0;
  for (const NumberField& field : kNumbers) {
    good &= examples::read_number(file, field.range, line.text[i++], &(out->*field.place));
  }
  return line.only(file, i) && good;
}

bool read_point(const ProjectFile& file, const Fields& line, int first, Point* out) {
  const NumberRange x{L"坐标 x", -kFarthest, kFarthest, L"m"};
  const NumberRange y{L"坐标 y", -kFarthest, kFarthest, L"m"};
  return examples::read_number(file, x, line.text[first], &out->x) &
         examples::read_number(file, y, line.text[first + 1], &out->y);
}

// The count behind a keyword that the line begins with; -1 when it's another line, 0 with a
// message for a count out of range.
int count_behind(const ProjectFile& file, const wchar_t* keyword, int least) {
  const Fields line(file.line());
  if (line.text[0] != keyword) return -1;
  double count = 0;
  const NumberRange range{L"点数", static_cast<double>(least), kMostPoints, L"个"};
  if (!examples::read_number(file, range, line.text[1], &count) || !line.only(file, 2)) return 0;
  return static_cast<int>(count);
}

bool read_ring(ProjectFile& file, int count, Ring* out) {
  bool good = count > 0;
  for (int i = 0; i < count && good; ++i) {
    if (!file.next(L"角点")) return false;
    const Fields line(file.line());
    Point point;
    double kind = 0;
    good = read_point(file, line, 0, &point);
    good &= examples::read_number(file, {L"边的支承(0 自由 1 简支 2 固定)", 0, 2, L""},
                                  line.text[2], &kind);
    good &= line.only(file, 3);
    out->points.push_back(point);
    out->edges.push_back(static_cast<Edge>(static_cast<int>(kind)));
  }
  return good;
}

bool read_column(ProjectFile& file, PlateInput* out) {
  if (!file.next(L"柱")) return false;
  const Fields line(file.line());
  Column column;
  bool good = read_point(file, line, 0, &column.centre);
  good &= examples::read_number(file, {L"柱宽", 0.05, 5, L"m"}, line.text[2], &column.width);
  good &= examples::read_number(file, {L"柱深", 0.05, 5, L"m"}, line.text[3], &column.depth);
  out->columns.push_back(column);
  return line.only(file, 4) && good;
}

// The openings and columns, up to the line that is drawn.
bool read_parts(ProjectFile& file, PlateInput* out) {
  while (file.next(L"“LINE”")) {
    if (const int points = count_behind(file, L"OPENING", 3); points >= 0) {
      if (!read_ring(file, points, &out->openings.emplace_back())) return false;
    } else if (int columns = count_behind(file, L"COLUMNS", 1); columns >= 0) {
      if (columns == 0) return false;
      while (columns-- > 0) {
        if (!read_column(file, out)) return false;
      }
    } else if (const Fields line(file.line()); line.text[0] == L"LINE") {
      return read_point(file, line, 1, &out->from) && read_point(file, line, 3, &out->to) &&
             line.only(file, 5);
    } else {
      file.complain(L"应为 OPENING、COLUMNS 或 LINE，现为“%s”", line.text[0]);
      return false;
    }
  }
  return false;
}

double turn(Point a, Point b, Point c) {
  return area_tri(a.x, a.y, b.x, b.y, c.x, c.y);
}

bool cross(Point a, Point b, Point c, Point d) {
  constexpr double kTouching = -1e-9;
  return turn(a, b, c) * turn(a, b, d) < kTouching && turn(c, d, a) * turn(c, d, b) < kTouching;
}

Point next_point(const Ring& ring, size_t i) {
  return ring.points[(i + 1) % ring.points.size()];
}

bool rings_cross(const Ring& a, const Ring& b) {
  for (size_t i = 0; i < a.points.size(); ++i) {
    for (size_t k = 0; k < b.points.size(); ++k) {
      if (cross(a.points[i], next_point(a, i), b.points[k], next_point(b, k))) return true;
    }
  }
  return false;
}

const wchar_t* find_fault(const PlateInput& plate) {
  const double area = std::fabs(ring_area(plate.outline));
  if (area < plate.mesh_size * plate.mesh_size) return L"板的面积小于一个网格";
  if (area / (0.5 * plate.mesh_size * plate.mesh_size) > 2 * kMostNodes) return L"网格过密";
  if (rings_cross(plate.outline, plate.outline)) return L"板边自交";
  for (size_t i = 0; i < plate.openings.size(); ++i) {
    const Ring& opening = plate.openings[i];
    if (rings_cross(opening, opening)) return L"洞边自交";
    for (size_t k = 0; k < i; ++k) {
      const Ring& other = plate.openings[k];
      if (rings_cross(opening, other) || inside_ring(other, opening.points[0]) ||
          inside_ring(opening, other.points[0])) {
        return L"洞口相交";
      }
    }
    if (rings_cross(opening, plate.outline)) return L"洞口与板边相交";
    for (const Point& p : opening.points) {
      if (!inside_ring(plate.outline, p)) return L"洞口应在板内";
      if (ring_distance(plate.outline, p) < plate.mesh_size / 2) return L"洞口距板边不足半个网格";
    }
  }
  for (const Column& column : plate.columns) {
    if (!inside_plate(plate, column.centre) && ring_distance(plate.outline, column.centre) > 1e-6) {
      return L"柱中心应在板内";
    }
  }
  if (std::hypot(plate.to.x - plate.from.x, plate.to.y - plate.from.y) < plate.mesh_size) {
    return L"剖面线短于一个网格";
  }
  return nullptr;
}

// The words of the title and countersign blocks: up to three lines, which may be missing.
bool read_sheet(ProjectFile& file, examples::SheetWords* out) {
  return examples::read_word_lines(file, {{&out->project, &out->number, &out->date},
                                          {&out->lead, &out->designer, &out->auditor, &out->manager,
                                           &out->checker, &out->approver},
                                          {&out->architect, &out->engineer, &out->services}});
}

}  // namespace

double PlateInput::stiffness() const {
  const double t = thickness_mm / 1000;
  return modulus * 1000 * t * t * t / (12 * (1 - poisson * poisson));
}

double ring_area(const Ring& ring) {
  double area = 0;
  for (size_t i = 0; i < ring.points.size(); ++i) {
    area += turn(ring.points[0], ring.points[i], next_point(ring, i));
  }
  return area;
}

bool inside_ring(const Ring& ring, Point p) {
  bool inside = false;
  for (size_t i = 0; i < ring.points.size(); ++i) {
    const Point a = ring.points[i], b = next_point(ring, i);
    if ((a.y > p.y) == (b.y > p.y)) continue;
    if (p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y)) inside = !inside;
  }
  return inside;
}

double ring_distance(const Ring& ring, Point p) {
  double nearest = std::numeric_limits<double>::max();
  for (size_t i = 0; i < ring.points.size(); ++i) {
    const Point a = ring.points[i], b = next_point(ring, i);
    nearest = std::min(nearest, _JH_GetMinDist_PointToLineSection(p.x, p.y, a.x, a.y, b.x, b.y));
  }
  return nearest;
}

bool inside_plate(const PlateInput& plate, Point p) {
  return inside_ring(plate.outline, p) &&
         std::none_of(plate.openings.begin(), plate.openings.end(),
                      [&](const Ring& opening) { return inside_ring(opening, p); });
}

bool read_plate_input(const wchar_t* path, PlateInput* out) {
  ProjectFile file(path);
  if (!file.is_open() || !examples::read_tag(file, kTag, L"楼板")) return false;
  if (!examples::read_name(file, L"楼板名", kLongestName, &out->name)) return false;
  if (!read_numbers(file, out) || !file.next(L"“OUTLINE”")) return false;
  const int points = count_behind(file, L"OUTLINE", 3);
  if (points < 0) file.complain(L"应为 OUTLINE，现为“%s”", file.line());
  if (!read_ring(file, points, &out->outline) || !read_parts(file, out)) return false;
  if (!read_sheet(file, &out->sheet)) return false;
  const wchar_t* fault = find_fault(*out);
  if (fault != nullptr) tell_error1(301, L"%s: %s。", path, fault);
  return fault == nullptr;
}

}  // namespace brindle::plate
