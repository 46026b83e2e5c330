#include "brindle/geometry/predicates_intersection.h"

#include "brindle/geometry/predicates_intersection_internal.h"

namespace brindle {

using planar::Arc;
using planar::Circle;
using planar::Line;
using planar::Section;

int JH_GetInterPoint_Line_ByFunc(float a1, float b1, float c1, float a2, float b2, float c2,
                                 float* x, float* y, float tol) {
  return planar::intersect_lines(Line<float>{a1, b1, c1}, Line<float>{a2, b2, c2}, {x, y}, tol);
}

int _JH_GetInterPoint_Line_ByFunc(double a1, double b1, double c1, double a2, double b2, double c2,
                                  double* x, double* y, double tol) {
  return planar::intersect_lines(Line<double>{a1, b1, c1}, Line<double>{a2, b2, c2}, {x, y}, tol);
}

int JH_GetInterPoint_Line(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                          float y4, float* x, float* y, float tol) {
  return planar::intersect_lines(Section<float>{x1, y1, x2, y2}, Section<float>{x3, y3, x4, y4},
                                 {x, y}, tol);
}

int _JH_GetInterPoint_Line(double x1, double y1, double x2, double y2, double x3, double y3,
                           double x4, double y4, double* x, double* y, double tol) {
  return planar::intersect_lines(Section<double>{x1, y1, x2, y2}, Section<double>{x3, y3, x4, y4},
                                 {x, y}, tol);
}

int JH_GetInterPoint_LineSection_LineSection(float x1, float y1, float x2, float y2, float x3,
                                             float y3, float x4, float y4, float* x, float* y,
                                             float tol) {
  return planar::intersect_sections(Section<float>{x1, y1, x2, y2}, Section<float>{x3, y3, x4, y4},
                                    {x, y}, tol);
}

int _JH_GetInterPoint_LineSection_LineSection(double x1, double y1, double x2, double y2, double x3,
                                              double y3, double x4, double y4, double* x, double* y,
                                              double tol) {
  return planar::intersect_sections(Section<double>{x1, y1, x2, y2},
                                    Section<double>{x3, y3, x4, y4}, {x, y}, tol);
}

int JH_GetInterPoint_LineSection(float x1, float y1, float x2, float y2, float x3, float y3,
                                 float x4, float y4, float* x, float* y, float tol) {
  return planar::intersect_sections_or_points(Section<float>{x1, y1, x2, y2},
                                              Section<float>{x3, y3, x4, y4}, {x, y}, tol);
}

int _JH_GetInterPoint_LineSection(double x1, double y1, double x2, double y2, double x3, double y3,
                                  double x4, double y4, double* x, double* y, double tol) {
  return planar::intersect_sections_or_points(Section<double>{x1, y1, x2, y2},
                                              Section<double>{x3, y3, x4, y4}, {x, y}, tol);
}

int JH_GetInterPoint_LineSection_Old(float x1, float y1, float x2, float y2, float x3, float y3,
                                     float x4, float y4, float* x, float* y, float tol) {
  return planar::intersect_sections_by_lines(Section<float>{x1, y1, x2, y2},
                                             Section<float>{x3, y3, x4, y4}, {x, y}, tol);
}

int _JH_GetInterPoint_LineSection_Old(double x1, double y1, double x2, double y2, double x3,
                                      double y3, double x4, double y4, double* x, double* y,
                                      double tol) {
  return planar::intersect_sections_by_lines(Section<double>{x1, y1, x2, y2},
                                             Section<double>{x3, y3, x4, y4}, {x, y}, tol);
}

int JH_GetInterPoint_Circle_LineSection(float cx, float cy, float r, float x1, float y1, float x2,
                                        float y2, float* xa, float* ya, float* xb, float* yb,
                                        float tol) {
  return planar::intersect_circle_section(Circle<float>{cx, cy, r}, Section<float>{x1, y1, x2, y2},
                                          {xa, ya}, {xb, yb}, tol);
}

int _JH_GetInterPoint_Circle_LineSection(double cx, double cy, double r, double x1, double y1,
                                         double x2, double y2, double* xa, double* ya, double* xb,
                                         double* yb, double tol) {
  return planar::intersect_circle_section(Circle<double>{cx, cy, r},
                                          Section<double>{x1, y1, x2, y2}, {xa, ya}, {xb, yb}, tol);
}

int JH_GetInterPoint_LineSection_Arc(float x1, float y1, float x2, float y2, float cx, float cy,
                                     float r, float a0, float a1, float* xa, float* ya, float* xb,
                                     float* yb, float tol) {
  return planar::intersect_section_arc(Section<float>{x1, y1, x2, y2},
                                       Arc<float>{cx, cy, r, a0, a1}, {xa, ya}, {xb, yb}, tol);
}

int _JH_GetInterPoint_LineSection_Arc(double x1, double y1, double x2, double y2, double cx,
                                      double cy, double r, double a0, double a1, double* xa,
                                      double* ya, double* xb, double* yb, double tol) {
  return planar::intersect_section_arc(Section<double>{x1, y1, x2, y2},
                                       Arc<double>{cx, cy, r, a0, a1}, {xa, ya}, {xb, yb}, tol);
}

int JH_GetInterPoint_Circle_Circle(float cx1, float cy1, float r1, float cx2, float cy2, float r2,
                                   float* xa, float* ya, float* xb, float* yb, float tol) {
  return planar::intersect_circles(Circle<float>{cx1, cy1, r1}, Circle<float>{cx2, cy2, r2},
                                   {xa, ya}, {xb, yb}, tol);
}

int _JH_GetInterPoint_Circle_Circle(double cx1, double cy1, double r1, double cx2, double cy2,
                                    double r2, double* xa, double* ya, double* xb, double* yb,
                                    double tol) {
  return planar::intersect_circles(Circle<double>{cx1, cy1, r1}, Circle<double>{cx2, cy2, r2},
                                   {xa, ya}, {xb, yb}, tol);
}

int JH_GetInterPoint_Circle_Arc(float cx, float cy, float r, float ax, float ay, float R, float a0,
                                float a1, float* xa, float* ya, float* xb, float* yb, float tol) {
  return planar::intersect_circle_arc(Circle<float>{cx, cy, r}, Arc<float>{ax, ay, R, a0, a1},
                                      {xa, ya}, {xb, yb}, tol);
}

int _JH_GetInterPoint_Circle_Arc(double cx, double cy, double r, double ax, double ay, double R,
                                 double a0, double a1, double* xa, double* ya, double* xb,
                                 double* yb, double tol) {
  return planar::intersect_circle_arc(Circle<double>{cx, cy, r}, Arc<double>{ax, ay, R, a0, a1},
                                      {xa, ya}, {xb, yb}, tol);
}

int JH_GetInterPoint_Arc_Arc(float cx1, float cy1, float r1, float a0, float a1, float cx2,
                             float cy2, float r2, float b0, float b1, float* xa, float* ya,
                             float* xb, float* yb, float tol) {
  return planar::intersect_arcs(Arc<float>{cx1, cy1, r1, a0, a1}, Arc<float>{cx2, cy2, r2, b0, b1},
                                {xa, ya}, {xb, yb}, tol);
}

int _JH_GetInterPoint_Arc_Arc(double cx1, double cy1, double r1, double a0, double a1, double cx2,
                              double cy2, double r2, double b0, double b1, double* xa, double* ya,
                              double* xb, double* yb, double tol) {
  return planar::intersect_arcs(Arc<double>{cx1, cy1, r1, a0, a1},
                                Arc<double>{cx2, cy2, r2, b0, b1}, {xa, ya}, {xb, yb}, tol);
}

int JH_GetInterPoint_Line_Circle(float cx, float cy, float r, float x1, float y1, float x2,
                                 float y2, float* xs, float* ys, float tol) {
  return planar::intersect_line_circle(Circle<float>{cx, cy, r}, Section<float>{x1, y1, x2, y2}, xs,
                                       ys, tol);
}

int JH_GetInterPoint_Line_Circle(double cx, double cy, double r, double x1, double y1, double x2,
                                 double y2, double* xs, double* ys, double tol) {
  return planar::intersect_line_circle(Circle<double>{cx, cy, r}, Section<double>{x1, y1, x2, y2},
                                       xs, ys, tol);
}

}  // namespace brindle
