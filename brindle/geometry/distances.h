// Squared distances, distances from a section, and whether a point lies inside a section.
#pragma once

namespace brindle {

// The square of the distance of two points in space. The integer one is exact and stays at the
// largest int where the square is beyond it.
int get_distsquare(int x1, int y1, int z1, int x2, int y2, int z2);
float get_distsquare(float x1, float y1, float z1, float x2, float y2, float z2);
double get_distsquare(double x1, double y1, double z1, double x2, double y2, double z2);

// The distance from a point to the nearest point of the section from (x1, y1) to (x2, y2), which
// may be a point itself.
float get_dist_point_segment(float px, float py, float x1, float y1, float x2, float y2);
double get_dist_point_segment(double px, double py, double x1, double y1, double x2, double y2);

// Whether q lies strictly inside the section a b in space (three coordinates each): 1 when the way
// over q is longer than the section by less than its hundred thousandth and q is farther than `tol`
// from both ends, else 0. The band is thus widest at the middle, about 0.2 percent of the length. A
// section without length has no inside.
int JudgePointOnLine(const float* q, const float* a, const float* b, float tol);
int JudgePointOnLine(const double* q, const double* a, const double* b, double tol);

}  // namespace brindle
