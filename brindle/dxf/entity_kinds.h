// The entity kinds that drawings hold, by the word that announces them in a file.
#pragma once

#include <string_view>

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

struct EntityKind {
  ACAD_Entity_Type type;
  std::string_view keyword;  // "LINE"; empty for a kind that isn't read from files
  ACAD_ENTITY* (*create)();  // a new entity with its defaults, owned by the caller
  void (*assign)(ACAD_ENTITY& to, const ACAD_ENTITY& from);  // both of this kind
};

// Null for a word that no kind has.
const EntityKind* find_entity_kind(std::string_view keyword);
const EntityKind* find_entity_kind(int type);

}  // namespace brindle::Varnholt
