#include "brindle/dxf/entity_kinds.h"

#include "brindle/dxf/acad_3dface.h"
#include "brindle/dxf/acad_arc.h"
#include "brindle/dxf/acad_circle.h"
#include "brindle/dxf/acad_dimension.h"
#include "brindle/dxf/acad_hatch.h"
#include "brindle/dxf/acad_insert.h"
#include "brindle/dxf/acad_line.h"
#include "brindle/dxf/acad_point.h"
#include "brindle/dxf/acad_polyline.h"
#include "brindle/dxf/acad_solid.h"
#include "brindle/dxf/acad_text.h"
#include "brindle/dxf/acad_wipeout.h"

namespace brindle::Varnholt {
namespace {

template <class Entity>
constexpr EntityKind kind_of(ACAD_Entity_Type type, std::string_view keyword) {
  return {type, keyword, []() -> ACAD_ENTITY* { return new Entity; },
          [](ACAD_ENTITY& to, const ACAD_ENTITY& from) {
            static_cast<Entity&>(to) = static_cast<const Entity&>(from);
          }};
}

// A new kind is one line here; the frequent ones stand first.
constexpr EntityKind kKinds[] = {
    kind_of<ACAD_LINE>(kEntityLine, "LINE"),
    kind_of<ACAD_TEXT>(kEntityText, "TEXT"),
    kind_of<ACAD_ARC>(kEntityArc, "ARC"),
    kind_of<ACAD_CIRCLE>(kEntityCircle, "CIRCLE"),
    kind_of<ACAD_POINT>(kEntityPoint, "POINT"),
    kind_of<ACAD_POLYLINE>(kEntityPolyline, "POLYLINE"),
    kind_of<ACAD_SOLID>(kEntitySolid, "SOLID"),
    kind_of<ACAD_3DFACE>(kEntity3dFace, "3DFACE"),
    kind_of<ACAD_HATCH>(kEntityHatch, "HATCH"),
    kind_of<ACAD_INSERT>(kEntityInsert, "INSERT"),
    kind_of<ACAD_DIMENSION>(kEntityDimension, "DIMENSION"),
    kind_of<ACAD_IMAGE>(kEntityImage, ""),
    kind_of<ACAD_WIPEOUT>(kEntityWipeout, ""),
};

}  // namespace

const EntityKind* find_entity_kind(std::string_view keyword) {
  for (const EntityKind& kind : kKinds) {
    if (kind.keyword == keyword && !keyword.empty()) return &kind;
  }
  return nullptr;
}

const EntityKind* find_entity_kind(int type) {
  for (const EntityKind& kind : kKinds) {
    if (kind.type == type) return &kind;
  }
  return nullptr;
}

}  // namespace brindle::Varnholt
