// Feeds the input of an X window into the windowing layer as the user's
// input on the layer window it shows: X window coordinates become the layer
// window's screen coordinates, buttons 4 and 5 the wheel, a quick second
// left press a double click, Shift/Control/Alt the layer's key state, and
// key presses go to the window with the layer's keyboard focus.
#pragma once

#include <X11/Xlib.h>

#include "contracts/kobal.h"
#include "host/x11/double_click.h"

namespace x11_front {

class InputFeeder {
public:
    explicit InputFeeder(HWND layerWindow) : layerWindow_(layerWindow) {}
    // Answers whether the event was input for the layer.
    bool feed(XEvent& event);

private:
    POINT screenPointOf(int x, int y) const;
    void feedPress(const XButtonEvent& press);
    void feedRelease(const XButtonEvent& release);
    void feedKey(XKeyEvent& key, bool pressed);
    void pointerLeft();

    HWND layerWindow_;
    DoubleClickDetector doubleClicks_;
};

// Sets the layer's Shift, Control and Alt keys from an X event's state.
void followModifierState(unsigned int state);
void releaseModifiers();

}  // namespace x11_front
