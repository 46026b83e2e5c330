// The one way of telling the user something: a line in the prompt window or a message box, by code.
#pragma once

#include "brindle/platform/base/format.h"
#include "brindle/platform/base/string.h"

namespace brindle {

// Master switch: 0 silences tell_error altogether, its control codes included.
extern int G_bDispJSXX;
// Code of the last error box (301 to 400).
extern int JS_ERROR_CODE;
// Whether messages are told at all; switched by control code -8888.
extern int bPromptEnabled;

// Tells the user `text`; the code picks how. A null text is an empty one.
//
//   code                      prompt window        message
//   0 to 100                  shown on top         text is appended to the prompt window
//   101 to 200                hidden               information box
//   201 to 300                hidden               warning box
//   301 to 400                hidden               error box; JS_ERROR_CODE = code
//   401 to 999                hidden               none
//   negative, from 1000 on    shown on top         text is appended to the prompt window
//
// Control codes act on the prompt window, also while bPromptEnabled is 0:
//
//   -8888  bPromptEnabled = whether text is "TRUE"
//   -1111  empties the window
//   -1112  scrolls it by _wtoi(text) lines
//   -5555  stores _wtoi(text) in its first parameter
//   -6666  stores _wtoi(text) in its second parameter
//   -7777  shows it on top with the title text
//   -8889  its third flag = whether text is "TRUE"
//   -9999  hides it if text is "TRUE", shows it otherwise
//   -8899  destroys it; the next message makes a new one
//
// Before a message, not before a control code, the thread's pending messages are dispatched so that
// windows live during a long calculation: a message handler may run from inside this call.
void tell_error(int code, const wchar_t* text);

// Formats as wformat does, then tell_error.
template <class... Args>
void tell_error1(int code, const wchar_t* format, const Args&... args) {
  tell_error(code, wformat(format, args...).c_str());
}

// Does nothing, and is meant to.
template <class... Args>
void tell_error2(int, const wchar_t*, const Args&...) {}

// Stores a name and returns the one stored before; nothing reads it.
CString set_error2_filename(CString name);

// 1 when the prompt window exists and is visible, else 0.
int IsJsxxVisible();

}  // namespace brindle
