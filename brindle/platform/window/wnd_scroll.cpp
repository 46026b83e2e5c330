// Scroll bars of a window.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

DWORD bar_style(int bar) {
  return bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
}

bool good(int bar) {
  return bar == SB_HORZ || bar == SB_VERT;
}

void draw_arrow(CDC& dc, const CRect& box, int dx, int dy, COLORREF color) {
  dc.FillSolidRect(box, GetSysColor(COLOR_BTNFACE));
  const CPoint middle = box.CenterPoint();
  for (int i = 0; i < 4; ++i) {
    const int along = i - 2;
    if (dx != 0)
      dc.FillSolidRect(middle.x + dx * -along, middle.y - i, 1, 2 * i + 1, color);
    else
      dc.FillSolidRect(middle.x - i, middle.y + dy * -along, 2 * i + 1, 1, color);
  }
}

bool is_thumb_dragged(const CWnd& window) {
  const WindowSystem& system = window_system();
  return system.dragged == &window && system.held_code < 0;
}

// False for a way that isn't whole in pixels.
bool move_pixels(RasterBitmap& pixels, const CRect& part, int dx, int dy) {
  const PixelGrid& grid = pixels.grid();
  const double across = dx * grid.scale, down = dy * grid.scale;
  if (across != std::floor(across) || down != std::floor(down)) return false;
  const CRect from = grid.box(part) & CRect(0, 0, pixels.width(), pixels.height());
  if (from.IsRectEmpty()) return true;
  const int x = static_cast<int>(across), y = static_cast<int>(down);
  const size_t bytes = static_cast<size_t>(from.Width()) * sizeof(std::uint32_t);
  for (int i = 0; i < from.Height(); ++i) {
    const int row = y > 0 ? from.bottom - 1 - i : from.top + i;
    std::memmove(pixels.row(row + y) + from.left + x, pixels.row(row) + from.left, bytes);
  }
  return true;
}

}  // namespace

int ScrollBar::last() const {
  const LONGLONG end = page > 0 ? LONGLONG{max} - page + 1 : LONGLONG{max};
  return static_cast<int>(std::max<LONGLONG>(end, min));
}

bool bar_shown(const CWnd& window, int bar) {
  return (window.GetStyle() & bar_style(bar)) != 0;
}

void CWnd::ShowScrollBar(UINT bar, BOOL show) {
  const DWORD bits = bar == static_cast<UINT>(SB_BOTH) ? WS_VSCROLL | WS_HSCROLL
                                                       : bar_style(static_cast<int>(bar));
  ModifyStyle(show ? 0 : bits, show ? bits : 0);
}

void CWnd::SetScrollRange(int bar, int min, int max, BOOL redraw) {
  SCROLLINFO info;
  info.fMask = SIF_RANGE;
  info.nMin = min;
  info.nMax = max;
  SetScrollInfo(bar, &info, redraw);
}

void CWnd::GetScrollRange(int bar, int* min, int* max) const {
  const ScrollBar none{0, 0, 0, 0, 0};
  const ScrollBar& state = good(bar) ? state_->bars[bar] : none;
  if (min != nullptr) *min = state.min;
  if (max != nullptr) *max = state.max;
}

int CWnd::SetScrollPos(int bar, int position, BOOL redraw) {
  const int before = GetScrollPos(bar);
  SCROLLINFO info;
  info.fMask = SIF_POS;
  info.nPos = position;
  SetScrollInfo(bar, &info, redraw);
  return before;
}

int CWnd::GetScrollPos(int bar) const {
  return good(bar) ? state_->bars[bar].position : 0;
}

BOOL CWnd::SetScrollInfo(int bar, SCROLLINFO* info, BOOL redraw) {
  if (!good(bar) || info == nullptr) return FALSE;
  ScrollBar& state = state_->bars[bar];
  if ((info->fMask & SIF_RANGE) != 0) {
    state.min = info->nMin;
    state.max = std::max(info->nMin, info->nMax);
  }
  if ((info->fMask & SIF_PAGE) != 0) state.page = info->nPage;
  if ((info->fMask & SIF_POS) != 0) state.position = info->nPos;
  state.position = std::clamp(state.position, state.min, state.last());
  if (!is_thumb_dragged(*this)) state.track = state.position;
  if ((info->fMask & (SIF_RANGE | SIF_PAGE)) != 0 && (info->fMask & SIF_DISABLENOSCROLL) == 0 &&
      state.scrolls() != bar_shown(*this, bar))
    ShowScrollBar(static_cast<UINT>(bar), state.scrolls());
  else if (redraw && m_hWnd != nullptr && bar_shown(*this, bar))
    mark_changed(*this);
  return TRUE;
}

BOOL CWnd::GetScrollInfo(int bar, SCROLLINFO* info, UINT mask) {
  if (!good(bar) || info == nullptr) return FALSE;
  const ScrollBar& state = state_->bars[bar];
  if ((mask & SIF_RANGE) != 0) info->nMin = state.min, info->nMax = state.max;
  if ((mask & SIF_PAGE) != 0) info->nPage = state.page;
  if ((mask & SIF_POS) != 0) info->nPos = state.position;
  if ((mask & SIF_TRACKPOS) != 0) info->nTrackPos = state.track;
  return TRUE;
}

int CWnd::GetScrollLimit(int bar) const {
  return good(bar) ? state_->bars[bar].last() : 0;
}

BarLayout bar_layout(const CWnd& window, int bar) {
  const WindowState& state = window_state(window);
  const CSize client = state.client_size();
  const CSize inset = state.inset();
  const bool upright = bar == SB_VERT;
  BarLayout layout;
  layout.box = upright ? CRect(CPoint(inset.cx + client.cx, inset.cy),
                               CSize(GetSystemMetrics(SM_CXVSCROLL), client.cy))
                       : CRect(CPoint(inset.cx, inset.cy + client.cy),
                               CSize(client.cx, GetSystemMetrics(SM_CYHSCROLL)));
  const int length = upright ? layout.box.Height() : layout.box.Width();
  const int arrow = std::min(GetSystemMetrics(SM_CYVSCROLL), length / 2);
  const auto part = [&](int from, int to) {
    CRect box = layout.box;
    (upright ? box.bottom : box.right) = (upright ? box.top : box.left) + to;
    (upright ? box.top : box.left) += from;
    return box;
  };
  layout.first = part(0, arrow);
  layout.last = part(length - arrow, length);
  const ScrollBar& values = state.bars[bar];
  const int room = length - 2 * arrow;
  if (!values.scrolls() || room < 12) return layout;
  const LONGLONG span = LONGLONG{values.max} - values.min + 1;
  const int thumb =
      values.page > 0
          ? static_cast<int>(std::clamp<LONGLONG>(room * LONGLONG{values.page} / span, 8, room))
          : std::min(GetSystemMetrics(SM_CYVSCROLL), room / 2);
  layout.travel = room - thumb;
  const LONGLONG steps = LONGLONG{values.last()} - values.min;
  const int position = is_thumb_dragged(window) ? values.track : values.position;
  const int start =
      arrow + static_cast<int>(layout.travel * (LONGLONG{position} - values.min) / steps);
  layout.thumb = part(start, start + thumb);
  return layout;
}

int bar_position_at(const CWnd& window, int bar, int thumb_start) {
  const BarLayout layout = bar_layout(window, bar);
  const ScrollBar& values = window_state(window).bars[bar];
  if (layout.travel <= 0) return values.position;
  const int from = bar == SB_VERT ? layout.first.bottom : layout.first.right;
  const LONGLONG steps = LONGLONG{values.last()} - values.min;
  const LONGLONG at = std::clamp(thumb_start - from, 0, layout.travel);
  return static_cast<int>(values.min + (at * steps + layout.travel / 2) / layout.travel);
}

void paint_bars(CDC& dc, const CWnd& window, CPoint at) {
  const COLORREF dark = GetSysColor(COLOR_BTNTEXT), gray = GetSysColor(COLOR_GRAYTEXT);
  for (const int bar : {SB_HORZ, SB_VERT}) {
    if (!bar_shown(window, bar)) continue;
    BarLayout layout = bar_layout(window, bar);
    const bool upright = bar == SB_VERT;
    const COLORREF color = layout.thumb.IsRectEmpty() ? gray : dark;
    dc.FillSolidRect(layout.box + at, GetSysColor(COLOR_SCROLLBAR));
    draw_arrow(dc, layout.first + at, upright ? 0 : -1, upright ? -1 : 0, color);
    draw_arrow(dc, layout.last + at, upright ? 0 : 1, upright ? 1 : 0, color);
    if (layout.thumb.IsRectEmpty()) continue;
    CRect thumb = layout.thumb + at;
    dc.FillSolidRect(thumb, GetSysColor(COLOR_BTNFACE));
    dc.Draw3dRect(thumb, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW));
  }
  if (bar_shown(window, SB_HORZ) && bar_shown(window, SB_VERT)) {
    const CRect across = bar_layout(window, SB_HORZ).box, down = bar_layout(window, SB_VERT).box;
    const CRect corner(down.left, across.top, down.right, across.bottom);
    dc.FillSolidRect(corner + at, GetSysColor(COLOR_BTNFACE));
  }
}

void CWnd::ScrollWindow(int dx, int dy, LPCRECT rect, LPCRECT clip) {
  if (m_hWnd == nullptr || (dx == 0 && dy == 0)) return;
  const CRect client(CPoint(), state_->client_size());
  CRect area = client;
  if (rect != nullptr) area &= *rect;
  if (clip != nullptr) area &= *clip;
  RegionData moved = state_->update & RegionData(area);
  state_->update -= moved;
  moved.offset(dx, dy);
  CRect from = area & (CRect(area) - CPoint(dx, dy));  // what stays within
  if (state_->surface && !move_pixels(*state_->surface, from, dx, dy)) from.SetRectEmpty();
  const RegionData uncovered =
      RegionData(area) - (from.IsRectEmpty() ? RegionData() : RegionData(from + CPoint(dx, dy)));
  state_->update |= (moved | uncovered) & RegionData(area);
  state_->erase = true;
  if (rect == nullptr)
    for (CWnd* child : std::vector<CWnd*>(state_->children)) {
      const CRect at = window_state(*child).rect;
      child->SetWindowPos(nullptr, at.left + dx, at.top + dy, 0, 0,
                          SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
  mark_changed(*this, &area);
}

}  // namespace brindle
