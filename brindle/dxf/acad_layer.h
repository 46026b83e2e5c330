// A layer: a name, a colour, and the line type of what lies on it.
#pragma once

#include "brindle/dxf/acad_table.h"

namespace brindle::Varnholt {

class ACAD_LAYER : public ACAD_TABLE {
 public:
  ACAD_LAYER();

  int read_from(DxfPairReader& reader) override;
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;

  WText<100> m_szName;
  int m_nFlags;  // bit flags of the file, kept as they stand
  int m_nColor;  // colour index; negative: the layer is off
  WText<100> m_szLType;
};

}  // namespace brindle::Varnholt
