// Sizes of the screen and of what stands on it, and the system's colours.
#pragma once

#include "brindle/platform/base/types.h"

namespace brindle {

inline constexpr int SM_CXSCREEN = 0, SM_CYSCREEN = 1, SM_CXVSCROLL = 2, SM_CYHSCROLL = 3,
                     SM_CYCAPTION = 4, SM_CXBORDER = 5, SM_CYBORDER = 6, SM_CXICON = 11,
                     SM_CYICON = 12, SM_CXCURSOR = 13, SM_CYCURSOR = 14, SM_CYMENU = 15,
                     SM_CXFULLSCREEN = 16, SM_CYFULLSCREEN = 17, SM_CYVSCROLL = 20,
                     SM_CXHSCROLL = 21, SM_CXFRAME = 32, SM_CYFRAME = 33, SM_CXDOUBLECLK = 36,
                     SM_CYDOUBLECLK = 37, SM_CXEDGE = 45, SM_CYEDGE = 46, SM_CXSMICON = 49,
                     SM_CYSMICON = 50;
inline constexpr int COLOR_SCROLLBAR = 0, COLOR_BACKGROUND = 1, COLOR_ACTIVECAPTION = 2,
                     COLOR_INACTIVECAPTION = 3, COLOR_MENU = 4, COLOR_WINDOW = 5,
                     COLOR_WINDOWFRAME = 6, COLOR_MENUTEXT = 7, COLOR_WINDOWTEXT = 8,
                     COLOR_CAPTIONTEXT = 9, COLOR_ACTIVEBORDER = 10, COLOR_INACTIVEBORDER = 11,
                     COLOR_APPWORKSPACE = 12, COLOR_HIGHLIGHT = 13, COLOR_HIGHLIGHTTEXT = 14,
                     COLOR_BTNFACE = 15, COLOR_3DFACE = 15, COLOR_BTNSHADOW = 16,
                     COLOR_3DSHADOW = 16, COLOR_GRAYTEXT = 17, COLOR_BTNTEXT = 18,
                     COLOR_INACTIVECAPTIONTEXT = 19, COLOR_BTNHIGHLIGHT = 20,
                     COLOR_3DHIGHLIGHT = 20, COLOR_3DDKSHADOW = 21, COLOR_3DLIGHT = 22,
                     COLOR_INFOTEXT = 23, COLOR_INFOBK = 24, COLOR_HOTLIGHT = 26,
                     COLOR_MENUHILIGHT = 29, COLOR_MENUBAR = 30;

// Pixels; 0 for an index that isn't known.
int GetSystemMetrics(int index);
COLORREF GetSysColor(int index);
// Windows are told by set_system_colors of platform/window. An unknown index is passed over.
BOOL SetSysColors(int count, const int* indexes, const COLORREF* colors);
// `text` where it can be read on `background`; else its light counterpart on a dark one, or its
// dark counterpart on a light one.
COLORREF readable_color(COLORREF text, COLORREF background);
// The screen is 1920 by 1080 until a backend or a program that paints without one says otherwise.
void set_screen_size(int width, int height);

}  // namespace brindle
