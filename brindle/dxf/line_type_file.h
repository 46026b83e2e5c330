// Line type files: text files of named dash patterns.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "brindle/platform/base/string.h"

namespace brindle {

struct LineTypeDefinition {
  std::wstring description;
  std::vector<double> dashes;  // drawing units: positive a dash, negative a gap, 0 a dot
};

// Looks for the definition of a name, compared exactly, from the stream's position on. False when
// it isn't there or has no "A," line behind its header.
bool read_line_type(FILE* file, const wchar_t* name, LineTypeDefinition& definition);

// The path that DXF::Add_LType was last given: symbol lines are drawn from it.
const CString& last_line_type_file();

}  // namespace brindle
