#include "examples/beam/section_input.h"

#include "examples/common/project_file.h"

namespace brindle::beam {
namespace {

using examples::Fields;
using examples::ProjectFile;

constexpr size_t kLongestName = 30;
constexpr const wchar_t* kTag = L"BRINDLE-BEAM";

struct NumberField {
  examples::NumberRange range;
  double SectionInput::*place;
};

constexpr NumberField kSizes[] = {
    {{L"截面宽 b", 100, 2000, L"mm"}, &SectionInput::width},
    {{L"截面高 h", 150, 3000, L"mm"}, &SectionInput::height},
    {{L"保护层厚 c", 15, 75, L"mm"}, &SectionInput::cover},
};

constexpr NumberField kForces[] = {
    {{L"弯矩设计值 M", 0, 100000, L"kN·m"}, &SectionInput::moment},
    {{L"剪力设计值 V", 0, 100000, L"kN"}, &SectionInput::shear},
};

constexpr const wchar_t* kSteelNames = L"HPB300、HRB335、HRB400、HRB500";

template <size_t N>
bool read_numbers(ProjectFile& file, const wchar_t* what, const NumberField (&fields)[N],
                  SectionInput* out) {
  if (!file.next(what)) return false;
  const Fields line(file.line());
  bool good = true;
  for (size_t i = 0; i < N; ++i) {
    good &= examples::read_number(file, fields[i].range, line.text[i], &(out->*fields[i].place));
  }
  return line.only(file, N) && good;
}

bool read_concrete(const ProjectFile& file, const std::wstring& text, SectionInput* out) {
  const wchar_t* digits = text.c_str() + (text.starts_with(L'C') ? 1 : 0);
  const int grade = text.size() == 3 ? _wtoi(digits) : 0;
  if (digits != text.c_str() && grade >= 20 && find_concrete(grade, &out->concrete)) return true;
  file.complain(text.empty() ? L"缺少混凝土强度等级%s，应为 C20、C25、…、C80 之一"
                             : L"混凝土强度等级应为 C20、C25、…、C80 之一，现为“%s”",
                text);
  return false;
}

bool read_steel(const ProjectFile& file, const wchar_t* what, const std::wstring& text,
                const Steel** out) {
  *out = find_steel(text.c_str());
  if (*out) return true;
  if (text.empty()) {
    file.complain(L"缺少%s，应为 %s 之一", what, kSteelNames);
  } else {
    file.complain(L"%s 应为 %s 之一，现为“%s”", what, kSteelNames, text);
  }
  return false;
}

bool read_materials(ProjectFile& file, SectionInput* out) {
  if (!file.next(L"材料")) return false;
  const Fields line(file.line());
  bool good = read_concrete(file, line.text[0], out);
  good &= read_steel(file, L"纵筋牌号", line.text[1], &out->main_steel);
  good &= read_steel(file, L"箍筋牌号", line.text[2], &out->stirrup_steel);
  good &= line.only(file, 3);
  if (!good) return false;
  for (const Steel* steel : {out->main_steel, out->stirrup_steel}) {
    if (out->concrete.grade >= steel->lowest_concrete) continue;
    file.complain(L"采用 %s 钢筋时混凝土强度等级应不低于 C%d，现为 C%d", steel->name,
                  steel->lowest_concrete, out->concrete.grade);
    return false;
  }
  return true;
}

// The words of the title and countersign blocks: up to three lines, which may be missing.
bool read_sheet(ProjectFile& file, examples::SheetWords* out) {
  return examples::read_word_lines(file, {{&out->project, &out->number, &out->date, &out->axis},
                                          {&out->lead, &out->designer, &out->auditor, &out->manager,
                                           &out->checker, &out->approver},
                                          {&out->architect, &out->engineer, &out->services}});
}

}  // namespace

bool read_section_input(const wchar_t* path, SectionInput* out) {
  ProjectFile file(path);
  if (!file.is_open() || !examples::read_tag(file, kTag, L"梁截面")) return false;
  // A wrong line is told and the next one still read: one run names every fault.
  bool good = examples::read_name(file, L"构件名", kLongestName, &out->name);
  good &= read_numbers(file, L"截面尺寸", kSizes, out);
  good &= read_materials(file, out);
  good &= read_numbers(file, L"内力", kForces, out);
  return good && read_sheet(file, &out->sheet);
}

}  // namespace brindle::beam
