// Scrolling. Positions are rows down and units of GetHUnitPoint pixels across.
#include <algorithm>

#include "brindle/table/table_wnd.h"

namespace brindle {

namespace {

ScrollStep step_of(UINT code) {
  switch (code) {
    case SB_LINEUP:
      return ScrollStep::kLineBack;
    case SB_LINEDOWN:
      return ScrollStep::kLineOn;
    case SB_PAGEUP:
      return ScrollStep::kPageBack;
    case SB_PAGEDOWN:
      return ScrollStep::kPageOn;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
      return ScrollStep::kThumb;
    case SB_TOP:
      return ScrollStep::kFirst;
    case SB_BOTTOM:
      return ScrollStep::kLast;
    default:
      return ScrollStep::kNone;
  }
}

}  // namespace

// Moves the rows alone; the editors are hidden by now, and the caller invalidates.
bool CTableWnd::scroll_rows(int position) {
  const int delta = (position - m_nVPos) * m_nHangHeight;
  if (delta == 0) return false;
  m_rcTable.top -= delta;
  m_rcTable.bottom -= delta;
  SetScrollPos(SB_VERT, position);
  m_nVPos = GetScrollPos(SB_VERT);
  return true;
}

void CTableWnd::OnVScroll(UINT code, UINT position, CWnd*) {
  const int old = m_nVPos;
  const int last = m_bVScroll ? m_nVMax : m_nVPos;
  const int next = scrolled_position(step_of(code), old, m_nVMin, std::max(last, m_nVMin),
                                     GetVPageSize(), static_cast<int>(position));
  if (next == old) {
    SetScrollPos(SB_VERT, next);
    return;
  }
  // Hidden editors can't be asked any more.
  commit_pending();
  const bool was_shown = edit_shown() || shown_combo() != nullptr;
  hide_editors();
  scroll_rows(next);
  if (m_bEditFollowsScroll && was_shown && has_cell(m_nEditHang + next - old, m_nEditLie)) {
    move_to(m_nEditHang + next - old, m_nEditLie);
  }
  RECT rect;
  GetCanScrollRect(rect);
  if (m_bIfInvalidate) ScrollWindow(0, -(next - old) * m_nHangHeight, &rect, &rect);
  InvalidateRect(&rect, m_bIfInvalidate);
}

BOOL CTableWnd::OnMouseWheel(UINT, short delta, CPoint) {
  if (!m_bVScroll) return FALSE;
  const ScrollStep step = delta > 0 ? ScrollStep::kLineBack : ScrollStep::kLineOn;
  const int next = scrolled_position(step, m_nVPos, m_nVMin, m_nVMax, 0, 0);
  if (next == m_nVPos) return TRUE;
  commit_pending();
  hide_editors();
  scroll_rows(next);
  RECT rect;
  GetCanScrollRect(rect);
  InvalidateRect(&rect, TRUE);
  return TRUE;
}

// The remainder of the division into units belongs to the last step alone: a step back from there
// lands on whole units.
bool CTableWnd::scroll_columns(int position) {
  const int old_shift = m_nLieShift;
  m_nLieShift = shift_at(position, {m_nHMax, m_nMaxLieShift}, GetHUnitPoint());
  SetScrollPos(SB_HORZ, position);
  m_nHPos = GetScrollPos(SB_HORZ);
  return m_nLieShift != old_shift;
}

void CTableWnd::OnHScroll(UINT code, UINT position, CWnd*) {
  const int last = m_bHScroll ? m_nHMax : m_nHPos;
  const int next = scrolled_position(step_of(code), m_nHPos, m_nHMin, std::max(last, m_nHMin),
                                     GetHPageSize(), static_cast<int>(position));
  if (next == m_nHPos) {
    SetScrollPos(SB_HORZ, next);
    return;
  }
  if (shown_combo() != nullptr) BeforeMoveComboTo(m_nEditHang, m_nEditLie, TRUE);
  if (edit_shown()) BeforeMoveEditTo(m_nEditHang, m_nEditLie, TRUE);
  hide_editors();
  const int old_shift = m_nLieShift;
  scroll_columns(next);
  ScrollWindow(m_nLieShift - old_shift, 0);
  Invalidate(m_bIfInvalidate);
}

void CTableWnd::bring_into_view(int hang, int lie) {
  if (!has_window() || !has_cell(hang, lie)) return;
  bool moved = false;
  const int page = std::max(GetVPageSize(), 1);
  if (m_bVScroll && (hang <= m_nVPos || hang > m_nVPos + page)) {
    const int wanted = hang <= m_nVPos ? hang - 1 : hang - page;
    commit_pending();
    hide_editors();
    moved |= scroll_rows(std::max(m_nVMin, std::min(wanted, m_nVMax)));
  }
  RECT cell;
  GetHangLieRect(hang, lie, cell);
  const int unit = std::max(GetHUnitPoint(), 1);
  const int client = m_rcTable.right - m_rcTable.left;
  int units = 0;
  if (cell.right > client) units = (cell.right - client + unit - 1) / unit;
  const int first = covered_width(lie);
  if (cell.left - units * unit < first) units = -((first - cell.left + unit - 1) / unit);
  if (m_bHScroll && units != 0) {
    commit_pending();
    hide_editors();
    moved |= scroll_columns(std::max(m_nHMin, std::min(m_nHPos + units, m_nHMax)));
  }
  if (moved) Invalidate(m_bIfInvalidate);
}

}  // namespace brindle
