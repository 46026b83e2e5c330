#include "brindle/dxf/entity_kinds.h"

#include "brindle/dxf/acad_arc.h"
#include "brindle/dxf/acad_circle.h"
#include "brindle/dxf/acad_line.h"
#include "brindle/dxf/acad_point.h"
#include "brindle/dxf/acad_text.h"

namespace brindle::Varnholt {
namespace {

template <class Entity>
ACAD_ENTITY* make() {
  return new Entity;
}

// A new kind is one line here; the frequent ones stand first.
constexpr EntityKind kKinds[] = {
    {kEntityLine, "LINE", make<ACAD_LINE>},    {kEntityText, "TEXT", make<ACAD_TEXT>},
    {kEntityArc, "ARC", make<ACAD_ARC>},       {kEntityCircle, "CIRCLE", make<ACAD_CIRCLE>},
    {kEntityPoint, "POINT", make<ACAD_POINT>},
};

}  // namespace

const EntityKind* find_entity_kind(std::string_view keyword) {
  for (const EntityKind& kind : kKinds) {
    if (kind.keyword == keyword) return &kind;
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
