// The design standard that the tools of a process calculate by.
#pragma once

namespace brindle {

// GuiFan, the design code, by the year of its edition: 2010 is GB50010-2010.
extern int G_guifan;

}  // namespace brindle
