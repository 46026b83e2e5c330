#include "brindle/dxf/entity_opengl.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

namespace brindle::Varnholt {
namespace {

constexpr float kSceneScale = 0.0010000000474974513f;
constexpr double kFullTurn = 2 * 3.14159265358979323846;
constexpr double kSegment = kFullTurn / 72;  // of an arc

void vertex(const ScenePoint& at) {
  const ScenePoint place = to_scene(at);
  glVertex3f(static_cast<float>(place.x), static_cast<float>(place.y), static_cast<float>(place.z));
}

void draw(GLenum kind, const ScenePoint* points, int n) {
  glBegin(kind);
  for (int i = 0; i < n; ++i) vertex(points[i]);
  glEnd();
}

}  // namespace

ScenePoint to_scene(const ScenePoint& at) {
  return {static_cast<float>(at.x) * kSceneScale, static_cast<float>(at.z) * kSceneScale,
          -static_cast<float>(at.y) * kSceneScale};
}

void scene_color(COLORREF color) {
  const float parts[] = {static_cast<float>(GetRValue(color)) / 255,
                         static_cast<float>(GetGValue(color)) / 255,
                         static_cast<float>(GetBValue(color)) / 255};
  glDisable(GL_LIGHTING);
  glColor3fv(parts);
}

void scene_point(const ScenePoint& at) {
  glPointSize(2.0f);
  glEnable(GL_POINT_SMOOTH);
  draw(GL_POINTS, &at, 1);
}

void scene_polyline(const ScenePoint* points, int n, bool closed) {
  draw(closed ? GL_LINE_LOOP : n == 2 ? GL_LINES : GL_LINE_STRIP, points, n);
}

void scene_polygon(const ScenePoint* points, int n) {
  draw(GL_POLYGON, points, n);
}

void scene_arc(const ScenePoint& centre, double radius, double start, double sweep) {
  if (!std::isfinite(radius) || !std::isfinite(start) || !std::isfinite(sweep)) return;
  const bool closed = std::fabs(sweep) > kFullTurn - 1e-9;
  if (closed) sweep = kFullTurn;
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / kSegment)));
  glBegin(closed ? GL_LINE_LOOP : GL_LINE_STRIP);
  for (int i = 0; i < pieces + (closed ? 0 : 1); ++i) {
    const double angle = start + sweep * i / pieces;
    vertex({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle), centre.z});
  }
  glEnd();
}

void scene_enter_plane(const ScenePoint& at) {
  const ScenePoint origin = to_scene(at);
  glPushMatrix();
  glTranslated(origin.x, origin.y, origin.z);
  glRotated(-90, 1, 0, 0);
}

void scene_leave_plane() {
  glPopMatrix();
}

}  // namespace brindle::Varnholt
