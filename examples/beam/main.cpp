// beam: designs one reinforced-concrete beam section and draws it.
#include <cstdio>
#include <memory>
#include <string>

#include "brindle/dxf/shx_font.h"
#include "brindle/frame/utility/files.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/base/stream.h"
#include "examples/beam/bar_choice.h"
#include "examples/beam/section_drawing.h"
#include "examples/beam/section_input.h"
#include "examples/beam/section_notes.h"
#include "examples/common/batch_program.h"

namespace brindle::beam {
namespace {

using examples::kBadInput;
using examples::kDone;
using examples::Options;
using examples::print;

constexpr const wchar_t* kUsage =
    L"用法: beam --batch 数据文件 --out 目录\n"
    L"  按 GB50010-2010 设计矩形梁截面，在目录下写出 <数据文件名>_r12.dxf 和 "
    L"<数据文件名>_2000.dxf。\n"
    L"  返回值: 0 完成，1 数据有误或不能写出，2 用法有误。\n";

bool write_drawing(DXF& drawing, const std::wstring& path, bool r12) {
  const int written = r12 ? drawing.Write_MemDxf_To_File(path.c_str(), 0)
                          : drawing.Write_MemDxf_To_File2000(path.c_str());
  if (written) return true;
  tell_error1(301, L"写不成文件: %s", path);
  return false;
}

int run(const Options& options) {
  SectionInput input;
  if (!read_section_input(options.input.c_str(), &input)) return kBadInput;
  SectionDesign design;
  const DesignStatus status = design_section(input, &design);
  if (status != DesignStatus::kOk) {
    tell_error1(301, L"%s: %s", options.input, status_text(status));
    return kBadInput;
  }
  LoadShx(find_asset(L"fonts/").c_str());
  const std::unique_ptr<CBase_SGT> drawing = draw_section(input, design);
  if (drawing == nullptr) return kBadInput;
  if (!MakeMutDir(options.folder.c_str())) {
    tell_error1(301, L"建不成目录: %s", options.folder);
    return kBadInput;
  }
  const std::wstring base = options.folder + L"/" + examples::stem(options.input);
  const std::wstring r12 = base + L"_r12.dxf";
  const std::wstring ac1015 = base + L"_2000.dxf";
  if (!write_drawing(*drawing, r12, true) || !write_drawing(*drawing, ac1015, false)) {
    return kBadInput;
  }
  print(stdout, wformat(L"%s  %g×%g\n", input.name, input.width, input.height));
  for (const std::wstring& line : note_lines(input, design, MarkForm::kPlainText)) {
    print(stdout, L"  " + line + L"\n");
  }
  print(stdout, r12 + L"\n" + ac1015 + L"\n");
  return kDone;
}

}  // namespace
}  // namespace brindle::beam

int main(int argc, char** argv) {
  return brindle::examples::run_batch(argc, argv, brindle::beam::kUsage, brindle::beam::run);
}
