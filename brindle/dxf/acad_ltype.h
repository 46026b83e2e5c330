// A line type: a name and a pattern of dashes.
#pragma once

#include "brindle/dxf/acad_table.h"

namespace brindle::Varnholt {

class ACAD_LTYPE : public ACAD_TABLE {
 public:
  static constexpr int kMaxDashes = 100;

  ACAD_LTYPE();

  // The names "BYBLOCK" and "BYBLAYER" of a file become "CONTINUOUS". A dash beyond the count that
  // the file tells ends the record early.
  int read_from(DxfPairReader& reader) override;
  void write_to(DxfPairWriter& writer, DxfDialect dialect) override;

  // m_nDashCount, within the array whatever a file told.
  int dash_count() const;

  WText<100> m_szName;
  WText<100> m_szDesc;
  int m_nAlign;  // always written as 65
  int m_nDashCount;
  double m_dPatternLength;          // drawing units
  double m_dDash[kMaxDashes] = {};  // positive: dash; negative: gap; 0: dot
  double m_dScale = 1.0;            // not in the file
};

}  // namespace brindle::Varnholt
