// Planar predicates: whether outlines cross (TestCross) and filled regions meet (TestCrossRegon).
// Each returns 1 or 0. Conventions: predicates.h.
#pragma once

namespace brindle {

// Whether the section reaches the circle's line: 0 for one that lies inside the circle, or away
// from it by `tol` or more.
int JH_TestCross_Circle_LineSection(float cx, float cy, float r, float x1, float y1, float x2,
                                    float y2, float tol);
int _JH_TestCross_Circle_LineSection(double cx, double cy, double r, double x1, double y1,
                                     double x2, double y2, double tol);

// Whether the section comes nearer to the disc than `tol`.
int JH_TestCrossRegon_Circle_LineSection(float cx, float cy, float r, float x1, float y1, float x2,
                                         float y2, float tol);
int _JH_TestCrossRegon_Circle_LineSection(double cx, double cy, double r, double x1, double y1,
                                          double x2, double y2, double tol);

// Whether the section crosses the arc. Where it crosses the circle twice only the second crossing
// (the one nearer to the section's first end) is looked at; this is meant.
int JH_TestCross_LineSection_Arc(float x1, float y1, float x2, float y2, float cx, float cy,
                                 float r, float a0, float a1, float tol);
int _JH_TestCross_LineSection_Arc(double x1, double y1, double x2, double y2, double cx, double cy,
                                  double r, double a0, double a1, double tol);

// Whether two sections meet; an overlap of sections on one line counts.
int JH_TestCrossRegon_LineSection_LineSection(float x1, float y1, float x2, float y2, float x3,
                                              float y3, float x4, float y4, float tol);
int _JH_TestCrossRegon_LineSection_LineSection(double x1, double y1, double x2, double y2,
                                               double x3, double y3, double x4, double y4,
                                               double tol);

// Whether section and arc have a common point.
int JH_TestCrossRegon_LineSection_Arc(float x1, float y1, float x2, float y2, float cx, float cy,
                                      float r, float a0, float a1, float tol);
int _JH_TestCrossRegon_LineSection_Arc(double x1, double y1, double x2, double y2, double cx,
                                       double cy, double r, double a0, double a1, double tol);

// Whether two arcs have a common point.
int JH_TestCrossRegon_Arc_Arc(float cx1, float cy1, float r1, float a0, float a1, float cx2,
                              float cy2, float r2, float b0, float b1, float tol);
int _JH_TestCrossRegon_Arc_Arc(double cx1, double cy1, double r1, double a0, double a1, double cx2,
                               double cy2, double r2, double b0, double b1, double tol);

// Whether two discs come nearer than `tol`; a disc inside a disc counts.
int JH_TestCrossRegon_Circle_Circle(float cx1, float cy1, float r1, float cx2, float cy2, float r2,
                                    float tol);
int _JH_TestCrossRegon_Circle_Circle(double cx1, double cy1, double r1, double cx2, double cy2,
                                     double r2, double tol);

// Whether an end of the section lies in the convex polygon or the section meets an edge.
int JH_TestCrossRegon_LineSection_TuPolygon(int n, const float* xs, const float* ys, float x1,
                                            float y1, float x2, float y2, float tol);
int _JH_TestCrossRegon_LineSection_TuPolygon(int n, const double* xs, const double* ys, double x1,
                                             double y1, double x2, double y2, double tol);

// Whether the disc holds or reaches a point of the convex polygon.
int JH_TestCrossRegon_Circle_TuPolygon(float cx, float cy, float r, int n, const float* xs,
                                       const float* ys, float tol);
int _JH_TestCrossRegon_Circle_TuPolygon(double cx, double cy, double r, int n, const double* xs,
                                        const double* ys, double tol);

// Whether two convex polygons meet. A vertex counts as lying in the other by the fixed tolerance
// 1e-5; edges and bounding rectangles are compared with `tol`. A polygon without vertices meets
// nothing.
int JH_TestCrossRegon_TuPolygon_TuPolygon(int n1, const float* xs1, const float* ys1, int n2,
                                          const float* xs2, const float* ys2, float tol);
int _JH_TestCrossRegon_TuPolygon_TuPolygon(int n1, const double* xs1, const double* ys1, int n2,
                                           const double* xs2, const double* ys2, double tol);

// Whether an end of the arc lies in the convex polygon or an edge crosses the arc
// (JH_TestCross_LineSection_Arc).
int JH_TestCrossRegon_Arc_TuPolygon(int n, const float* xs, const float* ys, float cx, float cy,
                                    float r, float a0, float a1, float tol);
int _JH_TestCrossRegon_Arc_TuPolygon(int n, const double* xs, const double* ys, double cx,
                                     double cy, double r, double a0, double a1, double tol);

// Whether the disc of the circle holds an end of the arc, or circle and arc cross; circles that
// only touch don't count. The second crossing is turned into place by the direction found for the
// first, seen from the arc's centre, and so lies elsewhere; this is meant.
int JH_TestCrossRegon_Circle_Arc(float cx, float cy, float r, float ax, float ay, float R, float a0,
                                 float a1, float tol);
int _JH_TestCrossRegon_Circle_Arc(double cx, double cy, double r, double ax, double ay, double R,
                                  double a0, double a1, double tol);

// Whether the section has an end in the partial annulus or crosses its outline.
int JH_TestCrossRegon_LineSection_JvBuYuanHuan(float x1, float y1, float x2, float y2, float cx,
                                               float cy, float R, float W, float a0, float a1,
                                               float tol);
int _JH_TestCrossRegon_LineSection_JvBuYuanHuan(double x1, double y1, double x2, double y2,
                                                double cx, double cy, double R, double W, double a0,
                                                double a1, double tol);

// Whether the disc has its centre in the partial annulus, holds a corner of it, or meets its
// outline.
int JH_TestCrossRegon_Circle_JvBuYuanHuan(float cx, float cy, float r, float ax, float ay, float R,
                                          float W, float a0, float a1, float tol);
int _JH_TestCrossRegon_Circle_JvBuYuanHuan(double cx, double cy, double r, double ax, double ay,
                                           double R, double W, double a0, double a1, double tol);

// Whether the arc has an end in the partial annulus or crosses its outline.
int JH_TestCrossRegon_Arc_JvBuYuanHuan(float cx, float cy, float r, float a0, float a1, float ax,
                                       float ay, float R, float W, float b0, float b1, float tol);
int _JH_TestCrossRegon_Arc_JvBuYuanHuan(double cx, double cy, double r, double a0, double a1,
                                        double ax, double ay, double R, double W, double b0,
                                        double b1, double tol);

// Whether convex polygon and partial annulus meet. The inner end of each radial edge goes to the
// last test as (x, x), its x coordinate twice; this is meant.
int JH_TestCrossRegon_TuPolygon_JvBuYuanHuan(int n, const float* xs, const float* ys, float cx,
                                             float cy, float R, float W, float a0, float a1,
                                             float tol);
int _JH_TestCrossRegon_TuPolygon_JvBuYuanHuan(int n, const double* xs, const double* ys, double cx,
                                              double cy, double R, double W, double a0, double a1,
                                              double tol);

// Whether two partial annuli have a corner in each other or outlines that cross. In float only: the
// twin has no public name.
int JH_TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan(float cx1, float cy1, float R1, float W1, float a0,
                                                float a1, float cx2, float cy2, float R2, float W2,
                                                float b0, float b1, float tol);

}  // namespace brindle
