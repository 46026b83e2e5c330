// CEasyTableWnd_FixedLie: a grid whose left columns stay in place while the others scroll.
#pragma once

#include "brindle/table/easy_table_wnd.h"

namespace brindle {

class CEasyTableWnd_FixedLie : public CEasyTableWnd {
 public:
  CEasyTableWnd_FixedLie();
  ~CEasyTableWnd_FixedLie() override;

  // Of a fixed column the place that it has at the left end of the bar. Whole units are made good
  // alone, which is meant: in the bar's last step, when that is a part of a unit, the fixed columns
  // stand to the right by what the unit has more.
  void GetHangLieRect(int hang, int lie, RECT& rect) override;
  // Draws the fixed columns once more above what has been scrolled under them.
  void DrawTable(CDC* dc) override;
  int covered_width(int lie) override;

  int m_nFixedLie = 1;  // number of columns that stay

 private:
  // m_nFixedLie within the columns that there are.
  int fixed_count() const;
};

}  // namespace brindle
