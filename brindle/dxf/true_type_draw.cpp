#include "brindle/dxf/true_type_draw.h"

#include <cmath>
#include <numbers>
#include <string>
#include <string_view>

#include "brindle/dxf/acad_style.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/graphics/dc.h"

namespace brindle {

namespace {

constexpr const wchar_t* kStyleFaces[] = {L"宋体", L"黑体", L"楷体_GB2312", L"仿宋_GB2312"};

}  // namespace

const TrueTypeDraw::FaceFactors& TrueTypeDraw::factors(const wchar_t* face) const {
  const std::wstring_view name = face != nullptr ? face : L"";
  if (name.find(L"GB") != name.npos) return m_factorGB;
  if (name.find(L"黑体") != name.npos) return m_factorHei;
  return m_factorOther;
}

void TrueTypeDraw::DrawText(CDC* dc, double x, double y, double angle, double h, double widthFactor,
                            COLORREF color, const wchar_t* face, const wchar_t* text) {
  m_dX = x;
  m_dY = y;
  m_strFace = face;
  if (dc == nullptr || text == nullptr || *text == 0) return;

  const double turn = angle * std::numbers::pi / 180;
  const double cosine = std::cos(turn), sine = std::sin(turn);
  TransformedText run;
  run.face = m_strFace.view();
  run.em_size = h * factors(face).size;
  run.color = color;
  run.m11 = widthFactor * cosine;
  run.m12 = -widthFactor * sine;
  run.m21 = sine;
  run.m22 = cosine;
  // The factor along the text stands against the sixth of an em that a string's layout leaves free
  // in front of its first character; a run here starts at once.
  const double u = (run.em_size - h * m_dFactorX) / 6, v = -h * m_dFactorY;
  run.dx = x + run.m11 * u + run.m21 * v;
  run.dy = y + run.m12 * u + run.m22 * v;
  run.words = text;
  dc->DrawTransformedText(run);
}

double TrueTypeDraw::GetTextWidth(const wchar_t* text, double h, double widthFactor,
                                  const wchar_t* face) const {
  if (text == nullptr) return 0;
  static thread_local std::string bytes;
  bytes.clear();
  ansi_code_page().encode(text, bytes);
  const FaceFactors& factor = factors(face);
  return static_cast<double>(bytes.size()) * factor.size * h * widthFactor * factor.width / 2;
}

int IsTrueTypeStyle(const Varnholt::ACAD_STYLE* style, CString& face) {
  if (style != nullptr) {
    for (const wchar_t* name : kStyleFaces) {
      if (_wcsicmp(style->m_szFont.c_str(), name) == 0) {
        face = name;
        return 1;
      }
    }
  }
  if (G_ShapeFont.m_bTxtLoaded && G_ShapeFont.m_bHzLoaded) return 0;
  face = kStyleFaces[0];
  return 1;
}

}  // namespace brindle
