#include "brindle/dxf/entity_schema.h"

#include <cassert>
#include <utility>

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

EntitySchema::EntitySchema(const char* word, bool style, std::vector<EntityField> own,
                           std::vector<EntityStep> r12_steps, std::vector<EntityStep> ac1015_steps)
    : keyword(word),
      has_style(style),
      fields(std::move(own)),
      r12(std::move(r12_steps)),
      ac1015(std::move(ac1015_steps)) {
  fields.push_back(entity_text<&ACAD_ENTITY::m_szLayer>(8, "m_szLayer", L"0"));
  if (has_style) {
    fields.push_back(entity_text<&ACAD_ENTITY::m_szLType>(6, "m_szLType", L"BYLAYER"));
    fields.push_back(entity_number<&ACAD_ENTITY::m_nColor>(62, "m_nColor", -1));
  }
  for (std::size_t i = fields.size(); i-- > 0;) {
    assert(fields[i].code >= 0 && static_cast<std::size_t>(fields[i].code) < places_.size());
    places_[static_cast<std::size_t>(fields[i].code)] = static_cast<std::uint8_t>(i + 1);
  }
  for (std::vector<EntityStep>* steps : {&r12, &ac1015}) {
    for (EntityStep& step : *steps) {
      if (step.literal == nullptr) step.field = find(step.code);
      assert(step.literal != nullptr || step.field != nullptr);
    }
  }
}

}  // namespace brindle::Varnholt
