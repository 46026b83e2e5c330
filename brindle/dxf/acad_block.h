// A block: a named list of entities, which it owns.
#pragma once

#include <memory>
#include <vector>

#include "brindle/dxf/acad_entity.h"
#include "brindle/platform/base/list.h"

namespace brindle::Varnholt {

class ACAD_BLOCK : public ACAD_ENTITY {
 public:
  ACAD_BLOCK() { ACAD_BLOCK::Ini(); }
  // Deep copies, entity by entity.
  ACAD_BLOCK(const ACAD_BLOCK& other);
  ACAD_BLOCK& operator=(const ACAD_BLOCK& other);
  ~ACAD_BLOCK() override { delete_entities(); }

  using ACAD_ENTITY::Write2000;
  // Writes the AC1015 form; the block, its entities and its end take their handles from the
  // counter, which goes back to the caller behind the last one.
  int Write2000(FILE* stream, long& counter);

  // Deletes all entities and sets the fields to their defaults.
  void Ini() override;
  // Reads the block with its entities, its end pair included, so that a following block of the
  // section is found. Kinds that aren't known are passed over.
  int read_from(DxfPairReader& reader) override;
  // The AC1015 form of this call counts handles on from the block's own.
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;
  void write_ac1015(DxfPairWriter& writer, std::uint32_t& counter);
  const EntitySchema* schema() const override;
  // Reads the next entity of a block from the stream's position into scratch_entity(kind) and gives
  // its kind; 14 at the end of the block or of the file, 13 for one that can't be read.
  int Read_One_Entity(FILE* stream);
  // The object that reading an entity of a kind fills, made when it is first asked for; null for a
  // kind that no file has. Copies of the block have their own.
  ACAD_ENTITY* scratch_entity(int kind);

  // Becomes the other block, whose entities it takes over.
  void take(ACAD_BLOCK& other);
  void delete_entities();

  double m_dScaleX, m_dScaleY;  // not in the file
  double m_dAngle;              // degrees, not in the file
  WText<100> m_szName;
  int m_nFlags;
  double x, y, z;       // base point
  CPtrList m_Entities;  // ACAD_ENTITY*, owned

 private:
  void copy_fields(const ACAD_BLOCK& other);
  void read_entities(DxfPairReader& reader);
  int read_one_entity(DxfPairReader& reader);
  void write_entities(DxfPairWriter& writer, DxfDialect dialect, std::uint32_t* counter);

  std::vector<std::unique_ptr<ACAD_ENTITY>> scratch_;  // by kind
};

}  // namespace brindle::Varnholt
