// Painting with Win32 semantics. A window that paints itself (WM_PAINT with
// BeginPaint ... EndPaint) draws into its own surface, a raster canvas the
// size of its client area; BeginPaint hands out that canvas's device context
// and validates the window. Screenshots show the surface as the window's
// pixels.
#pragma once

#include "contracts/kobal.h"

class Canvas;

namespace kobal_layer {

HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);
// Copies a rectangle between the canvases behind two device contexts; the
// raster operation is always a plain copy.
BOOL BitBlt(HDC destination, int x, int y, int width, int height, HDC source, int sourceX,
            int sourceY, DWORD rop);

// The surface a window painted itself into, or null when it never did.
Canvas* paintedSurface(HWND window);

}  // namespace kobal_layer
