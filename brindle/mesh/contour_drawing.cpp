// Draws the contours of a field, with their labels.
#include <algorithm>

#include "brindle/dxf/acad_text.h"
#include "brindle/dxf/dxf_3d.h"
#include "brindle/geometry/helpers.h"
#include "brindle/mesh/chang.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"

namespace brindle {
namespace {

constexpr float kNoWidth = 1e-7f;
constexpr int kMostDecimals = 50;

float degrees(float x1, float y1, float x2, float y2) {
  return static_cast<float>(get_line_angle(x1, y1, x2, y2) * 180 / 3.141592653589793);
}

template <class Pen>
int set_colour(const CDWordArray& colours, int level, Pen* pen) {
  if (pen == nullptr) return 0;
  if (colours.IsEmpty()) {
    pen->SetCurColor(L"0");
  } else {
    const auto colour = static_cast<int>(colours[level % colours.GetSize()]);
    pen->SetCurColor(wformat(L"%d", colour).c_str());
  }
  return 1;
}

// The ends of each segment, point after point, go to `segment`; the one that carries the label of
// the line to `label` as well, after it.
template <class Segment, class Label>
void draw_lines(const CPtrArray& lines, Segment segment, Label label) {
  for (const void* const item : lines) {
    const auto& line = *static_cast<const CArray<CDengGaoDian, CDengGaoDian>*>(item);
    const CDengGaoDian* const points = line.GetData();
    const INT_PTR count = line.GetSize();
    for (INT_PTR i = 0; i + 1 < count; ++i) {
      segment(points[i], points[i + 1]);
      if (i == count / 2) label(points[i], points[i + 1]);
    }
  }
}

// A label is drawn in its colour and covers what lies below it.
template <class Pen, class Draw>
void draw_label(Pen* pen, int colour, Draw draw) {
  pen->Push_ENV();
  pen->SetCurColor(colour);
  if (Varnholt::ACAD_TEXT* const text = draw()) text->m_bOpaque = 1;
  pen->Pop_ENV();
}

}  // namespace

std::wstring CChang::label_text() const {
  const int decimals = std::clamp(m_nLabelDecimals, 0, kMostDecimals);
  return wformat(wformat(L"%%.%df", decimals).c_str(), m_fCurValue);
}

int CChang::SetCurColor(int level, CBase_SGT* pen) {
  return set_colour(m_arrayColor, level, pen);
}

int CChang::SetCurColor3D(int level, CDXF_3D* drawing) {
  return set_colour(m_arrayColor, level, drawing);
}

int CChang::DrawDengGaoXian(CBase_SGT* pen, float dx, float dy, float scale, float width) {
  if (pen == nullptr) return 0;
  const std::wstring text = label_text();
  const auto x = [&](const CDengGaoDian& p) { return p.x * scale + dx; };
  const auto y = [&](const CDengGaoDian& p) { return p.y * scale + dy; };
  draw_lines(
      m_arrayDGX,
      [&](const CDengGaoDian& p, const CDengGaoDian& q) {
        pen->MoveTo(x(p), y(p));
        if (width < kNoWidth) {
          pen->LineTo(x(q), y(q));
        } else {
          pen->PlineTo(x(q), y(q), width, width);
        }
      },
      [&](const CDengGaoDian& p, const CDengGaoDian& q) {
        if (m_bLabel == 0) return;
        draw_label(pen, m_nLabelColor, [&] {
          return pen->Draw_Text(x(p), y(p), m_fLabelHeight * scale, degrees(x(p), y(p), x(q), y(q)),
                                text.c_str());
        });
      });
  return 1;
}

int CChang::DrawDengGaoXian3D(CDXF_3D* drawing, float dx, float dy, float dz, float scale,
                              float width) {
  if (drawing == nullptr) return 0;
  const std::wstring text = label_text();
  const auto x = [&](const CDengGaoDian& p) { return p.x * scale + dx; };
  const auto y = [&](const CDengGaoDian& p) { return p.y * scale + dy; };
  const auto z = [&](const CDengGaoDian& p) { return p.z * scale + dz; };
  draw_lines(
      m_arrayDGX,
      [&](const CDengGaoDian& p, const CDengGaoDian& q) {
        drawing->MoveTo(x(p), y(p), z(p));
        if (width < kNoWidth) {
          drawing->LineTo(x(q), y(q), z(q));
        } else {
          drawing->PlineTo(x(q), y(q), z(q), width, width);
        }
      },
      [&](const CDengGaoDian& p, const CDengGaoDian& q) {
        if (m_bLabel == 0) return;
        draw_label(drawing, m_nLabelColor, [&] {
          return drawing->Draw_Text(x(p), y(p), z(p), m_fLabelHeight * scale,
                                    degrees(x(p), y(p), x(q), y(q)), text.c_str());
        });
      });
  return 1;
}

}  // namespace brindle
