// Widths of texts in a drawing's styles.
#include <algorithm>
#include <cmath>
#include <string_view>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/global_object_manager.h"
#include "brindle/dxf/shx_font.h"

namespace brindle {

using namespace Varnholt;

double DXF::GetTextWidth(const wchar_t* text, double height, double widthFactor,
                         const wchar_t* styleName) {
  if (text == nullptr) return 0;
  const double factor = std::fabs(widthFactor);
  const ACAD_STYLE* style = styleName != nullptr ? find_style(styleName) : nullptr;
  CString face;
  if (IsTrueTypeStyle(style, face)) {
    return GetObjectManager()->GetTTDraw()->GetTextWidth(text, height, factor, face);
  }
  // The low byte decides, whatever the high one: meant so.
  const std::wstring_view words = text;
  const bool wide =
      std::any_of(words.begin(), words.end(), [](wchar_t c) { return (c & 0xFF) > 0xA0; });
  const auto h = static_cast<float>(height), w = static_cast<float>(factor);
  return wide ? G_ShapeFont.GetHzWidth(text, h, w) : G_ShapeFont.GetTxtWidth(text, h, w);
}

}  // namespace brindle
