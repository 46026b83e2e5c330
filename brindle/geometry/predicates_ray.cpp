#include "brindle/geometry/predicates_ray.h"

#include "brindle/geometry/predicates_ray_internal.h"

namespace brindle {

using planar::Arc;
using planar::Circle;
using planar::Ray;
using planar::Section;

int JH_GetInterPoint_Ray_Cirlce(float cx, float cy, float r, float x0, float y0, float x1, float y1,
                                float* xs, float* ys, float) {
  return planar::intersect_ray_circle(Circle<float>{cx, cy, r}, Ray<float>{x0, y0, x1, y1}, xs, ys);
}

int JH_GetInterPoint_Ray_Cirlce(double cx, double cy, double r, double x0, double y0, double x1,
                                double y1, double* xs, double* ys, double) {
  return planar::intersect_ray_circle(Circle<double>{cx, cy, r}, Ray<double>{x0, y0, x1, y1}, xs,
                                      ys);
}

int JH_GetInterPoint_Ray_Arc(float cx, float cy, float r, float a0, float a1, float x0, float y0,
                             float x1, float y1, float* xs, float* ys, float tol) {
  return planar::intersect_ray_arc(Arc<float>{cx, cy, r, a0, a1}, Ray<float>{x0, y0, x1, y1}, xs,
                                   ys, tol);
}

int JH_GetInterPoint_Ray_Arc(double cx, double cy, double r, double a0, double a1, double x0,
                             double y0, double x1, double y1, double* xs, double* ys, double tol) {
  return planar::intersect_ray_arc(Arc<double>{cx, cy, r, a0, a1}, Ray<double>{x0, y0, x1, y1}, xs,
                                   ys, tol);
}

int JH_GetInterPoint_Ray_Line(float x0, float y0, float x1, float y1, float x2, float y2, float x3,
                              float y3, float* x, float* y, float tol) {
  return planar::intersect_ray_line(Ray<float>{x0, y0, x1, y1}, Section<float>{x2, y2, x3, y3},
                                    {x, y}, tol);
}

int JH_GetInterPoint_Ray_Line(double x0, double y0, double x1, double y1, double x2, double y2,
                              double x3, double y3, double* x, double* y, double tol) {
  return planar::intersect_ray_line(Ray<double>{x0, y0, x1, y1}, Section<double>{x2, y2, x3, y3},
                                    {x, y}, tol);
}

int JH_GetInterPoint_Ray_LineSection(float x0, float y0, float x1, float y1, float x2, float y2,
                                     float x3, float y3, float* x, float* y, float tol) {
  return planar::intersect_ray_section(Ray<float>{x0, y0, x1, y1}, Section<float>{x2, y2, x3, y3},
                                       {x, y}, tol);
}

int JH_GetInterPoint_Ray_LineSection(double x0, double y0, double x1, double y1, double x2,
                                     double y2, double x3, double y3, double* x, double* y,
                                     double tol) {
  return planar::intersect_ray_section(Ray<double>{x0, y0, x1, y1}, Section<double>{x2, y2, x3, y3},
                                       {x, y}, tol);
}

int JH_GetInterPoint_Ray_Ray(float x0, float y0, float x1, float y1, float x2, float y2, float x3,
                             float y3, float* x, float* y, float tol) {
  return planar::intersect_rays(Ray<float>{x0, y0, x1, y1}, Ray<float>{x2, y2, x3, y3}, {x, y},
                                tol);
}

int JH_GetInterPoint_Ray_Ray(double x0, double y0, double x1, double y1, double x2, double y2,
                             double x3, double y3, double* x, double* y, double tol) {
  return planar::intersect_rays(Ray<double>{x0, y0, x1, y1}, Ray<double>{x2, y2, x3, y3}, {x, y},
                                tol);
}

}  // namespace brindle
