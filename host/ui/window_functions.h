// Window management with Win32 semantics: showing, destroying, placing and
// measuring windows, window words, parents and hit testing.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr int GWL_STYLE = -16;
constexpr int GWL_WNDPROC = -4;

BOOL ShowWindow(HWND window, int command);
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);
BOOL IsWindowVisible(HWND window);
HWND GetParent(HWND window);
BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
BOOL GetWindowRect(HWND window, RECT* rect);  // screen coordinates
BOOL GetClientRect(HWND window, RECT* rect);
BOOL ClientToScreen(HWND window, POINT* point);
BOOL ScreenToClient(HWND window, POINT* point);
// The deepest visible, enabled window under a screen point.
HWND WindowFromPoint(POINT point);
LONG_PTR GetWindowLong(HWND window, int index);
LONG_PTR SetWindowLong(HWND window, int index, LONG_PTR value);
BOOL IsChild(HWND parent, HWND window);
BOOL EnableWindow(HWND window, BOOL enable);

}  // namespace kobal_layer
