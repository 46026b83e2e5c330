// Centroids and moments of inertia of sections made of rectangles, and of the crescent that a
// larger circle leaves of a smaller one.
#pragma once

namespace brindle::QxJGFunEx {

// A section of n rectangles: lower left corners x[], y[], widths b[], heights h[]. A rectangle with
// one negative measure lies on the other side of its corner and counts as a hole; overlapping parts
// count twice.
//
// The centroid: 1; 0 with zeros for n below 1 or an area of 0.
int JH_GetMultiRectPoid(int n, const float* x, const float* y, const float* b, const float* h,
                        float& cx, float& cy);
// The moments of inertia about the horizontal (Ix) and the vertical (Iy) axis through the centroid.
int JH_GetMultiRectIxIy(int n, const float* x, const float* y, const float* b, const float* h,
                        float& Ix, float& Iy);

// The crescent (Gong): what lies in the smaller of two circles and not in the larger one, for the
// radii R and r, in either order, and the distance d of the centres. A radius below 0.0001 gives 0.
// Circles apart leave the whole smaller circle, a circle within the other leaves nothing.
//
// Its area.
float JH_CalCircleGong_Area(float R, float r, float d);
// The distance of its centroid (XingXin) from the larger circle's centre, towards the smaller
// one's; 0 where there is no crescent.
float JH_CalCircleGong_XingXin(float R, float r, float d);
// Its moments of inertia (GuanXingJu) about its centroid: Ix about the line of centres, Iy about
// the axis across it. 1, or 0 with zeros where there is no crescent.
int JH_CalCircleGong_GuanXingJu(float R, float r, float d, float& Ix, float& Iy);

}  // namespace brindle::QxJGFunEx
