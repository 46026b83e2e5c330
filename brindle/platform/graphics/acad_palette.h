// The 256 colours that drawings name by number.
#pragma once

namespace brindle {

// The red, green and blue parts, 0 to 255, of colour `aci` of the standard AutoCAD Color Index
// palette: 1 red, 2 yellow, 3 green, 4 cyan, 5 blue, 6 magenta, 7 white, 8 and 9 greys, 10 to 249
// by hue, 250 to 255 greys. Colour 0 (by block) is black. A number outside 0 to 255 gives white,
// the colour of 7, so that what is drawn with it can be seen: 256 (by layer) and those below 0
// stand for a colour that the caller has to find first.
void Get_AcadRGB(int aci, int& r, int& g, int& b);

}  // namespace brindle
