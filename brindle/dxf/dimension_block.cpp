#include "brindle/dxf/dimension_block.h"

#include <cmath>
#include <string_view>

#include "brindle/dxf/acad_dimstyle.h"
#include "brindle/dxf/dimension_builder_internal.h"
#include "brindle/geometry/helpers.h"

namespace brindle {

int get_ChiCunJieXian_Left(double x, double y, double angle, double px, double py) {
  shift_coordinate(x, y, &px, &py);
  rotate_coordinate(angle, &px, &py);
  return py >= 0 ? 1 : 0;
}

double get_dist_point_line(double px, double py, double x, double y, double angle) {
  shift_coordinate(x, y, &px, &py);
  rotate_coordinate(angle, &px, &py);
  return std::fabs(py);
}

double get_dist_point_line(double px, double py, double x1, double y1, double x2, double y2) {
  const double length = get_dist(x1, y1, x2, y2);
  if (!(length > 0)) return get_dist(px, py, x1, y1);
  return std::fabs((x2 - x1) * (py - y1) - (y2 - y1) * (px - x1)) / length;
}

DimTextPlace Cal_Text_Position(const Varnholt::ACAD_DIMSTYLE& style, double scale,
                               const wchar_t* textPos, double length, double angle_deg,
                               double width) {
  const double height = scale * style.DIMTXT, gap = scale * style.DIMGAP;
  const std::wstring_view word = textPos != nullptr ? textPos : L"";
  const bool known = word.size() == 2;
  const bool below = known && word[0] == L'B';
  const bool left = known && word[1] == L'L', right = known && word[1] == L'R';

  DimTextPlace place;
  place.x = left ? -width : right ? length : length / 2 - width / 2;
  place.y = below ? -height - gap : gap;
  place.angle_deg = angle_deg;
  if (Varnholt::is_upside(angle_deg)) {
    // Half a turn about the middle of the dimension line.
    place.x = length - place.x;
    place.y = -place.y;
    place.angle_deg += 180;
  }
  if (place.angle_deg >= 360) place.angle_deg -= 360;
  return place;
}

}  // namespace brindle
