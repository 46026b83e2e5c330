// The queue of posted messages, timers, and the loops that empty them.
#pragma once

#include "brindle/platform/window/window_types.h"

namespace brindle {

class CWnd;

// Sends every message that is posted, those posted meanwhile too, then WM_TIMER for each timer that
// is due. Returns how many were sent. A message to a window that has gone is dropped. Posting on
// and on can't hold it: after 10,000 messages the rest waits for the next call.
int dispatch_posted_messages();

BOOL IsWindow(HWND window);
LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// FALSE for a window that isn't there.
BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exit_code);
// Milliseconds by the backend's clock.
DWORD GetTickCount();

// Removes the next posted message of the window (null: of any) within the numbers given, both 0 for
// all; FALSE when there is none.
BOOL PeekMessage(LPMSG message, HWND window, UINT first, UINT last, bool remove = true);
LRESULT DispatchMessage(const MSG* message);

// Dispatches and waits until `window` is closed or hidden, or, without a window, until
// PostQuitMessage. Returns the exit code. Ends at once when nothing can come any more.
int run_message_loop(CWnd* window = nullptr);

}  // namespace brindle
