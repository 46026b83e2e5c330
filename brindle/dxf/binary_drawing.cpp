#include "brindle/dxf/binary_drawing.h"

#include <algorithm>
#include <memory>
#include <new>
#include <string>

#include "brindle/dxf/binary_entities_internal.h"
#include "brindle/dxf/binary_stream_internal.h"
#include "brindle/dxf/dxf.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/file.h"
#include "brindle/platform/base/save_file.h"
#include "brindle/platform/base/stream.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr std::size_t kHeaderCharacters = 32;
constexpr std::wstring_view kMark = L"QxDxbFile Version1.1";
constexpr std::size_t kMarkLength = 9;  // "QxDxbFile"
constexpr std::size_t kVersionAt = 17;  // behind "QxDxbFile Version"
constexpr double kVersionWithExtendedWords = 1.001;
constexpr int kMostTableRecords = 65535;  // entities name them by 16 bits
// Behind the entities stand the layers of the blocks, which older programs don't look for.
constexpr std::uint32_t kBlockLayersMark = 0x59414c42;  // "BLAY"

template <class Stream>
void exchange(Stream& stream, ACAD_LTYPE& record) {
  stream.text(record.m_szName);
  stream.text(record.m_szDesc);
  stream.plain(record.m_nAlign);
  stream.number(record.m_dPatternLength);
  int dashes = record.dash_count();
  stream.plain(dashes);
  record.m_nDashCount = std::clamp(dashes, 0, ACAD_LTYPE::kMaxDashes);
  for (int i = 0; i < record.m_nDashCount; ++i) stream.number(record.m_dDash[i]);
  stream.number(record.m_dScale);
}

template <class Stream>
void exchange(Stream& stream, ACAD_LAYER& record) {
  stream.text(record.m_szName);
  stream.text(record.m_szLType);
  stream.plain(record.m_nFlags);
  stream.plain(record.m_nColor);
}

template <class Stream>
void exchange(Stream& stream, ACAD_STYLE& record, bool old_form) {
  stream.text(record.m_szName);
  stream.plain(record.m_nFlags);
  // The old form has the two flag words next to each other.
  if (old_form) stream.plain(record.m_nGenFlags);
  stream.number(record.m_dHeight);
  stream.number(record.m_dWidth);
  stream.number(record.m_dOblique);
  if (!old_form) stream.plain(record.m_nGenFlags);
  stream.number(record.m_dLastHeight);
  stream.text(record.m_szFont);
  stream.text(record.m_szBigFont);
  stream.text(record.m_szExtFont);
}

void write_entities(BinaryWriter& stream, BinaryNames& names, const CPtrList& entities) {
  int count = static_cast<int>(entities.GetCount());
  stream.plain(count);
  for (POSITION at = entities.GetHeadPosition(); at != nullptr;) {
    write_binary_entity(stream, names, *static_cast<ACAD_ENTITY*>(entities.GetNext(at)));
  }
}

void read_entities(BinaryReader& stream, BinaryNames& names, DXF& drawing, CPtrList& entities) {
  const int count = stream.count(sizeof(int));
  for (int i = 0; i < count && stream.remaining() >= sizeof(int); ++i) {
    ACAD_ENTITY* entity = read_binary_entity(stream, names);
    if (entity == nullptr) continue;  // a kind of a later version
    entity->m_pDxf = &drawing;
    entities.AddTail(entity);
  }
}

template <class Record>
void fit_table(Record*& records, int& used, int& capacity, int count, DXF* drawing) {
  delete[] records;
  records = nullptr;
  capacity = std::max(capacity, count + 1);
  records = new Record[static_cast<std::size_t>(capacity)];
  used = count;
  for (int i = 0; i < capacity; ++i) records[i].m_pDxf = drawing;
}

// The smallest records that a file can hold of each table: empty texts.
int table_count(BinaryReader& stream, std::size_t smallest) {
  return std::min(stream.count(smallest), kMostTableRecords);
}

// The next number behind the highest "*D" of the blocks, so that new dimensions get new names.
int highest_dimension_block(const DXF& drawing) {
  int highest = 0;
  for (POSITION at = drawing.m_Blocks.GetHeadPosition(); at != nullptr;) {
    const auto* block = static_cast<const ACAD_BLOCK*>(drawing.m_Blocks.GetNext(at));
    const std::wstring_view name = block->m_szName.view();
    if (name.starts_with(L"*D")) highest = std::max(highest, _wtoi(block->m_szName.c_str() + 2));
  }
  return highest;
}

void read_body(DXF& drawing, BinaryReader& stream, double version, bool old_form) {
  stream.number(drawing.m_dLtScale);
  const std::size_t number = stream.number_size();
  const int line_types = table_count(stream, 16 + 2 * number);
  const int layers = table_count(stream, 16);
  const int styles = table_count(stream, 24 + 4 * number);
  const int dimension_styles = table_count(stream, 24 + 17 * number);
  fit_table(drawing.m_pLType, drawing.m_nNumLType, drawing.m_nMaxLType, line_types, &drawing);
  fit_table(drawing.m_pLayer, drawing.m_nNumLayer, drawing.m_nMaxLayer, layers, &drawing);
  fit_table(drawing.m_pStyle, drawing.m_nNumStyle, drawing.m_nMaxStyle, styles, &drawing);
  fit_table(drawing.m_pDimStyle, drawing.m_nNumDimStyle, drawing.m_nMaxDimStyle, dimension_styles,
            &drawing);
  for (int i = 0; i < line_types; ++i) exchange(stream, drawing.m_pLType[i]);
  for (int i = 0; i < layers; ++i) exchange(stream, drawing.m_pLayer[i]);
  for (int i = 0; i < styles; ++i) exchange(stream, drawing.m_pStyle[i], old_form);
  for (int i = 0; i < dimension_styles; ++i) drawing.m_pDimStyle[i].exchange(stream);

  BinaryNames names(drawing, version > kVersionWithExtendedWords);
  const int blocks = stream.count(12 + 3 * number);
  for (int i = 0; i < blocks && stream.remaining() != 0; ++i) {
    auto block = std::make_unique<ACAD_BLOCK>();
    block->m_pDxf = &drawing;
    stream.text(block->m_szName);
    stream.plain(block->m_nFlags);
    stream.number(block->x);
    stream.number(block->y);
    stream.number(block->z);
    read_entities(stream, names, drawing, block->m_Entities);
    drawing.m_Blocks.AddTail(block.release());
  }
  read_entities(stream, names, drawing, drawing.m_Entities);

  std::uint32_t mark = 0;
  stream.plain(mark);
  if (mark == kBlockLayersMark) {
    for (POSITION at = drawing.m_Blocks.GetHeadPosition(); at != nullptr;) {
      names.layer(stream, *static_cast<ACAD_BLOCK*>(drawing.m_Blocks.GetNext(at)));
    }
  }
  drawing.m_nDimBlockCount = highest_dimension_block(drawing);
}

void write_body(DXF& drawing, BinaryWriter& stream) {
  stream.number(drawing.m_dLtScale);
  const bool has_tables = drawing.m_pLayer != nullptr;
  const int line_types = has_tables ? std::min(drawing.m_nNumLType, kMostTableRecords) : 0;
  const int layers = has_tables ? std::min(drawing.m_nNumLayer, kMostTableRecords) : 0;
  const int styles = has_tables ? drawing.m_nNumStyle : 0;
  const int dimension_styles = has_tables ? drawing.m_nNumDimStyle : 0;
  stream.plain(line_types);
  stream.plain(layers);
  stream.plain(styles);
  stream.plain(dimension_styles);
  for (int i = 0; i < line_types; ++i) exchange(stream, drawing.m_pLType[i]);
  for (int i = 0; i < layers; ++i) exchange(stream, drawing.m_pLayer[i]);
  for (int i = 0; i < styles; ++i) exchange(stream, drawing.m_pStyle[i], false);
  for (int i = 0; i < dimension_styles; ++i) drawing.m_pDimStyle[i].exchange(stream);

  BinaryNames names(drawing, true);
  stream.plain(static_cast<int>(drawing.m_Blocks.GetCount()));
  for (POSITION at = drawing.m_Blocks.GetHeadPosition(); at != nullptr;) {
    auto* block = static_cast<ACAD_BLOCK*>(drawing.m_Blocks.GetNext(at));
    stream.text(block->m_szName);
    stream.plain(block->m_nFlags);
    stream.number(block->x);
    stream.number(block->y);
    stream.number(block->z);
    write_entities(stream, names, block->m_Entities);
  }
  write_entities(stream, names, drawing.m_Entities);
  stream.plain(kBlockLayersMark);
  for (POSITION at = drawing.m_Blocks.GetHeadPosition(); at != nullptr;) {
    names.layer(stream, *static_cast<ACAD_BLOCK*>(drawing.m_Blocks.GetNext(at)));
  }
}

// How many bytes the file has; false for what isn't a file with an end.
bool size_of(FILE* file, std::size_t& size) {
  if (std::fseek(file, 0, SEEK_END) != 0) return false;
  const long end = std::ftell(file);
  std::rewind(file);
  size = static_cast<std::size_t>(end);
  return end >= 0;
}

int load(DXF* drawing, FILE* file, std::size_t size, bool wide_numbers) {
  BinaryReader stream(file, size, wide_numbers);
  std::wstring header;
  for (std::size_t i = 0; i < kHeaderCharacters; ++i) {
    std::uint16_t unit = 0;
    stream.plain(unit);
    header.push_back(static_cast<wchar_t>(unit));
  }
  if (header.compare(0, kMarkLength, kMark, 0, kMarkLength) != 0) {
    tell_error(301, L"DXB文件标志错误 !");
    return 0;
  }
  const double version = parse_double(header.c_str() + kVersionAt);
  drawing->Clear();
  drawing->m_bMemMode = 1;
  drawing->m_nState = DXF::kWriting;
  try {
    read_body(*drawing, stream, version, !wide_numbers);
  } catch (const std::bad_alloc&) {
    tell_error(301, L"Out of memery in New DXF File !");
    drawing->Clear();
    return 0;
  }
  return 1;
}

}  // namespace

int SaveDxb(DXF* drawing, const wchar_t* path) {
  if (drawing == nullptr || path == nullptr) return 0;
  SaveFile file(path);
  if (file.stream() == nullptr) {
    if (!file.target_missing_or_unusable()) tell_error1(301, L"写文件失败: %s", path);
    return 0;
  }
  {
    BinaryWriter stream(file.stream());
    std::wstring header(kMark);
    header.resize(kHeaderCharacters, L'\0');
    for (const wchar_t unit : header) stream.plain(static_cast<std::uint16_t>(unit));
    write_body(*drawing, stream);
  }
  if (file.commit()) return 1;
  tell_error1(301, L"写文件失败: %s", path);
  return 0;
}

int LoadDxb(DXF* drawing, const wchar_t* path, int bDouble) {
  if (drawing == nullptr || path == nullptr) return 0;
  FILE* file = _wfopen(path, L"rb");
  if (file == nullptr) return 0;
  std::size_t size = 0;
  const int loaded = size_of(file, size) ? load(drawing, file, size, bDouble != 0) : 0;
  std::fclose(file);
  return loaded;
}

}  // namespace brindle
