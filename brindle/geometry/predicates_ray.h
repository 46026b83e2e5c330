// Planar predicates: the common points of rays with other figures. A ray starts at (x0, y0) and
// goes through (x1, y1); a point at its very start is none. Outputs are written also for points
// that don't count. Conventions: predicates.h.
#pragma once

namespace brindle {

// The points of circle and ray, 0, 1 or 2, packed to the front of xs[2], ys[2]. The tolerance of
// touching is 1e-5 whatever `tol` is.
int JH_GetInterPoint_Ray_Cirlce(float cx, float cy, float r, float x0, float y0, float x1, float y1,
                                float* xs, float* ys, float tol);
int JH_GetInterPoint_Ray_Cirlce(double cx, double cy, double r, double x0, double y0, double x1,
                                double y1, double* xs, double* ys, double tol);

// Those of these points that lie in the arc, which has a convention of its own here: a1 may exceed
// 2 pi and must when the arc passes through zero, and `tol` is an angle. Strict.
int JH_GetInterPoint_Ray_Arc(float cx, float cy, float r, float a0, float a1, float x0, float y0,
                             float x1, float y1, float* xs, float* ys, float tol);
int JH_GetInterPoint_Ray_Arc(double cx, double cy, double r, double a0, double a1, double x0,
                             double y0, double x1, double y1, double* xs, double* ys, double tol);

// The point of ray and infinite line, 0 or 1. The point is written, too, when it lies behind.
int JH_GetInterPoint_Ray_Line(float x0, float y0, float x1, float y1, float x2, float y2, float x3,
                              float y3, float* x, float* y, float tol);
int JH_GetInterPoint_Ray_Line(double x0, double y0, double x1, double y1, double x2, double y2,
                              double x3, double y3, double* x, double* y, double tol);

// The same, and the point lies on the section (JH_TestPoint_On_LineSection).
int JH_GetInterPoint_Ray_LineSection(float x0, float y0, float x1, float y1, float x2, float y2,
                                     float x3, float y3, float* x, float* y, float tol);
int JH_GetInterPoint_Ray_LineSection(double x0, double y0, double x1, double y1, double x2,
                                     double y2, double x3, double y3, double* x, double* y,
                                     double tol);

// The point of two rays, the second from (x2, y2) through (x3, y3).
int JH_GetInterPoint_Ray_Ray(float x0, float y0, float x1, float y1, float x2, float y2, float x3,
                             float y3, float* x, float* y, float tol);
int JH_GetInterPoint_Ray_Ray(double x0, double y0, double x1, double y1, double x2, double y2,
                             double x3, double y3, double* x, double* y, double tol);

}  // namespace brindle
