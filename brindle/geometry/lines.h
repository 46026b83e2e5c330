// Straight lines by their coefficients, their crossing, and the parallel section on the left.
#pragma once

namespace brindle {

// The line through two points as a y - b x = c with the coefficient of the longer axis 1, as by
// JH_GetLineFunction. Two equal points divide by zero: coefficients that aren't finite.
void line_func(float x1, float y1, float x2, float y2, float* a, float* b, float* c);
void line_func(double x1, double y1, double x2, double y2, double* a, double* b, double* c);

// The crossing of two lines given by such coefficients: 1, or 0 with the outputs left alone when
// they are parallel, that is |a2 b1 - a1 b2| is below 1e-5 in both widths.
int line_func_inter(float a1, float b1, float c1, float a2, float b2, float c2, float* x, float* y);
int line_func_inter(double a1, double b1, double c1, double a2, double b2, double c2, double* x,
                    double* y);

// The crossing of the infinite lines through the first two and the last two points: 1, or 0 with
// the outputs left alone when they are parallel or a pair of points coincides.
int line_point_inter(float x1, float y1, float x2, float y2, float x3, float y3, float x4, float y4,
                     float* x, float* y);
int line_point_inter(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                     double y4, double* x, double* y);

// The section moved sideways by `distance`, to the left as seen from its first point (negative: to
// the right). A section without length stays where it is.
void line_offset_left(float x1, float y1, float x2, float y2, float distance, float* x3, float* y3,
                      float* x4, float* y4);
void line_offset_left(double x1, double y1, double x2, double y2, double distance, double* x3,
                      double* y3, double* x4, double* y4);

}  // namespace brindle
