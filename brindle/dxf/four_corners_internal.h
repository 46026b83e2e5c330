// What solids and faces share: four corners in space, in the order of their group codes. Not for
// use outside this folder.
#pragma once

#include <array>

#include "brindle/dxf/acad_entity.h"
#include "brindle/dxf/entity_opengl.h"
#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/dxf/plane_box_internal.h"

namespace brindle::Varnholt {

using FourCorners = std::array<ScenePoint, 4>;

template <class Entity>
FourCorners corners_of(const Entity& e) {
  return {{{e.x1, e.y1, e.z1}, {e.x2, e.y2, e.z2}, {e.x3, e.y3, e.z3}, {e.x4, e.y4, e.z4}}};
}

// The rows of the corners' groups: 10, 20, 30 to 13, 23, 33.
template <class Entity>
std::vector<EntityField> corner_fields() {
  return {entity_number<&Entity::x1>(10, "x1", 0), entity_number<&Entity::y1>(20, "y1", 0),
          entity_number<&Entity::z1>(30, "z1", 0), entity_number<&Entity::x2>(11, "x2", 0),
          entity_number<&Entity::y2>(21, "y2", 0), entity_number<&Entity::z2>(31, "z2", 0),
          entity_number<&Entity::x3>(12, "x3", 0), entity_number<&Entity::y3>(22, "y3", 0),
          entity_number<&Entity::z3>(32, "z3", 0), entity_number<&Entity::x4>(13, "x4", 0),
          entity_number<&Entity::y4>(23, "y4", 0), entity_number<&Entity::z4>(33, "z4", 0)};
}

// The order of writing, behind a subclass marker when there is one.
inline std::vector<EntityStep> corner_steps(const char* marker) {
  std::vector<EntityStep> steps;
  if (marker != nullptr) steps.emplace_back(marker);
  for (int corner = 0; corner < 4; ++corner) {
    for (int axis = 10; axis <= 30; axis += 10) steps.emplace_back(axis + corner);
  }
  return steps;
}

template <class Entity, class T>
int transfer_corners(Entity& e, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(e.x1, e.y1, e.z1, rot, move, scale);
  ACAD_ENTITY::TransOne(e.x2, e.y2, e.z2, rot, move, scale);
  ACAD_ENTITY::TransOne(e.x3, e.y3, e.z3, rot, move, scale);
  ACAD_ENTITY::TransOne(e.x4, e.y4, e.z4, rot, move, scale);
  return 1;
}

// The entity as it is seen under two axonometric angles.
template <class Entity>
Entity corners_seen_from(Entity e, double angle1, double angle2) {
  project_point(e.x1, e.y1, e.z1, angle1, angle2);
  project_point(e.x2, e.y2, e.z2, angle1, angle2);
  project_point(e.x3, e.y3, e.z3, angle1, angle2);
  project_point(e.x4, e.y4, e.z4, angle1, angle2);
  return e;
}

template <class Entity>
CFRect corner_box(const Entity& e) {
  PlaneBox box;
  for (const ScenePoint& corner : corners_of(e)) box.add(corner.x, corner.y);
  return box.rect();
}

// The largest coordinates of the corners, and the smallest ones.
CFPoint largest_of(const FourCorners& corners);
CFPoint smallest_of(const FourCorners& corners);
// Whether the area of the corners, in this order, lies in a region or, for mode 0, meets it.
int hit_corners(const FourCorners& corners, const CFRegion& region, int mode);

// The same corners in the order 1, 2, 4, 3, which is how the outline of a solid runs.
inline FourCorners outline_of_solid(const FourCorners& c) {
  return {{c[0], c[1], c[3], c[2]}};
}

}  // namespace brindle::Varnholt
