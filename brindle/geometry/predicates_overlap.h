// Planar predicates: whether intervals (Domain: a closed interval on one axis) and rectangles
// overlap. Each returns 1 or 0. Conventions: predicates.h.
#pragma once

namespace brindle {

// Whether an end of one of the intervals [a, b] and [c, d] lies in the other, widened by `tol`. The
// first two are one function in two widths, closed; the third is strict.
int JH_TestCross_Float_Domain(float a, float b, float c, float d, float tol);
int JH_TestCross_Domain(double a, double b, double c, double d, double tol);
int _JH_TestCross_double_Domain(double a, double b, double c, double d, double tol);

// Whether the intervals overlap by more than `tol`: 0 when they merely touch, 1 when they are
// equal.
int JH_TestCross_Float_Domain_Ex(float a, float b, float c, float d, float tol);
int JH_TestCross_Domain_Ex(double a, double b, double c, double d, double tol);

// Whether two filled rectangles meet within `tol`. The float one is closed, the double one strict.
int JH_TestCrossRegon_Rect(float xmin1, float ymin1, float xmax1, float ymax1, float xmin2,
                           float ymin2, float xmax2, float ymax2, float tol);
int _JH_TestCrossRegon_Rect(double xmin1, double ymin1, double xmax1, double ymax1, double xmin2,
                            double ymin2, double xmax2, double ymax2, double tol);

}  // namespace brindle
