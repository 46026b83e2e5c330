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

// Looks for a definition from the stream's position on: `description` gets what stands behind the
// header's first comma, `pattern` the line that follows, without their line ends. False when the
// name isn't there or that line doesn't begin with "A,".
bool find_line_type(FILE* file, const wchar_t* name, bool ignore_case, std::wstring& description,
                    std::wstring& pattern);
// The numbers of an "A," line, split at commas and blanks.
std::vector<double> line_type_dashes(const std::wstring& pattern);

// The path that DXF::Add_LType was last given: symbol lines are drawn from it.
const CString& last_line_type_file();
// Sets that path for drawings whose line types come from elsewhere.
void remember_line_type_file(const wchar_t* file);

}  // namespace brindle
