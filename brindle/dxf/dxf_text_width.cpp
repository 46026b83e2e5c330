// Widths of texts in a drawing's styles.
#include <cmath>
#include <string>
#include <string_view>

#include "brindle/dxf/dxf.h"
#include "brindle/platform/base/code_page.h"

namespace brindle {

using namespace Varnholt;

namespace {

// Size and width of a face's characters against the nominal text height; one byte of the text in
// the ANSI code page counts half an em.
struct FaceFactors {
  double size, width;
};

FaceFactors factors_of(std::wstring_view face) {
  if (face.find(L"GB") != std::wstring_view::npos) return {1.34, 1.026};
  if (face.find(L"黑体") != std::wstring_view::npos) return {1.42, 1.015};
  return {1.4, 1.015};
}

}  // namespace

// No stroke font is loaded here, and a style without its font is shown in a TrueType face.
double DXF::GetTextWidth(const wchar_t* text, double height, double widthFactor,
                         const wchar_t* styleName) {
  if (text == nullptr) return 0;
  const ACAD_STYLE* style = find_style(styleName);
  const FaceFactors face = factors_of(style != nullptr ? style->m_szFont.view() : L"");
  const double bytes = static_cast<double>(ansi_code_page().encode(text).size());
  return bytes * face.size * height * std::fabs(widthFactor) * face.width / 2;
}

}  // namespace brindle
