// Dimensions as entities in a named style, and the blocks for the ends of their lines.
#include <cmath>
#include <cwchar>
#include <memory>

#include "brindle/frame/utility/tell_error.h"
#include "brindle/geometry/helpers.h"
#include "brindle/platform/base/convert.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_dimension_parts_internal.h"
#include "brindle/sketch/pen/pen_placing_internal.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr int kBadName = 301;

// The dimension of two pen points whose line goes through a third one. `style` may be missing: the
// pen tells the decimals then, and the entity has no block. The style takes the pen's factor on
// texts as its overall scale; the entity's own scale, that of the paper, goes before it.
ACAD_DIMENSION* write_dimension(CBase_SGT& pen, const wchar_t* style_name, ACAD_DIMSTYLE* style,
                                float x1, float y1, float x2, float y2, float lineX, float lineY,
                                const wchar_t* text, ACAD_DIMENSION::DimType type) {
  if (style != nullptr) style->DIMSCALE = pen.m_fScaleText;
  const float angle = folded_angle(line_angle_deg(x1, y1, x2, y2) + pen.m_fRotate);
  if (text == nullptr) {
    const int decimals = style != nullptr ? style->DIMDEC : pen.m_nDimDec;
    text = print_dimension(pen, decimals, get_dist(x1, y1, x2, y2));
  }
  pen.SetCurColor(pen.m_szBZColor);
  pen.Convert_XY(x1, y1);
  pen.Convert_XY(x2, y2);
  pen.Convert_XY(lineX, lineY);
  return pen.Write_Dimension(style_name, lineX, lineY, 0, 0, 0, 0, 0, 0, 0, type, text, x1, y1, 0,
                             x2, y2, 0, 0, 0, 0, 0, 0, 0, 0, angle, pen.m_fBiLiChi, 1.0, L"TC",
                             pen.m_szCurLayer, pen.m_szCurColor, pen.m_szCurLType);
}

}  // namespace

ACAD_DIMENSION* CBase_SGT::Draw_AlignedDim(float x1, float y1, float x2, float y2, float lineX,
                                           float lineY, const wchar_t* text, const wchar_t* style) {
  ACAD_DIMSTYLE* found = find_dimstyle(style);
  if (found == nullptr) {
    tell_error1(0, L"没有找到尺寸样式%s!", style != nullptr ? style : L"");
    return nullptr;
  }
  return write_dimension(*this, style, found, x1, y1, x2, y2, lineX, lineY, text,
                         ACAD_DIMENSION::kAligned);
}

// The dimension line lies where the dimensions of loose lines have it: m_fDimOffset to the right of
// the direction of travel.
ACAD_DIMENSION* CBase_SGT::Draw_Dim_Points_zhuxd(float x1, float y1, float x2, float y2,
                                                 const wchar_t* style, const wchar_t* text,
                                                 int /*unused1*/, int /*unused2*/) {
  float lineX = get_dist(x1, y1, x2, y2), lineY = -m_fDimOffset;
  place_point(line_angle_deg(x1, y1, x2, y2), x1, y1, &lineX, &lineY);
  return write_dimension(*this, style, find_dimstyle(style), x1, y1, x2, y2, lineX, lineY, text,
                         ACAD_DIMENSION::kRotated);
}

void CBase_SGT::Draw_Dim_Points_zhuxd(int n, const float* x, const float* y, const wchar_t* style,
                                      int reverse, int unused1, int unused2) {
  for_each_pair(n, x, y, reverse, [&](float x1, float y1, float x2, float y2) {
    Draw_Dim_Points_zhuxd(x1, y1, x2, y2, style, nullptr, unused1, unused2);
  });
}

// The second point comes by the tangent on both axes, which isn't a polar construction and is
// meant.
ACAD_DIMENSION* CBase_SGT::Draw_Dim_Polar_zhuxd(float x, float y, float length,
                                                const wchar_t* style, const wchar_t* text,
                                                float angle, int unused1, int unused2) {
  const float tangent = std::tan(radians_of(angle));
  return Draw_Dim_Points_zhuxd(x, y, x + length * tangent, y + length / tangent, style, text,
                               unused1, unused2);
}

int CBase_SGT::Add_DimBlock(const wchar_t* name, float width, float size, int flags, float x,
                            float y, float z, const wchar_t* layer, const wchar_t* /*colour*/,
                            const wchar_t* ltype) {
  if (find_layer(layer) == nullptr) {
    tell_error(kBadName, L"Layer Name Error !");
    return 0;
  }
  if (ltype == nullptr || (std::wcscmp(ltype, L"BYLAYER") != 0 && find_ltype(ltype) == nullptr)) {
    tell_error(kBadName, L"LType Name Error !");
    return 0;
  }
  SetCurColor(m_szBZColor);

  auto stroke = std::make_unique<ACAD_POLYLINE>();
  stroke->m_pDxf = this;
  stroke->m_szLayer = layer;
  stroke->m_szLType = ltype;
  stroke->m_nColor = _wtoi(m_szCurColor);
  stroke->m_dStartWidth = stroke->m_dEndWidth = width * m_fScaleXY;
  const float reach = static_cast<float>(std::sqrt(2.0) / 4 * size);
  for (const float side : {-reach, reach}) {
    float vx = x + side, vy = y + side;
    Convert_XY(vx, vy);
    ACAD_POLYLINE::ACAD_VERTEX* vertex = stroke->add_vertex();
    vertex->m_szLayer = stroke->m_szLayer;
    vertex->m_szLType = stroke->m_szLType;
    vertex->m_nColor = stroke->m_nColor;
    vertex->x = vx, vertex->y = vy, vertex->z = z;
    vertex->m_dStartWidth = vertex->m_dEndWidth = stroke->m_dStartWidth;
  }

  auto block = std::make_unique<ACAD_BLOCK>();
  block->m_pDxf = this;
  block->m_szName = name;
  block->m_szLayer = layer;
  block->m_nFlags = flags;
  Convert_XY(x, y);
  block->x = x, block->y = y, block->z = z;
  block->m_Entities.AddTail(stroke.get());
  stroke.release();
  m_Blocks.AddTail(block.get());
  block.release();
  return 1;
}

}  // namespace brindle
