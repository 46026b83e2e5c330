// A text style: the fonts and the proportions of texts.
#pragma once

#include "brindle/dxf/acad_table.h"

namespace brindle::Varnholt {

class ACAD_STYLE : public ACAD_TABLE {
 public:
  ACAD_STYLE();

  int read_from(DxfPairReader& reader) override;
  // A style without a font, or with a ".ttf" font, also writes m_szExtFont as extended data.
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;

  WText<100> m_szName;
  int m_nFlags;
  double m_dHeight;   // fixed height in drawing units, 0: free
  double m_dWidth;    // width factor
  double m_dOblique;  // degrees
  int m_nGenFlags;
  double m_dLastHeight;
  WText<255> m_szFont;
  WText<255> m_szBigFont;
  WText<100> m_szExtFont;
};

}  // namespace brindle::Varnholt
