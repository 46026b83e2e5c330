// The text file of `brindle mesh`: numbered lines of points, constraint edges and a boundary ring.
#pragma once

#include <string>
#include <vector>

namespace brindle::cli {

// Indices count from 0 here, from 1 in the file.
struct MeshInput {
  struct Point {
    double x, y;
  };
  struct Edge {
    long a, b;
  };
  std::vector<Point> points;
  std::vector<Edge> edges;
  std::vector<long> boundary;  // the outer ring, in order
};

// Reads three sections, "POINTS n" with n lines "number, x, y", "EDGES n" with lines "number, a, b"
// and "BOUNDARY n" with lines "number, point"; the last two may be missing. Lines of a section are
// numbered from 1. Lines that begin with ## or // are comments. What is wrong is told with its line
// (code 301), and gives false.
bool read_mesh_input(const std::wstring& path, MeshInput& input);

}  // namespace brindle::cli
