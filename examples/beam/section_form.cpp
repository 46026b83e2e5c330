#include "examples/beam/section_form.h"

#include <algorithm>

#include "brindle/platform/base/format.h"
#include "examples/beam/rebar_text.h"

namespace brindle::beam {
namespace {

int steel_index(const Steel& steel) {
  for (int i = 0; i < 4; ++i) {
    if (find_steel(kSteelNames[i]) == &steel) return i;
  }
  return 0;
}

BarPlace place_of(size_t index) {
  return kBarPlaces[index];
}

CString area(double value) {
  return CString(wformat(L"%.0f", value));
}

CString ratio(double value) {
  return CString(wformat(L"%.3f", value));
}

// Where a mark has the letter of its grade.
size_t grade_letter(const std::wstring& mark) {
  return mark.find_first_of(L"ABCD");
}

// The mark in another grade, or as it is when such bars aren't made.
CString with_grade(const CString& mark, BarPlace place, int grade) {
  std::wstring text(mark);
  const size_t letter = grade_letter(text);
  if (letter == std::wstring::npos) return mark;
  text[letter] = static_cast<wchar_t>(L'A' + grade - 1);
  RebarText bars;
  bars.m_nGangJinType = bar_family(place);
  CString changed(text);
  return bars.FromString_KnowReinID(changed) > 0 ? changed : mark;
}

}  // namespace

SectionForm::SectionForm() {
  cases.push_back(std::make_unique<CaseRow>());
  *cases.back() = {L"基本组合", 180, 150};
  calculate();
}

SectionForm::SectionForm(const SectionInput& input)
    : name(input.name),
      width(input.width),
      height(input.height),
      cover(input.cover),
      concrete(input.concrete.grade),
      main_steel(steel_index(*input.main_steel)),
      stirrup_steel(steel_index(*input.stirrup_steel)),
      sheet(input.sheet) {
  for (const LoadCase& load : input.cases) {
    cases.push_back(std::make_unique<CaseRow>());
    *cases.back() = {CString(load.name), load.moment, load.shear};
  }
  for (size_t i = 0; i < 4; ++i) {
    bars[i].mark = CString(chosen_mark(input.chosen, place_of(i), steel(place_of(i))));
    bars[i].chosen = !bars[i].mark.IsEmpty();
  }
  calculate();
}

const Steel& SectionForm::steel(BarPlace place) const {
  return *find_steel(kSteelNames[place == BarPlace::kStirrup ? stirrup_steel : main_steel]);
}

int SectionForm::grade(BarPlace place) const {
  return 1 + (place == BarPlace::kStirrup ? stirrup_steel : main_steel);
}

void SectionForm::take_grade(BarPlace place) {
  const std::wstring text(bars[static_cast<int>(place)].mark);
  const size_t letter = grade_letter(text);
  if (letter == std::wstring::npos) return;
  const int typed = text[letter] - L'A';
  (place == BarPlace::kStirrup ? stirrup_steel : main_steel) = typed;
}

SectionInput SectionForm::input() const {
  SectionInput input;
  input.name = std::wstring(name);
  input.width = width;
  input.height = height;
  input.cover = cover;
  find_concrete(concrete, &input.concrete);
  input.main_steel = find_steel(kSteelNames[main_steel]);
  input.stirrup_steel = find_steel(kSteelNames[stirrup_steel]);
  for (const auto& row : cases) {
    input.cases.push_back({std::wstring(row->name), row->moment, row->shear});
  }
  for (size_t i = 0; i < 4; ++i) {
    if (!bars[i].chosen) continue;
    const BarPlace place = place_of(i);
    read_mark(std::wstring(bars[i].mark), place, steel(place), &input.chosen);
  }
  input.sheet = sheet;
  return input;
}

void SectionForm::calculate() {
  // A change of a material changes the marks that name it.
  for (const BarPlace place : kBarPlaces) {
    CString& mark = bars[static_cast<int>(place)].mark;
    mark = with_grade(mark, place, grade(place));
  }
  const SectionInput section = input();
  const DesignStatus status = design_section(section, &design_);
  designed_ = status == DesignStatus::kOk;
  faults_.clear();
  if (designed_) {
    faults_ = shortfalls(section, design_);
  } else {
    faults_.push_back(status_text(status));
  }
  if (const std::wstring fault = marks_fault(); !fault.empty()) faults_.push_back(fault);
  fill_bars(section);
  fill_cases(section);
}

std::wstring SectionForm::marks_fault() const {
  std::wstring text;
  for (const BarPlace place : kBarPlaces) {
    const BarRow& row = bars[static_cast<int>(place)];
    ChosenBars read;
    if (!row.chosen || read_mark(std::wstring(row.mark), place, steel(place), &read)) continue;
    text += wformat(L"指定的%s“%s”不是 %s 的配筋%s。", place_name(place), row.mark,
                    steel(place).name, place == BarPlace::kStirrup ? L"(肢数须为双数)" : L"");
  }
  return text;
}

void SectionForm::fill_bars(const SectionInput& input) {
  for (BarRow& row : bars) {
    row.needed = row.provided = CString();
    row.enough = designed_;
    if (!row.chosen) row.mark = CString();
  }
  if (!designed_) return;
  const auto fill = [this](BarPlace place, const std::wstring& mark, double needs, double has,
                           CString (*text)(double)) {
    BarRow& row = bars[static_cast<int>(place)];
    if (!row.chosen) row.mark = CString(mark);
    row.needed = text(needs);
    row.provided = text(has);
    row.enough = has >= needs * (1 - 1e-9);
  };
  constexpr MarkForm kForm = MarkForm::kLetters;
  const Steel& main = *input.main_steel;
  const SectionDesign& d = design_;
  fill(BarPlace::kBottom, rows_mark(d.bottom, Face::kBottom, main, kForm), d.bending.tension,
       d.bottom.area(), area);
  fill(BarPlace::kTop, rows_mark(d.top, Face::kTop, main, kForm),
       d.top_is_compressed ? d.bending.compression : 0, d.top.area(), area);
  fill(BarPlace::kStirrup, stirrup_mark(d.stirrups, *input.stirrup_steel, kForm),
       d.shear.area_per_length, d.stirrups.area_per_length(), ratio);
  fill(BarPlace::kSide, side_mark(d.side, main, kForm), 2 * d.side.required_area, 2 * d.side.area(),
       area);
}

void SectionForm::fill_cases(const SectionInput& input) {
  for (size_t i = 0; i < cases.size(); ++i) {
    CaseRow& row = *cases[i];
    row.governs_bending = row.moment > 0 && row.moment == input.moment();
    row.governs_shear = row.shear > 0 && row.shear == input.shear();
    row.tension = row.stirrups = CString();
    if (!designed_) continue;
    const CaseDemand demand = case_demand(input, design_, input.cases[i]);
    row.tension = demand.bending.possible ? area(demand.bending.tension) : CString(L"超限");
    row.stirrups = demand.shear.possible ? ratio(demand.shear.area_per_length) : CString(L"超限");
  }
}

std::wstring SectionForm::verdict() const {
  if (faults_.empty()) return L"满足要求。";
  std::wstring text;
  for (const std::wstring& fault : faults_) text += fault;
  return text;
}

void SectionForm::add_case(size_t index, const CaseRow& row) {
  if (cases.size() >= kMostCases) return;
  const auto place = cases.begin() + static_cast<ptrdiff_t>(std::min(index, cases.size()));
  cases.insert(place, std::make_unique<CaseRow>(row));
}

bool SectionForm::remove_case(size_t index) {
  if (cases.size() <= 1 || index >= cases.size()) return false;
  cases.erase(cases.begin() + static_cast<ptrdiff_t>(index));
  return true;
}

}  // namespace brindle::beam
