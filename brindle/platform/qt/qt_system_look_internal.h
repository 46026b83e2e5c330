// Takes the library's colours and its font of controls from the application's palette and font.
#pragma once

#include "brindle/platform/window/system_look.h"

#include <QFont>
#include <QPalette>

namespace brindle {

std::vector<SystemColor> system_colors_of(const QPalette& palette, const QPalette& tips);
// In units; `pixels` is the font's size.
LOGFONT system_font_of(const QFont& font, double pixels);
// Tells the look as it is now and whenever it changes, as long as the application lives.
void follow_system_look();

}  // namespace brindle
