#include "host/ui/control_notifications.h"

#include "host/ui/messages.h"

namespace kobal_layer {

void notifyCommand(HWND control, UINT code) {
    KobalWindow* window = liveWindow(control);
    if (!window || !window->parent) return;
    SendMessage(window->parent, WM_COMMAND, makeWParam(window->id, static_cast<int>(code)),
                reinterpret_cast<LPARAM>(control));
}

LRESULT notifyParent(HWND control, UINT code) {
    KobalWindow* window = liveWindow(control);
    if (!window || !window->parent) return 0;
    NMHDR header{control, static_cast<UINT_PTR>(window->id), code};
    return SendMessage(window->parent, WM_NOTIFY, static_cast<WPARAM>(window->id),
                       reinterpret_cast<LPARAM>(&header));
}

}  // namespace kobal_layer
