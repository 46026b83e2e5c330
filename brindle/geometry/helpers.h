// The small planar helpers that the drawing model and the pen use first. Angles are radians,
// counter-clockwise from +x.
#pragma once

namespace brindle {

// Mode 1: the length of (dx, dy); else its direction in [0, 2 pi). A length below 1e-10 (float:
// 1e-8) gives 0.
float polar(float dx, float dy, int mode);
double polar(double dx, double dy, int mode);

// The direction from the first point to the second in [0, 2 pi), 0 for equal points.
double get_line_angle(float x1, float y1, float x2, float y2);
double get_line_angle(double x1, double y1, double x2, double y2);

// The distance of two points.
float get_dist(float x1, float y1, float x2, float y2);
double get_dist(double x1, double y1, double x2, double y2);
double get_dist(double x1, double y1, double z1, double x2, double y2, double z2);

// Subtracts (dx, dy) from the point: it comes into the frame with that origin.
void shift_coordinate(float dx, float dy, float* x, float* y);
void shift_coordinate(double dx, double dy, double* x, double* y);

// Turns the point about the origin clockwise by `a`: it comes into the frame turned by `a`.
void rotate_coordinate(float a, float* x, float* y);
void rotate_coordinate(double a, double* x, double* y);

}  // namespace brindle
