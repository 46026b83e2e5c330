// Symbol lines: line types whose pattern holds texts, such as the signs of pipes or protective
// walls. They are drawn from the line type file that DXF::Add_LType was last given.
#pragma once

#include "brindle/platform/base/array.h"
#include "brindle/platform/base/types.h"
#include "brindle/platform/base/wide_text.h"

namespace brindle {

class CDC;
class CFCoor;

namespace Varnholt {

class ACAD_ENTITY;
class ACAD_LTYPE;

// A text in a pattern.
struct TextIns {
  WText<100> m_szText;
  WText<100> m_szStyle;
  float R = 0;  // turn against the line, degrees
  float A = 0;  // turn against the x axis, degrees; kept, not used in drawing
  float S = 1;  // height, world units before G_RatioText
  float X = 0;  // offset along the line, against its direction
  float Y = 0;  // offset across the line, to its left
};

// Draws one line. Made on the stack for each.
class CSymbolLineDrawer {
 public:
  // Loads the pattern of a name, compared without case, from the remembered file (without one, from
  // the assets' own) or a given one; "bzhjcx" is looked up as "bzhjcx2". False, with an empty
  // pattern, when it isn't there, which is reported once.
  bool Load(const wchar_t* name);
  bool Load(const wchar_t* file, const wchar_t* name);
  // Draws from (m_fX1, m_fY1) to (m_fX2, m_fY2), world units. The canvas's pen style tells whether
  // the line is selected. A pattern finer than the device can show, and none, is a solid line.
  void Draw(CDC* dc) const;

  float m_fX1 = 0, m_fY1 = 0, m_fX2 = 0, m_fY2 = 0;
  float m_fLtScale = 1;   // the entity's
  float m_fDxfScale = 1;  // the drawing's
  const CFCoor* m_pCoor = nullptr;
  COLORREF m_nColor = 0;
  bool m_bContinuous = false;  // drawn solid whatever the pattern
  CArray<float> m_Dash;        // as in ACAD_LTYPE; kTextMark: here stands the next text
  CArray<TextIns> m_Texts;

  static constexpr float kTextMark = -1000000;
};

// Draws an entity's straight piece, world units, in the symbol line type of its m_szLType or, for a
// by-layer one, of `ltype`. Sets the shared canvas's pen style for the call.
void draw_symbol_line(CDC* dc, const CFCoor* coor, const ACAD_ENTITY& entity,
                      const ACAD_LTYPE& ltype, double lt_scale, double x1, double y1, double x2,
                      double y2);

}  // namespace Varnholt
}  // namespace brindle
