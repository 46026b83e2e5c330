// CEasyBmpSel: a grid of pictures from which one is chosen.
#pragma once

#include <vector>

#include "brindle/table/easy_table_wnd.h"

namespace brindle {

// A click on a picture chooses it: its index, from 0, goes to the tool's variable and the owner
// gets message 0x1610. The chosen picture is outlined. Column 1, the row head, has no width, so
// that the pictures stand in columns 2 on.
class CEasyBmpSel : public CEasyTableWnd {
 public:
  CEasyBmpSel();
  ~CEasyBmpSel() override;

  // `bmpIds`: `count` numbers of table_bitmaps.h; the first one's size is that of all. `perHang`:
  // pictures a row, 1 to 100. `result` holds the choice at the beginning, and outlives the grid; at
  // any other number nothing is chosen. A window that stands already shows the new pictures.
  void SetData(int* result, const int* bmpIds, int count, int perHang);
  // `names` are the prompts of pictures. The pictures are those given before if they are as many;
  // otherwise the names themselves stand in the cells.
  void SetData(int* result, const CString* names, int count, int perHang);
  // No pictures; the tool's variable is let go.
  void Clear();

  using CEasyTableWnd::FindCell;
  // The cell of a picture, null for an index out of range and before the grid was built.
  CETCell* FindCell(int index);

  void ReSetCellData() override;
  void AfterDataChange(int hang, int lie) override;
  UINT GetCheckImage(int hang, int lie, int value) override;
  void DrawContent(CDC* dc) override;

  int m_nCount = 0;    // pictures
  int m_nPerHang = 1;  // pictures a row, at most 100
  CArray<int, int> m_arBmp;
  int* m_pSel = nullptr;                  // a flag a picture, 1 for the chosen one; made by SetData
  int* m_pResult = nullptr;               // the tool's variable
  int m_nBmpWidth = 0, m_nBmpHeight = 0;  // of the first picture, 0 without one

 private:
  void set_data(int* result, int count, int perHang);
  // Of a place in the grid, -1 where no picture stands; `lie` in the tool's order.
  int picture_at(int hang, int lie) const;
  // Where a picture stands; `lie` in the tool's order.
  int hang_of(int index) const { return index / m_nPerHang + 1; }
  int lie_of(int index) const { return index % m_nPerHang + 2; }

  CStringArray names_;
  std::vector<int> flags_;  // m_pSel
};

}  // namespace brindle
