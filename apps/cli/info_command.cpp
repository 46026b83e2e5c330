// `brindle info`: what is in a drawing.
#include <map>

#include "apps/cli/command.h"
#include "apps/cli/console.h"
#include "apps/cli/drawing.h"
#include "apps/cli/drawing_survey.h"
#include "brindle/dxf/entity_kinds.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/stream.h"

namespace brindle::cli {
namespace {

using namespace Varnholt;

std::wstring ascii(std::string_view text) {
  return printable(CodePage::find(65001u)->decode(text));
}

void print_line_types(const DXF& drawing) {
  print(L"line types %d", drawing.m_nNumLType);
  for (int i = 0; i < drawing.m_nNumLType; ++i) {
    const ACAD_LTYPE& ltype = drawing.m_pLType[i];
    print(L"  %s: %d dashes, length %.10g", printable(ltype.m_szName.view()), ltype.dash_count(),
          ltype.m_dPatternLength);
  }
}

void print_layers(const DXF& drawing) {
  print(L"layers %d", drawing.m_nNumLayer);
  for (int i = 0; i < drawing.m_nNumLayer; ++i) {
    const ACAD_LAYER& layer = drawing.m_pLayer[i];
    const bool off = layer.m_nColor < 0;
    print(L"  %s: colour %d%s, %s", printable(layer.m_szName.view()),
          off ? -static_cast<long long>(layer.m_nColor) : layer.m_nColor, off ? L" (off)" : L"",
          printable(layer.m_szLType.view()));
  }
}

void print_text_styles(const DXF& drawing) {
  print(L"text styles %d", drawing.m_nNumStyle);
  for (int i = 0; i < drawing.m_nNumStyle; ++i) {
    const ACAD_STYLE& style = drawing.m_pStyle[i];
    const std::wstring big_font = printable(style.m_szBigFont.view());
    print(L"  %s: font %s%s%s, height %.10g, width %.10g", printable(style.m_szName.view()),
          printable(style.m_szFont.view()), big_font.empty() ? L"" : L" + ", big_font,
          style.m_dHeight, style.m_dWidth);
  }
}

void print_dimension_styles(const DXF& drawing) {
  print(L"dimension styles %d", drawing.m_nNumDimStyle);
  for (int i = 0; i < drawing.m_nNumDimStyle; ++i) {
    const ACAD_DIMSTYLE& style = drawing.m_pDimStyle[i];
    print(L"  %s: scale %.10g, text %s", printable(style.m_szName.view()), style.DIMSCALE,
          printable(style.m_szTxtStyle.view()));
  }
}

void print_blocks(const DXF& drawing) {
  print(L"blocks %lld", static_cast<long long>(drawing.m_Blocks.GetCount()));
  for (POSITION at = drawing.m_Blocks.GetHeadPosition(); at != nullptr;) {
    const auto* block = static_cast<const ACAD_BLOCK*>(drawing.m_Blocks.GetNext(at));
    print(L"  %s: %lld entities", printable(block->m_szName.view()),
          static_cast<long long>(block->m_Entities.GetCount()));
  }
}

void print_entities(const DXF& drawing) {
  std::map<int, int> by_kind;
  for (POSITION at = drawing.m_Entities.GetHeadPosition(); at != nullptr;) {
    ++by_kind[static_cast<ACAD_ENTITY*>(drawing.m_Entities.GetNext(at))->GetType()];
  }
  print(L"entities %lld", static_cast<long long>(drawing.m_Entities.GetCount()));
  for (const auto& [type, count] : by_kind) {
    const EntityKind* kind = find_entity_kind(type);
    if (kind != nullptr) print(L"  %s: %d", ascii(kind->keyword), count);
  }
}

void print_skipped(const DrawingSurvey& survey) {
  if (survey.skipped.empty()) return;
  print(L"skipped");
  for (const auto& [word, count] : survey.skipped) print(L"  %s: %d", ascii(word), count);
}

void print_extent(DXF& drawing) {
  if (drawing.m_Entities.IsEmpty()) return print(L"extent none");
  const CFRect box = drawing.GetFRect();
  print(L"extent %.9g,%.9g to %.9g,%.9g", box.left, box.bottom, box.right, box.top);
}

ExitStatus run_info(const Arguments& arguments) {
  const std::wstring path = from_path(arguments.operands[0]);
  DXF drawing;
  if (!load_drawing(path, drawing)) return kBadInput;
  print(L"drawing %s", printable(path));
  DrawingSurvey survey;
  if (is_binary_drawing(path)) {
    print(L"version binary");
  } else {
    survey = survey_drawing(path);
    print(L"version %s", survey.encoding.version.empty() ? std::wstring(L"none told")
                                                         : ascii(survey.encoding.version));
    print(L"encoding %s", encoding_of(survey.encoding));
  }
  print(L"line type scale %.10g", drawing.m_dLtScale);
  print_line_types(drawing);
  print_layers(drawing);
  print_text_styles(drawing);
  print_dimension_styles(drawing);
  print_blocks(drawing);
  print_entities(drawing);
  print_skipped(survey);
  print_extent(drawing);
  return kDone;
}

}  // namespace

const Command kInfoCommand = {
    "info",
    {"FILE"},
    "",
    "tell what is in a drawing",
    "Prints version, encoding, tables, blocks, entities by kind and the extent. \"skipped\" lists "
    "what\n"
    "the file holds and the drawing model doesn't.",
    {},
    run_info,
};

}  // namespace brindle::cli
