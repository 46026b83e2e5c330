// Progress bar and information box that a tool lends to the library.
#pragma once

#include "brindle/platform/base/string.h"

namespace brindle {

class CEdit;
class CProgressCtrl;

// Owned by the tool, which sets them to null before it destroys the windows. Null: no such window.
extern CProgressCtrl* g_pJsProgress;
extern CEdit* g_pJsInfo;

// Moves g_pJsProgress to `percent`, clamped to 1 .. 100. Nothing without a bar.
void Show_JsProgress(int percent);

// Appends `text` as a new line ("\r\n" between lines) to g_pJsInfo and scrolls to it. Nothing
// without a box.
void Show_JsInfo(const CString& text);

}  // namespace brindle
