// The table by which an entity kind states its file form: its word, its fields, and the order in
// which each dialect writes them. The base entity reads, writes and resets by it.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "brindle/dxf/record_field.h"

namespace brindle::Varnholt {

class ACAD_ENTITY;

using EntityField = RecordField<ACAD_ENTITY>;

// One step of writing a kind's own groups: a literal, or the field with this group code.
struct EntityStep {
  const char* literal = nullptr;
  int code = 0;
  bool (*when)(const ACAD_ENTITY&) = nullptr;  // null: always
  const EntityField* field = nullptr;          // filled by the schema from the code

  explicit EntityStep(const char* text, bool (*condition)(const ACAD_ENTITY&) = nullptr)
      : literal(text), when(condition) {}
  explicit EntityStep(int group, bool (*condition)(const ACAD_ENTITY&) = nullptr)
      : code(group), when(condition) {}
};

struct EntitySchema {
  const char* keyword;              // "LINE"
  bool has_style;                   // line type (6) and colour (62) are in the file form
  std::vector<EntityField> fields;  // the kind's own, then those of the head
  std::vector<EntityStep> r12;      // own groups behind the head, in order
  std::vector<EntityStep> ac1015;

  // Adds the head's fields and ties each step to its field.
  EntitySchema(const char* word, bool style, std::vector<EntityField> own,
               std::vector<EntityStep> r12_steps, std::vector<EntityStep> ac1015_steps);
  EntitySchema(const EntitySchema&) = delete;
  EntitySchema& operator=(const EntitySchema&) = delete;

  // The field of a group code, null when the kind doesn't have it.
  const EntityField* find(int code) const {
    const auto index = static_cast<std::size_t>(code);
    if (index >= places_.size() || places_[index] == 0) return nullptr;
    return &fields[places_[index] - 1U];
  }

 private:
  std::array<std::uint8_t, 1072> places_{};  // by group code: 1 + the index in `fields`, 0 for none
};

// Rows of an entity's table: entity_number<&ACAD_LINE::x1>(10, "x1", 0.0).
template <auto Member>
EntityField entity_number(int code, const char* name, double initial) {
  return number_field<ACAD_ENTITY, Member>(code, name, initial);
}
template <auto Member>
EntityField entity_text(int code, const char* name, const wchar_t* initial) {
  return text_field<ACAD_ENTITY, Member>(code, name, initial);
}

}  // namespace brindle::Varnholt
