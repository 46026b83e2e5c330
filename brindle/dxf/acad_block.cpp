#include "brindle/dxf/acad_block.h"

#include <memory>

#include "brindle/dxf/entity_kinds.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/dxf/pair_reader.h"

namespace brindle::Varnholt {

const EntitySchema* ACAD_BLOCK::schema() const {
  static const EntitySchema table(
      "BLOCK", false,
      {entity_text<&ACAD_BLOCK::m_szName>(2, "m_szName", L""),
       entity_number<&ACAD_BLOCK::m_nFlags>(70, "m_nFlags", 0),
       entity_number<&ACAD_BLOCK::x>(10, "x", 0), entity_number<&ACAD_BLOCK::y>(20, "y", 0),
       entity_number<&ACAD_BLOCK::z>(30, "z", 0)},
      {}, {});
  return &table;
}

void ACAD_BLOCK::Ini() {
  delete_entities();
  ACAD_ENTITY::Ini();
  m_dScaleX = m_dScaleY = 1.0;
  m_dAngle = 0;
}

void ACAD_BLOCK::delete_entities() {
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    delete static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
  }
  m_Entities.RemoveAll();
}

ACAD_BLOCK::ACAD_BLOCK(const ACAD_BLOCK& other) : ACAD_ENTITY(other) {
  *this = other;
}

void ACAD_BLOCK::copy_fields(const ACAD_BLOCK& other) {
  ACAD_ENTITY::operator=(other);
  m_dScaleX = other.m_dScaleX;
  m_dScaleY = other.m_dScaleY;
  m_dAngle = other.m_dAngle;
  m_szName = other.m_szName;
  m_nFlags = other.m_nFlags;
  x = other.x;
  y = other.y;
  z = other.z;
}

ACAD_BLOCK& ACAD_BLOCK::operator=(const ACAD_BLOCK& other) {
  if (this == &other) return *this;
  copy_fields(other);
  delete_entities();
  for (POSITION at = other.m_Entities.GetHeadPosition(); at != nullptr;) {
    const auto* entity = static_cast<const ACAD_ENTITY*>(other.m_Entities.GetNext(at));
    if (ACAD_ENTITY* copy = entity->Clone()) m_Entities.AddTail(copy);
  }
  return *this;
}

void ACAD_BLOCK::take(ACAD_BLOCK& other) {
  copy_fields(other);
  delete_entities();
  for (POSITION at = other.m_Entities.GetHeadPosition(); at != nullptr;) {
    m_Entities.AddTail(other.m_Entities.GetNext(at));
  }
  other.m_Entities.RemoveAll();
}

int ACAD_BLOCK::read_from(DxfPairReader& reader) {
  DXF* const document = m_pDxf;
  if (ACAD_ENTITY::read_from(reader) == 0) return 0;
  m_pDxf = document;
  read_entities(reader);
  return 1;
}

ACAD_ENTITY* ACAD_BLOCK::scratch_entity(int kind) {
  const EntityKind* known = find_entity_kind(kind);
  if (known == nullptr || known->keyword.empty()) return nullptr;
  if (scratch_.empty()) scratch_.resize(kEntityNone);
  std::unique_ptr<ACAD_ENTITY>& scratch = scratch_[static_cast<std::size_t>(kind)];
  if (scratch == nullptr) scratch.reset(known->create());
  return scratch.get();
}

int ACAD_BLOCK::read_one_entity(DxfPairReader& reader) {
  DxfPair pair;
  while (reader.read(pair)) {
    if (pair.code != 0) continue;
    if (pair.value.is("ENDBLK")) return kEntityEndOfSection;
    if (pair.value.is("ENDSEC") || pair.value.is("EOF") || pair.value.is("BLOCK")) {
      reader.unread();  // a block that was never closed
      return kEntityEndOfSection;
    }
    const EntityKind* kind = find_entity_kind(pair.value.bytes);
    if (kind == nullptr) continue;
    reader.unread();
    ACAD_ENTITY* scratch = scratch_entity(kind->type);
    if (scratch->read_from(reader) == 0) return kEntityNone;
    scratch->m_pDxf = m_pDxf;
    scratch->finish_reading();
    return kind->type;
  }
  return kEntityEndOfSection;
}

int ACAD_BLOCK::Read_One_Entity(FILE* stream) {
  if (stream == nullptr) return kEntityNone;
  DxfPairReader reader(stream, ansi_code_page());
  const int kind = read_one_entity(reader);
  reader.sync_stream();
  return kind;
}

void ACAD_BLOCK::read_entities(DxfPairReader& reader) {
  for (;;) {
    const int kind = read_one_entity(reader);
    if (kind >= kEntityNone) break;
    std::unique_ptr<ACAD_ENTITY> copy(scratch_entity(kind)->Clone());
    m_Entities.AddTail(copy.get());
    copy.release();
  }
  scratch_.clear();
}

void ACAD_BLOCK::write_entities(DxfPairWriter& writer, DxfDialect dialect, std::uint32_t* counter) {
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
    entity->m_pDxf = m_pDxf;
    if (counter != nullptr) entity->m_nHandle = (*counter)++;
    entity->write_to(writer, dialect);
  }
}

void ACAD_BLOCK::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  if (dialect == DxfDialect::kAc1015) {
    std::uint32_t counter = m_nHandle;
    write_ac1015(writer, counter);
    return;
  }
  writer.literal("  0\nBLOCK\n");
  writer.group(8, m_szLayer.c_str());
  writer.group(2, m_szName.c_str());
  writer.group(70, m_nFlags);
  writer.group(10, x);
  writer.group(20, y);
  writer.group(30, z);
  writer.literal("  1\n\n");
  write_entities(writer, dialect, nullptr);
  writer.literal("  0\nENDBLK\n");
}

void ACAD_BLOCK::write_ac1015(DxfPairWriter& writer, std::uint32_t& counter) {
  m_nHandle = counter++;
  writer.literal("  0\nBLOCK\n");
  writer.handle(m_nHandle);
  writer.literal("100\nAcDbEntity\n");
  writer.group(8, m_szLayer.c_str());
  writer.literal("100\nAcDbBlockBegin\n");
  writer.group(2, m_szName.c_str());
  writer.group(70, m_nFlags);
  writer.group(10, x);
  writer.group(20, y);
  writer.group(30, z);
  writer.group(3, m_szName.c_str());
  writer.literal("  1\n\n");
  write_entities(writer, DxfDialect::kAc1015, &counter);
  writer.literal("  0\nENDBLK\n");
  writer.handle(counter++);
  writer.literal("100\nAcDbEntity\n");
  writer.group(8, m_szLayer.c_str());
  writer.literal("100\nAcDbBlockEnd\n");
}

int ACAD_BLOCK::Write2000(FILE* stream, long& counter) {
  DxfPairWriter writer(stream);
  std::uint32_t next = static_cast<std::uint32_t>(counter);
  write_ac1015(writer, next);
  counter = static_cast<long>(next);
  return 1;
}

}  // namespace brindle::Varnholt
