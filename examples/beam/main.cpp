// beam: designs one reinforced-concrete beam section and draws it.
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "brindle/dxf/dxf.h"
#include "brindle/frame/utility/files.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/base/stream.h"
#include "examples/beam/bar_choice.h"
#include "examples/beam/section_drawing.h"
#include "examples/beam/section_input.h"
#include "examples/beam/section_notes.h"

namespace brindle::beam {
namespace {

enum ExitStatus { kDone = 0, kBadInput = 1, kBadUsage = 2 };

constexpr const wchar_t* kUsage =
    L"用法: beam --batch 数据文件 --out 目录\n"
    L"  按 GB50010-2010 设计矩形梁截面，在目录下写出 <数据文件名>_r12.dxf 和 "
    L"<数据文件名>_2000.dxf。\n"
    L"  返回值: 0 完成，1 数据有误或不能写出，2 用法有误。\n";

void print(std::FILE* stream, const std::wstring& text) {
  const std::string bytes = CodePage::find(65001)->encode(text);
  std::fwrite(bytes.data(), 1, bytes.size(), stream);
}

struct Options {
  std::wstring input;
  std::wstring folder;
  bool help = false;
};

bool read_options(int argc, char** argv, Options* out) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (word == "--help" || word == "-h") {
      out->help = true;
      return true;
    }
    std::wstring* value = word == "--batch" ? &out->input
                          : word == "--out" ? &out->folder
                                            : nullptr;
    if (!value || !value->empty() || i + 1 == argc) return false;
    *value = from_path(argv[++i]);
  }
  return !out->input.empty() && !out->folder.empty();
}

// File name without its folders and its last extension.
std::wstring stem(const std::wstring& path) {
  const size_t slash = path.find_last_of(L"/\\");
  std::wstring name = slash == std::wstring::npos ? path : path.substr(slash + 1);
  const size_t dot = name.find_last_of(L'.');
  if (dot != std::wstring::npos && dot > 0) name.resize(dot);
  return name;
}

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
  DXF drawing;
  if (!draw_section(input, design, drawing)) return kBadInput;
  if (!MakeMutDir(options.folder.c_str())) {
    tell_error1(301, L"建不成目录: %s", options.folder);
    return kBadInput;
  }
  const std::wstring base = options.folder + L"/" + stem(options.input);
  const std::wstring r12 = base + L"_r12.dxf";
  const std::wstring ac1015 = base + L"_2000.dxf";
  if (!write_drawing(drawing, r12, true) || !write_drawing(drawing, ac1015, false)) {
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
  using namespace brindle::beam;
  Options options;
  const bool usable = read_options(argc, argv, &options);
  if (!usable || options.help) {
    print(usable ? stdout : stderr, kUsage);
    return usable ? kDone : kBadUsage;
  }
  return run(options);
}
