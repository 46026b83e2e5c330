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

constexpr std::string_view kFirstUtf8Version = "AC1021";

// Pairs of code 0 that are no entities themselves.
bool is_structure(std::string_view word) {
  static constexpr std::string_view kWords[] = {"SECTION", "ENDSEC", "EOF",   "BLOCK",
                                                "ENDBLK",  "VERTEX", "SEQEND"};
  return std::find(std::begin(kWords), std::end(kWords), word) != std::end(kWords);
}

void note_header_variable(DxfPairReader& reader, const DxfPair& name, DrawingSurvey& survey) {
  std::string* text = name.value.is("$ACADVER")       ? &survey.version
                      : name.value.is("$DWGCODEPAGE") ? &survey.code_page
                                                      : nullptr;
  DxfPair value;
  if (text != nullptr && text->empty() && reader.read(value)) *text = value.value.bytes;
}

}  // namespace

DrawingSurvey survey_drawing(const std::wstring& path) {
  DrawingSurvey survey;
  std::FILE* file = _wfopen(path.c_str(), L"rb");
  if (file == nullptr) return survey;
  char mark[3] = {};
  survey.byte_order_mark =
      std::fread(mark, 1, 3, file) == 3 && std::string_view(mark, 3) == "\xEF\xBB\xBF";
  if (!survey.byte_order_mark) std::rewind(file);

  DxfPairReader reader(file, ansi_code_page());
  DxfPair pair;
  std::string section;
  bool opening = false;
  while (reader.read(pair)) {
    if (opening && pair.code == 2) section = pair.value.bytes;
    opening = pair.is(0, "SECTION");
    if (section == "HEADER" && pair.code == 9) note_header_variable(reader, pair, survey);
    if (pair.code != 0 || (section != "ENTITIES" && section != "BLOCKS")) continue;
    const std::string_view word = pair.value.bytes;
    if (is_structure(word) || Varnholt::find_entity_kind(word) != nullptr) continue;
    ++survey.skipped[std::string(word)];
  }
  std::fclose(file);
  return survey;
}

std::wstring encoding_of(const DrawingSurvey& survey) {
  if (survey.byte_order_mark) return L"UTF-8 (byte-order mark)";
  if (survey.version.substr(0, 2) == "AC" && survey.version >= kFirstUtf8Version) {
    return L"UTF-8 (by the version)";
  }
  if (const CodePage* page = find_by_drawing_name(survey.code_page)) {
    return wformat(L"%S (by $DWGCODEPAGE)", page->name());
  }
  return wformat(L"%S (the process's; the file tells none)", ansi_code_page().name());
}

}  // namespace brindle::cli
