// The base of the four table records.
#pragma once

#include <cstdint>
#include <cstdio>
#include <vector>

#include "brindle/dxf/handle.h"
#include "brindle/dxf/pair_writer.h"
#include "brindle/dxf/record_field.h"
#include "brindle/platform/base/wide_text.h"

namespace brindle {

class DXF;

namespace Varnholt {

class ACAD_TABLE;
using TableField = RecordField<ACAD_TABLE>;

// A plain record that reads and writes itself; its text fields are names, entities refer to it by
// its name.
class ACAD_TABLE {
 public:
  virtual ~ACAD_TABLE() = default;

  // Reads the record whose "  0" pair the stream stands at, up to the next pair of code 0. 1; 0 and
  // nothing changed when another word stands there.
  virtual int Read(FILE* stream);
  // Writes the R12 form; 1.
  virtual int Write(FILE* stream);
  // Writes the AC1015 form; 1.
  int Write2000(FILE* stream);

  virtual int read_from(DxfPairReader&) { return 1; }
  virtual void write_to(DxfPairWriter&, DxfDialect) {}

  std::uint32_t m_nHandle = random_handle(5000);
  DXF* m_pDxf = nullptr;  // may stay null; tells a dimension style where its text style is

 protected:
  ACAD_TABLE() = default;
  ACAD_TABLE(const ACAD_TABLE&) = default;
  ACAD_TABLE& operator=(const ACAD_TABLE&) = default;

  // True when the next pair is code 0 with this word.
  static bool starts_with(DxfPairReader& reader, const char* keyword);
  // Reads the record's pairs by its table of fields, which also ignores what it doesn't know.
  void read_fields(DxfPairReader& reader, const std::vector<TableField>& fields);
  void reset_fields(const std::vector<TableField>& fields);
  // "  0", the word, and for AC1015 the handle and the two subclass markers.
  void write_head(DxfPairWriter& writer, DxfDialect dialect, const char* keyword,
                  const char* handle_code, const char* subclass) const;
};

template <auto Member>
TableField table_number(int code, const char* name, double initial) {
  return number_field<ACAD_TABLE, Member>(code, name, initial);
}
template <auto Member>
TableField table_text(int code, const char* name, const wchar_t* initial) {
  return text_field<ACAD_TABLE, Member>(code, name, initial);
}

}  // namespace Varnholt
}  // namespace brindle
