// Keyboard focus and mouse capture. SetFocus sends WM_KILLFOCUS to the window
// losing the focus (wParam: the one gaining it) and then WM_SETFOCUS to the
// one gaining it (wParam: the one losing it). A destroyed window loses both.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

HWND SetFocus(HWND window);
HWND GetFocus();
HWND SetCapture(HWND window);
HWND GetCapture();
BOOL ReleaseCapture();

}  // namespace kobal_layer
