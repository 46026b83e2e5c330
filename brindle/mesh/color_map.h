// How a value becomes a colour: the hue wheel, the table of 256 hues, and the index of a value in
// it. The palette of numbered colours is in acad_palette.h.
#pragma once

#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/graphics/acad_palette.h"

namespace brindle {

// The hue wheel, of which the lowest 16 bits of `h` count: red at 0, yellow at 256, green at 512,
// cyan at 768, blue at 1024, magenta from 1280 on. From 1536 on the outputs stay unwritten.
void Get_RGB(int h, int& r, int& g, int& b);

// The colours 0x00bbggrr of the hues 0, 5, 10 ... 1275, there before main. Colours by range come
// from it; a tool may change it.
extern CDWordArray g_cChangColorIndex;

// The colour of v * scale in g_cChangColorIndex: its first entry at and below min, its last one at
// and above max. An empty range gives the first or the last one, 0 / 0 the first; 0 without a
// table.
DWORD GlobalGetIndexColorByRange(float v, float min, float max, float scale);

}  // namespace brindle
