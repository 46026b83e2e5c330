// `brindle convert`: a drawing into another form.
#include "apps/cli/command.h"
#include "apps/cli/console.h"
#include "apps/cli/drawing.h"
#include "apps/cli/drawing_survey.h"
#include "brindle/dxf/binary_drawing.h"
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
  if (dialect != "r12" && dialect != "2000" && dialect != "dxb") {
    throw UsageError("--to takes r12, 2000 or dxb, not \"" + dialect + "\"");
  }
  const std::wstring from = from_path(arguments.operands[0]);
  const std::wstring to = from_path(arguments.operands[1]);
  DXF drawing;
  if (!load_drawing(from, drawing)) return kBadInput;
  if (!is_binary_drawing(from)) tell_losses(from);
  complete_tables(drawing);
  const int written = dialect == "dxb" ? SaveDxb(&drawing, to.c_str())
                      : dialect == "2000"
                          ? drawing.Write_MemDxf_To_File2000(to.c_str())
                          : drawing.Write_MemDxf_To_File(to.c_str(), arguments.has("--hatches"));
  if (written != 0) return kDone;
  complain(wformat(L"can't write %s", to));
  return kBadInput;
}

}  // namespace

const Command kConvertCommand = {
    "convert",
    {"IN", "OUT"},
    "--to r12|2000|dxb",
    "write a drawing in another form",
    "IN is a DXF file or a binary drawing. Text goes into a DXF file in the process's code page,\n"
    "whatever the encoding of IN. OUT may be IN: the old file stays until the new one is complete.",
    {{"--to", "DIALECT", "r12, 2000 for AC1015, or dxb, the binary form"},
     {"--hatches", "", "hatches go into an r12 file too (the others always have them)"}},
    run_convert,
};

}  // namespace brindle::cli
