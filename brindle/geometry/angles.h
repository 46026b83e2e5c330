// Angles between directions and inside triangles, in radians. Each is taken from cross and dot
// product, so that thin and flat figures keep their digits and nothing is NaN but what is given so.
#pragma once

namespace brindle {

// The angle in [0, pi] between the direction from (x1, y1) to (x2, y2) and the one from (x3, y3) to
// (x4, y4); 0 where one of them has no length.
double get_two_line_angle(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                          float y4);
double get_two_line_angle(double x1, double y1, double x2, double y2, double x3, double y3,
                          double x4, double y4);

// The largest and the smallest interior angle of a triangle, whichever way it turns. A corner that
// coincides with a neighbour has the angle 0.
double max_angle_of_tri(float x1, float y1, float x2, float y2, float x3, float y3);
double max_angle_of_tri(double x1, double y1, double x2, double y2, double x3, double y3);
double min_angle_of_tri(float x1, float y1, float x2, float y2, float x3, float y3);
double min_angle_of_tri(double x1, double y1, double x2, double y2, double x3, double y3);

// All three interior angles: a1 at the first corner, a2 at the second, a3 at the third.
void get_triangle_inter_angle(float x1, float y1, float x2, float y2, float x3, float y3, float* a1,
                              float* a2, float* a3);
void get_triangle_inter_angle(double x1, double y1, double x2, double y2, double x3, double y3,
                              double* a1, double* a2, double* a3);

}  // namespace brindle
