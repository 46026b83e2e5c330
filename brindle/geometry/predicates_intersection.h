// Planar predicates: the common points of lines, sections, circles and arcs. Each returns their
// number. Outputs are written only as said. Conventions: predicates.h.
#pragma once

namespace brindle {

// The point of two lines a * y - b * x = c. Returns 0 and writes nothing when their determinant is
// below `tol`, else 1.
int JH_GetInterPoint_Line_ByFunc(float a1, float b1, float c1, float a2, float b2, float c2,
                                 float* x, float* y, float tol);
int _JH_GetInterPoint_Line_ByFunc(double a1, double b1, double c1, double a2, double b2, double c2,
                                  double* x, double* y, double tol);

// The point of two infinite lines, each through two points. `tol` as before: about the sine of
// their angle. A line of two equal points gives 1 and NaN.
int JH_GetInterPoint_Line(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                          float y4, float* x, float* y, float tol);
int _JH_GetInterPoint_Line(double x1, double y1, double x2, double y2, double x3, double y3,
                           double x4, double y4, double* x, double* y, double tol);

// The point of two sections, each lengthened by `tol`: 0, 1, or 2 when they lie on one line and
// their bounding rectangles meet; then nothing is written. Parallel is a slope below 1e-5 against
// each other. Sections without length are for JH_GetInterPoint_LineSection: the second gives 1 and
// NaN here.
int JH_GetInterPoint_LineSection_LineSection(float x1, float y1, float x2, float y2, float x3,
                                             float y3, float x4, float y4, float* x, float* y,
                                             float tol);
int _JH_GetInterPoint_LineSection_LineSection(double x1, double y1, double x2, double y2, double x3,
                                              double y3, double x4, double y4, double* x, double* y,
                                              double tol);

// The same as 0 or 1: parallel sections give 0, and a section shorter than `tol` on both axes is a
// point, which lies on the other when the detour by it is at most `tol`.
int JH_GetInterPoint_LineSection(float x1, float y1, float x2, float y2, float x3, float y3,
                                 float x4, float y4, float* x, float* y, float tol);
int _JH_GetInterPoint_LineSection(double x1, double y1, double x2, double y2, double x3, double y3,
                                  double x4, double y4, double* x, double* y, double tol);

// The earlier method, 0 or 1: the point of the two lines, then a look along the longer axis of each
// section, without tolerance, so that a point on an end can be lost to rounding. `tol` is the
// determinant's. The point is written also for sections that miss it.
int JH_GetInterPoint_LineSection_Old(float x1, float y1, float x2, float y2, float x3, float y3,
                                     float x4, float y4, float* x, float* y, float tol);
int _JH_GetInterPoint_LineSection_Old(double x1, double y1, double x2, double y2, double x3,
                                      double y3, double x4, double y4, double* x, double* y,
                                      double tol);

// The points of circle and section lengthened by `tol`, 0, 1 or 2, that nearer to the section's
// second end first. A single one stands in (xa, ya), and in (xb, yb) too when it is the latter of
// the line's two. A line that misses the circle by less than `tol` touches it.
int JH_GetInterPoint_Circle_LineSection(float cx, float cy, float r, float x1, float y1, float x2,
                                        float y2, float* xa, float* ya, float* xb, float* yb,
                                        float tol);
int _JH_GetInterPoint_Circle_LineSection(double cx, double cy, double r, double x1, double y1,
                                         double x2, double y2, double* xa, double* ya, double* xb,
                                         double* yb, double tol);

// Those of these points whose direction lies in the arc, widened by tol / r. A single one stands in
// (xa, ya); the outputs may be written though none is left.
int JH_GetInterPoint_LineSection_Arc(float x1, float y1, float x2, float y2, float cx, float cy,
                                     float r, float a0, float a1, float* xa, float* ya, float* xb,
                                     float* yb, float tol);
int _JH_GetInterPoint_LineSection_Arc(double x1, double y1, double x2, double y2, double cx,
                                      double cy, double r, double a0, double a1, double* xa,
                                      double* ya, double* xb, double* yb, double tol);

// The points of two circles: 0, 1 when they touch within `tol`, 2 (left of the way from the first
// centre to the second first), or -1 when they coincide within `tol`; then nothing is written.
int JH_GetInterPoint_Circle_Circle(float cx1, float cy1, float r1, float cx2, float cy2, float r2,
                                   float* xa, float* ya, float* xb, float* yb, float tol);
int _JH_GetInterPoint_Circle_Circle(double cx1, double cy1, double r1, double cx2, double cy2,
                                    double r2, double* xa, double* ya, double* xb, double* yb,
                                    double tol);

// Those of these points that lie in the arc; -1 when its circle coincides with the other.
int JH_GetInterPoint_Circle_Arc(float cx, float cy, float r, float ax, float ay, float R, float a0,
                                float a1, float* xa, float* ya, float* xb, float* yb, float tol);
int _JH_GetInterPoint_Circle_Arc(double cx, double cy, double r, double ax, double ay, double R,
                                 double a0, double a1, double* xa, double* ya, double* xb,
                                 double* yb, double tol);

// Those that lie in both arcs; -1 when the circles coincide and an end of one arc lies in the
// other.
int JH_GetInterPoint_Arc_Arc(float cx1, float cy1, float r1, float a0, float a1, float cx2,
                             float cy2, float r2, float b0, float b1, float* xa, float* ya,
                             float* xb, float* yb, float tol);
int _JH_GetInterPoint_Arc_Arc(double cx1, double cy1, double r1, double a0, double a1, double cx2,
                              double cy2, double r2, double b0, double b1, double* xa, double* ya,
                              double* xb, double* yb, double tol);

// The points of circle and infinite line, 0, 1 or 2, the farther along the line first, in xs[2],
// ys[2]. A line within `tol` of touching has one, on its perpendicular. Two equal points stand for
// the horizontal.
int JH_GetInterPoint_Line_Circle(float cx, float cy, float r, float x1, float y1, float x2,
                                 float y2, float* xs, float* ys, float tol);
int JH_GetInterPoint_Line_Circle(double cx, double cy, double r, double x1, double y1, double x2,
                                 double y2, double* xs, double* ys, double tol);

}  // namespace brindle
