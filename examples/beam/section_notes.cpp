#include "examples/beam/section_notes.h"

#include "brindle/platform/base/format.h"

namespace brindle::beam {
namespace {

std::wstring materials_line(const SectionInput& input) {
  return wformat(L"混凝土 C%d，纵筋 %s，箍筋 %s，保护层厚 %g。", input.concrete.grade,
                 input.main_steel->name, input.stirrup_steel->name, input.cover);
}

std::wstring bottom_line(const SectionInput& input, const SectionDesign& design, MarkForm form) {
  return wformat(L"下部纵筋：需 %.0f mm2%s，实配 %s，%.0f mm2。", design.bending.tension,
                 design.bending.minimum_governs ? L"(最小配筋率)" : L"",
                 rows_mark(design.bottom, Face::kBottom, *input.main_steel, form),
                 design.bottom.area());
}

std::wstring top_line(const SectionInput& input, const SectionDesign& design, MarkForm form) {
  const std::wstring mark = rows_mark(design.top, Face::kTop, *input.main_steel, form);
  if (!design.top_is_compressed) return wformat(L"上部架立筋：%s。", mark);
  return wformat(L"上部受压筋：需 %.0f mm2，实配 %s，%.0f mm2。", design.bending.compression, mark,
                 design.top.area());
}

std::wstring stirrup_line(const SectionInput& input, const SectionDesign& design, MarkForm form) {
  const std::wstring mark = stirrup_mark(design.stirrups, *input.stirrup_steel, form);
  if (!design.shear.stirrups_computed) return wformat(L"箍筋：按构造配置，%s。", mark);
  return wformat(L"箍筋：Asv/s 需 %.3f，实配 %s，%.3f mm2/mm。", design.shear.area_per_length, mark,
                 design.stirrups.area_per_length());
}

std::wstring side_line(const SectionInput& input, const SectionDesign& design, MarkForm form) {
  const SideBars& side = design.side;
  return wformat(L"腰筋：每侧需 %.0f mm2，实配 %s，每侧 %.0f mm2，拉筋 %s。", side.required_area,
                 side_mark(side, *input.main_steel, form), side.area(),
                 stirrup_mark({side.tie_diameter, 2 * design.stirrups.spacing, 0},
                              *input.stirrup_steel, form));
}

}  // namespace

std::vector<std::wstring> note_lines(const SectionInput& input, const SectionDesign& design,
                                     MarkForm form) {
  std::vector<std::wstring> lines = {
      L"按 GB50010-2010 计算，尺寸单位为 mm。",
      materials_line(input),
      wformat(L"弯矩设计值 M=%g kN·m，剪力设计值 V=%g kN。", input.moment(), input.shear()),
      wformat(L"有效高度 h0=%.1f，受压区高度 x=%.1f。", design.effective_depth,
              design.bending.block_depth),
      bottom_line(input, design, form),
      top_line(input, design, form),
      stirrup_line(input, design, form),
  };
  if (design.side.per_side > 0) lines.push_back(side_line(input, design, form));
  for (size_t i = 0; i < lines.size(); ++i) {
    lines[i] = wformat(L"%d. %s", static_cast<int>(i + 1), lines[i]);
  }
  return lines;
}

}  // namespace brindle::beam
