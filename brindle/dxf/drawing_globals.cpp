#include "brindle/dxf/drawing_globals.h"

namespace brindle {

float G_RatioText = 1.0f;
float G_HightText = 300.0f;
int G_nCursorSize = 0;

}  // namespace brindle
