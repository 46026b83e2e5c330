#include "brindle/geometry/predicates_distance.h"

#include "brindle/geometry/predicates_distance_internal.h"

namespace brindle {

using planar::Arc;
using planar::Point;
using planar::Section;

float JH_GetMinDist_PointToLine(float px, float py, float x1, float y1, float x2, float y2) {
  return planar::distance_to_line(Point<float>{px, py}, Section<float>{x1, y1, x2, y2});
}

double _JH_GetMinDist_PointToLine(double px, double py, double x1, double y1, double x2,
                                  double y2) {
  return planar::distance_to_line(Point<double>{px, py}, Section<double>{x1, y1, x2, y2});
}

float JH_GetMinDist_PointToLineSection(float px, float py, float x1, float y1, float x2, float y2) {
  return planar::distance_to_section(Point<float>{px, py}, Section<float>{x1, y1, x2, y2});
}

double _JH_GetMinDist_PointToLineSection(double px, double py, double x1, double y1, double x2,
                                         double y2) {
  return planar::distance_to_section(Point<double>{px, py}, Section<double>{x1, y1, x2, y2});
}

void JH_GetCuiZu_PointToLine(float px, float py, float x1, float y1, float x2, float y2, float* fx,
                             float* fy) {
  planar::foot_on_line(Point<float>{px, py}, Section<float>{x1, y1, x2, y2}, {fx, fy});
}

void _JH_GetCuiZu_PointToLine(double px, double py, double x1, double y1, double x2, double y2,
                              double* fx, double* fy) {
  planar::foot_on_line(Point<double>{px, py}, Section<double>{x1, y1, x2, y2}, {fx, fy});
}

int JH_GetCuiZu_PointToLineSection(float px, float py, float x1, float y1, float x2, float y2,
                                   float* fx, float* fy, float tol) {
  return planar::foot_on_section(Point<float>{px, py}, Section<float>{x1, y1, x2, y2}, {fx, fy},
                                 tol);
}

int _JH_GetCuiZu_PointToLineSection(double px, double py, double x1, double y1, double x2,
                                    double y2, double* fx, double* fy, double tol) {
  return planar::foot_on_section(Point<double>{px, py}, Section<double>{x1, y1, x2, y2}, {fx, fy},
                                 tol);
}

int JH_GetCuiZu_PointToArc(float px, float py, float cx, float cy, float r, float a0, float a1,
                           float* fx, float* fy, float tol) {
  return planar::foot_on_arc(Point<float>{px, py}, Arc<float>{cx, cy, r, a0, a1}, {fx, fy}, tol);
}

int _JH_GetCuiZu_PointToArc(double px, double py, double cx, double cy, double r, double a0,
                            double a1, double* fx, double* fy, double tol) {
  return planar::foot_on_arc(Point<double>{px, py}, Arc<double>{cx, cy, r, a0, a1}, {fx, fy}, tol);
}

}  // namespace brindle
