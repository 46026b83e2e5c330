// Writing AC1015 files.
#include <string_view>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/handle.h"
#include "brindle/dxf/objects_section_internal.h"
#include "brindle/dxf/pair_writer.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr const char* kLayouts[] = {"*Model_Space", "*Paper_Space", "*Paper_Space0"};

// A table without records, as views and viewports are.
void write_empty_table(DxfPairWriter& writer, const char* name, std::uint32_t& handle) {
  writer.literal("  0\nTABLE\n  2\n").literal(name).end_line();
  writer.handle(handle++);
  writer.literal("  330\n0\n100\nAcDbSymbolTable\n 70\n0\n  0\nENDTAB\n");
}

void write_applications(DxfPairWriter& writer, std::uint32_t& handle) {
  writer.literal("  0\nTABLE\n  2\nAPPID\n");
  writer.handle(handle++);
  writer.literal("330\n0\n100\nAcDbSymbolTable\n 70\n     3\n");
  for (const char* application : {"ACAD", "QXACAD", "QXDIMSTY"}) {
    writer.literal("  0\nAPPID\n");
    writer.handle(handle++);
    writer.literal("100\nAcDbSymbolTableRecord\n100\nAcDbRegAppTableRecord\n  2\n");
    writer.literal(application).literal("\n 70\n     0\n");
  }
  writer.literal("  0\nENDTAB\n");
}

bool is_fixed_line_type(const ACAD_LTYPE& ltype) {
  return _wcsicmp(ltype.m_szName, L"ByBlock") == 0 || _wcsicmp(ltype.m_szName, L"ByLayer") == 0;
}

void write_line_types(DxfPairWriter& writer, ACAD_LTYPE* records, int count,
                      std::uint32_t& handle) {
  writer.literal("  0\nTABLE\n");
  if (count >= 1) {
    // A drawing that was read from such a file has the two fixed line types in its table; written
    // twice they would make the file invalid.
    int shown = 0;
    for (int i = 0; i < count; ++i) shown += is_fixed_line_type(records[i]) ? 0 : 1;
    writer.literal("  2\nLTYPE\n");
    writer.handle(handle++);
    writer.literal("100\nAcDbSymbolTable\n 70\n").integer(shown).end_line();
    for (const char* name : {"ByBlock", "ByLayer"}) {
      writer.literal("  0\nLTYPE\n");
      writer.handle(handle++);
      writer.literal("100\nAcDbSymbolTableRecord\n100\nAcDbLinetypeTableRecord\n  2\n");
      writer.literal(name).literal("\n 70\n0\n  3\n \n 72\n65\n 73\n0\n 40\n0.0\n");
    }
    for (int i = 0; i < count; ++i) {
      if (is_fixed_line_type(records[i])) continue;
      records[i].m_nHandle = handle++;
      records[i].write_to(writer, DxfDialect::kAc1015);
    }
  }
  writer.literal("  0\nENDTAB\n");
}

template <class Record>
void write_records(DxfPairWriter& writer, const char* name, Record* records, int count,
                   std::uint32_t& handle) {
  writer.literal("  0\nTABLE\n");
  if (count >= 1) {
    writer.literal("  2\n").literal(name).end_line();
    writer.handle(handle++);
    writer.literal("100\nAcDbSymbolTable\n 70\n").integer(count).end_line();
    for (int i = 0; i < count; ++i) {
      records[i].m_nHandle = handle++;
      records[i].write_to(writer, DxfDialect::kAc1015);
    }
  }
  writer.literal("  0\nENDTAB\n");
}

void write_dimension_styles(DxfPairWriter& writer, DXF* drawing, std::uint32_t& handle) {
  if (drawing->m_nNumDimStyle < 1) return;
  writer.literal("  0\nTABLE\n  2\nDIMSTYLE\n");
  writer.handle(handle++);
  writer.literal("  330\n0\n100\nAcDbSymbolTable\n 70\n").integer(drawing->m_nNumDimStyle);
  writer.literal("\n100\nAcDbDimStyleTable\n");
  for (int i = 0; i < drawing->m_nNumDimStyle; ++i) {
    ACAD_DIMSTYLE& style = drawing->m_pDimStyle[i];
    style.m_pDxf = drawing;
    style.m_nHandle = handle++;
    style.write_to(writer, DxfDialect::kAc1015);
  }
  writer.literal("  0\nENDTAB\n");
}

// No record carries an extension dictionary, not even an empty group that would hold one: strict
// readers refuse a group without the dictionary's handle, and with it the whole file.
void write_block_record(DxfPairWriter& writer, const wchar_t* name, std::uint32_t& handle) {
  writer.literal("  0\nBLOCK_RECORD\n");
  writer.handle(handle++);
  writer.literal("  330\n1\n  100\nAcDbSymbolTableRecord\n  100\nAcDbBlockTableRecord\n  2\n");
  writer.text(name).literal("\n  340\n0\n");
}

void write_layout_block(DxfPairWriter& writer, const char* name, std::uint32_t& handle) {
  writer.literal("  0\nBLOCK\n");
  writer.handle(handle++);
  writer.literal("100\nAcDbEntity\n  8\n0\n100\nAcDbBlockBegin\n  2\n").literal(name);
  writer.literal("\n 70\n0\n 10\n0.0\n 20\n0.0\n 30\n0.0\n  3\n").literal(name);
  writer.literal("\n  1\n\n  0\nENDBLK\n");
  writer.handle(handle++);
  writer.literal("100\nAcDbEntity\n  8\n0\n100\nAcDbBlockEnd\n");
}

bool is_layout_block(const ACAD_BLOCK& block) {
  return _wcsicmp(block.m_szName, L"*Model_Space") == 0 ||
         _wcsicmp(block.m_szName, L"*Paper_Space") == 0 ||
         _wcsicmp(block.m_szName, L"*Paper_Space0") == 0;
}

}  // namespace

int DXF::Write_MemDxf_To_File2000(const wchar_t* path) {
  return write_whole_file(path, true, 1);
}

void DXF::write_tables_ac1015(DxfPairWriter& writer, std::uint32_t& handle) {
  write_empty_table(writer, "VPORT", handle);
  write_applications(writer, handle);
  write_line_types(writer, m_pLType, m_nNumLType, handle);
  write_records(writer, "LAYER", m_pLayer, m_nNumLayer, handle);
  write_records(writer, "STYLE", m_pStyle, m_nNumStyle, handle);
  write_empty_table(writer, "VIEW", handle);
  write_empty_table(writer, "UCS", handle);
  write_dimension_styles(writer, this, handle);
  writer.literal("  0\nTABLE\n  2\nBLOCK_RECORD\n");
  writer.handle(handle++);
  writer.literal("  330\n0\n100\nAcDbSymbolTable\n 70\n0\n");
  write_block_record(writer, L"*Model_Space", handle);
  write_block_record(writer, L"*Paper_Space", handle);
  write_block_record(writer, L"*Paper_Space0", handle);
  for (POSITION at = m_Blocks.GetHeadPosition(); at != nullptr;) {
    const auto* block = static_cast<const ACAD_BLOCK*>(m_Blocks.GetNext(at));
    if (!is_layout_block(*block)) write_block_record(writer, block->m_szName, handle);
  }
  writer.literal("  0\nENDTAB\n  0\nENDSEC\n");
}

void DXF::write_blocks_ac1015(DxfPairWriter& writer, std::uint32_t& handle) {
  Begin_AllBlocks();
  for (const char* layout : kLayouts) write_layout_block(writer, layout, handle);
  for (POSITION at = m_Blocks.GetHeadPosition(); at != nullptr;) {
    auto* block = static_cast<ACAD_BLOCK*>(m_Blocks.GetNext(at));
    // The layouts of a file that was read are written above, and once is enough.
    if (is_layout_block(*block)) continue;
    block->m_pDxf = this;
    block->write_ac1015(writer, handle);
  }
  End_AllBlocks();
}

void DXF::write_body_ac1015() {
  DxfPairWriter& writer = *writer_;
  std::uint32_t handle = random_handle(500);
  writer.literal("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n 1\nAC1015\n  9\n$LTSCALE\n 40\n");
  writer.text(wformat(L"%.6f", m_dLtScale).c_str());
  writer.literal("\n  0\nENDSEC\n  0\nSECTION\n  2\nTABLES\n");
  write_tables_ac1015(writer, handle);
  write_blocks_ac1015(writer, handle);
  Begin_Entity();
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
    entity->m_pDxf = this;
    entity->m_nHandle = handle++;
    entity->write_to(writer, DxfDialect::kAc1015);
  }
  writer.literal("  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n");
  for (const char* line : kObjectsSection) writer.literal(line).end_line();
  writer.literal("  0\nENDSEC\n  0\nEOF\n");
}

}  // namespace brindle
