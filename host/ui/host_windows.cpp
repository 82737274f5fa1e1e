#include "host/ui/host_windows.h"

#include "host/ui/focus_and_capture.h"
#include "host/ui/menus.h"
#include "host/ui/messages.h"
#include "host/ui/pointer_and_keys.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {

HWND createHostWindow(const char* title, const RECT& screenRect) {
    WindowCreation creation;
    creation.className = kHostWindowClassName;
    creation.text = title ? title : "";
    creation.rect = screenRect;
    creation.procedure = DefWindowProc;
    creation.visible = true;
    return createWindow(creation);
}

void resetWindowingLayer() {
    for (HWND window : topLevelWindows()) DestroyWindow(window);
    dropPostedMessages();
    destroyAllMenus();
    resetMenuTracking();
    ReleaseCapture();
    SetFocus(nullptr);
    releaseAllKeys();
    KOBAL_SetCursor(nullptr);
}

}  // namespace kobal_layer
