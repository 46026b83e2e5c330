// Areas, centroids and perimeters of triangles and plain polygons, and the corners of a turned
// rectangle. A polygon is n, x[], y[], closed from the last corner to the first; counter-clockwise
// has a positive area. The float ones compute in double.
#pragma once

namespace brindle {

// Twice the signed area of a triangle: x1 y2 + x2 y3 + x3 y1 - y1 x2 - y2 x3 - y3 x1.
float det_tri(float x1, float y1, float x2, float y2, float x3, float y3);
double det_tri(double x1, double y1, double x2, double y2, double x3, double y3);

// The signed area of a triangle.
float area_tri(float x1, float y1, float x2, float y2, float x3, float y3);
double area_tri(double x1, double y1, double x2, double y2, double x3, double y3);

// The signed area of a polygon, summed by triangles with the origin: far from the origin digits are
// lost. 0 for n below 1.
float area_poli(int n, const float* x, const float* y);
double area_poli(int n, const double* x, const double* y);

// The centroid of a polygon's area, in either winding, taken about its first corner. Where the area
// is exactly 0 the mean of the corners stands in; n below 1 gives (0, 0).
void centroid_poli(int n, const float* x, const float* y, float* cx, float* cy);
void centroid_poli(int n, const double* x, const double* y, double* cx, double* cy);

// The perimeter (ZhouChang) of a polygon, its closing edge included; 0 for n below 1.
float zhouchang_poli(int n, const float* x, const float* y);
double zhouchang_poli(int n, const double* x, const double* y);

// The corners (JiaoDian) of a rectangle centred on (cx, cy), in the order (-w/2, -h/2), (w/2,
// -h/2), (w/2, h/2), (-w/2, h/2), turned counter-clockwise by `angle` in degrees. x and y take four
// values.
void get_rect_jiaodian(float cx, float cy, float w, float h, float angle, float* x, float* y);

}  // namespace brindle
