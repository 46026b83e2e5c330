// A section given in one line of a test's table.
#pragma once

#include <gtest/gtest.h>

#include <ostream>

#include "examples/beam/section_input.h"

namespace brindle::beam {

struct SectionCase {
  const char* name;
  double width, height, cover;
  int grade;
  const wchar_t* main;
  const wchar_t* stirrup;
  double moment, shear;

  SectionInput input() const {
    SectionInput filled;
    filled.name = L"KL-9(框架梁)";
    filled.width = width;
    filled.height = height;
    filled.cover = cover;
    filled.main_steel = find_steel(main);
    filled.stirrup_steel = find_steel(stirrup);
    filled.cases = {{L"", moment, shear}};
    EXPECT_TRUE(find_concrete(grade, &filled.concrete));
    return filled;
  }
};

inline void PrintTo(const SectionCase& c, std::ostream* out) {
  *out << c.name;
}

}  // namespace brindle::beam
