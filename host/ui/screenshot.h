// Pictures of windows: a window and everything shown inside it, composed
// the way the screen would show it. Standard controls are drawn plainly
// from their state; windows that paint themselves contribute the pixels of
// their last WM_PAINT; dialogs and other windows show the dialog face.
// Pending paints are carried out first.
#pragma once

#include <memory>
#include <string>

#include "contracts/kobal.h"

class Canvas;

namespace kobal_layer {

// Null for a window that is not live.
std::unique_ptr<Canvas> renderWindow(HWND window);
// Renders and writes a PNG; false when the window is not live or writing fails.
bool saveScreenshot(HWND window, const std::string& path);

}  // namespace kobal_layer
