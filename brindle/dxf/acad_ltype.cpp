#include "brindle/dxf/acad_ltype.h"

#include <algorithm>

namespace brindle::Varnholt {
namespace {

const std::vector<TableField>& fields() {
  static const std::vector<TableField> table = {
      table_text<&ACAD_LTYPE::m_szName>(2, "m_szName", L"CONTINUOUS"),
      table_text<&ACAD_LTYPE::m_szDesc>(3, "m_szDesc", L"Solid Line"),
      table_number<&ACAD_LTYPE::m_nAlign>(72, "m_nAlign", 65),
      table_number<&ACAD_LTYPE::m_nDashCount>(73, "m_nDashCount", 0),
      table_number<&ACAD_LTYPE::m_dPatternLength>(40, "m_dPatternLength", 0),
  };
  return table;
}

}  // namespace

ACAD_LTYPE::ACAD_LTYPE() {
  reset_fields(fields());
}

int ACAD_LTYPE::dash_count() const {
  return std::clamp(m_nDashCount, 0, kMaxDashes);
}

int ACAD_LTYPE::read_from(DxfPairReader& reader) {
  if (!starts_with(reader, "LTYPE")) return 0;
  m_nDashCount = 0;
  int dashes = 0;
  DxfPair pair;
  while (reader.read(pair)) {
    if (pair.code == 0) {
      reader.unread();
      break;
    }
    if (pair.code == 49) {
      if (dashes >= dash_count()) break;
      m_dDash[dashes++] = DxfPairReader::real(pair);
    } else if (pair.is(2, "BYBLOCK") || pair.is(2, "BYBLAYER")) {
      m_szName = L"CONTINUOUS";
    } else {
      for (const TableField& field : fields()) {
        if (field.code == pair.code) field.read(*this, pair, reader);
      }
    }
  }
  m_nDashCount = dash_count();
  return 1;
}

void ACAD_LTYPE::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  write_head(writer, dialect, "LTYPE", "  5\n", "AcDbLinetypeTableRecord");
  writer.group(2, m_szName.c_str());
  writer.literal(" 70\n64\n");
  writer.group(3, m_szDesc.c_str());
  writer.literal(" 72\n65\n");
  writer.group(73, dash_count());
  writer.group(40, m_dPatternLength);
  for (int i = 0; i < dash_count(); ++i) {
    writer.group(49, m_dDash[i]);
    if (dialect == DxfDialect::kAc1015) writer.literal(" 74\n0\n");
  }
}

}  // namespace brindle::Varnholt
