// The reinforcement of a beam section as CBase_SGT::Draw_Liang_Section draws it: the bars of a face
// and the stirrup.
#pragma once

#include <cstddef>
#include <vector>

namespace brindle {

// The longitudinal bars (zong jin) of one face of a beam section, in rows from the face inwards.
struct CLiangZongJin {
  static constexpr int kMaxBars = 50;  // a row holds no more

  struct CBar {
    int m_nGrade = 0;     // steel grade, 1 to 14
    int m_nDiameter = 0;  // mm
    int m_nSlot = 0;      // position across the face, from 0
    int m_nGroup = 0;     // bars of one number share a leader
  };

  struct CRow {
    int m_nGroups = 0;            // distinct groups; the drawing finds them from the bars
    int m_Groups[kMaxBars] = {};  // their numbers, in order of first appearance
    int m_nBars = 0;
    CBar m_Bars[kMaxBars];

    // 1; 0 with nothing changed when the row is full.
    int AddBar(int grade, int diameter, int slot, int group) {
      if (m_nBars < 0 || m_nBars >= kMaxBars) return 0;
      m_Bars[m_nBars++] = {grade, diameter, slot, group};
      return 1;
    }
  };

  int m_nSlots = 2;  // equally spaced positions across the face; below 2 the drawing makes it 2
  int m_nRows = 0;
  std::vector<CRow> m_Rows;  // m_nRows of them; a row that isn't there isn't drawn

  void SetRows(int n) {
    m_nRows = n < 0 ? 0 : n;
    m_Rows.resize(static_cast<std::size_t>(m_nRows));
  }
};

// The stirrup (gu jin) of a beam section.
struct CLiangGuJin {
  int m_nKind = 0;  // a leading word that the drawing doesn't read
  int m_nGrade = 0;
  int m_nDiameter = 0;  // mm
  int m_nSpacing = 0;   // mm along the beam
  int m_nMark = 0;      // number in the bubble, none below 1
};

}  // namespace brindle
