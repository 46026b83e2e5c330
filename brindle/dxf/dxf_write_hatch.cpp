// New hatches.
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_entity_store_internal.h"

namespace brindle {

using namespace Varnholt;

template <class T>
ACAD_HATCH* DXF::write_hatch(const CArray<T>& x, const CArray<T>& y, const CArray<T>& bulge,
                             const wchar_t* patternFile, const wchar_t* patternName, double scale,
                             double angle, bool solid, bool associative, int style,
                             const wchar_t* layer, const wchar_t* colour) {
  if (!can_write()) return nullptr;
  ACAD_HATCH& hatch = fresh_scratch<ACAD_HATCH>(kEntityHatch);
  if (!set_names(hatch, layer, colour, L"BYLAYER")) return nullptr;
  const bool named = patternName != nullptr && patternName[0] != L'\0';
  hatch.setParttern(named ? patternName : solid ? L"SOLID" : L"");
  hatch.setSolidFlag(solid ? 1 : 0);
  hatch.setAssociative(associative ? 1 : 0);
  hatch.setHatchStyle(style);
  hatch.m_dScale = scale;
  hatch.m_dAngle = angle;
  hatch.setBoundary(x, y, bulge);
  if (!solid) hatch.setPartternItem(patternFile, hatch.m_szPattern);
  return keep(hatch);
}

ACAD_HATCH* DXF::Write_Hatch(const CArray<double>& x, const CArray<double>& y,
                             const CArray<double>& bulge, const wchar_t* patternFile,
                             const wchar_t* patternName, double scale, double angle, bool solid,
                             bool associative, int style, const wchar_t* layer,
                             const wchar_t* colour) {
  return write_hatch(x, y, bulge, patternFile, patternName, scale, angle, solid, associative, style,
                     layer, colour);
}

ACAD_HATCH* DXF::Write_Hatch(const CArray<float>& x, const CArray<float>& y,
                             const CArray<float>& bulge, const wchar_t* patternFile,
                             const wchar_t* patternName, float scale, float angle, bool solid,
                             bool associative, int style, const wchar_t* layer,
                             const wchar_t* colour) {
  return write_hatch(x, y, bulge, patternFile, patternName, static_cast<double>(scale),
                     static_cast<double>(angle), solid, associative, style, layer, colour);
}

}  // namespace brindle
