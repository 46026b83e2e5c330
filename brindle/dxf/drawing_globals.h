// Settings of text drawing and of the cursor, shared by all drawings of a process.
#pragma once

namespace brindle {

extern float G_RatioText;  // factor of the height of drawn texts against their nominal height
extern float G_HightText;  // height that a tool gives to its texts, drawing units
extern int G_nCursorSize;  // size of the drawing cursor in pixels, 0: the window's own choice

}  // namespace brindle
