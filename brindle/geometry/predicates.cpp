#include "brindle/geometry/predicates.h"

#include "brindle/geometry/predicates_internal.h"

namespace brindle {

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

float JH_Set2PI(float a) {
  return planar::reduce_angle(a, planar::Angles<float>::kTwoPi);
}

// The quotient with half a turn overshoots, and the steps bring the angle back.
double _JH_Set2PI(double a) {
  return planar::reduce_angle(a, planar::Angles<double>::kPi);
}

int JH_TestAngleInArc(float a, float a0, float a1, float tol) {
  return planar::angle_in_arc(a, a0, a1, tol, JH_Set2PI);
}

int _JH_TestAngleInArc(double a, double a0, double a1, double tol) {
  return planar::angle_in_arc(a, a0, a1, tol, _JH_Set2PI);
}

void JH_Update_OutLook_Rect(float* xmin, float* ymin, float* xmax, float* ymax, float x, float y) {
  planar::grow_rectangle(xmin, ymin, xmax, ymax, x, y);
}

void _JH_Update_OutLook_Rect(double* xmin, double* ymin, double* xmax, double* ymax, double x,
                             double y) {
  planar::grow_rectangle(xmin, ymin, xmax, ymax, x, y);
}

int JH_TestCross_Float_Domain(float a, float b, float c, float d, float tol) {
  return planar::intervals_meet(a, b, c, d, tol);
}

int JH_TestCross_Domain(double a, double b, double c, double d, double tol) {
  return planar::intervals_meet(a, b, c, d, tol);
}

int _JH_TestCross_double_Domain(double a, double b, double c, double d, double tol) {
  return planar::intervals_meet_strictly(a, b, c, d, tol);
}

int JH_TestCross_Float_Domain_Ex(float a, float b, float c, float d, float tol) {
  return planar::intervals_overlap(a, b, c, d, tol);
}

int JH_TestCross_Domain_Ex(double a, double b, double c, double d, double tol) {
  return planar::intervals_overlap(a, b, c, d, tol);
}

int JH_TestCrossRegon_Rect(float xmin1, float ymin1, float xmax1, float ymax1, float xmin2,
                           float ymin2, float xmax2, float ymax2, float tol) {
  return JH_TestCross_Float_Domain(xmin1, xmax1, xmin2, xmax2, tol) &&
         JH_TestCross_Float_Domain(ymin1, ymax1, ymin2, ymax2, tol);
}

int _JH_TestCrossRegon_Rect(double xmin1, double ymin1, double xmax1, double ymax1, double xmin2,
                            double ymin2, double xmax2, double ymax2, double tol) {
  return _JH_TestCross_double_Domain(xmin1, xmax1, xmin2, xmax2, tol) &&
         _JH_TestCross_double_Domain(ymin1, ymax1, ymin2, ymax2, tol);
}

}  // namespace brindle
