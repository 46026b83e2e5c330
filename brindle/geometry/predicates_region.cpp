#include "brindle/geometry/predicates_region.h"

#include "brindle/geometry/predicates_region_internal.h"

namespace brindle {

using planar::Annulus;
using planar::Arc;
using planar::Circle;
using planar::Polygon;
using planar::Section;

int JH_TestCross_Circle_LineSection(float cx, float cy, float r, float x1, float y1, float x2,
                                    float y2, float tol) {
  return planar::section_crosses_circle(Circle<float>{cx, cy, r}, Section<float>{x1, y1, x2, y2},
                                        tol);
}

int _JH_TestCross_Circle_LineSection(double cx, double cy, double r, double x1, double y1,
                                     double x2, double y2, double tol) {
  return planar::section_crosses_circle(Circle<double>{cx, cy, r}, Section<double>{x1, y1, x2, y2},
                                        tol);
}

int JH_TestCrossRegon_Circle_LineSection(float cx, float cy, float r, float x1, float y1, float x2,
                                         float y2, float tol) {
  return planar::section_meets_disc(Circle<float>{cx, cy, r}, Section<float>{x1, y1, x2, y2}, tol);
}

int _JH_TestCrossRegon_Circle_LineSection(double cx, double cy, double r, double x1, double y1,
                                          double x2, double y2, double tol) {
  return planar::section_meets_disc(Circle<double>{cx, cy, r}, Section<double>{x1, y1, x2, y2},
                                    tol);
}

int JH_TestCross_LineSection_Arc(float x1, float y1, float x2, float y2, float cx, float cy,
                                 float r, float a0, float a1, float tol) {
  return planar::section_crosses_arc(Section<float>{x1, y1, x2, y2}, Arc<float>{cx, cy, r, a0, a1},
                                     tol);
}

int _JH_TestCross_LineSection_Arc(double x1, double y1, double x2, double y2, double cx, double cy,
                                  double r, double a0, double a1, double tol) {
  return planar::section_crosses_arc(Section<double>{x1, y1, x2, y2},
                                     Arc<double>{cx, cy, r, a0, a1}, tol);
}

int JH_TestCrossRegon_LineSection_LineSection(float x1, float y1, float x2, float y2, float x3,
                                              float y3, float x4, float y4, float tol) {
  return planar::sections_meet(Section<float>{x1, y1, x2, y2}, Section<float>{x3, y3, x4, y4}, tol);
}

int _JH_TestCrossRegon_LineSection_LineSection(double x1, double y1, double x2, double y2,
                                               double x3, double y3, double x4, double y4,
                                               double tol) {
  return planar::sections_meet(Section<double>{x1, y1, x2, y2}, Section<double>{x3, y3, x4, y4},
                               tol);
}

int JH_TestCrossRegon_LineSection_Arc(float x1, float y1, float x2, float y2, float cx, float cy,
                                      float r, float a0, float a1, float tol) {
  return planar::section_meets_arc(Section<float>{x1, y1, x2, y2}, Arc<float>{cx, cy, r, a0, a1},
                                   tol);
}

int _JH_TestCrossRegon_LineSection_Arc(double x1, double y1, double x2, double y2, double cx,
                                       double cy, double r, double a0, double a1, double tol) {
  return planar::section_meets_arc(Section<double>{x1, y1, x2, y2}, Arc<double>{cx, cy, r, a0, a1},
                                   tol);
}

int JH_TestCrossRegon_Arc_Arc(float cx1, float cy1, float r1, float a0, float a1, float cx2,
                              float cy2, float r2, float b0, float b1, float tol) {
  return planar::arcs_meet(Arc<float>{cx1, cy1, r1, a0, a1}, Arc<float>{cx2, cy2, r2, b0, b1}, tol);
}

int _JH_TestCrossRegon_Arc_Arc(double cx1, double cy1, double r1, double a0, double a1, double cx2,
                               double cy2, double r2, double b0, double b1, double tol) {
  return planar::arcs_meet(Arc<double>{cx1, cy1, r1, a0, a1}, Arc<double>{cx2, cy2, r2, b0, b1},
                           tol);
}

int JH_TestCrossRegon_Circle_Circle(float cx1, float cy1, float r1, float cx2, float cy2, float r2,
                                    float tol) {
  return planar::discs_meet(Circle<float>{cx1, cy1, r1}, Circle<float>{cx2, cy2, r2}, tol);
}

int _JH_TestCrossRegon_Circle_Circle(double cx1, double cy1, double r1, double cx2, double cy2,
                                     double r2, double tol) {
  return planar::discs_meet(Circle<double>{cx1, cy1, r1}, Circle<double>{cx2, cy2, r2}, tol);
}

int JH_TestCrossRegon_LineSection_TuPolygon(int n, const float* xs, const float* ys, float x1,
                                            float y1, float x2, float y2, float tol) {
  return planar::section_meets_polygon(Polygon<float>{n, xs, ys}, Section<float>{x1, y1, x2, y2},
                                       tol);
}

int _JH_TestCrossRegon_LineSection_TuPolygon(int n, const double* xs, const double* ys, double x1,
                                             double y1, double x2, double y2, double tol) {
  return planar::section_meets_polygon(Polygon<double>{n, xs, ys}, Section<double>{x1, y1, x2, y2},
                                       tol);
}

int JH_TestCrossRegon_Circle_TuPolygon(float cx, float cy, float r, int n, const float* xs,
                                       const float* ys, float tol) {
  return planar::disc_meets_polygon(Circle<float>{cx, cy, r}, Polygon<float>{n, xs, ys}, tol);
}

int _JH_TestCrossRegon_Circle_TuPolygon(double cx, double cy, double r, int n, const double* xs,
                                        const double* ys, double tol) {
  return planar::disc_meets_polygon(Circle<double>{cx, cy, r}, Polygon<double>{n, xs, ys}, tol);
}

int JH_TestCrossRegon_TuPolygon_TuPolygon(int n1, const float* xs1, const float* ys1, int n2,
                                          const float* xs2, const float* ys2, float tol) {
  return planar::polygons_meet(Polygon<float>{n1, xs1, ys1}, Polygon<float>{n2, xs2, ys2}, tol);
}

int _JH_TestCrossRegon_TuPolygon_TuPolygon(int n1, const double* xs1, const double* ys1, int n2,
                                           const double* xs2, const double* ys2, double tol) {
  return planar::polygons_meet(Polygon<double>{n1, xs1, ys1}, Polygon<double>{n2, xs2, ys2}, tol);
}

int JH_TestCrossRegon_Arc_TuPolygon(int n, const float* xs, const float* ys, float cx, float cy,
                                    float r, float a0, float a1, float tol) {
  return planar::arc_meets_polygon(Polygon<float>{n, xs, ys}, Arc<float>{cx, cy, r, a0, a1}, tol);
}

int _JH_TestCrossRegon_Arc_TuPolygon(int n, const double* xs, const double* ys, double cx,
                                     double cy, double r, double a0, double a1, double tol) {
  return planar::arc_meets_polygon(Polygon<double>{n, xs, ys}, Arc<double>{cx, cy, r, a0, a1}, tol);
}

int JH_TestCrossRegon_Circle_Arc(float cx, float cy, float r, float ax, float ay, float R, float a0,
                                 float a1, float tol) {
  return planar::disc_meets_arc(Circle<float>{cx, cy, r}, Arc<float>{ax, ay, R, a0, a1}, tol);
}

int _JH_TestCrossRegon_Circle_Arc(double cx, double cy, double r, double ax, double ay, double R,
                                  double a0, double a1, double tol) {
  return planar::disc_meets_arc(Circle<double>{cx, cy, r}, Arc<double>{ax, ay, R, a0, a1}, tol);
}

int JH_TestCrossRegon_LineSection_JvBuYuanHuan(float x1, float y1, float x2, float y2, float cx,
                                               float cy, float R, float W, float a0, float a1,
                                               float tol) {
  return planar::section_meets_annulus(Section<float>{x1, y1, x2, y2},
                                       Annulus<float>{cx, cy, R, W, a0, a1}, tol);
}

int _JH_TestCrossRegon_LineSection_JvBuYuanHuan(double x1, double y1, double x2, double y2,
                                                double cx, double cy, double R, double W, double a0,
                                                double a1, double tol) {
  return planar::section_meets_annulus(Section<double>{x1, y1, x2, y2},
                                       Annulus<double>{cx, cy, R, W, a0, a1}, tol);
}

int JH_TestCrossRegon_Circle_JvBuYuanHuan(float cx, float cy, float r, float ax, float ay, float R,
                                          float W, float a0, float a1, float tol) {
  return planar::disc_meets_annulus(Circle<float>{cx, cy, r}, Annulus<float>{ax, ay, R, W, a0, a1},
                                    tol);
}

int _JH_TestCrossRegon_Circle_JvBuYuanHuan(double cx, double cy, double r, double ax, double ay,
                                           double R, double W, double a0, double a1, double tol) {
  return planar::disc_meets_annulus(Circle<double>{cx, cy, r},
                                    Annulus<double>{ax, ay, R, W, a0, a1}, tol);
}

int JH_TestCrossRegon_Arc_JvBuYuanHuan(float cx, float cy, float r, float a0, float a1, float ax,
                                       float ay, float R, float W, float b0, float b1, float tol) {
  return planar::arc_meets_annulus(Arc<float>{cx, cy, r, a0, a1},
                                   Annulus<float>{ax, ay, R, W, b0, b1}, tol);
}

int _JH_TestCrossRegon_Arc_JvBuYuanHuan(double cx, double cy, double r, double a0, double a1,
                                        double ax, double ay, double R, double W, double b0,
                                        double b1, double tol) {
  return planar::arc_meets_annulus(Arc<double>{cx, cy, r, a0, a1},
                                   Annulus<double>{ax, ay, R, W, b0, b1}, tol);
}

int JH_TestCrossRegon_TuPolygon_JvBuYuanHuan(int n, const float* xs, const float* ys, float cx,
                                             float cy, float R, float W, float a0, float a1,
                                             float tol) {
  return planar::polygon_meets_annulus(Polygon<float>{n, xs, ys},
                                       Annulus<float>{cx, cy, R, W, a0, a1}, tol);
}

int _JH_TestCrossRegon_TuPolygon_JvBuYuanHuan(int n, const double* xs, const double* ys, double cx,
                                              double cy, double R, double W, double a0, double a1,
                                              double tol) {
  return planar::polygon_meets_annulus(Polygon<double>{n, xs, ys},
                                       Annulus<double>{cx, cy, R, W, a0, a1}, tol);
}

int JH_TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan(float cx1, float cy1, float R1, float W1, float a0,
                                                float a1, float cx2, float cy2, float R2, float W2,
                                                float b0, float b1, float tol) {
  return planar::annuli_meet(Annulus<float>{cx1, cy1, R1, W1, a0, a1},
                             Annulus<float>{cx2, cy2, R2, W2, b0, b1}, tol);
}

}  // namespace brindle
