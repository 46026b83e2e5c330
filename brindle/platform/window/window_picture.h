// A window's picture, made without a screen.
#pragma once

#include "brindle/platform/graphics/geometry_types.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

class CWnd;

// Paints what is invalid in the window and in all its visible children.
void update_windows(CWnd& window);
// The window as it looks, with its border, scroll bars and visible children, everything painted, in
// the pixels of its screen.
RasterBitmap window_picture(CWnd& window);
// The same into the part `area` (units of the window) of a bitmap made on a grid of the window's
// size.
void draw_window(CWnd& window, RasterBitmap& target, const CRect& area);

}  // namespace brindle
