// POINT_2D, the plain point of the double routines, and what measures with it. Angles are radians.
#pragma once

namespace brindle {

struct POINT_2D {
  double x = 0;
  double y = 0;
};

// The distance of two points.
double get_dist_point_2d(const POINT_2D& p, const POINT_2D& q);

// The distance from p to the nearest point of the section a b, which may be a point itself.
double get_dist_point_segment_2d(const POINT_2D& p, const POINT_2D& a, const POINT_2D& b);

// Twice the signed area of the triangle, positive when the three turn left.
double det3_point_2d(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3);

// The largest and the smallest interior angle; a corner that coincides with a neighbour has 0.
double max_angle_of_tri(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3);
double min_angle_of_tri(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3);

// The largest interior angle together with its corner: *corner is 0, 1 or 2, the first of equals.
double max_angle_of_tri_2(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3, int* corner);

// Whether the sections p1 p2 and p3 p4 cross in one point, which is written; ends count, within a
// distance of 1e-5. 0, with the output left alone, when they miss, are parallel, or one of them has
// no length.
int segment_cross_point(const POINT_2D& p1, const POINT_2D& p2, const POINT_2D& p3,
                        const POINT_2D& p4, POINT_2D* cross);

// Whether p lies in the polygon of n corners, in either winding and also when it isn't convex; its
// outline counts, within a distance of 1e-5. Where the polygon crosses itself, what the outline
// surrounds an even number of times is outside. 0 for n below 1.
int point_in_area(const POINT_2D& p, int n, const POINT_2D* corners);

}  // namespace brindle
