// Both families of planar predicates under one name each: Twins<float>::GetAngle is JH_GetAngle,
// Twins<double>::GetAngle is _JH_GetAngle.
#pragma once

#include "brindle/geometry/predicates.h"
#include "brindle/geometry/predicates_region_internal.h"

namespace brindle {

// The formatter never comes to rest on these lists.
// clang-format off

// Those whose twin has the leading underscore.
#define BRINDLE_TWINS(X) \
  X(GetDistance) X(GetDist) X(MovePoint0) X(RotatePoint0) X(GetAngle) X(Set2PI) \
  X(TestAngleInArc) X(GetDet_Tri) X(GetLineFunction) X(GetLenArc) X(Update_OutLook_Rect) \
  X(GetMinDist_PointToLine) X(GetMinDist_PointToLineSection) X(GetCuiZu_PointToLine) \
  X(GetCuiZu_PointToLineSection) X(GetCuiZu_PointToArc) X(TestPointIn_LineSection) \
  X(TestPointIn_Circle) X(TestPointIn_Rect) X(TestPointIn_TuPolygon) X(TestPointIn_Polygon) \
  X(TestPointIn_JvBuYuanHuan) X(TestPointIn_Arc) X(TestCrossRegon_Rect) \
  X(TestCross_Circle_LineSection) X(TestCrossRegon_Circle_LineSection) \
  X(TestCross_LineSection_Arc) X(TestCrossRegon_LineSection_LineSection) \
  X(TestCrossRegon_LineSection_Arc) X(TestCrossRegon_Arc_Arc) X(TestCrossRegon_Circle_Circle) \
  X(TestCrossRegon_LineSection_TuPolygon) X(TestCrossRegon_Circle_TuPolygon) \
  X(TestCrossRegon_TuPolygon_TuPolygon) X(TestCrossRegon_Arc_TuPolygon) \
  X(TestCrossRegon_Circle_Arc) X(TestCrossRegon_LineSection_JvBuYuanHuan) \
  X(TestCrossRegon_Circle_JvBuYuanHuan) X(TestCrossRegon_Arc_JvBuYuanHuan) \
  X(TestCrossRegon_TuPolygon_JvBuYuanHuan) X(GetInterPoint_Line_ByFunc) X(GetInterPoint_Line) \
  X(GetInterPoint_LineSection_LineSection) X(GetInterPoint_LineSection) \
  X(GetInterPoint_LineSection_Old) X(GetInterPoint_Circle_LineSection) \
  X(GetInterPoint_LineSection_Arc) X(GetInterPoint_Circle_Circle) X(GetInterPoint_Circle_Arc) \
  X(GetInterPoint_Arc_Arc)

// Those told apart by their arguments alone, and the pair of partial annuli, whose double one is
// internal.
#define BRINDLE_OVERLOADS(X) \
  X(TestPoint_On_Line) X(TestPoint_On_LineSection) X(GetInterPoint_Line_Circle) \
  X(GetInterPoint_Ray_Cirlce) X(GetInterPoint_Ray_Arc) X(GetInterPoint_Ray_Line) \
  X(GetInterPoint_Ray_LineSection) X(GetInterPoint_Ray_Ray)
// clang-format on

template <class R>
struct Overloads {
  static constexpr int (*TestPoint_On_Line)(R, R, R, R, R, R, R) = JH_TestPoint_On_Line;
  static constexpr int (*TestPoint_On_LineSection)(R, R, R, R, R, R,
                                                   R) = JH_TestPoint_On_LineSection;
  static constexpr int (*GetInterPoint_Line_Circle)(R, R, R, R, R, R, R, R*, R*,
                                                    R) = JH_GetInterPoint_Line_Circle;
  static constexpr int (*GetInterPoint_Ray_Cirlce)(R, R, R, R, R, R, R, R*, R*,
                                                   R) = JH_GetInterPoint_Ray_Cirlce;
  static constexpr int (*GetInterPoint_Ray_Arc)(R, R, R, R, R, R, R, R, R, R*, R*,
                                                R) = JH_GetInterPoint_Ray_Arc;
  static constexpr int (*GetInterPoint_Ray_Line)(R, R, R, R, R, R, R, R, R*, R*,
                                                 R) = JH_GetInterPoint_Ray_Line;
  static constexpr int (*GetInterPoint_Ray_LineSection)(R, R, R, R, R, R, R, R, R*, R*,
                                                        R) = JH_GetInterPoint_Ray_LineSection;
  static constexpr int (*GetInterPoint_Ray_Ray)(R, R, R, R, R, R, R, R, R*, R*,
                                                R) = JH_GetInterPoint_Ray_Ray;
};

template <class Real>
struct Twins;

#define BRINDLE_TWIN(name) static constexpr auto name = JH_##name;
template <>
struct Twins<float> : Overloads<float> {
  using Real = float;
  BRINDLE_TWINS(BRINDLE_TWIN)
  static constexpr auto TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan =
      JH_TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan;
  static constexpr auto TestCross_Domain_Ex = JH_TestCross_Float_Domain_Ex;
  static constexpr auto TestCross_Domain = JH_TestCross_Float_Domain;
};
#undef BRINDLE_TWIN

#define BRINDLE_TWIN(name) static constexpr auto name = _JH_##name;
template <>
struct Twins<double> : Overloads<double> {
  using Real = double;
  BRINDLE_TWINS(BRINDLE_TWIN)
  static int TestCrossRegon_JvBuYuanHuan_JvBuYuanHuan(double cx1, double cy1, double R1, double W1,
                                                      double a0, double a1, double cx2, double cy2,
                                                      double R2, double W2, double b0, double b1,
                                                      double tol) {
    return planar::annuli_meet(planar::Annulus<double>{cx1, cy1, R1, W1, a0, a1},
                               planar::Annulus<double>{cx2, cy2, R2, W2, b0, b1}, tol);
  }
  static constexpr auto TestCross_Domain_Ex = JH_TestCross_Domain_Ex;
  static constexpr auto TestCross_Domain = JH_TestCross_Domain;
};
#undef BRINDLE_TWIN

}  // namespace brindle
