// The geometry of dimensions that their blocks are made of: sides, distances, places of texts.
#pragma once

namespace brindle {

namespace Varnholt {
class ACAD_DIMSTYLE;
}

// 1 when (px, py) lies on or to the left of the line through (x, y) at an angle (radians), else 0.
// ChiCunJieXian: extension line.
int get_ChiCunJieXian_Left(double x, double y, double angle, double px, double py);

// The distance of (px, py) from the line through (x, y) at an angle (radians), and from the line
// through two points; from the point itself when the two are one.
double get_dist_point_line(double px, double py, double x, double y, double angle);
double get_dist_point_line(double px, double py, double x1, double y1, double x2, double y2);

// Where a text of a dimension starts and how it is turned.
struct DimTextPlace {
  double x = 0, y = 0;   // in the frame of the dimension line
  double angle_deg = 0;  // of the text in the world, [0, 360)
};

// The place of a text of `width` on a dimension line that runs from (0, 0) to (length, 0) of a
// frame which is turned by angle_deg in the world, for the sizes of a style times `scale`. textPos:
// T above or B below the line, then C in the middle, L before or R behind it, as the text reads; an
// unknown word is "TC". Above 90 and up to 270 degrees the text is turned over, so that it reads
// from below or from the right.
DimTextPlace Cal_Text_Position(const Varnholt::ACAD_DIMSTYLE& style, double scale,
                               const wchar_t* textPos, double length, double angle_deg,
                               double width);

}  // namespace brindle
