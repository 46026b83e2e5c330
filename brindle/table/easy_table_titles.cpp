#include <algorithm>
#include <cstdlib>

#include "brindle/table/easy_table_wnd.h"
#include "brindle/table/marked_text.h"

namespace brindle {

void CEasyTableWnd::DrawTitle(CDC* dc) {
  if (m_bTextTitle) {
    DrawTextTitle(dc);
  } else if (m_nTitleBmp != 0) {
    if (m_arLieXu.IsEmpty()) {
      DrawBmpTitle(dc, m_nTitleBmp);
    } else {
      DrawBmpTitle_New(dc);
    }
  }
}

// Each title stands over its column, its lines centred.
void CEasyTableWnd::DrawTextTitle(CDC* dc) {
  CFont* const old_font = dc->SelectObject(&m_hFont);
  const int old_mode = dc->SetBkMode(TRANSPARENT);
  const COLORREF old_color = dc->SetTextColor(0);
  const UINT old_align = dc->SetTextAlign(TA_LEFT | TA_TOP);
  const int line_height = std::abs(m_nFontHeight) + 4;
  CStringArray lines;
  for (int lie = 1; lie <= GetLieCount(); ++lie) {
    RECT rect;
    GetHangLieRect(0, lie, rect);
    if (rect.right - rect.left < 1) continue;
    dc->FillSolidRect(&rect, m_clrHead);
    dc->Draw3dRect(&rect, m_clrBorderLight, m_clrGrib);
    FormLineArray(GetHangLieString(0, lie), lines);
    const int count = static_cast<int>(lines.GetSize());
    int y = (rect.top + rect.bottom - count * line_height) / 2 + 2;
    for (const CString& line : lines) {
      const int x = (rect.left + rect.right - dc->GetTextExtent(line).cx) / 2;
      const int left = std::max<int>(x, rect.left + 2);
      if (IsTextEscape(0, lie)) {
        Draw_Text_Ext(dc, left, y, line);
      } else {
        dc->ExtTextOut(left, y, ETO_CLIPPED, &rect, line, nullptr);
      }
      y += line_height;
    }
  }
  dc->SetTextAlign(old_align);
  dc->SetTextColor(old_color);
  dc->SetBkMode(old_mode);
  dc->SelectObject(old_font);
}

void CEasyTableWnd::DrawBmpTitle_New(CDC* dc) {
  for (int lie = 1; lie <= GetLieCount(); ++lie) {
    const int old_lie = OldLie(lie);
    if (old_lie < 1 || old_lie >= tool_positions_.GetSize()) continue;
    RECT rect;
    GetHangLieRect(0, lie, rect);
    // The bitmap is drawn where its piece for this column falls into place, and cut to it.
    const int saved = dc->SaveDC();
    dc->IntersectClipRect(&rect);
    dc->OffsetViewportOrg(rect.left - m_rcTable.left - m_nLieShift - tool_positions_[old_lie - 1],
                          0);
    DrawBmpTitle(dc, m_nTitleBmp);
    dc->RestoreDC(saved);
  }
}

}  // namespace brindle
