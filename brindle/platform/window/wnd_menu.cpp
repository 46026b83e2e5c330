// The menu bar of a window: its place, and its picture where the toolkit has none.
#include <algorithm>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

constexpr int kMargin = 8;  // beside a title of the bar

std::wstring without_marks(const std::wstring& text) {
  std::wstring shown;
  for (size_t i = 0; i < text.size(); ++i)
    if (text[i] != L'&' || (i > 0 && text[i - 1] == L'&')) shown += text[i];
  return shown;
}

// The places of the bar's titles, in the window's own pixels.
std::vector<CRect> title_boxes(const CWnd& window) {
  const WindowState& state = window_state(window);
  CPoint corner(state.border(), state.border());
  std::vector<CRect> boxes;
  for (const CMenu::Item& item : state.menu->items()) {
    const int width = control_text_extent(window, without_marks(item.text)).cx + 2 * kMargin;
    boxes.emplace_back(corner, CSize(width, state.menu_height));
    corner.x += width;
  }
  return boxes;
}

}  // namespace

CMenu* CWnd::GetMenu() const {
  return state_->menu;
}

BOOL CWnd::SetMenu(CMenu* menu) {
  if (m_hWnd != nullptr && state_->is_child()) return FALSE;
  state_->menu = menu;
  DrawMenuBar();
  return TRUE;
}

void CWnd::DrawMenuBar() {
  if (m_hWnd == nullptr || state_->is_child()) return;
  const int before = state_->menu_height;
  place_menu_bar(*this);
  if (state_->menu_height != before)
    size_changed(*this);
  else
    mark_changed(*this);
}

void place_menu_bar(CWnd& window) {
  WindowState& state = window_state(window);
  state.menu_height = state.peer->set_menu(state.menu);
  state.paints_menu = state.menu != nullptr && state.menu_height == 0;
  if (state.paints_menu)
    state.menu_height = std::max(GetSystemMetrics(SM_CYMENU), control_line_height(window) + 6);
}

void paint_menu_bar(CDC& dc, const CWnd& window, CPoint at) {
  const WindowState& state = window_state(window);
  const CRect band(CPoint(state.border(), state.border()),
                   CSize(state.rect.Width() - 2 * state.border(), state.menu_height));
  dc.FillSolidRect(band + at, GetSysColor(COLOR_MENUBAR));
  dc.SelectObject(control_font(window));
  dc.SetBkMode(TRANSPARENT);
  const std::vector<CRect> boxes = title_boxes(window);
  for (size_t i = 0; i < boxes.size(); ++i) {
    const CMenu::Item& item = state.menu->items()[i];
    const bool grey = (item.flags & (MF_GRAYED | MF_DISABLED)) != 0;
    dc.SetTextColor(GetSysColor(grey ? COLOR_GRAYTEXT : COLOR_MENUTEXT));
    CRect words = boxes[i] + at;
    dc.DrawText(item.text.c_str(), static_cast<int>(item.text.size()), words,
                DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  }
}

void press_menu_bar(CWnd& window, CPoint at) {
  const WindowState& state = window_state(window);
  if (!state.paints_menu) return;
  const std::vector<CRect> boxes = title_boxes(window);
  for (size_t i = 0; i < boxes.size(); ++i) {
    if (!boxes[i].PtInRect(at)) continue;
    const CMenu::Item item = state.menu->items()[i];
    if ((item.flags & (MF_GRAYED | MF_DISABLED)) != 0) return;
    CRect frame;
    window.GetWindowRect(frame);
    if (item.popup)
      item.popup->TrackPopupMenu(TPM_LEFTALIGN, frame.left + boxes[i].left,
                                 frame.top + boxes[i].bottom, &window);
    else
      window.SendMessage(WM_COMMAND, item.id);
    return;
  }
}

}  // namespace brindle
