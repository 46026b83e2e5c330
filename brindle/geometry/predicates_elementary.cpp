#include "brindle/geometry/predicates_elementary.h"

#include "brindle/geometry/predicates_elementary_internal.h"

namespace brindle {

using planar::Point;
using planar::Section;

float JH_GetDistance(float x1, float y1, float x2, float y2) {
  return planar::distance(Point<float>{x1, y1}, Point<float>{x2, y2});
}

double _JH_GetDistance(double x1, double y1, double x2, double y2) {
  return planar::distance(Point<double>{x1, y1}, Point<double>{x2, y2});
}

float JH_GetDist(float x1, float y1, float x2, float y2) {
  return planar::distance(Point<float>{x2, y2}, Point<float>{x1, y1});
}

double _JH_GetDist(double x1, double y1, double x2, double y2) {
  return planar::distance(Point<double>{x2, y2}, Point<double>{x1, y1});
}

void JH_MovePoint0(float* x, float* y, float dx, float dy) {
  planar::move_point(x, y, dx, dy);
}

void _JH_MovePoint0(double* x, double* y, double dx, double dy) {
  planar::move_point(x, y, dx, dy);
}

void JH_RotatePoint0(float* x, float* y, float a) {
  planar::rotate_point(x, y, a);
}

void _JH_RotatePoint0(double* x, double* y, double a) {
  planar::rotate_point(x, y, a);
}

float JH_GetAngle(float x1, float y1, float x2, float y2) {
  return planar::direction(Point<float>{x1, y1}, Point<float>{x2, y2});
}

double _JH_GetAngle(double x1, double y1, double x2, double y2) {
  return planar::direction(Point<double>{x1, y1}, Point<double>{x2, y2});
}

float JH_Set2PI(float a) {
  return planar::reduce_angle(a);
}

double _JH_Set2PI(double a) {
  return planar::reduce_angle(a);
}

int JH_TestAngleInArc(float a, float a0, float a1, float tol) {
  return planar::angle_in_arc(a, a0, a1, tol);
}

int _JH_TestAngleInArc(double a, double a0, double a1, double tol) {
  return planar::angle_in_arc(a, a0, a1, tol);
}

float JH_GetDet_Tri(float x1, float y1, float x2, float y2, float x3, float y3) {
  return planar::twice_area(Point<float>{x1, y1}, Point<float>{x2, y2}, Point<float>{x3, y3});
}

double _JH_GetDet_Tri(double x1, double y1, double x2, double y2, double x3, double y3) {
  return planar::twice_area(Point<double>{x1, y1}, Point<double>{x2, y2}, Point<double>{x3, y3});
}

void JH_GetLineFunction(float x1, float y1, float x2, float y2, float* a, float* b, float* c) {
  const auto line = planar::line_through(Section<float>{x1, y1, x2, y2});
  *a = line.a;
  *b = line.b;
  *c = line.c;
}

void _JH_GetLineFunction(double x1, double y1, double x2, double y2, double* a, double* b,
                         double* c) {
  const auto line = planar::line_through(Section<double>{x1, y1, x2, y2});
  *a = line.a;
  *b = line.b;
  *c = line.c;
}

float JH_GetLenArc(float cx, float cy, float x1, float y1, float x2, float y2) {
  return planar::arc_length(Point<float>{cx, cy}, Point<float>{x1, y1}, Point<float>{x2, y2});
}

double _JH_GetLenArc(double cx, double cy, double x1, double y1, double x2, double y2) {
  return planar::arc_length(Point<double>{cx, cy}, Point<double>{x1, y1}, Point<double>{x2, y2});
}

void JH_Update_OutLook_Rect(float* xmin, float* ymin, float* xmax, float* ymax, float x, float y) {
  planar::grow_rectangle(xmin, ymin, xmax, ymax, x, y);
}

void _JH_Update_OutLook_Rect(double* xmin, double* ymin, double* xmax, double* ymax, double x,
                             double y) {
  planar::grow_rectangle(xmin, ymin, xmax, ymax, x, y);
}

}  // namespace brindle
