#include "brindle/dxf/acad_dimstyle.h"

#include "brindle/dxf/acad_style.h"
#include "brindle/dxf/dxf.h"

namespace brindle::Varnholt {
namespace {

// In the order of writing. The handle of the text style goes between the texts and the numbers.
const std::vector<TableField>& fields() {
  static const std::vector<TableField> table = {
      table_text<&ACAD_DIMSTYLE::m_szName>(2, "m_szName", L"STANDARD"),
      table_number<&ACAD_DIMSTYLE::m_nFlags>(70, "m_nFlags", 0),
      table_text<&ACAD_DIMSTYLE::DIMPOST>(3, "DIMPOST", L""),
      table_text<&ACAD_DIMSTYLE::DIMAPOST>(4, "DIMAPOST", L""),
      table_text<&ACAD_DIMSTYLE::DIMBLK>(5, "DIMBLK", L"ARCHITECTURE"),
      table_text<&ACAD_DIMSTYLE::DIMBLK1>(6, "DIMBLK1", L""),
      table_text<&ACAD_DIMSTYLE::DIMBLK2>(7, "DIMBLK2", L""),
      table_number<&ACAD_DIMSTYLE::DIMSCALE>(40, "DIMSCALE", 1.0),
      table_number<&ACAD_DIMSTYLE::DIMASZ>(41, "DIMASZ", 1.0),
      table_number<&ACAD_DIMSTYLE::DIMEXO>(42, "DIMEXO", 0),
      table_number<&ACAD_DIMSTYLE::DIMDLI>(43, "DIMDLI", 100.0),
      table_number<&ACAD_DIMSTYLE::DIMEXE>(44, "DIMEXE", 2.5),
      table_number<&ACAD_DIMSTYLE::DIMRND>(45, "DIMRND", 0),
      table_number<&ACAD_DIMSTYLE::DIMDLE>(46, "DIMDLE", 0),
      table_number<&ACAD_DIMSTYLE::DIMTP>(47, "DIMTP", 0),
      table_number<&ACAD_DIMSTYLE::DIMTM>(48, "DIMTM", 0),
      table_number<&ACAD_DIMSTYLE::DIMTXT>(140, "DIMTXT", 0),
      table_number<&ACAD_DIMSTYLE::DIMCEN>(141, "DIMCEN", 0),
      table_number<&ACAD_DIMSTYLE::DIMTSZ>(142, "DIMTSZ", 0),
      table_number<&ACAD_DIMSTYLE::DIMALTF>(143, "DIMALTF", 1.0),
      table_number<&ACAD_DIMSTYLE::DIMLFAC>(144, "DIMLFAC", 1.0),
      table_number<&ACAD_DIMSTYLE::DIMTVP>(145, "DIMTVP", 0),
      table_number<&ACAD_DIMSTYLE::DIMTFAC>(146, "DIMTFAC", 1.0),
      table_number<&ACAD_DIMSTYLE::DIMGAP>(147, "DIMGAP", 0.5),
      table_number<&ACAD_DIMSTYLE::DIMTOL>(71, "DIMTOL", 0),
      table_number<&ACAD_DIMSTYLE::DIMLIM>(72, "DIMLIM", 0),
      table_number<&ACAD_DIMSTYLE::DIMTIH>(73, "DIMTIH", 0),
      table_number<&ACAD_DIMSTYLE::DIMTOH>(74, "DIMTOH", 0),
      table_number<&ACAD_DIMSTYLE::DIMSE1>(75, "DIMSE1", 0),
      table_number<&ACAD_DIMSTYLE::DIMSE2>(76, "DIMSE2", 0),
      table_number<&ACAD_DIMSTYLE::DIMTAD>(77, "DIMTAD", 1),
      table_number<&ACAD_DIMSTYLE::DIMZIN>(78, "DIMZIN", 0),
      table_number<&ACAD_DIMSTYLE::DIMALT>(170, "DIMALT", 0),
      table_number<&ACAD_DIMSTYLE::DIMALTD>(171, "DIMALTD", 0),
      table_number<&ACAD_DIMSTYLE::DIMTOFL>(172, "DIMTOFL", 1),
      table_number<&ACAD_DIMSTYLE::DIMSAH>(173, "DIMSAH", 0),
      table_number<&ACAD_DIMSTYLE::DIMTIX>(174, "DIMTIX", 1),
      table_number<&ACAD_DIMSTYLE::DIMSOXD>(175, "DIMSOXD", 0),
      table_number<&ACAD_DIMSTYLE::DIMCLRD>(176, "DIMCLRD", 256),
      table_number<&ACAD_DIMSTYLE::DIMCLRE>(177, "DIMCLRE", 256),
      table_number<&ACAD_DIMSTYLE::DIMCLRT>(178, "DIMCLRT", 7),
      table_number<&ACAD_DIMSTYLE::DIMUNIT>(270, "DIMUNIT", 2),
      table_number<&ACAD_DIMSTYLE::DIMDEC>(271, "DIMDEC", 0),
      table_number<&ACAD_DIMSTYLE::DIMTDEC>(272, "DIMTDEC", 0),
      table_number<&ACAD_DIMSTYLE::DIMALTU>(273, "DIMALTU", 0),
      table_number<&ACAD_DIMSTYLE::DIMALTTD>(274, "DIMALTTD", 0),
      table_number<&ACAD_DIMSTYLE::DIMAUNIT>(275, "DIMAUNIT", 0),
      table_number<&ACAD_DIMSTYLE::DIMJUST>(280, "DIMJUST", 0),
      table_number<&ACAD_DIMSTYLE::DIMSD1>(281, "DIMSD1", 0),
      table_number<&ACAD_DIMSTYLE::DIMSD2>(282, "DIMSD2", 0),
      table_number<&ACAD_DIMSTYLE::DIMTOLJ>(283, "DIMTOLJ", 0),
      table_number<&ACAD_DIMSTYLE::DIMTZIN>(284, "DIMTZIN", 0),
      table_number<&ACAD_DIMSTYLE::DIMALTZ>(285, "DIMALTZ", 0),
      table_number<&ACAD_DIMSTYLE::DIMALTTZ>(286, "DIMALTTZ", 0),
      table_number<&ACAD_DIMSTYLE::DIMFIT>(287, "DIMFIT", 5),
      table_number<&ACAD_DIMSTYLE::DIMUPT>(288, "DIMUPT", 0),
  };
  return table;
}

constexpr int kFirstNumberCode = 40;  // DIMSCALE, the first row behind the text style's handle

}  // namespace

ACAD_DIMSTYLE::ACAD_DIMSTYLE() : m_szTxtStyle(L"STANDARD") {
  reset_fields(fields());
}

int ACAD_DIMSTYLE::read_from(DxfPairReader& reader) {
  if (!starts_with(reader, "DIMSTYLE")) return 0;
  read_fields(reader, fields());
  return 1;
}

void ACAD_DIMSTYLE::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  // The record's own handle group is five characters wide.
  write_head(writer, dialect, "DIMSTYLE", "  105\n", "AcDbDimStyleTableRecord");
  const ACAD_STYLE* style = m_pDxf != nullptr ? m_pDxf->find_style(m_szTxtStyle) : nullptr;
  for (const TableField& field : fields()) {
    if (field.code == kFirstNumberCode && style != nullptr) {
      writer.literal("340\n").hex(style->m_nHandle).end_line();
    }
    field.write(*this, field.code, writer);
  }
}

void ACAD_DIMSTYLE::exchange(FieldExchange& with) {
  for (const TableField& field : fields()) field.exchange(*this, with);
  std::wstring style(m_szTxtStyle.view());
  with.text(style);
  m_szTxtStyle = std::wstring_view(style);
}

}  // namespace brindle::Varnholt
