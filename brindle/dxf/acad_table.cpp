#include "brindle/dxf/acad_table.h"

namespace brindle::Varnholt {

int ACAD_TABLE::Read(FILE* stream) {
  if (stream == nullptr) return 0;
  DxfPairReader reader(stream, ansi_code_page());
  const int result = read_from(reader);
  reader.sync_stream();
  return result;
}

int ACAD_TABLE::Write(FILE* stream) {
  DxfPairWriter writer(stream);
  write_to(writer, DxfDialect::kR12);
  return 1;
}

int ACAD_TABLE::Write2000(FILE* stream) {
  DxfPairWriter writer(stream);
  write_to(writer, DxfDialect::kAc1015);
  return 1;
}

bool ACAD_TABLE::starts_with(DxfPairReader& reader, const char* keyword) {
  DxfPair pair;
  if (reader.read(pair) && pair.is(0, keyword)) return true;
  reader.unread();
  return false;
}

void ACAD_TABLE::read_fields(DxfPairReader& reader, const std::vector<TableField>& fields) {
  DxfPair pair;
  while (reader.read(pair)) {
    if (pair.code == 0) {
      reader.unread();
      return;
    }
    for (const TableField& field : fields) {
      if (field.code != pair.code) continue;
      field.read(*this, pair, reader);
      break;
    }
  }
}

void ACAD_TABLE::reset_fields(const std::vector<TableField>& fields) {
  for (const TableField& field : fields) field.reset(*this, field);
}

void ACAD_TABLE::write_head(DxfPairWriter& writer, DxfDialect dialect, const char* keyword,
                            const char* handle_code, const char* subclass) const {
  writer.literal("  0\n").literal(keyword).end_line();
  if (dialect != DxfDialect::kAc1015) return;
  writer.literal(handle_code).hex(m_nHandle).end_line();
  writer.literal("100\nAcDbSymbolTableRecord\n100\n").literal(subclass).end_line();
}

}  // namespace brindle::Varnholt
