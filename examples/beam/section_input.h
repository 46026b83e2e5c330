// The project file of one beam section: what it holds, how it is read and written.
#pragma once

#include <string>
#include <vector>

#include "examples/beam/bar_marks.h"
#include "examples/beam/concrete.h"
#include "examples/common/number_range.h"
#include "examples/common/sheet_words.h"

namespace brindle::beam {

// Design values, none negative: moment in kN.m with tension at the bottom, shear in kN.
struct LoadCase {
  std::wstring name;
  double moment = 0;
  double shear = 0;
};

// One checked section. Lengths in mm.
struct SectionInput {
  std::wstring name;
  double width = 0;
  double height = 0;
  double cover = 0;  // from the concrete face to the outer face of the stirrup
  Concrete concrete;
  const Steel* main_steel = nullptr;
  const Steel* stirrup_steel = nullptr;
  std::vector<LoadCase> cases;  // one at least
  ChosenBars chosen;
  examples::SheetWords sheet;

  // The largest of all cases, each for itself.
  double moment() const;
  double shear() const;
};

inline constexpr std::size_t kMostCases = 100;
inline constexpr std::size_t kLongestName =
    30;  // of the section, a case, and each word of the sheet

// What the fields allow, in the file and in the input window.
inline constexpr examples::NumberRange kWidthRange{L"截面宽 b", 100, 2000, L"mm"};
inline constexpr examples::NumberRange kHeightRange{L"截面高 h", 150, 3000, L"mm"};
inline constexpr examples::NumberRange kCoverRange{L"保护层厚 c", 15, 75, L"mm"};
inline constexpr examples::NumberRange kMomentRange{L"弯矩设计值 M", 0, 100000, L"kN·m"};
inline constexpr examples::NumberRange kShearRange{L"剪力设计值 V", 0, 100000, L"kN"};

// What forbids these materials together (4.1.2); empty when nothing does.
std::wstring materials_fault(const SectionInput& input);

// Reads the project file at `path` into `out` and returns true. Anything missing, out of its range
// or not a number is told as an error box (code 301) that names the file, the line, the field and
// what is allowed; every wrong field is told, the result is false and `out` is not to be used.
bool read_section_input(const wchar_t* path, SectionInput* out);

// Writes the project file in the newest form. What the form can't hold, such as a comma in a word
// or a character that the code page lacks, and a file that can't be written, are told (code 301):
// the result is false then and the file at `path` as it was.
bool write_section_input(const wchar_t* path, const SectionInput& input);

}  // namespace brindle::beam
