// The framework's free painting functions, by handles.
#pragma once

#include "brindle/platform/graphics/gdi_types.h"

namespace brindle {

// Triangles (GRADIENT_TRIANGLE, three corners each) or rectangles (GRADIENT_RECT) whose colours run
// between their corners. FALSE without a device or for an index that isn't a corner's.
BOOL GradientFill(HDC hdc, const TRIVERTEX* vertices, ULONG vertex_count, const void* mesh,
                  ULONG mesh_count, ULONG mode);
// FALSE when the source has no pixels.
BOOL AlphaBlend(HDC hdc, int x, int y, int width, int height, HDC source, int source_x,
                int source_y, int source_width, int source_height, BLENDFUNCTION blend);
BOOL TransparentBlt(HDC hdc, int x, int y, int width, int height, HDC source, int source_x,
                    int source_y, int source_width, int source_height, UINT transparent_color);
BOOL BitBlt(HDC hdc, int x, int y, int width, int height, HDC source, int source_x, int source_y,
            DWORD rop);
BOOL StretchBlt(HDC hdc, int x, int y, int width, int height, HDC source, int source_x,
                int source_y, int source_width, int source_height, DWORD rop);
BOOL PatBlt(HDC hdc, int x, int y, int width, int height, DWORD rop);
HDC CreateCompatibleDC(HDC hdc);
BOOL DeleteDC(HDC hdc);
int GetDeviceCaps(HDC hdc, int index);
BOOL MoveToEx(HDC hdc, int x, int y, LPPOINT before);
BOOL LineTo(HDC hdc, int x, int y);
int SetBkMode(HDC hdc, int mode);
COLORREF SetTextColor(HDC hdc, COLORREF color);

}  // namespace brindle
