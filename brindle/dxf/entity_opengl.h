// Drawing in the scene view: OpenGL 1.1 calls in the current context, for the entities'
// Draw3D_Opengl. World coordinates go to the scene as x -> X, z -> Y, -y -> Z, times 0.001.
#pragma once

#include "brindle/platform/base/types.h"

namespace brindle::Varnholt {

// A world point.
struct ScenePoint {
  double x = 0, y = 0, z = 0;
};

// The point in the scene.
ScenePoint to_scene(const ScenePoint& at);
// Sets the current colour and turns lighting off.
void scene_color(COLORREF color);
// A point of 2 pixels, smooth.
void scene_point(const ScenePoint& at);
// n points joined by lines; closed also joins the last to the first.
void scene_polyline(const ScenePoint* points, int n, bool closed);
// A filled convex polygon of n corners.
void scene_polygon(const ScenePoint* points, int n);
// An arc about a centre in its plane z, from `start` by `sweep` (radians), in short lines. A sweep
// of a full turn gives a closed ring.
void scene_arc(const ScenePoint& centre, double radius, double start, double sweep);

// Between the two, the scene's x and y are the world's, from a world point on; scene units.
void scene_enter_plane(const ScenePoint& at);
void scene_leave_plane();

}  // namespace brindle::Varnholt
