// Writing R12 files, and the markers of a file-mode drawing.
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_reading_internal.h"
#include "brindle/dxf/handle.h"
#include "brindle/dxf/pair_writer.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/save_file.h"

namespace brindle {

using namespace Varnholt;

namespace {

// A table: its count, its records with the next handles, its end. False without a record.
template <class Record>
bool write_table(DxfPairWriter& writer, const char* keyword, Record* records, int count,
                 std::uint32_t& handle, const wchar_t* empty_message) {
  writer.literal("  0\nTABLE\n");
  if (count < 1) {
    tell_error(301, empty_message);
    return false;
  }
  writer.literal("  2\n").literal(keyword).literal("\n 70\n").integer(count).end_line();
  for (int i = 0; i < count; ++i) {
    records[i].m_nHandle = handle++;
    records[i].write_to(writer, DxfDialect::kR12);
  }
  writer.literal("  0\nENDTAB\n");
  return true;
}

}  // namespace

// --- whole files

int DXF::write_whole_file(const wchar_t* path, bool ac1015, int bHatch) {
  if (m_bMemMode == 0 || path == nullptr) return 0;
  SaveFile file(path);
  if (file.stream() == nullptr) {
    // A place where no file can be is the caller's to ask about; a folder that refuses the file
    // is told.
    if (!file.target_missing_or_unusable()) tell_error1(301, L"写文件失败: %s", path);
    return 0;
  }
  lstrcpyn(m_szFileName, path, 300);
  reading_.reset();
  // A file that New opened beside memory mode stays open, and this document's.
  FILE* const streamed = m_nState == kWriting ? m_pFile : nullptr;
  m_nState = kWriting;
  m_pFile = file.stream();
  m_bMemMode = 0;
  {
    DxfPairWriter writer(m_pFile);
    writer_ = &writer;
    if (ac1015) {
      write_body_ac1015();
    } else {
      write_body_r12(bHatch);
    }
    writer_ = nullptr;
  }
  m_bMemMode = 1;
  m_pFile = streamed;
  if (file.commit()) return 1;
  tell_error1(301, L"写文件失败: %s", path);
  return 0;
}

int DXF::Write_MemDxf_To_File(const wchar_t* path, int bHatch) {
  return write_whole_file(path, false, bHatch);
}

void DXF::write_body_r12(int bHatch) {
  DxfPairWriter& writer = *writer_;
  Write_Tables();  // a table without records is told and leaves the file broken; it goes on
  std::uint32_t handle = random_handle(500);
  Begin_AllBlocks();
  for (POSITION at = m_Blocks.GetHeadPosition(); at != nullptr;) {
    auto* block = static_cast<ACAD_BLOCK*>(m_Blocks.GetNext(at));
    block->m_pDxf = this;
    block->m_nHandle = handle++;
    for (POSITION in = block->m_Entities.GetHeadPosition(); in != nullptr;) {
      static_cast<ACAD_ENTITY*>(block->m_Entities.GetNext(in))->m_bWrite = bHatch;
    }
    block->write_to(writer, DxfDialect::kR12);
  }
  End_AllBlocks();
  Begin_Entity();
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
    entity->m_pDxf = this;
    entity->m_bWrite = bHatch;
    entity->m_nHandle = handle++;
    entity->write_to(writer, DxfDialect::kR12);
  }
  End_Entity();
}

int DXF::write_tables_r12(DxfPairWriter& writer) {
  std::uint32_t handle = random_handle(5000);
  writer.literal("  0\nSECTION\n  2\nHEADER\n  9\n$LTSCALE\n 40\n").real(m_dLtScale);
  writer.literal("\n  0\nENDSEC\n  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nAPPID\n");
  writer.handle(handle++);
  writer.literal(" 70\n     3\n");
  for (const char* application : {"ACAD", "QXACAD", "QXDIMSTY"}) {
    writer.literal("  0\nAPPID\n");
    writer.handle(handle++);
    writer.literal("  2\n").literal(application).literal("\n 70\n     0\n");
  }
  writer.literal("  0\nENDTAB\n");
  if (!write_table(writer, "LTYPE", m_pLType, m_nNumLType, handle, L"Num_LType <= 0 !") ||
      !write_table(writer, "LAYER", m_pLayer, m_nNumLayer, handle, L"Num_Layer <= 0 !") ||
      !write_table(writer, "STYLE", m_pStyle, m_nNumStyle, handle, L"Num_Style <= 0 !")) {
    return 0;
  }
  if (m_nNumDimStyle >= 1) {
    for (int i = 0; i < m_nNumDimStyle; ++i) m_pDimStyle[i].m_pDxf = this;
    write_table(writer, "DIMSTYLE", m_pDimStyle, m_nNumDimStyle, handle, L"");
  }
  writer.literal("  0\nENDSEC\n");
  return 1;
}

// --- markers of a file-mode drawing

int DXF::write_marker(const char* text) {
  if (m_bMemMode != 0) return 1;
  if (m_nState != kWriting || m_pFile == nullptr) return 0;
  if (writer_ != nullptr) {
    writer_->literal(text);
  } else {
    DxfPairWriter(m_pFile).literal(text);
  }
  return 1;
}

int DXF::Write_Tables() {
  if (m_bMemMode != 0) return 1;
  if (m_nState != kWriting || m_pFile == nullptr) return 0;
  if (writer_ != nullptr) return write_tables_r12(*writer_);
  DxfPairWriter writer(m_pFile);
  return write_tables_r12(writer);
}

int DXF::Begin_AllBlocks() {
  return write_marker("  0\nSECTION\n  2\nBLOCKS\n");
}
int DXF::End_AllBlocks() {
  return write_marker("  0\nENDSEC\n");
}
int DXF::End_OneBlock() {
  return write_marker("  0\nENDBLK\n");
}
int DXF::Begin_Entity() {
  return write_marker("  0\nSECTION\n  2\nENTITIES\n");
}
int DXF::End_Entity() {
  return write_marker("  0\nENDSEC\n  0\nEOF\n");
}

int DXF::Begin_OneBlock(const wchar_t* name, double x, double y, double z, const wchar_t* layer,
                        const wchar_t*, int flags) {
  if (write_marker("  0\nBLOCK\n") == 0) return 0;
  if (m_bMemMode != 0) return 1;
  DxfPairWriter writer(m_pFile);
  writer.group(8, layer != nullptr ? layer : L"");
  writer.group(2, name != nullptr ? name : L"");
  writer.group(70, flags);
  writer.group(10, x);
  writer.group(20, y);
  writer.group(30, z);
  return 1;
}

}  // namespace brindle
