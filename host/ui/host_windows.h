// Top-level windows that belong to the host: the frame a host gives the
// plug-in's editor as its parent (effEditOpen passes it in ptr). They are
// shown at once, placed on the screen, and paint a plain face.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr const char* kHostWindowClassName = "KobalHostWindow";

HWND createHostWindow(const char* title, const RECT& screenRect);

// Destroys every window, drops the posted messages, timers, menus, focus,
// capture, pressed keys and the menu chooser: a clean layer for the next
// session or test. The clock and the layer options stay as they are.
void resetWindowingLayer();

}  // namespace kobal_layer
