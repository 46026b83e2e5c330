// Planar predicates: distances and feet of perpendiculars. Conventions: predicates.h.
#pragma once

namespace brindle {

// The distance of the point from the infinite line, without a sign. The line through two equal
// points is the vertical.
float JH_GetMinDist_PointToLine(float px, float py, float x1, float y1, float x2, float y2);
double _JH_GetMinDist_PointToLine(double px, double py, double x1, double y1, double x2, double y2);

// The distance of the point from the section, ends included.
float JH_GetMinDist_PointToLineSection(float px, float py, float x1, float y1, float x2, float y2);
double _JH_GetMinDist_PointToLineSection(double px, double py, double x1, double y1, double x2,
                                         double y2);

// The foot (CuiZu) of the perpendicular from the point to the infinite line.
void JH_GetCuiZu_PointToLine(float px, float py, float x1, float y1, float x2, float y2, float* fx,
                             float* fy);
void _JH_GetCuiZu_PointToLine(double px, double py, double x1, double y1, double x2, double y2,
                              double* fx, double* fy);

// As before; returns 1 when the foot lies on the section lengthened by `tol` at both ends, else 0.
// The foot is written always.
int JH_GetCuiZu_PointToLineSection(float px, float py, float x1, float y1, float x2, float y2,
                                   float* fx, float* fy, float tol);
int _JH_GetCuiZu_PointToLineSection(double px, double py, double x1, double y1, double x2,
                                    double y2, double* fx, double* fy, double tol);

// The point of the arc in the direction of the given one, seen from the centre. Returns 0 and
// writes nothing when that direction misses the arc by more than tol / r.
int JH_GetCuiZu_PointToArc(float px, float py, float cx, float cy, float r, float a0, float a1,
                           float* fx, float* fy, float tol);
int _JH_GetCuiZu_PointToArc(double px, double py, double cx, double cy, double r, double a0,
                            double a1, double* fx, double* fy, double tol);

}  // namespace brindle
