// plate: deflection and moments of a flat slab panel under uniform load, as field and drawings.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "brindle/dxf/shx_font.h"
#include "brindle/frame/utility/files.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/stream.h"
#include "examples/common/batch_program.h"
#include "examples/common/outline_fonts.h"
#include "examples/plate/plate_drawing.h"

namespace brindle::plate {
namespace {

constexpr const wchar_t* kUsage =
    L"用法: plate --batch 数据文件 --out 目录\n"
    L"  求解均布荷载下的楼板，在目录下写出 <数据文件名>.chg、等值线图 _w、_mx、_my (.dxf)、\n"
    L"  云图 _plot_w、_plot_mx、_plot_my (.png) 和 A-A 线的位移曲线与弯矩图 _line.dxf。\n"
    L"  返回值: 0 完成，1 数据有误或不能写出，2 用法有误。\n";

bool keep(bool written, const std::wstring& path) {
  if (written) {
    examples::print(stdout, path + L"\n");
  } else {
    tell_error1(301, L"写不成文件: %s", path);
  }
  return written;
}

bool write_drawing(CBase_SGT* drawing, const std::wstring& path) {
  return keep(drawing != nullptr && drawing->Write_MemDxf_To_File(path.c_str(), 0) != 0, path);
}

int run(const examples::Options& options) {
  PlateInput plate;
  PlateMesh mesh;
  if (!read_plate_input(options.input.c_str(), &plate) || !make_plate_mesh(plate, &mesh)) {
    return examples::kBadInput;
  }
  const std::vector<NodeResult> results = solve_plate(plate, mesh);
  if (results.empty()) return examples::kBadInput;
  if (!MakeMutDir(options.folder.c_str())) {
    tell_error1(301, L"建不成目录: %s", options.folder);
    return examples::kBadInput;
  }
  LoadShx(find_asset(L"fonts/").c_str());
  CChang field;
  fill_field(mesh, results, &field);
  examples::print(
      stdout, wformat(L"%s  节点 %d，三角形 %d\n", plate.name, static_cast<int>(mesh.nodes.size()),
                      static_cast<int>(mesh.triangles.size())));
  const std::wstring base = options.folder + L"/" + examples::stem(options.input);
  bool good = keep(field.SaveData((base + L".chg").c_str()) != 0, base + L".chg");
  for (const Component& component : kComponents) {
    if (component.slot == 3) continue;
    good &= write_drawing(draw_contours(plate, field, component).get(),
                          base + L"_" + component.key + L".dxf");
    const std::wstring plot = base + L"_plot_" + component.key + L".png";
    good &= keep(plot_colours(plate, field, component, plot.c_str()), plot);
  }
  good &= write_drawing(draw_line(plate, field).get(), base + L"_line.dxf");
  return good ? examples::kDone : examples::kBadInput;
}

}  // namespace
}  // namespace brindle::plate

int main(int argc, char** argv) {
  using namespace brindle;
  examples::start_outline_fonts();  // the legends' texts stand in one
  return examples::run_batch(argc, argv, plate::kUsage, plate::run);
}
