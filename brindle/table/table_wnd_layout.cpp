// Rectangles, hit tests, needed size, and the bars that come and go.
#include <algorithm>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

TableLayout CTableWnd::layout() const {
  return {static_cast<int>(m_rcTable.left),
          static_cast<int>(m_rcTable.top),
          m_nTitleHeight,
          m_nHangHeight,
          m_nHangCount,
          m_nLieShift,
          {m_arLieWidth.GetData(), static_cast<std::size_t>(m_arLieWidth.GetSize())}};
}

void CTableWnd::GetHangLieRect(int hang, int lie, RECT& rect) {
  lie = std::min(lie, GetLieCount());
  m_arLieWidth.GetAt(lie - 1);  // throws for a lie below 1
  rect = table_cell_rect(layout(), hang, lie, IsLieShifted(lie));
}

BOOL CTableWnd::IsLieShifted(int lie) {
  const auto wanted = static_cast<UINT>(lie);
  return std::find(m_arShiftedLie.begin(), m_arShiftedLie.end(), wanted) != m_arShiftedLie.end();
}

BOOL CTableWnd::PointInRECT(CPoint point, const RECT& rect) {
  return rect.left <= point.x && point.x <= rect.right && rect.top <= point.y &&
         point.y <= rect.bottom;
}

// The first column, and in it the first row, whose rectangle has the point. Rows that can't reach
// the point's height aren't asked.
void CTableWnd::PointInWhichHangLie(CPoint point, int& hang, int& lie) {
  const RowSpan rows = table_rows_between(layout(), point.y, point.y);
  RECT rect;
  const auto hit = [&](int h, int l) {
    GetHangLieRect(h, l, rect);
    if (!PointInRECT(point, rect)) return false;
    hang = h;
    lie = l;
    return true;
  };
  const int columns = GetLieCount();
  for (int l = 1; l <= columns; ++l) {
    if (hit(0, l)) return;
    for (int h = rows.first; h <= rows.last; ++h) {
      if (hit(h, l)) return;
    }
  }
  hang = -1;
}

int CTableWnd::GetNeedWidth() {
  UINT sum = 0;
  for (const UINT width : m_arLieWidth) sum += width;
  return std::max(static_cast<int>(sum), m_nMinWidth);
}

int CTableWnd::GetNeedHeight() {
  return m_nHangHeight * m_nHangCount + m_nTitleHeight;
}

int CTableWnd::GetSysVScrollWidth() {
  return GetSystemMetrics(SM_CXVSCROLL);
}

int CTableWnd::GetSysHScrollHeight() {
  return GetSystemMetrics(SM_CYHSCROLL);
}

BOOL CTableWnd::ShuiPingEnough() {
  int needed = GetNeedWidth();
  if (needed <= m_nWidth) return TRUE;
  if (!ChuiZhiEnough()) needed += GetSysVScrollWidth();
  const HorizontalReach reach = horizontal_reach(needed, m_nWidth, GetHUnitPoint());
  m_nHMin = 0;
  m_nHMax = reach.last_position;
  m_nMaxLieShift = reach.furthest_shift;
  return FALSE;
}

BOOL CTableWnd::ChuiZhiEnough() {
  const int bar = m_bHScroll ? GetSysHScrollHeight() : 0;
  m_nVMax = vertical_reach(m_nHangCount, m_nHangHeight, m_nHeight - m_nTitleHeight - bar);
  return m_nVMax <= m_nVMin;
}

int CTableWnd::GetVPageSize() {
  if (m_nHangHeight <= 0) return 0;
  return (m_rcTable.bottom - m_rcTable.top - m_nTitleHeight) / m_nHangHeight;
}

int CTableWnd::GetHPageSize() {
  return 5;
}

int CTableWnd::GetHUnitPoint() {
  return 7;
}

BOOL CTableWnd::EnableHScroll() {
  return m_bEnableHScroll;
}

BOOL CTableWnd::bHaveHScroll() {
  return m_bHScroll;
}

BOOL CTableWnd::bHaveVScroll() {
  return m_bVScroll;
}

void CTableWnd::_MoveWindowEX(int width, int height) {
  if (!has_window()) return;
  SetWindowPos(nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CTableWnd::_MoveForAddVScroll() {
  _MoveWindowEX(m_nWidth + GetSysVScrollWidth(),
                m_nHeight + (m_bHScroll ? GetSysHScrollHeight() : 0));
}

void CTableWnd::_MoveForNoVScroll() {
  _MoveWindowEX(m_nWidth, m_nHeight + (m_bHScroll ? GetSysHScrollHeight() : 0));
}

void CTableWnd::_MoveForAddHScroll() {
  _MoveWindowEX(m_nWidth + (m_bVScroll ? GetSysVScrollWidth() : 0),
                m_nHeight + GetSysHScrollHeight());
}

void CTableWnd::_MoveForNoHScroll() {
  _MoveWindowEX(m_nWidth + (m_bVScroll ? GetSysVScrollWidth() : 0), m_nHeight);
}

void CTableWnd::ResetSize(int width, int height, int adjust) {
  commit_pending();
  hide_editors();
  m_nWidth = width;
  m_nHeight = height;
  m_bHScroll = m_bVScroll = 0;
  m_nHPos = m_nVPos = 0;
  m_nLieShift = 0;
  if (adjust) {
    if (!ShuiPingEnough()) m_nHeight -= GetSysHScrollHeight();
    if (!ChuiZhiEnough()) m_nWidth -= GetSysVScrollWidth();
  }
  InitialScrollBar();
}

void CTableWnd::set_bar(int bar, int first, int last, int position) {
  if (!has_window()) return;
  SetScrollRange(bar, first, last, FALSE);
  SetScrollPos(bar, position, TRUE);
}

void CTableWnd::InitialScrollBar() {
  const bool wide = EnableHScroll() && !ShuiPingEnough();
  const bool tall = !ChuiZhiEnough();
  if (wide && !m_bHScroll) {
    _MoveForAddHScroll();
    m_bHScroll = 1;
  }
  if (tall && !m_bVScroll) {
    _MoveForAddVScroll();
    m_bVScroll = 1;
  }
  if (!wide && !tall && !m_bHScroll && !m_bVScroll) _MoveWindowEX(m_nWidth, m_nHeight);
  set_bar(SB_HORZ, 0, m_bHScroll ? m_nHMax : 0, m_bHScroll ? m_nHPos : 0);
  set_bar(SB_VERT, 0, m_bVScroll ? m_nVMax : 0, m_bVScroll ? m_nVPos : 0);
  m_rcTable = {0, 0, m_nWidth, m_nHeight};
  if (has_window()) GetClientRect(&m_rcTable);
  const int scrolled = m_nVPos * m_nHangHeight;
  m_rcTable.top -= scrolled;
  m_rcTable.bottom -= scrolled;
}

// The bar stays until the user has scrolled home, so that rows don't jump under the mouse.
void CTableWnd::DealVScrollBarChange() {
  const bool fits = ChuiZhiEnough();
  if (m_bVScroll && (!fits || m_nVPos != 0)) {
    m_nVMax = std::max(m_nVMax, m_nVPos);
    if (!fits) set_bar(SB_VERT, m_nVMin, m_nVMax, m_nVPos);
  } else if (m_bVScroll) {
    _MoveForNoVScroll();
    m_bVScroll = 0;
    set_bar(SB_VERT, 0, 0, 0);
  } else if (!fits) {
    _MoveForAddVScroll();
    m_bVScroll = 1;
    m_nVPos = 0;
    set_bar(SB_VERT, m_nVMin, m_nVMax, 0);
  }
}

void CTableWnd::DealHScrollBarChange() {
  if (!EnableHScroll()) return;
  const bool fits = ShuiPingEnough();
  if (m_bHScroll && (!fits || m_nHPos != 0)) {
    if (m_nHMax < m_nHPos) {
      m_nHMax = m_nHPos;
      m_nMaxLieShift = m_nLieShift;  // or the last step on would lead back
    }
    if (!fits) set_bar(SB_HORZ, m_nHMin, m_nHMax, m_nHPos);
  } else if (m_bHScroll) {
    _MoveForNoHScroll();
    m_bHScroll = 0;
    set_bar(SB_HORZ, 0, 0, 0);
  } else if (!fits) {
    _MoveForAddHScroll();
    m_bHScroll = 1;
    m_nHPos = 0;
    set_bar(SB_HORZ, m_nHMin, m_nHMax, 0);
  }
}

void CTableWnd::InvalidateCell(int hang, int lie) {
  if (!has_window() || lie < 1 || lie > GetLieCount() || hang < 0) return;
  RECT rect;
  GetHangLieRect(hang, lie, rect);
  if (lie == GetLieCount()) rect.right += 2;
  InvalidateRect(&rect, FALSE);
}

void CTableWnd::InvalidateHang(int hang) {
  if (!has_window() || GetLieCount() < 1 || hang < 0) return;
  CRect rect = table_cell_rect(layout(), hang, 1, false);
  rect.left = 0;
  rect.right = std::max(m_rcTable.right - m_rcTable.left, LONG{m_nWidth});
  if (!m_arShiftedLie.IsEmpty()) rect.bottom += m_nHangHeight / 2;
  InvalidateRect(&rect, FALSE);
}

void CTableWnd::InvalidateLie(int lie) {
  if (!has_window() || lie < 1 || lie > GetLieCount()) return;
  RECT rect;
  GetHangLieRect(0, lie, rect);
  rect.top = 0;
  rect.bottom = std::max(m_rcTable.bottom - m_rcTable.top, LONG{m_nHeight});
  if (lie == GetLieCount()) rect.right += 2;
  InvalidateRect(&rect, FALSE);
}

void CTableWnd::GetCanScrollRect(RECT& rect) {
  rect = {0, 0, m_nWidth, m_nHeight};
  if (has_window()) GetClientRect(&rect);
  rect.top = m_nTitleHeight;
}

void CTableWnd::Invalidate_AllContentCell() {
  if (!has_window()) return;
  RECT rect;
  GetCanScrollRect(rect);
  InvalidateRect(&rect, FALSE);
}

}  // namespace brindle
