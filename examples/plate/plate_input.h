// The project file of a flat slab panel: what it holds and how it is read.
#pragma once

#include <string>
#include <vector>

#include "examples/common/sheet_words.h"

namespace brindle::plate {

struct Point {
  double x = 0, y = 0;  // m
};

enum class Edge { kFree = 0, kSimple = 1, kFixed = 2 };

// A closed polygon in either winding; edges[i] runs from point i to the next one.
struct Ring {
  std::vector<Point> points;
  std::vector<Edge> edges;
};

// A column under the slab, by its centre and its sides in x and y, m.
struct Column {
  Point centre;
  double width = 0, depth = 0;
};

struct PlateInput {
  std::wstring name;
  double thickness_mm = 0;
  double modulus = 0;  // of elasticity, N/mm2
  double poisson = 0;
  double load = 0;       // kN/m2, down
  double mesh_size = 0;  // m
  Ring outline;
  std::vector<Ring> openings;
  std::vector<Column> columns;
  Point from, to;  // the line whose deflection and moments are drawn
  examples::SheetWords sheet;

  double stiffness() const;  // of the plate in bending, kN.m
};

// Reads the project file at `path` into `out` and returns true. What is missing, out of its range
// or crosses something is told as an error box (code 301); `out` is not to be used then.
bool read_plate_input(const wchar_t* path, PlateInput* out);

// Signed area, positive counter-clockwise.
double ring_area(const Ring& ring);
// Whether the point lies inside; on the ring either may come out.
bool inside_ring(const Ring& ring, Point p);
// Distance to the nearest edge.
double ring_distance(const Ring& ring, Point p);
// Inside the outline and outside of all openings.
bool inside_plate(const PlateInput& plate, Point p);

}  // namespace brindle::plate
