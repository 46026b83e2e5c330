// `brindle convert`: a drawing into another dialect.
#include "apps/cli/command.h"
#include "apps/cli/console.h"
#include "apps/cli/drawing.h"
#include "apps/cli/drawing_survey.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/stream.h"

namespace brindle::cli {
namespace {

// What the new file won't hold is told, not hidden.
void tell_losses(const std::wstring& path) {
  for (const auto& [word, count] : survey_drawing(path).skipped) {
    complain(wformat(L"left out: %d %s", count, CodePage::find(65001u)->decode(word)));
  }
}

// A table that the input lacks takes its default entry: no drawing is complete without one.
void complete_tables(DXF& drawing) {
  for (int* count : {&drawing.m_nNumLType, &drawing.m_nNumLayer, &drawing.m_nNumStyle}) {
    if (*count < 1) *count = 1;
  }
}

ExitStatus run_convert(const Arguments& arguments) {
  const std::string& dialect = arguments.value("--to");
  if (dialect != "r12" && dialect != "2000") {
    throw UsageError("--to takes r12 or 2000, not \"" + dialect + "\"");
  }
  const std::wstring from = from_path(arguments.operands[0]);
  const std::wstring to = from_path(arguments.operands[1]);
  DXF drawing;
  if (!load_drawing(from, drawing)) return kBadInput;
  tell_losses(from);
  complete_tables(drawing);
  const int written = dialect == "2000" ? drawing.Write_MemDxf_To_File2000(to.c_str())
                                        : drawing.Write_MemDxf_To_File(
                                              to.c_str(), arguments.has("--hatches") ? 1 : 0);
  if (written != 0) return kDone;
  complain(wformat(L"can't write %s", to));
  return kBadInput;
}

}  // namespace

const Command kConvertCommand = {
    "convert",
    {"IN.dxf", "OUT.dxf"},
    "--to r12|2000",
    "write a drawing in another dialect",
    "Text goes out in the process's code page, whatever the encoding of IN.dxf. OUT.dxf may be\n"
    "IN.dxf: the old file stays until the new one is complete.",
    {{"--to", "DIALECT", "r12, or 2000 for AC1015"},
     {"--hatches", "", "hatches go into an r12 file too (2000 always has them)"}},
    run_convert,
};

}  // namespace brindle::cli
