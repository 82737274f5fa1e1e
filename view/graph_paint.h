// WM_PAINT of the response view: everything is drawn into the instance's
// off-screen bitmap, which then reaches the window in one copy. The instance
// mutex is held only while the bands are copied; no window or raster call
// happens under it.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

LRESULT paintResponseView(EqInstance& instance, HWND view);

// Draws the whole graph into the instance's bitmap (creating or resizing it)
// without touching the window; false when there is no bitmap.
bool renderGraph(EqInstance& instance, HWND view, int width, int height);
