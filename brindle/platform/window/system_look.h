// The look that the desktop gives to all windows: colours and the font of controls. A toolkit's
// backend tells them when they change; a program without one may.
#pragma once

#include <vector>

#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/gdi_types.h"
#include "brindle/platform/graphics/system_metrics.h"

namespace brindle {

struct SystemColor {
  int index;  // COLOR_*
  COLORREF color;
};

// What GetSysColor gives from now on; colours that aren't named stay. When one differs, every
// window gets WM_SYSCOLORCHANGE and is painted anew.
void set_system_colors(const std::vector<SystemColor>& colors);
// DEFAULT_GUI_FONT from now on. When it differs, every window gets WM_SETTINGCHANGE and is painted
// anew; sizes that a program gave in pixels stay.
void set_system_font(const LOGFONT& font);

}  // namespace brindle
