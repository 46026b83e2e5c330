#include "brindle/platform/window/system_look.h"

#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

void tell_all_windows(UINT message) {
  std::vector<HWND> windows;
  {
    WindowSystem& system = window_system();
    const std::lock_guard lock(system.mutex);
    for (const CWnd* window : system.live) windows.push_back(window->m_hWnd);
  }
  for (const HWND handle : windows) {
    if (!IsWindow(handle)) continue;  // one told before may have ended it
    CWnd::FromHandle(handle)->SendMessage(message);
    if (!IsWindow(handle)) continue;
    CWnd::FromHandle(handle)->Invalidate();
    mark_changed(*CWnd::FromHandle(handle));
  }
}

bool is_same(const LOGFONT& a, const LOGFONT& b) {
  return a.lfHeight == b.lfHeight && a.lfWidth == b.lfWidth && a.lfWeight == b.lfWeight &&
         a.lfItalic == b.lfItalic && a.lfCharSet == b.lfCharSet &&
         std::wstring_view(a.lfFaceName) == b.lfFaceName;
}

}  // namespace

void set_system_colors(const std::vector<SystemColor>& colors) {
  bool differs = false;
  for (const SystemColor& each : colors) {
    if (GetSysColor(each.index) == each.color) continue;
    SetSysColors(1, &each.index, &each.color);
    differs = true;
  }
  if (differs) tell_all_windows(WM_SYSCOLORCHANGE);
}

void set_system_font(const LOGFONT& font) {
  if (is_same(static_cast<CFont*>(stock_object(DEFAULT_GUI_FONT))->data(), font)) return;
  set_default_gui_font(font);
  tell_all_windows(WM_SETTINGCHANGE);
}

}  // namespace brindle
