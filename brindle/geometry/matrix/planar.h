// Geometry of the engineering helpers: uses of the planar predicates with the fixed tolerance 1e-4.
// Angles are radians, counter-clockwise from +x; predicates return 1 or 0; where a function may
// fail it returns 0 and leaves its outputs alone.
#pragma once

namespace brindle::QxJGFunEx {

// JH_RotatePoint0 over n points in place: into the frame turned by `a`.
void JH_RotatePoints(int n, float* xs, float* ys, float a);

// The distance of two points in space.
float JH_GetDistance(float x1, float y1, float z1, float x2, float y2, float z2);

// The end of a section from its start, direction and length.
void JH_GetLineEnd(float x, float y, float a, float length, float* ex, float* ey);
// The y of the infinite line at x: 1, or 0 for a line nearer to vertical than 1e-4 in x.
int JH_GetLinePointY(float x1, float y1, float x2, float y2, float x, float* y);
// The point at `ratio` of the way from the first point (0) to the second (1), also beyond.
void JH_GetLineRatioPoint(float x1, float y1, float x2, float y2, float ratio, float* x, float* y);
// Whether the point lies on the section.
int JH_IsPointOnLine(float px, float py, float x1, float y1, float x2, float y2);
// Whether the point lies to the left of the line from its first to its second point, by more than
// the tolerance.
int JH_IsLineLeftPt(float px, float py, float x1, float y1, float x2, float y2);

// Stretches the rectangle about its centre.
void JH_RectScale(float* xmin, float* ymin, float* xmax, float* ymax, float scale);
// The corners of a rectangle w x h centred on (cx, cy) and turned by `a`, from the lower left one
// counter-clockwise; four values each.
void JH_GetRectPoint(float cx, float cy, float w, float h, float a, float* xs, float* ys);

// Whether the direction lies in the arc from a0 to a1, counter-clockwise.
int JH_IsAngleOnArc(float a, float a0, float a1);
// The circle through three points: 1, or 0 for points on one line.
int JH_Get3PtCircleParam(float x1, float y1, float x2, float y2, float x3, float y3, float* cx,
                         float* cy, float* r);
// The arc through three points in their order. a0 and a1, both in [0, 2 pi), run counter-clockwise:
// from the first point to the third if the three turn left, else from the third to the first. 1, or
// 0 for points on one line.
int JH_GetArcPara(float x1, float y1, float x2, float y2, float x3, float y3, float* cx, float* cy,
                  float* r, float* a0, float* a1);

// The quadrant of a direction, 1 to 4; half an axis belongs to the quadrant that begins there, and
// (0, 0) has none: 0.
int JH_GetQuadrant(float dx, float dy);

// The plane A x + B y + C z + D = 0 through three points (three coordinates each), (A, B, C) of
// length 1 and pointing to where the three turn left: 1, or 0 for points on one line.
int JH_Get3PtPlaneEquationParam(const float* p1, const float* p2, const float* p3, float* A,
                                float* B, float* C, float* D);
// The z of that plane at (x, y): 1, or 0 for points on one line or an upright plane.
int JH_Get3PtPlanePtZ(const float* p1, const float* p2, const float* p3, float x, float y,
                      float* z);

// Whether n corners make a convex (Tu) polygon in either winding, one that goes round once. Corners
// in the middle of a straight side are fine; fewer than three, or all on one line, are not.
int JH_IsTuPolygon(int n, const float* xs, const float* ys);

// The largest and the smallest distance from a point to n points: 1, or 0 for n below 1.
int JH_GetMaxMinDist(float px, float py, int n, const float* xs, const float* ys, float* largest,
                     float* smallest);

// What an infinite line has in common with a rectangle: 2 and the ends of the piece, in the line's
// direction; 1 and the point twice where it touches a corner; 0 when it misses or has no length.
int JH_LineInterExtent(float x1, float y1, float x2, float y2, float xmin, float ymin, float xmax,
                       float ymax, float* xa, float* ya, float* xb, float* yb);

}  // namespace brindle::QxJGFunEx
