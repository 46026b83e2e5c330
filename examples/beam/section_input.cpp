#include "examples/beam/section_input.h"

#include <algorithm>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/save_file.h"
#include "examples/common/project_file.h"

namespace brindle::beam {
namespace {

using examples::Fields;
using examples::ProjectFile;
using examples::read_number;

constexpr const wchar_t* kTag = L"BRINDLE-BEAM";
constexpr int kNewestForm = 2;
constexpr const wchar_t* kProgramChooses = L"-";
constexpr const wchar_t* kSteelNames = L"HPB300、HRB335、HRB400、HRB500";

struct NumberField {
  const examples::NumberRange& range;
  double SectionInput::*place;
};

constexpr examples::NumberRange kCaseCountRange{L"工况数", 1, kMostCases, L"个"};

constexpr NumberField kSizes[] = {
    {kWidthRange, &SectionInput::width},
    {kHeightRange, &SectionInput::height},
    {kCoverRange, &SectionInput::cover},
};

bool read_sizes(ProjectFile& file, SectionInput* out) {
  if (!file.next(L"截面尺寸")) return false;
  const Fields line(file.line());
  bool good = true;
  int place = 0;
  for (const NumberField& field : kSizes) {
    good &= read_number(file, field.range, line.text[place++], &(out->*field.place));
  }
  return line.only(file, place) && good;
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
  const std::wstring fault = good ? materials_fault(*out) : L"";
  if (!fault.empty()) file.complain(fault.c_str());
  return good && fault.empty();
}

bool read_forces(const ProjectFile& file, const Fields& line, LoadCase* out) {
  const bool good = read_number(file, kMomentRange, line.text[0], &out->moment);
  return read_number(file, kShearRange, line.text[1], &out->shear) && good;
}

// The first form: moment and shear of the only case.
bool read_one_case(ProjectFile& file, SectionInput* out) {
  if (!file.next(L"内力")) return false;
  const Fields line(file.line());
  const bool good = read_forces(file, line, &out->cases.emplace_back());
  return line.only(file, 2) && good;
}

// What stands behind the second field, blanks and commas included.
std::wstring behind_two_fields(const std::wstring& line) {
  std::size_t at = 0;
  for (int field = 0; field < 2 && at < line.size(); ++field) {
    at = line.find_first_of(L", \t", at);
    if (at != std::wstring::npos) at = line.find_first_not_of(L" \t", at + 1);
  }
  return at < line.size() ? line.substr(at) : std::wstring();
}

// The number of cases, then a line each: moment, shear, name.
bool read_cases(ProjectFile& file, SectionInput* out) {
  if (!file.next(L"工况数")) return false;
  double count = 0;
  if (!read_number(file, kCaseCountRange, file.line(), &count)) return false;
  bool good = true;
  for (int i = 0; i < static_cast<int>(count); ++i) {
    if (!file.next(L"工况")) return false;
    LoadCase& load = out->cases.emplace_back();
    good &= read_forces(file, Fields(file.line()), &load);
    load.name = behind_two_fields(file.line());
    if (load.name.size() <= kLongestName) continue;
    file.complain(L"工况名应不超过 %d 字", static_cast<int>(kLongestName));
    good = false;
  }
  return good;
}

const Steel& steel_at(const SectionInput& input, BarPlace place) {
  return place == BarPlace::kStirrup ? *input.stirrup_steel : *input.main_steel;
}

// A line for each place: the mark of the chosen bars, or "-".
bool read_chosen(ProjectFile& file, bool materials_known, SectionInput* out) {
  bool good = true;
  for (const BarPlace place : kBarPlaces) {
    if (!file.next(place_name(place))) return false;
    if (file.line() == kProgramChooses || !materials_known) continue;
    const Steel& steel = steel_at(*out, place);
    if (read_mark(file.line(), place, steel, &out->chosen)) continue;
    file.complain(L"%s应形如“%s”，牌号与材料一致(%s)，由程序选时为“%s”，现为“%s”",
                  place_name(place), place_example(place), steel.name, kProgramChooses,
                  file.line());
    good = false;
  }
  return good;
}

// The words of the title and countersign blocks by their lines.
std::vector<std::vector<std::wstring*>> word_lines(examples::SheetWords* words) {
  return {{&words->project, &words->number, &words->date, &words->axis},
          {&words->lead, &words->designer, &words->auditor, &words->manager, &words->checker,
           &words->approver},
          {&words->architect, &words->engineer, &words->services}};
}

bool told(const wchar_t* path, const std::wstring& fault) {
  if (!fault.empty()) tell_error1(301, L"%s: %s", path, fault);
  return !fault.empty();
}

// Why a text can't stand in the file as it is; empty when it can.
std::wstring text_fault(const wchar_t* what, const std::wstring& text) {
  if (text.size() > kLongestName) {
    return wformat(L"%s应不超过 %d 字。", what, static_cast<int>(kLongestName));
  }
  if (text.find_first_of(L"\r\n") != std::wstring::npos) return wformat(L"%s应为一行。", what);
  const CodePage& page = ansi_code_page();
  if (page.decode(page.encode(text)) != text) {
    return wformat(L"%s“%s”中有文件的编码写不出的字。", what, text);
  }
  return {};
}

std::wstring name_fault(const std::wstring& name) {
  if (name.empty()) return L"缺少构件名。";
  if (name.starts_with(L"##") || name.starts_with(L"//")) {
    return L"构件名不能以 ## 或 // 开头，那是注释。";
  }
  return text_fault(L"构件名", name);
}

std::wstring words_fault(examples::SheetWords words) {
  for (const auto& line : word_lines(&words)) {
    for (const std::wstring* word : line) {
      const std::wstring fault = text_fault(L"图签", *word);
      if (!fault.empty()) return fault;
      if (word->find_first_of(L", \t") != std::wstring::npos || word->starts_with(L"##") ||
          word->starts_with(L"//")) {
        return wformat(L"图签“%s”中不能有逗号、空格，也不能以 ## 或 // 开头。", *word);
      }
    }
  }
  return {};
}

std::wstring input_fault(const SectionInput& input) {
  std::wstring fault = name_fault(input.name);
  for (std::size_t i = 0; fault.empty() && i < input.cases.size(); ++i) {
    fault = text_fault(L"工况名", input.cases[i].name);
  }
  // A file of materials that don't go together couldn't be opened again.
  if (fault.empty() && !materials_fault(input).empty()) fault = materials_fault(input) + L"。";
  return fault.empty() ? words_fault(input.sheet) : fault;
}

std::wstring sheet_lines(examples::SheetWords words) {
  std::wstring text;
  for (const auto& line : word_lines(&words)) {
    for (const std::wstring* word : line) text += (word == line.front() ? L"" : L",") + *word;
    text += L"\n";
  }
  return text;
}

std::wstring file_text(const SectionInput& input) {
  std::wstring text = wformat(L"%s %d\n%s\n", kTag, kNewestForm, input.name);
  text += wformat(L"## b h c (mm)\n%.15g %.15g %.15g\n", input.width, input.height, input.cover);
  text += wformat(L"## 混凝土 纵筋 箍筋\nC%d %s %s\n", input.concrete.grade, input.main_steel->name,
                  input.stirrup_steel->name);
  text += wformat(L"## 工况数；每个工况 M (kN·m)  V (kN)  名称\n%d\n",
                  static_cast<int>(input.cases.size()));
  for (const LoadCase& load : input.cases) {
    text += wformat(L"%.15g %.15g %s\n", load.moment, load.shear, load.name);
  }
  text += L"## 下部纵筋、上部纵筋、箍筋、腰筋，“-”由程序选\n";
  for (const BarPlace place : kBarPlaces) {
    const std::wstring mark = chosen_mark(input.chosen, place, steel_at(input, place));
    text += (mark.empty() ? kProgramChooses : mark) + L"\n";
  }
  return text + L"## 图签\n" + sheet_lines(input.sheet);
}

}  // namespace

double SectionInput::moment() const {
  double largest = 0;
  for (const LoadCase& load : cases) largest = std::max(largest, load.moment);
  return largest;
}

double SectionInput::shear() const {
  double largest = 0;
  for (const LoadCase& load : cases) largest = std::max(largest, load.shear);
  return largest;
}

std::wstring materials_fault(const SectionInput& input) {
  for (const Steel* steel : {input.main_steel, input.stirrup_steel}) {
    if (input.concrete.grade >= steel->lowest_concrete) continue;
    return wformat(L"采用 %s 钢筋时混凝土强度等级应不低于 C%d，现为 C%d", steel->name,
                   steel->lowest_concrete, input.concrete.grade);
  }
  return {};
}

bool read_section_input(const wchar_t* path, SectionInput* out) {
  ProjectFile file(path);
  const int form = file.is_open() ? examples::read_tag(file, kTag, L"梁截面", kNewestForm) : 0;
  if (form == 0) return false;
  *out = {};
  // A wrong line is told and the next one still read: one run names every fault.
  bool good = examples::read_name(file, L"构件名", kLongestName, &out->name);
  good &= read_sizes(file, out);
  const bool materials_known = read_materials(file, out);
  good &= materials_known;
  if (form == 1) {
    good &= read_one_case(file, out);
  } else {
    good &= read_cases(file, out) && read_chosen(file, materials_known, out);
  }
  return good && examples::read_word_lines(file, word_lines(&out->sheet));
}

bool write_section_input(const wchar_t* path, const SectionInput& input) {
  if (told(path, input_fault(input))) return false;
  SaveFile file(path);
  if (file.stream() != nullptr) brindle::fputws(file_text(input).c_str(), file.stream());
  if (file.stream() != nullptr && file.commit()) return true;
  return !told(path, L"写不成文件。");
}

}  // namespace brindle::beam
