// The way of the user's doings into the windows: a backend, or a test, tells what happened to a
// top-level window, and the right child gets the messages.
#pragma once

#include "brindle/platform/window/window_types.h"

namespace brindle {

class CWnd;

// `message` is one of WM_MOUSEMOVE to WM_MBUTTONDBLCLK, `flags` are MK_*, `at` is in pixels of the
// top-level window's picture. The window with the capture gets it, else the one under the mouse,
// whose scroll bars are worked here. A window's position in the message is in its own client area.
void route_mouse(CWnd& top, UINT message, UINT flags, CPoint at);
// `delta` in 120ths of a notch, positive away from the user; to the focus, or what is under the
// mouse when the focus is elsewhere.
void route_wheel(CWnd& top, int delta, UINT flags, CPoint at);
void route_mouse_leave(CWnd& top);
// A key (VK_*) goes down or up: to the focus, by way of PreTranslateMessage of it and its parents.
// True when one of these took it: no character follows then.
bool route_key(CWnd& top, UINT key, bool down, UINT repeat = 1);
// A character that was typed; one beyond 16 bits comes whole.
void route_char(CWnd& top, wchar_t character);
// Key down, the character when the key makes one, key up.
void route_key_press(CWnd& top, UINT key);
// Whether Tab would leave the window, which stands among others in a form: what has the focus
// doesn't want the key, and in a dialog is the last control (the first, backwards).
bool tab_leaves(CWnd& top, bool backwards);
// Tab came into the window: the focus goes to the first control of a dialog, the last backwards.
void route_tab_in(CWnd& top, bool backwards);
// The window becomes the active one, and its last focus comes back; or it stops being so.
void route_activate(CWnd& top, bool active);
// The user sized or moved the window, closed it.
void route_bounds(CWnd& top, const CRect& screen);
void route_close(CWnd& top);

}  // namespace brindle
