#include "editor/window_geometry.h"

#include "plugin/ui_layer.h"

RECT rectInParent(HWND window, HWND parent) {
    RECT screen{};
    kobal::GetWindowRect(window, &screen);
    POINT topLeft{screen.left, screen.top};
    POINT bottomRight{screen.right, screen.bottom};
    kobal::ScreenToClient(parent, &topLeft);
    kobal::ScreenToClient(parent, &bottomRight);
    return RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}
