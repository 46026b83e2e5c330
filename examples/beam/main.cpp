// beam: designs one reinforced-concrete beam section and draws it; has a window for its input.
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brindle/dxf/shx_font.h"
#include "brindle/frame/utility/files.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/base/stream.h"
#include "brindle/platform/graphics/png_file.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/window_picture.h"
#include "examples/beam/bar_choice.h"
#include "examples/beam/section_drawing.h"
#include "examples/beam/section_input.h"
#include "examples/beam/section_notes.h"
#include "examples/beam/section_window.h"
#include "examples/beam/toolkit.h"
#include "examples/common/batch_program.h"
#include "examples/common/outline_fonts.h"

namespace brindle::beam {
namespace {

using examples::kBadInput;
using examples::kDone;
using examples::Options;
using examples::print;

constexpr const wchar_t* kUsage =
    L"用法: beam [数据文件]\n"
    L"  打开输入窗口；确认时写出数据文件。\n"
    L"      beam --batch 数据文件 --out 目录\n"
    L"  按 GB50010-2010 设计矩形梁截面，在目录下写出 <数据文件名>_r12.dxf 和 "
    L"<数据文件名>_2000.dxf。\n"
    L"      beam --picture 数据文件 --out 目录\n"
    L"  不用显示器，把输入窗口画成 <数据文件名>_window.png。\n"
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
  const std::vector<std::wstring> lacking = shortfalls(input, design);
  for (const std::wstring& fault : lacking) tell_error1(301, L"%s: %s", options.input, fault);
  if (!lacking.empty()) return kBadInput;
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
  for (const std::wstring& line : note_lines(input, design, MarkForm::kLetters)) {
    print(stdout, L"  " + line + L"\n");
  }
  print(stdout, r12 + L"\n" + ac1015 + L"\n");
  return kDone;
}

int draw_window(const Options& options) {
  SectionInput input;
  if (!read_section_input(options.input.c_str(), &input)) return kBadInput;
  examples::start_outline_fonts();
  SectionWindow window(&input, options.input);
  window.Create(0u);
  window.ShowWindow(SW_SHOW);
  dispatch_posted_messages();
  const std::wstring path = options.folder + L"/" + examples::stem(options.input) + L"_window.png";
  if (!MakeMutDir(options.folder.c_str()) || !write_png(path.c_str(), window_picture(window))) {
    tell_error1(301, L"写不成文件: %s", path);
    return kBadInput;
  }
  print(stdout, path + L"\n");
  return kDone;
}

std::wstring window_file;  // what the window opens; empty: a new section

int open_window() {
  SectionInput input;
  const bool is_new = window_file.empty();
  if (!is_new && !read_section_input(window_file.c_str(), &input)) return kBadInput;
  SectionWindow window(is_new ? nullptr : &input, window_file);
  window.DoModal();
  return kDone;
}

}  // namespace
}  // namespace brindle::beam

int main(int argc, char** argv) {
  using namespace brindle;
  LoadShx(find_asset(L"fonts/").c_str());
  const std::string_view first = argc > 1 ? argv[1] : "";
  if (first == "--picture") {
    static char batch[] = "--batch";
    argv[1] = batch;
    return examples::run_batch(argc, argv, beam::kUsage, beam::draw_window);
  }
  if (argc > 2 || first.starts_with("-")) {
    return examples::run_batch(argc, argv, beam::kUsage, beam::run);
  }
  if (argc == 2) beam::window_file = from_path(argv[1]);
  const int result = beam::run_with_windows(argc, argv, beam::open_window);
  return result < 0 ? examples::kBadUsage : result;
}
