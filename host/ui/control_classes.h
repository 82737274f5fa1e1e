// The window classes the layer implements itself, looked up by class name
// (case-insensitive, as Win32 class names are). Each control kind lives in
// its own file and contributes one ControlClass record.
#pragma once

#include <memory>

#include "contracts/kobal.h"
#include "host/ui/window_tree.h"

class Canvas;

namespace kobal_layer {

struct ControlClass {
    const char* name;
    WNDPROC procedure;
    std::unique_ptr<ControlState> (*makeState)(uint32_t style);  // null: no state
    // Draws the control's face into `canvas` with the control's top left at
    // (x, y); null for controls that paint themselves.
    void (*drawFace)(HWND control, Canvas& canvas, int x, int y);
    // True for controls drawn straight onto the parent, under their
    // siblings, and ignored by hit testing (group boxes); null: never.
    bool (*isTransparent)(uint32_t style);
    // Called once the window exists, to adjust it (null: nothing to do).
    void (*created)(HWND control);
};

// True when the window's class draws it transparently (see ControlClass).
bool isTransparentWindow(HWND window);

// The table of every standard class (standard_classes.cpp).
const ControlClass* const* standardClasses(int* count);
const ControlClass* findControlClass(const char* className);
// The class record a window was created with, or null.
const ControlClass* controlClassOf(HWND window);

// Creates a standard control, or asks the custom control creators for a class
// the layer does not know; an unknown class still yields a plain window.
HWND createControl(HWND parent, const char* className, const char* text, int id, uint32_t style,
                   const RECT& rect);

}  // namespace kobal_layer
