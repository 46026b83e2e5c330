// Reading a drawing file: its sections in turn, through a window of line pairs.
#include <memory>
#include <string>

#include "brindle/dxf/drawing_encoding.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_reading_internal.h"
#include "brindle/dxf/entity_kinds.h"
#include "brindle/dxf/pair_reader.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"

namespace brindle {

using namespace Varnholt;

namespace {

void keep_line(const DxfLine& line, const CodePage& page, wchar_t* buffer) {
  std::wstring text = page.decode(line.bytes);
  if (line.ended) text += L'\n';
  lstrcpyn(buffer, text.c_str(), 300);
}

}  // namespace

// The window over m_pFile; null when no file is being read.
DxfPairReader* DXF::reader() {
  if (m_nState != kReading || m_pFile == nullptr) return nullptr;
  if (reading_ == nullptr || reading_->stream != m_pFile) {
    reading_ = std::make_unique<ReadingState>(m_pFile);
  }
  return &reading_->pairs;
}

void DXF::start_reading(FILE* stream) {
  m_pFile = stream;
  m_nState = kReading;
  reading_ = std::make_unique<ReadingState>(stream);
}

void DXF::stop_reading() {
  reading_.reset();
  m_pFile = nullptr;  // the caller's
}

int DXF::Read_FileDxf_To_Mem(const wchar_t* path) {
  if (m_bMemMode == 0) return 0;
  FILE* file = _wfopen(path, L"rt");
  if (file == nullptr) return 0;
  lstrcpyn(m_szFileName, path, 300);
  const int result = Read_FileDxf_To_Mem(file);
  std::fclose(file);
  return result;
}

int DXF::Read_FileDxf_To_Mem(FILE* stream) {
  if (stream == nullptr || m_bMemMode == 0) return 0;
  Open_MemDxf();
  if (m_nState == kClosed) return 0;
  start_reading(stream);
  m_dLtScale = 1.0;
  detect_code_page();
  Read_Head();
  int result = 0;
  if (Read_Tables() == 0) {
    tell_error(301, L"读入表段时错误");
  } else {
    if (Find_Start_Blocks() != 0) {
      while (Read_One_Block() != 0) {
        auto block = std::make_unique<ACAD_BLOCK>();
        block->take(scratch_block_);
        count_dimension_block(*block);
        m_Blocks.AddTail(block.release());
      }
    }
    if (Find_Start_Entities() == 0) {
      tell_error(301, L"找不到实体段的开始标志 !");
    } else {
      read_entities();
      result = 1;
    }
  }
  scratch_block_.Ini();
  stop_reading();
  return result;
}

// A drawing may tell its own encoding: by a byte-order mark, by a version that is always UTF-8, or
// by the name of a code page. Otherwise the process's code page holds.
void DXF::detect_code_page() {
  DxfPairReader& pairs = reading_->pairs;
  DrawingEncoding encoding;
  encoding.byte_order_mark = skip_byte_order_mark(pairs);
  if (encoding.byte_order_mark) {
    reading_->searched = pairs.position();  // the mark is no part of the first line
  } else if (find_section("HEADER")) {
    read_encoding_variables(pairs, encoding);
  }
  if (const CodePage* page = encoding.page()) pairs.set_code_page(*page);
}

// Puts the reader behind the line that names a section, the first in the file.
bool DXF::find_section(const char* name) {
  DxfPairReader* pairs = reader();
  if (pairs == nullptr) return false;
  ReadingState& state = *reading_;
  for (const ReadingState::Section& section : state.sections) {
    if (section.name == name && section.position >= 0) {
      pairs->seek(section.position);
      return true;
    }
  }
  pairs->seek(state.searched);
  bool named = state.previous_names_one;
  DxfLine line;
  while (pairs->read_line(line)) {
    const bool after_two = named;
    named = line.is("  2");
    if (!after_two) continue;
    for (ReadingState::Section& section : state.sections) {
      if (section.position >= 0 || !line.is(section.name)) continue;
      section.position = state.searched = pairs->position();
      state.previous_names_one = false;
      if (section.name == name) return true;
    }
  }
  state.searched = pairs->position();
  return false;
}

int DXF::Find_Start_Head() {
  return find_section("HEADER") ? 1 : 0;
}
int DXF::Find_Start_Tables() {
  return find_section("TABLES") ? 1 : 0;
}
int DXF::Find_Start_Blocks() {
  return find_section("BLOCKS") ? 1 : 0;
}
int DXF::Find_Start_Entities() {
  return find_section("ENTITIES") ? 1 : 0;
}

int DXF::Read_Head() {
  if (Find_Start_Head() == 0) return 0;
  DxfPairReader& pairs = *reader();
  DxfPair pair;
  while (pairs.read(pair) && !pair.is(0, "ENDSEC")) {
    if (!pair.is(9, "$LTSCALE")) continue;
    if (pairs.read(pair) && pair.code == 40) {
      m_dLtScale = static_cast<float>(DxfPairReader::real(pair));
    }
    break;
  }
  return 1;
}

int DXF::Read_One_Block() {
  DxfPairReader* pairs = reader();
  if (pairs == nullptr) return 0;
  DxfPair pair;
  while (pairs->read(pair)) {
    if (pair.code != 0) continue;
    if (pair.value.is("ENDSEC") || pair.value.is("EOF") || pair.value.is("ENDBLK")) return 0;
    if (!pair.value.is("BLOCK")) continue;
    pairs->unread();
    scratch_block_.m_pDxf = this;
    return scratch_block_.read_from(*pairs);
  }
  return 0;
}

// The kind of the next entity, which is left in its scratch object.
int DXF::read_one_entity(ACAD_ENTITY*& entity) {
  DxfPairReader& pairs = *reader();
  DxfPair pair;
  while (pairs.read(pair)) {
    if (pair.code != 0) continue;
    const EntityKind* kind = find_entity_kind(pair.value.bytes);
    if (kind == nullptr) {
      if (pair.value.is("ENDSEC") || pair.value.is("EOF")) return kEntityEndOfSection;
      continue;
    }
    pairs.unread();
    entity = scratch_entity(kind->type);
    if (entity->read_from(pairs) == 0) return kEntityNone;
    entity->m_pDxf = this;
    return kind->type;
  }
  return kEntityEndOfSection;
}

int DXF::Read_One_Entity() {
  DxfPairReader* pairs = reader();
  if (pairs == nullptr) return kEntityNone;
  ACAD_ENTITY* entity = nullptr;
  const int kind = read_one_entity(entity);
  if (kind < kEntityNone) entity->finish_reading();
  DxfPair next;
  if (pairs->read(next)) {
    keep_line(next.code_line, pairs->code_page(), m_szCode);
    keep_line(next.value, pairs->code_page(), m_szValue);
    pairs->unread();
  }
  return kind;
}

void DXF::read_entities() {
  for (;;) {
    ACAD_ENTITY* scratch = nullptr;
    const int kind = read_one_entity(scratch);
    if (kind >= kEntityNone) return;
    if (!scratch->finish_reading()) continue;
    std::unique_ptr<ACAD_ENTITY> copy(scratch->Clone());
    if (copy != nullptr) m_Entities.AddTail(copy.release());
  }
}

}  // namespace brindle
