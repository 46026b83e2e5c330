#include "brindle/geometry/predicates_membership.h"

#include "brindle/geometry/predicates_membership_internal.h"

namespace brindle {

using planar::Annulus;
using planar::Arc;
using planar::Circle;
using planar::Point;
using planar::Polygon;
using planar::Rectangle;
using planar::Section;

int JH_TestPoint_On_Line(float px, float py, float x1, float y1, float x2, float y2, float tol) {
  return planar::on_line(Point<float>{px, py}, Section<float>{x1, y1, x2, y2}, tol);
}

int JH_TestPoint_On_Line(double px, double py, double x1, double y1, double x2, double y2,
                         double tol) {
  return planar::on_line(Point<double>{px, py}, Section<double>{x1, y1, x2, y2}, tol);
}

int JH_TestPoint_On_LineSection(float px, float py, float x1, float y1, float x2, float y2,
                                float tol) {
  return planar::on_section(Point<float>{px, py}, Section<float>{x1, y1, x2, y2}, tol);
}

int JH_TestPoint_On_LineSection(double px, double py, double x1, double y1, double x2, double y2,
                                double tol) {
  return planar::on_section(Point<double>{px, py}, Section<double>{x1, y1, x2, y2}, tol);
}

int JH_TestPointIn_LineSection(float px, float py, float x1, float y1, float x2, float y2,
                               float tol) {
  return planar::in_band(Point<float>{px, py}, Section<float>{x1, y1, x2, y2}, tol);
}

int _JH_TestPointIn_LineSection(double px, double py, double x1, double y1, double x2, double y2,
                                double tol) {
  return planar::in_band(Point<double>{px, py}, Section<double>{x1, y1, x2, y2}, tol);
}

int JH_TestPointIn_Circle(float px, float py, float cx, float cy, float r, float tol) {
  return planar::in_disc(Point<float>{px, py}, Circle<float>{cx, cy, r}, tol);
}

int _JH_TestPointIn_Circle(double px, double py, double cx, double cy, double r, double tol) {
  return planar::in_disc(Point<double>{px, py}, Circle<double>{cx, cy, r}, tol);
}

int JH_TestPointIn_Rect(float xmin, float ymin, float xmax, float ymax, float px, float py,
                        float tol) {
  return planar::in_rectangle(Rectangle<float>{xmin, ymin, xmax, ymax}, Point<float>{px, py}, tol);
}

int _JH_TestPointIn_Rect(double xmin, double ymin, double xmax, double ymax, double px, double py,
                         double tol) {
  return planar::in_rectangle(Rectangle<double>{xmin, ymin, xmax, ymax}, Point<double>{px, py},
                              tol);
}

int JH_TestPointIn_TuPolygon(float px, float py, int n, const float* xs, const float* ys,
                             float tol) {
  return planar::in_polygon(Point<float>{px, py}, Polygon<float>{n, xs, ys}, tol);
}

int _JH_TestPointIn_TuPolygon(double px, double py, int n, const double* xs, const double* ys,
                              double tol) {
  return planar::in_polygon(Point<double>{px, py}, Polygon<double>{n, xs, ys}, tol);
}

int JH_TestPointIn_Polygon(float, float, int, const float*, const float*, float) {
  return 0;
}

int _JH_TestPointIn_Polygon(double, double, int, const double*, const double*, double) {
  return 0;
}

int JH_TestPointIn_JvBuYuanHuan(float px, float py, float cx, float cy, float R, float W, float a0,
                                float a1, float tol) {
  return planar::in_annulus(Point<float>{px, py}, Annulus<float>{cx, cy, R, W, a0, a1}, tol);
}

int _JH_TestPointIn_JvBuYuanHuan(double px, double py, double cx, double cy, double R, double W,
                                 double a0, double a1, double tol) {
  return planar::in_annulus(Point<double>{px, py}, Annulus<double>{cx, cy, R, W, a0, a1}, tol);
}

int JH_TestPointIn_Arc(float px, float py, float cx, float cy, float r, float a0, float a1,
                       float tol) {
  return planar::on_arc(Point<float>{px, py}, Arc<float>{cx, cy, r, a0, a1}, tol);
}

int _JH_TestPointIn_Arc(double px, double py, double cx, double cy, double r, double a0, double a1,
                        double tol) {
  return planar::on_arc(Point<double>{px, py}, Arc<double>{cx, cy, r, a0, a1}, tol);
}

}  // namespace brindle
