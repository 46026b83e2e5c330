// Planar predicates: whether a point lies on or in a figure. Each returns 1 or 0. Conventions:
// predicates.h.
#pragma once

namespace brindle {

// Whether twice the area of the triangle of the point and the line's two is below `tol`: not a
// distance, it grows with the distance of the line's points.
int JH_TestPoint_On_Line(float px, float py, float x1, float y1, float x2, float y2, float tol);
int JH_TestPoint_On_Line(double px, double py, double x1, double y1, double x2, double y2,
                         double tol);

// Whether the way by the point is longer than the section by less than `tol`: the detour, not a
// distance.
int JH_TestPoint_On_LineSection(float px, float py, float x1, float y1, float x2, float y2,
                                float tol);
int JH_TestPoint_On_LineSection(double px, double py, double x1, double y1, double x2, double y2,
                                double tol);

// Whether the point lies in the band around the section that reaches `tol` to its sides and beyond
// its ends. Closed.
int JH_TestPointIn_LineSection(float px, float py, float x1, float y1, float x2, float y2,
                               float tol);
int _JH_TestPointIn_LineSection(double px, double py, double x1, double y1, double x2, double y2,
                                double tol);

// Whether the point lies in the disc whose radius is larger by `tol`. Strict.
int JH_TestPointIn_Circle(float px, float py, float cx, float cy, float r, float tol);
int _JH_TestPointIn_Circle(double px, double py, double cx, double cy, double r, double tol);

// Whether the point lies in the rectangle grown by `tol`. Closed.
int JH_TestPointIn_Rect(float xmin, float ymin, float xmax, float ymax, float px, float py,
                        float tol);
int _JH_TestPointIn_Rect(double xmin, double ymin, double xmax, double ymax, double px, double py,
                         double tol);

// Whether the point lies left of every edge of the convex polygon, or at most `tol` right of it.
// Without vertices: 1. A clockwise polygon refuses its own inside.
int JH_TestPointIn_TuPolygon(float px, float py, int n, const float* xs, const float* ys,
                             float tol);
int _JH_TestPointIn_TuPolygon(double px, double py, int n, const double* xs, const double* ys,
                              double tol);

// Always 0: no polygon is looked at. Meant; the convex one above has the test.
int JH_TestPointIn_Polygon(float px, float py, int n, const float* xs, const float* ys, float tol);
int _JH_TestPointIn_Polygon(double px, double py, int n, const double* xs, const double* ys,
                            double tol);

// Whether the point's distance from the centre lies within `tol` of the ring's two radii (strict)
// and its direction in the arc widened by tol / R.
int JH_TestPointIn_JvBuYuanHuan(float px, float py, float cx, float cy, float R, float W, float a0,
                                float a1, float tol);
int _JH_TestPointIn_JvBuYuanHuan(double px, double py, double cx, double cy, double R, double W,
                                 double a0, double a1, double tol);

// Whether the point lies at most `tol` from the arc's circle and its direction in the arc widened
// by tol / r.
int JH_TestPointIn_Arc(float px, float py, float cx, float cy, float r, float a0, float a1,
                       float tol);
int _JH_TestPointIn_Arc(double px, double py, double cx, double cy, double r, double a0, double a1,
                        double tol);

}  // namespace brindle
