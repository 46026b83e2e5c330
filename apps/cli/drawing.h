// Loading a drawing file for a command.
#pragma once

#include <string>

#include "brindle/dxf/dxf.h"

namespace brindle::cli {

// Reads the file, DXF or a binary drawing, into the drawing. On failure complains, beside what the
// library told, and gives false.
bool load_drawing(const std::wstring& path, DXF& drawing);

// Whether the file has the mark of the binary form.
bool is_binary_drawing(const std::wstring& path);

}  // namespace brindle::cli
