// The line types that every drawing with a pen starts with.
#pragma once

namespace brindle {

class DXF;

// Adds "DASHED", "DOT" and "DASHDOT", those of them that the drawing doesn't have.
void add_default_line_types(DXF& drawing);

}  // namespace brindle
