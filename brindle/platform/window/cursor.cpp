#include "brindle/platform/window/cursor.h"

#include <utility>

#include "brindle/platform/window/wnd_internal.h"

namespace brindle {

HCURSOR LoadCursor(HINSTANCE, int id) {
  const bool known = (id >= IDC_ARROW && id <= IDC_UPARROW) ||
                     (id >= IDC_SIZENWSE && id <= IDC_SIZEALL) || id == IDC_NO || id == IDC_HAND ||
                     id == IDC_HELP;
  return known ? reinterpret_cast<HCURSOR>(static_cast<UINT_PTR>(id)) : nullptr;
}

HCURSOR AfxLoadStandardCursor(int id) {
  return LoadCursor(nullptr, id);
}

int cursor_id(HCURSOR cursor) {
  return static_cast<int>(reinterpret_cast<UINT_PTR>(cursor));
}

HCURSOR SetCursor(HCURSOR cursor) {
  WindowSystem& system = window_system();
  if (cursor != system.cursor) {
    const CWnd* window = system.capture != nullptr ? system.capture : system.hovered;
    if (window != nullptr)
      if (WindowPeer* peer = window_state(top_level(*window)).peer.get()) peer->set_cursor(cursor);
  }
  return std::exchange(system.cursor, cursor);
}

HCURSOR GetCursor() {
  return window_system().cursor;
}

BOOL GetCursorPos(LPPOINT point) {
  *point = window_system().mouse;
  return TRUE;
}

BOOL SetCursorPos(int x, int y) {
  window_system().mouse = CPoint(x, y);
  return TRUE;
}

SHORT GetKeyState(int key) {
  return key >= 0 && key < 256 && window_system().keys[key] ? static_cast<SHORT>(-128) : SHORT{0};
}

SHORT GetAsyncKeyState(int key) {
  return key >= 0 && key < 256 && window_system().keys[key] ? static_cast<SHORT>(-32768) : SHORT{0};
}

void set_key_state(int key, bool down) {
  if (key >= 0 && key < 256) window_system().keys[key] = down;
}

}  // namespace brindle
