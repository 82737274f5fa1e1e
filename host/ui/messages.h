// Messages with Win32 semantics: SendMessage calls the window procedure at
// once; PostMessage queues, and the host's pump delivers the queue in order,
// then the due timers' WM_TIMER, then WM_PAINT to every window that was
// invalidated.
#pragma once

#include <cstdint>

#include "contracts/kobal.h"

namespace kobal_layer {

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Default handling: WM_PAINT validates, WM_SETTEXT/WM_GETTEXT keep the text,
// WM_CLOSE destroys, WM_MOUSEWHEEL goes up to the parent, WM_SETCURSOR asks
// the parent and else sets the arrow; everything else answers 0.
LRESULT DefWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// The whole window is repainted at the next pump (rect is not tracked).
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);
// Sends WM_PAINT now when the window is invalid.
BOOL UpdateWindow(HWND window);

// Marks the window and every window inside it for repainting.
void invalidateWithChildren(HWND window);

// The host's message pump: delivers posted messages (including ones posted
// meanwhile), then fires the timers due on the host clock, then paints.
// Returns the number of messages delivered.
int pumpMessages();
// Posted messages not delivered yet; dropping them all.
int pendingPostedMessages();
void dropPostedMessages();
// Sends WM_PAINT to every shown window that is invalid (the pump's last step).
int paintInvalidWindows();
// How many WM_PAINT messages the layer has sent so far: a picture of the
// windows can only have changed when this count moved (every change of a
// window's looks invalidates it).
uint64_t paintsSent();

}  // namespace kobal_layer
