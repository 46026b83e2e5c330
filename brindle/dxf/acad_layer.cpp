#include "brindle/dxf/acad_layer.h"

namespace brindle::Varnholt {
namespace {

const std::vector<TableField>& fields() {
  static const std::vector<TableField> table = {
      table_text<&ACAD_LAYER::m_szName>(2, "m_szName", L"0"),
      table_number<&ACAD_LAYER::m_nFlags>(70, "m_nFlags", 64),
      table_number<&ACAD_LAYER::m_nColor>(62, "m_nColor", 7),
      table_text<&ACAD_LAYER::m_szLType>(6, "m_szLType", L"CONTINUOUS"),
  };
  return table;
}

}  // namespace

ACAD_LAYER::ACAD_LAYER() {
  reset_fields(fields());
}

int ACAD_LAYER::read_from(DxfPairReader& reader) {
  if (!starts_with(reader, "LAYER")) return 0;
  read_fields(reader, fields());
  return 1;
}

void ACAD_LAYER::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  write_head(writer, dialect, "LAYER", "  5\n", "AcDbLayerTableRecord");
  for (const TableField& field : fields()) field.write(*this, field.code, writer);
  if (dialect == DxfDialect::kAc1015) writer.literal(" 390\nF\n");
}

}  // namespace brindle::Varnholt
