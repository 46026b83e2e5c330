// The mouse's cursor, and the state of mouse and keys.
#pragma once

#include "brindle/platform/window/window_types.h"

namespace brindle {

// The standard cursors, by their numbers.
struct CursorHandle;
using HCURSOR = CursorHandle*;
inline constexpr int IDC_ARROW = 32512, IDC_IBEAM = 32513, IDC_WAIT = 32514, IDC_CROSS = 32515,
                     IDC_UPARROW = 32516, IDC_SIZENWSE = 32642, IDC_SIZENESW = 32643,
                     IDC_SIZEWE = 32644, IDC_SIZENS = 32645, IDC_SIZEALL = 32646, IDC_NO = 32648,
                     IDC_HAND = 32649, IDC_HELP = 32651;

// The cursor of a number, null for one that isn't above. `instance` is always null.
HCURSOR LoadCursor(HINSTANCE instance, int id);
HCURSOR AfxLoadStandardCursor(int id);
// The number of a cursor; 0 for null.
int cursor_id(HCURSOR cursor);
// Shows that cursor, null for none, until the mouse moves on; returns the one before.
HCURSOR SetCursor(HCURSOR cursor);
HCURSOR GetCursor();

// Where the mouse is, in screen pixels.
BOOL GetCursorPos(LPPOINT point);
BOOL SetCursorPos(int x, int y);
// Negative while the key (VK_*) or mouse button is down.
SHORT GetKeyState(int key);
SHORT GetAsyncKeyState(int key);
// Tells the state to the two above; the input's routing does it for what it routes.
void set_key_state(int key, bool down);

}  // namespace brindle
