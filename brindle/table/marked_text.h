// Draw_Text_Ext: one line of text with marks that switch underlining and stand for signs.
#pragma once

#include "brindle/platform/base/string.h"

namespace brindle {

class CDC;

// Draws at (x, y) with the font, colour and alignment (left, top) of `dc`. "%%u" switches
// underlining on and off, "%%d" is a degree sign, "%%p" plus-minus, "%%c" a diameter sign, "%%%"
// one percent sign; any other mark stays as it is. `underlined` is the state at the start. Returns
// the width drawn.
int Draw_Text_Ext(CDC* dc, int x, int y, const CString& text, bool underlined = false);

}  // namespace brindle
