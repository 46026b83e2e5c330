// How a Write_* of the document takes and keeps an entity. Not for use outside this folder.
#pragma once

#include <memory>
#include <new>

#include "brindle/dxf/dxf.h"

namespace brindle {

// The kind's scratch entity with its defaults.
template <class Entity>
Entity& DXF::fresh_scratch(int kind) {
  Entity& entity = static_cast<Entity&>(*scratch_entity(kind));
  entity.Ini();
  entity.m_pDxf = this;
  return entity;
}

// File mode: writes the entity and gives the scratch object; memory mode: stores a copy.
template <class Entity>
Entity* DXF::keep(Entity& scratch) {
  if (m_bMemMode == 0) {
    scratch.Write(m_pFile);
    return &scratch;
  }
  try {
    std::unique_ptr<Entity> stored(new Entity(scratch));
    stored->m_nID = m_nCurEntityID;
    m_Entities.AddTail(stored.get());
    return stored.release();
  } catch (const std::bad_alloc&) {
    return nullptr;  // the list is as it was
  }
}

}  // namespace brindle
