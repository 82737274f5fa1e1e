#include "host/ui/focus_and_capture.h"

#include "host/ui/messages.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {
namespace {

HWND focusedWindow = nullptr;
HWND captureWindow = nullptr;

void forgetFocusAndCapture(HWND window) {
    if (focusedWindow == window) focusedWindow = nullptr;
    if (captureWindow == window) captureWindow = nullptr;
}

[[maybe_unused]] const bool forgetterAdded = addWindowForgetter(forgetFocusAndCapture);

}  // namespace

HWND SetFocus(HWND window) {
    if (window && !liveWindow(window)) return nullptr;
    HWND previous = focusedWindow;
    if (previous == window) return previous;
    focusedWindow = window;
    if (liveWindow(previous))
        SendMessage(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    if (liveWindow(window) && focusedWindow == window)
        SendMessage(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous), 0);
    return previous;
}

HWND GetFocus() { return focusedWindow; }

HWND SetCapture(HWND window) {
    HWND previous = captureWindow;
    captureWindow = liveWindow(window);
    return previous;
}

HWND GetCapture() { return captureWindow; }

BOOL ReleaseCapture() {
    captureWindow = nullptr;
    return 1;
}

}  // namespace kobal_layer
