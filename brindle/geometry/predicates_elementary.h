// Planar predicates: angles, frames, lines and other elements. Conventions: predicates.h.
#pragma once

namespace brindle {

// The distance of two points. The two names are one function; its squares don't mind the order.
float JH_GetDistance(float x1, float y1, float x2, float y2);
double _JH_GetDistance(double x1, double y1, double x2, double y2);
float JH_GetDist(float x1, float y1, float x2, float y2);
double _JH_GetDist(double x1, double y1, double x2, double y2);

// The point in the frame whose origin is (dx, dy).
void JH_MovePoint0(float* x, float* y, float dx, float dy);
void _JH_MovePoint0(double* x, double* y, double dx, double dy);

// The point in the frame turned by `a`: a point at angle `a` lands on the positive x axis.
void JH_RotatePoint0(float* x, float* y, float a);
void _JH_RotatePoint0(double* x, double* y, double a);

// The direction from the first point to the second in [0, 2 pi), by the arc tangent of dy / dx.
// Equal points give pi / 2. A direction below 0 by less than rounding gives 2 pi itself.
float JH_GetAngle(float x1, float y1, float x2, float y2);
double _JH_GetAngle(double x1, double y1, double x2, double y2);

// `a` reduced to [0, 2 pi); an angle below 0 by less than rounding gives 2 pi itself. Not finite
// gives NaN. Takes bounded time whatever the angle.
float JH_Set2PI(float a);
double _JH_Set2PI(double a);

// Whether the angle lies in the arc that runs counter-clockwise from a0, which is expected in
// [0, 2 pi), to a1; an a1 below a0 is taken a turn later. Closed, widened by `tol`, an angle, but
// not through zero: with a0 = 0 an angle just below 2 pi is outside. An angle nearer to a0 than
// `tol`, before any reduction, always counts.
int JH_TestAngleInArc(float a, float a0, float a1, float tol);
int _JH_TestAngleInArc(double a, double a0, double a1, double tol);

// Twice the signed area of the triangle, positive when the three points turn left.
float JH_GetDet_Tri(float x1, float y1, float x2, float y2, float x3, float y3);
double _JH_GetDet_Tri(double x1, double y1, double x2, double y2, double x3, double y3);

// The coefficients of the line a * y - b * x = c through two points; that of the longer axis is 1.
// Equal points give NaN for b and c.
void JH_GetLineFunction(float x1, float y1, float x2, float y2, float* a, float* b, float* c);
void _JH_GetLineFunction(double x1, double y1, double x2, double y2, double* a, double* b,
                         double* c);

// The length of the arc about (cx, cy) counter-clockwise from the first point to the second. Its
// radius is the first point's; equal directions give 0.
float JH_GetLenArc(float cx, float cy, float x1, float y1, float x2, float y2);
double _JH_GetLenArc(double cx, double cy, double x1, double y1, double x2, double y2);

// Grows the rectangle to hold the point.
void JH_Update_OutLook_Rect(float* xmin, float* ymin, float* xmax, float* ymax, float x, float y);
void _JH_Update_OutLook_Rect(double* xmin, double* ymin, double* xmax, double* ymax, double x,
                             double y);

}  // namespace brindle
