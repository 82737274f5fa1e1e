// The X cursor that shows the layer's current cursor shape over the window.
#pragma once

#include <X11/Xlib.h>

#include <map>

namespace x11_front {

class PointerShape {
public:
    explicit PointerShape(Display* display) : display_(display) {}
    ~PointerShape();
    PointerShape(const PointerShape&) = delete;
    PointerShape& operator=(const PointerShape&) = delete;

    // Shows the layer's current cursor over `window` when it changed.
    void follow(Window window);

private:
    Display* display_;
    int shownId_ = -1;
    std::map<unsigned int, Cursor> cursors_;  // by X cursor-font shape
};

}  // namespace x11_front
