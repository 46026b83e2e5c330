#include "brindle/dxf/acad_style.h"

#include <string>

namespace brindle::Varnholt {
namespace {

// In the order of writing; the extended font (1000) is written by a rule of its own.
const std::vector<TableField>& fields() {
  static const std::vector<TableField> table = {
      table_text<&ACAD_STYLE::m_szName>(2, "m_szName", L"STANDARD"),
      table_number<&ACAD_STYLE::m_nFlags>(70, "m_nFlags", 64),
      table_number<&ACAD_STYLE::m_dHeight>(40, "m_dHeight", 0),
      table_number<&ACAD_STYLE::m_dWidth>(41, "m_dWidth", 0.85f),
      table_number<&ACAD_STYLE::m_dOblique>(50, "m_dOblique", 0),
      table_number<&ACAD_STYLE::m_nGenFlags>(71, "m_nGenFlags", 0),
      table_number<&ACAD_STYLE::m_dLastHeight>(42, "m_dLastHeight", 0.2f),
      table_text<&ACAD_STYLE::m_szFont>(3, "m_szFont", L"txt"),
      table_text<&ACAD_STYLE::m_szBigFont>(4, "m_szBigFont", L""),
      table_text<&ACAD_STYLE::m_szExtFont>(1000, "m_szExtFont", L""),
  };
  return table;
}

bool holds_ttf(std::wstring_view font) {
  std::wstring lower;
  for (wchar_t c : font) {
    lower += c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
  }
  return lower.find(L".ttf") != std::wstring::npos;
}

}  // namespace

ACAD_STYLE::ACAD_STYLE() {
  reset_fields(fields());
}

int ACAD_STYLE::read_from(DxfPairReader& reader) {
  if (!starts_with(reader, "STYLE")) return 0;
  read_fields(reader, fields());
  return 1;
}

void ACAD_STYLE::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  write_head(writer, dialect, "STYLE", "  5\n", "AcDbTextStyleTableRecord");
  for (const TableField& field : fields()) {
    if (field.code != 1000) field.write(*this, field.code, writer);
  }
  if (m_szFont.empty() || holds_ttf(m_szFont.view())) {
    writer.literal("1001\nACAD\n1000\n").text(m_szExtFont).end_line();
  }
}

}  // namespace brindle::Varnholt
