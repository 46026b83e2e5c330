// New entities: names are checked, the scratch entity is filled, then kept or written.
#include <string_view>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_entity_store_internal.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/convert.h"

namespace brindle {

using namespace Varnholt;

bool DXF::can_write() const {
  // A drawing that was read from a file is in state 1 and can be added to.
  if (m_pLayer == nullptr) return false;
  return m_bMemMode != 0 ? m_nState != kClosed : m_nState == kWriting && m_pFile != nullptr;
}

bool DXF::set_layer(ACAD_ENTITY& entity, const wchar_t* layer) {
  const ACAD_LAYER* found = find_layer(layer);
  if (found == nullptr) {
    tell_error(301, L"Layer Name Error !");
    return false;
  }
  entity.m_szLayer = found->m_szName;
  return true;
}

bool DXF::set_names(ACAD_ENTITY& entity, const wchar_t* layer, const wchar_t* colour,
                    const wchar_t* ltype) {
  if (!set_layer(entity, layer)) return false;
  const std::wstring_view kByLayer = L"BYLAYER";
  if (ltype == nullptr || (ltype != kByLayer && find_ltype(ltype) == nullptr)) {
    tell_error(301, L"LType Name Error !");
    return false;
  }
  entity.m_szLType = ltype;
  entity.m_nColor = colour == nullptr || colour == kByLayer ? 256 : _wtoi(colour);
  return true;
}

ACAD_POINT* DXF::Write_Point(double x, double y, double z, const wchar_t* layer) {
  if (!can_write()) return nullptr;
  ACAD_POINT& point = fresh_scratch<ACAD_POINT>(kEntityPoint);
  if (!set_layer(point, layer)) return nullptr;
  point.x = x;
  point.y = y;
  point.z = z;
  return keep(point);
}

ACAD_LINE* DXF::Write_Line(double x1, double y1, double z1, double x2, double y2, double z2,
                           double ltScale, const wchar_t* layer, const wchar_t* colour,
                           const wchar_t* ltype) {
  if (!can_write()) return nullptr;
  ACAD_LINE& line = fresh_scratch<ACAD_LINE>(kEntityLine);
  if (!set_names(line, layer, colour, ltype)) return nullptr;
  line.x1 = x1;
  line.y1 = y1;
  line.z1 = z1;
  line.x2 = x2;
  line.y2 = y2;
  line.z2 = z2;
  const ACAD_LTYPE* resolved = line.GetLType(line.m_szLType);
  line.m_dLtScale = resolved != nullptr ? ltScale * resolved->m_dScale : ltScale;
  return keep(line);
}

ACAD_CIRCLE* DXF::Write_Circle(double x, double y, double z, double r, double ltScale,
                               const wchar_t* layer, const wchar_t* colour, const wchar_t* ltype) {
  if (!can_write()) return nullptr;
  ACAD_CIRCLE& circle = fresh_scratch<ACAD_CIRCLE>(kEntityCircle);
  if (!set_names(circle, layer, colour, ltype)) return nullptr;
  circle.x = x;
  circle.y = y;
  circle.z = z;
  circle.m_dRadius = r;
  circle.m_dLtScale = ltScale;
  return keep(circle);
}

ACAD_ARC* DXF::Write_Arc(double x, double y, double z, double r, double startDeg, double endDeg,
                         double ltScale, const wchar_t* layer, const wchar_t* colour,
                         const wchar_t* ltype) {
  if (!can_write()) return nullptr;
  ACAD_ARC& arc = fresh_scratch<ACAD_ARC>(kEntityArc);
  if (!set_names(arc, layer, colour, ltype)) return nullptr;
  arc.x = x;
  arc.y = y;
  arc.z = z;
  arc.m_dRadius = r;
  arc.m_dStartAngle = startDeg;
  arc.m_dEndAngle = endDeg;
  arc.m_dLtScale = ltScale;
  return keep(arc);
}

ACAD_TEXT* DXF::Write_Text(double x, double y, double z, double height, double angle,
                           const wchar_t* text, const wchar_t* style, const wchar_t* layer,
                           const wchar_t* colour, const wchar_t* ltype) {
  constexpr double kNoHeight = 1e-6;
  if (!can_write()) return nullptr;
  ACAD_TEXT& entity = fresh_scratch<ACAD_TEXT>(kEntityText);
  if (!set_names(entity, layer, colour, ltype)) return nullptr;
  const ACAD_STYLE* found = find_style(style);
  if (found == nullptr) {
    tell_error(301, L"Style Name Error !");
    return nullptr;
  }
  entity.x = x;
  entity.y = y;
  entity.z = z;
  entity.m_dHeight = height < kNoHeight ? found->m_dHeight : height;
  entity.m_dWidthFactor = found->m_dWidth;
  entity.m_dAngle = angle;
  entity.m_szStyle = found->m_szName;
  entity.m_szText = text;
  return keep(entity);
}

ACAD_TEXT* DXF::Write_Text(double x, double y, double z, double height, double angle, wchar_t* text,
                           const wchar_t* style, const wchar_t* layer, const wchar_t* colour,
                           const wchar_t* ltype) {
  constexpr std::size_t kLongest = decltype(ACAD_TEXT::m_szText)::kCapacity;
  if (text != nullptr && std::wstring_view(text).size() > kLongest) text[kLongest] = L'\0';
  return Write_Text(x, y, z, height, angle, static_cast<const wchar_t*>(text), style, layer, colour,
                    ltype);
}

}  // namespace brindle
