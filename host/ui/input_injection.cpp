#include "host/ui/input_injection.h"

#include "host/ui/combo_box.h"
#include "host/ui/edit_box.h"
#include "host/ui/fader.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/messages.h"
#include "host/ui/pointer_and_keys.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {
namespace {

constexpr LPARAM HTCLIENT = 1;

LPARAM packPoint(POINT point) {
    return static_cast<LPARAM>((static_cast<uint32_t>(point.y & 0xFFFF) << 16) |
                               static_cast<uint32_t>(point.x & 0xFFFF));
}

WPARAM heldFlags() {
    WPARAM flags = 0;
    if (GetAsyncKeyState(VK_LBUTTON)) flags |= MK_LBUTTON;
    if (GetAsyncKeyState(VK_RBUTTON)) flags |= MK_RBUTTON;
    if (GetAsyncKeyState(VK_SHIFT)) flags |= MK_SHIFT;
    if (GetAsyncKeyState(VK_CONTROL)) flags |= MK_CONTROL;
    return flags;
}

HWND pointerTarget(POINT screenPoint) {
    HWND captured = GetCapture();
    return captured ? captured : WindowFromPoint(screenPoint);
}

// Delivers one mouse message in client coordinates of its target.
HWND deliverMouse(UINT message, POINT screenPoint) {
    setCursorPosition(screenPoint);
    HWND target = pointerTarget(screenPoint);
    if (!target) return nullptr;
    if (!GetCapture())
        SendMessage(target, WM_SETCURSOR, reinterpret_cast<WPARAM>(target),
                    (static_cast<LPARAM>(message) << 16) | HTCLIENT);
    if (!liveWindow(target)) return nullptr;
    POINT client = screenPoint;
    ScreenToClient(target, &client);
    SendMessage(target, message, heldFlags(), packPoint(client));
    return target;
}

int buttonKey(MouseButton button) { return button == MouseButton::left ? VK_LBUTTON : VK_RBUTTON; }

POINT centreOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return POINT{client.right / 2, client.bottom / 2};
}

}  // namespace

HWND moveMouse(POINT screenPoint) { return deliverMouse(WM_MOUSEMOVE, screenPoint); }

HWND pressMouse(MouseButton button, POINT screenPoint) {
    setKeyDown(buttonKey(button), true);
    return deliverMouse(button == MouseButton::left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN, screenPoint);
}

HWND releaseMouse(MouseButton button, POINT screenPoint) {
    setKeyDown(buttonKey(button), false);
    return deliverMouse(button == MouseButton::left ? WM_LBUTTONUP : WM_RBUTTONUP, screenPoint);
}

HWND pressLeftAgain(POINT screenPoint) {
    setKeyDown(VK_LBUTTON, true);
    return deliverMouse(WM_LBUTTONDBLCLK, screenPoint);
}

HWND doubleClickMouse(POINT screenPoint) {
    pressMouse(MouseButton::left, screenPoint);
    releaseMouse(MouseButton::left, screenPoint);
    HWND target = pressLeftAgain(screenPoint);
    releaseMouse(MouseButton::left, screenPoint);
    return target;
}

HWND turnWheel(POINT screenPoint, int delta) {
    setCursorPosition(screenPoint);
    HWND target = pointerTarget(screenPoint);
    if (!target) return nullptr;
    WPARAM wParam = (static_cast<WPARAM>(static_cast<uint16_t>(delta)) << 16) | heldFlags();
    SendMessage(target, WM_MOUSEWHEEL, wParam, packPoint(screenPoint));
    return target;
}

POINT screenPointOf(HWND window, POINT clientPoint) {
    ClientToScreen(window, &clientPoint);
    return clientPoint;
}

HWND clickAt(HWND window, POINT clientPoint) {
    POINT screen = screenPointOf(window, clientPoint);
    moveMouse(screen);
    HWND target = pressMouse(MouseButton::left, screen);
    releaseMouse(MouseButton::left, screen);
    return target;
}

HWND clickCentre(HWND window) { return clickAt(window, centreOf(window)); }

void holdKey(int virtualKey, bool down) { setKeyDown(virtualKey, down); }

HWND pressKey(int virtualKey, char typed) {
    HWND focus = GetFocus();
    if (!focus) return nullptr;
    if (virtualKey) SendMessage(focus, WM_KEYDOWN, static_cast<WPARAM>(virtualKey), 1);
    if (typed && liveWindow(focus))
        SendMessage(focus, WM_CHAR, static_cast<unsigned char>(typed), 1);
    return focus;
}

HWND releaseKey(int virtualKey) {
    HWND focus = GetFocus();
    if (!focus || !virtualKey) return focus;
    SendMessage(focus, WM_KEYUP, static_cast<WPARAM>(virtualKey), LPARAM(0xC0000001));
    return focus;
}

void typeIntoEdit(HWND edit, const std::string& text, bool replace) {
    if (!liveWindow(edit)) return;
    SetFocus(edit);
    if (replace) SendMessage(edit, WM_CLEAR, 0, 0);
    for (char typed : text)
        if (liveWindow(edit)) SendMessage(edit, WM_CHAR, static_cast<unsigned char>(typed), 0);
}

bool isShownTab(HWND tabs, int index) {
    const RECT header = tabHeaderRect(tabs, index);
    return header.right > header.left;
}

// Presses the arrow button towards tab `index` until its header shows; false
// when it never does.
bool scrollTabIntoView(HWND tabs, int index) {
    for (int presses = 0; presses <= TabCtrl_GetItemCount(tabs); ++presses) {
        if (isShownTab(tabs, index)) return true;
        int firstShown = 0;
        while (firstShown < TabCtrl_GetItemCount(tabs) && !isShownTab(tabs, firstShown))
            ++firstShown;
        const RECT button = tabScrollButtonRect(tabs, index < firstShown ? -1 : 1);
        if (button.right <= button.left) return false;
        clickAt(tabs, POINT{(button.left + button.right) / 2, (button.top + button.bottom) / 2});
    }
    return false;
}

bool clickTab(HWND tabs, int index) {
    if (index < 0 || index >= TabCtrl_GetItemCount(tabs) || !scrollTabIntoView(tabs, index))
        return false;
    RECT header = tabHeaderRect(tabs, index);
    POINT middle{(header.left + header.right) / 2, (header.top + header.bottom) / 2};
    return clickAt(tabs, middle) == tabs;
}

bool chooseListEntry(HWND combo, int index) { return chooseComboEntryAsUser(combo, index); }

bool dragFaderTo(HWND fader, int position) {
    if (!liveWindow(fader) || !faderText(fader, kFaderNameText)) return false;
    int current = static_cast<int>(SendMessage(fader, TBM_GETPOS, 0, 0));
    POINT from = screenPointOf(fader, faderPointOfPosition(fader, current));
    POINT to = screenPointOf(fader, faderPointOfPosition(fader, position));
    moveMouse(from);
    if (pressMouse(MouseButton::left, from) != fader) return false;
    moveMouse(to);
    releaseMouse(MouseButton::left, to);
    return true;
}

bool clickButton(HWND button) { return liveWindow(button) && clickCentre(button) == button; }

}  // namespace kobal_layer
