#include "brindle/table/easy_table_fixed_lie.h"

#include <algorithm>

namespace brindle {
namespace {

constexpr COLORREF kBackground = 0xFFFFFF;

// While it lives the grid stands at the left end of its bar, but for the part of a unit that the
// fixed columns don't make good: they are where they were, and all else is in its place beside
// them.
class UnscrolledScope {
 public:
  explicit UnscrolledScope(CTableWnd& table)
      : table_(table), shift_(table.m_nLieShift), position_(table.m_nHPos) {
    table.m_nLieShift += table.GetHUnitPoint() * position_;
    table.m_nHPos = 0;
  }
  ~UnscrolledScope() {
    table_.m_nLieShift = shift_;
    table_.m_nHPos = position_;
  }
  UnscrolledScope(const UnscrolledScope&) = delete;
  UnscrolledScope& operator=(const UnscrolledScope&) = delete;

 private:
  CTableWnd& table_;
  const int shift_, position_;
};

}  // namespace

CEasyTableWnd_FixedLie::CEasyTableWnd_FixedLie() = default;

CEasyTableWnd_FixedLie::~CEasyTableWnd_FixedLie() {
  DestroyWindow();
}

int CEasyTableWnd_FixedLie::fixed_count() const {
  return std::min(m_nFixedLie, GetLieCount());
}

void CEasyTableWnd_FixedLie::GetHangLieRect(int hang, int lie, RECT& rect) {
  CEasyTableWnd::GetHangLieRect(hang, lie, rect);
  if (std::min(lie, GetLieCount()) > m_nFixedLie) return;
  const int back = GetHUnitPoint() * m_nHPos;
  rect.left += back;
  rect.right += back;
}

int CEasyTableWnd_FixedLie::covered_width(int lie) {
  const int fixed = fixed_count();
  if (fixed < 1 || lie <= fixed || m_nHPos <= 0) return 0;
  RECT last;
  GetHangLieRect(0, fixed, last);
  return last.right;
}

void CEasyTableWnd_FixedLie::DrawTable(CDC* dc) {
  CEasyTableWnd::DrawTable(dc);
  const int fixed = fixed_count();
  if (m_nHPos <= 0 || fixed < 1) return;
  CRect band, last, window(0, 0, m_nWidth, m_nHeight), clip;
  if (GetSafeHwnd()) GetClientRect(&window);
  GetHangLieRect(0, 1, band);
  GetHangLieRect(0, fixed, last);
  band.SetRect(band.left, window.top, last.right, window.bottom);

  const int level = dc->SaveDC();
  dc->IntersectClipRect(&band);
  if (dc->GetClipBox(&clip) != NULLREGION) {
    const UnscrolledScope unscrolled(*this);
    dc->FillSolidRect(&clip, kBackground);
    if (m_bDrawGrib) DrawGrib(dc);
    for (int hang = 1; hang <= m_nHangCount; ++hang) {
      RECT cell;
      GetHangLieRect(hang, 1, cell);
      if (cell.bottom + m_nHangHeight < clip.top) continue;
      if (cell.top - m_nHangHeight > clip.bottom) break;
      for (int lie = 1; lie <= fixed; ++lie) DrawACell(dc, hang, lie, GetHangLieString(hang, lie));
    }
    DrawTitle(dc);
  }
  dc->RestoreDC(level);
  if (m_bDrawBorder) DrawBorder(dc);
}

}  // namespace brindle
