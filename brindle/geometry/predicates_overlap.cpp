#include "brindle/geometry/predicates_overlap.h"

#include "brindle/geometry/predicates_overlap_internal.h"

namespace brindle {

using planar::Rectangle;

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
  return planar::rectangles_meet(Rectangle<float>{xmin1, ymin1, xmax1, ymax1},
                                 Rectangle<float>{xmin2, ymin2, xmax2, ymax2}, tol);
}

int _JH_TestCrossRegon_Rect(double xmin1, double ymin1, double xmax1, double ymax1, double xmin2,
                            double ymin2, double xmax2, double ymax2, double tol) {
  return planar::rectangles_meet(Rectangle<double>{xmin1, ymin1, xmax1, ymax1},
                                 Rectangle<double>{xmin2, ymin2, xmax2, ymax2}, tol);
}

}  // namespace brindle
