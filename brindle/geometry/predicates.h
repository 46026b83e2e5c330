// Planar predicates: free functions on float (JH_) and on double (_JH_). Angles are radians,
// counter-clockwise from +x; a predicate returns 1 or 0; its tolerance is the last argument, in the
// unit of what it compares.
#pragma once

namespace brindle {

// The point in the frame whose origin is (dx, dy).
void JH_MovePoint0(float* x, float* y, float dx, float dy);
void _JH_MovePoint0(double* x, double* y, double dx, double dy);

// The point in the frame turned by `a`: a point at angle `a` lands on the positive x axis.
void JH_RotatePoint0(float* x, float* y, float a);
void _JH_RotatePoint0(double* x, double* y, double a);

// `a` reduced to [0, 2 pi). Not finite gives NaN.
float JH_Set2PI(float a);
double _JH_Set2PI(double a);

// Whether the angle lies in the arc that runs counter-clockwise from a0, which is expected in
// [0, 2 pi), to a1; an a1 below a0 is taken a turn later. Closed, widened by `tol`; an angle nearer
// to a0 than `tol` always counts.
int JH_TestAngleInArc(float a, float a0, float a1, float tol);
int _JH_TestAngleInArc(double a, double a0, double a1, double tol);

// Grows the rectangle to hold the point.
void JH_Update_OutLook_Rect(float* xmin, float* ymin, float* xmax, float* ymax, float x, float y);
void _JH_Update_OutLook_Rect(double* xmin, double* ymin, double* xmax, double* ymax, double x,
                             double y);

// Whether the intervals [a, b] and [c, d] meet within `tol`. Closed, but for the third: strict.
int JH_TestCross_Float_Domain(float a, float b, float c, float d, float tol);
int JH_TestCross_Domain(double a, double b, double c, double d, double tol);
int _JH_TestCross_double_Domain(double a, double b, double c, double d, double tol);

// Whether the intervals overlap by more than `tol`: 0 when they merely touch, 1 when they are
// equal.
int JH_TestCross_Float_Domain_Ex(float a, float b, float c, float d, float tol);
int JH_TestCross_Domain_Ex(double a, double b, double c, double d, double tol);

// Whether two filled rectangles meet within `tol`. The float one is closed, the double one strict.
int JH_TestCrossRegon_Rect(float xmin1, float ymin1, float xmax1, float ymax1, float xmin2,
                           float ymin2, float xmax2, float ymax2, float tol);
int _JH_TestCrossRegon_Rect(double xmin1, double ymin1, double xmax1, double ymax1, double xmin2,
                            double ymin2, double xmax2, double ymax2, double tol);

}  // namespace brindle
