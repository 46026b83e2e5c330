// The project file of one beam section: what it holds and how it is read.
#pragma once

#include <string>

#include "examples/beam/concrete.h"
#include "examples/common/sheet_words.h"

namespace brindle::beam {

// One checked section. Lengths in mm, moment in kN.m, shear in kN: design values, none negative.
struct SectionInput {
  std::wstring name;
  double width = 0;
  double height = 0;
  double cover = 0;  // from the concrete face to the outer face of the stirrup
  Concrete concrete;
  const Steel* main_steel = nullptr;
  const Steel* stirrup_steel = nullptr;
  double moment = 0;
  double shear = 0;
  examples::SheetWords sheet;
};

// Reads the project file at `path` into `out` and returns true. Anything missing, out of its range
// or not a number is told as an error box (code 301) that names the file, the line, the field and
// what is allowed; every wrong field is told, the result is false and `out` is not to be used.
bool read_section_input(const wchar_t* path, SectionInput* out);

}  // namespace brindle::beam
