// Lookups in the symbol tables and new entries.
#include <cwchar>

#include "brindle/dxf/dxf.h"

namespace brindle {

using namespace Varnholt;

namespace {

template <class Record>
Record* find_record(Record* records, int count, const wchar_t* name) {
  if (records == nullptr || name == nullptr) return nullptr;
  // Equal text fields share their storage, so that an entity's name mostly is the record's own
  // text.
  for (int i = 0; i < count; ++i) {
    if (records[i].m_szName.c_str() == name) return &records[i];
  }
  for (int i = 0; i < count; ++i) {
    if (std::wcscmp(records[i].m_szName.c_str(), name) == 0) return &records[i];
  }
  return nullptr;
}

// The next free record, as new; null when the table is full or the name is there already.
template <class Record>
Record* next_record(Record* records, int& count, int capacity, const wchar_t* name) {
  if (records == nullptr || name == nullptr || count >= capacity) return nullptr;
  if (find_record(records, count, name) != nullptr) return nullptr;
  Record& record = records[count++];
  record = Record();
  record.m_szName = name;
  return &record;
}

void set_style(ACAD_STYLE& style, const wchar_t* font, const wchar_t* big_font, double height,
               double width) {
  style.m_szFont = font;
  style.m_szBigFont = big_font;
  style.m_dHeight = height;
  style.m_dWidth = width;
}

}  // namespace

ACAD_LTYPE* DXF::find_ltype(const wchar_t* name) const {
  return find_record(m_pLType, m_nNumLType, name);
}
ACAD_LAYER* DXF::find_layer(const wchar_t* name) const {
  return find_record(m_pLayer, m_nNumLayer, name);
}
ACAD_STYLE* DXF::find_style(const wchar_t* name) const {
  return find_record(m_pStyle, m_nNumStyle, name);
}
ACAD_DIMSTYLE* DXF::find_dimstyle(const wchar_t* name) const {
  return find_record(m_pDimStyle, m_nNumDimStyle, name);
}

ACAD_LTYPE* DXF::find_ltype_or_first(const wchar_t* name) const {
  ACAD_LTYPE* found = find_ltype(name);
  return found != nullptr ? found : m_pLType;
}

ACAD_BLOCK* DXF::find_block(const wchar_t* name) const {
  if (name == nullptr) return nullptr;
  for (POSITION at = m_Blocks.GetHeadPosition(); at != nullptr;) {
    auto* block = static_cast<ACAD_BLOCK*>(m_Blocks.GetNext(at));
    if (block->m_szName == name) return block;
  }
  return nullptr;
}

ACAD_LTYPE* DXF::Add_LType(const wchar_t* name, const wchar_t* desc, int n, float length,
                           const float* dash, float scale) {
  constexpr int kMostDashes = 30;
  if (ACAD_LTYPE* existing = find_ltype(name)) return existing;
  if (n > kMostDashes) return nullptr;
  ACAD_LTYPE* ltype = next_record(m_pLType, m_nNumLType, m_nMaxLType, name);
  if (ltype == nullptr) return nullptr;
  ltype->m_szDesc = desc;
  ltype->m_nDashCount = n > 0 && dash != nullptr ? n : 0;
  for (int i = 0; i < ltype->m_nDashCount; ++i) ltype->m_dDash[i] = dash[i];
  ltype->m_dPatternLength = length;
  ltype->m_dScale = scale;
  return ltype;
}

ACAD_LAYER* DXF::Add_Layer(const wchar_t* name, int color, const wchar_t* ltype) {
  if (find_ltype(ltype) == nullptr) return nullptr;
  ACAD_LAYER* layer = next_record(m_pLayer, m_nNumLayer, m_nMaxLayer, name);
  if (layer == nullptr) return nullptr;
  layer->m_nFlags = 0;
  layer->m_nColor = color;
  layer->m_szLType = ltype;
  return layer;
}

ACAD_STYLE* DXF::Add_STyle(const wchar_t* name, const wchar_t* font, const wchar_t* bigFont,
                           double height, double width) {
  ACAD_STYLE* style = next_record(m_pStyle, m_nNumStyle, m_nMaxStyle, name);
  if (style != nullptr) set_style(*style, font, bigFont, height, width);
  return style;
}

ACAD_STYLE* DXF::Add_TrueType_STyle(const wchar_t* name, const wchar_t* face, double height,
                                    double width) {
  return Add_STyle(name, face, L"", height, width);
}

ACAD_STYLE* DXF::Modifi_STyle(const wchar_t* oldName, const wchar_t* newName, const wchar_t* font,
                              const wchar_t* bigFont, double height, double width) {
  ACAD_STYLE* style = find_style(oldName);
  if (style == nullptr) return nullptr;
  style->m_szName = newName;
  set_style(*style, font, bigFont, height, width);
  return style;
}

ACAD_STYLE* DXF::Modifi_TrueType_STyle(const wchar_t* oldName, const wchar_t* newName,
                                       const wchar_t* face, double height, double width) {
  return Modifi_STyle(oldName, newName, face, L"", height, width);
}

ACAD_DIMSTYLE* DXF::Add_DimStyle(const wchar_t* name, double DIMDLE, double DIMEXE, double DIMEXO,
                                 double DIMGAP, double DIMASZ, int DIMDEC, const wchar_t* txtStyle,
                                 double DIMTXT, const wchar_t* DIMBLK, double DIMSCALE,
                                 double DIMLFAC, double DIMRND, int DIMCLRT) {
  ACAD_DIMSTYLE* style = next_record(m_pDimStyle, m_nNumDimStyle, m_nMaxDimStyle, name);
  if (style == nullptr) return nullptr;
  style->DIMDLE = DIMDLE;
  style->DIMEXE = DIMEXE;
  style->DIMEXO = DIMEXO;
  style->DIMGAP = DIMGAP;
  style->DIMASZ = DIMASZ;
  style->DIMDEC = DIMDEC;
  style->m_szTxtStyle = txtStyle;
  style->DIMTXT = DIMTXT;
  style->DIMBLK = DIMBLK;
  style->DIMSCALE = DIMSCALE;
  style->DIMLFAC = DIMLFAC;
  style->DIMRND = DIMRND;
  style->DIMCLRT = DIMCLRT;
  const bool no_block = style->DIMBLK.empty();
  style->DIMAUNIT = no_block ? 1 : 0;
  style->DIMTAD = no_block ? 2 : 1;
  style->m_pDxf = this;
  return style;
}

}  // namespace brindle
