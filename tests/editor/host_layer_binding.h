// The editor tests drive the plug-in's editor code through the stand-in
// host's windowing layer: the plug-in's kobal:: slots are bound to the
// layer's functions once, as the library's load-time binding would.
#pragma once

#include "contracts/kobal.h"

void bindHostLayerOnce();

// A dialog procedure that handles nothing.
LRESULT ignoringDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// A child window's rectangle in its parent's client coordinates, measured
// through the layer.
RECT rectInParent(HWND window);

// The children of a window in creation order.
int childCount(HWND window);
HWND childAt(HWND window, int index);
