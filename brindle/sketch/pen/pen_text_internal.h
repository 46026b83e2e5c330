// The two ways of telling how long a text is.
#pragma once

#include <cwchar>

#include "brindle/dxf/shx_font.h"

namespace brindle {

// The estimate by which rebar marks and titles are placed: as wide as high, each character. 0 for
// no text.
inline float text_length(const wchar_t* text, float height) {
  return text != nullptr ? static_cast<float>(std::wcslen(text)) * height : 0;
}

// The width in the fonts of the process at width factor 0.75. 0 for no text.
inline float measured_width(const wchar_t* text, float height) {
  return text != nullptr ? G_ShapeFont.GetTxtWidth(text, height, 0.75f) : 0;
}

}  // namespace brindle
