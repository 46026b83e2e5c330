// The input window's variables, to which the grids' cells are bound, and what follows from them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "brindle/platform/base/string.h"
#include "examples/beam/bar_choice.h"
#include "examples/beam/section_input.h"

namespace brindle::beam {

// A load case, and the steel that it asks for.
struct CaseRow {
  CString name;
  double moment = 0;
  double shear = 0;
  CString tension{};   // mm2; empty when nothing can be said
  CString stirrups{};  // Asv/s, mm2/mm
  bool governs_bending = false, governs_shear = false;
};

// The bars of a place.
struct BarRow {
  int chosen = 0;  // 0: by the program, 1: by the engineer
  CString mark;
  CString needed, provided;
  bool enough = true;
};

class SectionForm {
 public:
  SectionForm();
  explicit SectionForm(const SectionInput& input);

  // The section as typed. Marks that can't be read are left to the program.
  SectionInput input() const;
  // Designs the section anew and fills in all that follows from it.
  void calculate();
  // Whether the last calculation found a design that is enough.
  bool is_good() const { return designed_ && faults_.empty(); }
  // Null when there is none.
  const SectionDesign* design() const { return designed_ ? &design_ : nullptr; }
  // One line for the user: what is wrong, or that the section is all right.
  std::wstring verdict() const;
  // What is wrong with marks that were typed; empty if nothing is.
  std::wstring marks_fault() const;

  // The index is the row's place in the grid less one.
  void add_case(size_t index, const CaseRow& row = {});
  // False for the last one, which stays.
  bool remove_case(size_t index);

  // The grade of the bars at a place, BarGrade.
  int grade(BarPlace place) const;
  // A text typed with another grade changes the material; all marks of that steel follow.
  void take_grade(BarPlace place);

  CString name = L"L-1";
  double width = 250, height = 600, cover = 25;
  int concrete = 30;                            // grade
  int main_steel = 2, stirrup_steel = 0;        // indices into kSteelNames
  std::vector<std::unique_ptr<CaseRow>> cases;  // each keeps its address
  BarRow bars[4];                               // by BarPlace
  examples::SheetWords sheet;
  std::wstring remark;  // on the last text typed; empty when it was taken as it stands

 private:
  const Steel& steel(BarPlace place) const;
  void fill_bars(const SectionInput& input);
  void fill_cases(const SectionInput& input);

  SectionDesign design_;
  bool designed_ = false;
  std::vector<std::wstring> faults_;
};

// The choices of the material cells.
inline constexpr const wchar_t* kSteelNames[] = {L"HPB300", L"HRB335", L"HRB400", L"HRB500"};
inline constexpr int kConcreteGrades[] = {20, 25, 30, 35, 40, 45, 50, 55, 60, 65, 70, 75, 80};

}  // namespace brindle::beam
