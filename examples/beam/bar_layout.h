// Where the bars and stirrups of a section lie. All lengths in mm; origin at the lower left corner
// of the section, y up.
#pragma once

#include <vector>

namespace brindle::beam {

// Bars of one diameter at one face, in one row or two. The first row lies next to the face.
struct BarRows {
  int diameter = 0;
  int first = 0;
  int second = 0;

  int count() const { return first + second; }
  int rows() const { return second > 0 ? 2 : 1; }
  double area() const;  // mm2, by the nominal diameter
};

struct Stirrups {
  int diameter = 0;
  int spacing = 0;
  int legs = 2;

  double area_per_length() const;  // Asv/s, mm2/mm
};

struct SideBars {
  int per_side = 0;  // 0: the web is low enough to do without
  int diameter = 0;
  int tie_diameter = 0;
  double required_area = 0;  // mm2 a side

  double area() const;  // mm2 a side
};

enum class Face { kBottom, kTop };

// Cross-section of the concrete with its stirrups. Leg 0 and the last one belong to the outer
// stirrup, legs 1 and 2, 3 and 4 ... to the inner ones; `legs` is even.
struct StirrupFrame {
  double width = 0;
  double height = 0;
  double cover = 0;
  int diameter = 0;
  int legs = 2;
};

struct Bar {
  double x = 0;
  double y = 0;
  int diameter = 0;
};

// Clear distance that bars of a row keep (9.2.1): 25 and d at the bottom, 30 and 1.5 d at the top.
double least_clear_distance(Face face, int diameter);

// Distance from the face of the concrete to the centroid of the bars.
double centroid_distance(const StirrupFrame& frame, const BarRows& bars);

// Inner faces (the side of the held bar) of the legs, one x a leg, rising. The inner stirrups
// divide the bottom bars' outer axes evenly.
std::vector<double> leg_faces(const StirrupFrame& frame, int bottom_diameter);

// True when leg `leg` holds a bar on its right side, false for its left side.
bool holds_to_the_right(const StirrupFrame& frame, int leg);

// Axes of a first row, rising in x: one bar in each leg, the others shared out between the legs
// evenly and symmetrically. Requires `count` >= legs.
std::vector<double> row_axes(const StirrupFrame& frame, const std::vector<double>& faces, int count,
                             int diameter);

// Indices into a first row of `first` bars over which a second row of `second` bars stands,
// outermost first and symmetric. Empty when no symmetric choice exists: an even first row takes an
// even second one only, and a second row has two bars at least.
std::vector<int> second_row_places(int first, int second);

// True when the rows keep their clear distances and the cover is not less than the bar's diameter
// (8.2.1).
bool bars_fit(const StirrupFrame& frame, const std::vector<double>& faces, Face face,
              const BarRows& bars);

// The bars of one face: first row, then second row, each from left to right.
std::vector<Bar> lay_out_bars(const StirrupFrame& frame, const std::vector<double>& faces,
                              Face face, const BarRows& bars);

// Bars along both sides, `per_side` on each, evenly between the innermost rows of the two faces;
// left and right of one level follow each other, from the bottom up.
std::vector<Bar> lay_out_side_bars(const StirrupFrame& frame, const BarRows& bottom,
                                   const BarRows& top, int per_side, int diameter);

// Height between the axes of the innermost rows of the two faces; may be negative.
double height_between_rows(const StirrupFrame& frame, const BarRows& bottom, const BarRows& top);

}  // namespace brindle::beam
