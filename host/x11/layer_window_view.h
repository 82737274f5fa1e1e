// A window of the windowing layer shown in a real X11 window.
//
// The view opens its own X connection (never the host's) when it is opened,
// creates an X window of the layer window's size, either inside a given
// parent X window (a host's editor frame) or as a top-level window with a
// title, and keeps the two in step:
//  - the layer window's picture (renderWindow) is put into the X window on
//    Expose and whenever it changed;
//  - pointer moves, left and right buttons, double clicks (a second left
//    press within 500 ms and 2 pixels of the first), the wheel (buttons 4
//    and 5), Shift/Control/Alt and typing (to the window with the layer's
//    keyboard focus) are fed into the layer's input paths;
//  - the layer's queued messages and due timers run on the layer's clock
//    (real time unless a test switched it);
//  - when the layer window changes size, the X window follows; a top-level
//    X window resized by the user resizes the layer window.
// Protocol errors on the view's own connection never end the process (the
// host may destroy the parent window first).
// Visuals: 24- and 32-bit TrueColor only; open() answers null for others.
//
// Threads: the view and the layer are used only from the thread that opened
// the view; there is no thread of its own. A host calls idle() regularly
// (about every 40 ms is enough), which does all of the above.
#pragma once

#include <memory>
#include <string>

#include "contracts/kobal.h"

namespace x11_front {

class LayerWindowView {
public:
    // Shows `layerWindow` (a live window of the layer, normally a host window
    // with the editor inside) in a new X window: a child of `parentXWindow`,
    // or a top-level window titled `title` when `parentXWindow` is 0. Null
    // when there is no display, the visual is not TrueColor 24/32 or the
    // layer window is not live.
    static std::unique_ptr<LayerWindowView> open(HWND layerWindow, unsigned long parentXWindow,
                                                 const std::string& title);
    // Destroys the X window and closes the connection; the layer window stays.
    ~LayerWindowView();
    LayerWindowView(const LayerWindowView&) = delete;
    LayerWindowView& operator=(const LayerWindowView&) = delete;

    // Drains the X events into the layer, pumps the layer's messages and
    // timers, follows its size and redraws what changed.
    void idle();
    // The X window that shows the layer window.
    unsigned long xWindow() const;
    // True when the window manager asked to close a top-level view, the X
    // window went with its destroyed parent, or the layer window is no
    // longer live.
    bool closeRequested() const;

    struct State;

private:
    explicit LayerWindowView(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

}  // namespace x11_front
