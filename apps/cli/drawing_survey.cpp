#include "apps/cli/drawing_survey.h"

#include <algorithm>
#include <string_view>

#include "brindle/dxf/entity_kinds.h"
#include "brindle/dxf/pair_reader.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/base/stream.h"

namespace brindle::cli {
namespace {

// Pairs of code 0 that are no entities themselves.
bool is_structure(std::string_view word) {
  static constexpr std::string_view kWords[] = {"SECTION", "ENDSEC", "EOF",   "BLOCK",
                                                "ENDBLK",  "VERTEX", "SEQEND"};
  return std::find(std::begin(kWords), std::end(kWords), word) != std::end(kWords);
}

}  // namespace

DrawingSurvey survey_drawing(const std::wstring& path) {
  DrawingSurvey survey;
  std::FILE* file = _wfopen(path.c_str(), L"rb");
  if (file == nullptr) return survey;
  DxfPairReader reader(file, ansi_code_page());
  survey.encoding.byte_order_mark = skip_byte_order_mark(reader);
  DxfPair pair;
  std::string section;
  bool opening = false, header_read = false;
  while (reader.read(pair)) {
    if (opening && pair.code == 2) {
      section = pair.value.bytes;
      if (section == "HEADER" && !header_read) {
        const long long start = reader.position();
        read_encoding_variables(reader, survey.encoding);
        reader.seek(start);  // whatever the header lacks, the walk sees the rest of the file
        header_read = true;
      }
    }
    opening = pair.is(0, "SECTION");
    if (pair.code != 0 || (section != "ENTITIES" && section != "BLOCKS")) continue;
    const std::string_view word = pair.value.bytes;
    if (is_structure(word) || Varnholt::find_entity_kind(word) != nullptr) continue;
    ++survey.skipped[std::string(word)];
  }
  std::fclose(file);
  return survey;
}

std::wstring encoding_of(const DrawingEncoding& encoding) {
  if (encoding.byte_order_mark) return L"UTF-8 (byte-order mark)";
  if (encoding.is_utf8_by_version()) return L"UTF-8 (by the version)";
  if (const CodePage* page = encoding.page()) {
    return wformat(L"%S (by $DWGCODEPAGE)", page->name());
  }
  return wformat(L"%S (the process's; the file tells none)", ansi_code_page().name());
}

}  // namespace brindle::cli
