#include "brindle/dxf/default_line_types.h"

#include "brindle/dxf/dxf.h"

namespace brindle {

void add_default_line_types(DXF& drawing) {
  const float dashed[] = {0.5f, -0.5f};
  const float dot[] = {0, -0.5f};
  const float dash_dot[] = {0.5f, -0.25f, 0, -0.25f};
  drawing.Add_LType(L"DASHED", L"- - - - -", 2, 1.0f, dashed, 1.0f);
  drawing.Add_LType(L"DOT", L".........", 2, 0.5f, dot, 1.0f);
  drawing.Add_LType(L"DASHDOT", L"- . - . - . - . -", 4, 1.0f, dash_dot, 1.0f);
}

}  // namespace brindle
