// User input for tests and host programs, delivered the Win32 way: mouse
// messages go to the window holding the capture, else to the deepest shown
// window under the pointer, with the point in that window's client
// coordinates in lParam and the MK_ flags of the buttons and modifier keys
// in wParam. Before each mouse message without capture the window under the
// pointer gets WM_SETCURSOR. The pointer position (GetCursorPos) and the key
// state (GetAsyncKeyState) follow the injected input. Messages are sent at
// once; what the handlers post waits for pumpMessages().
#pragma once

#include <string>

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr WPARAM MK_LBUTTON = 0x0001;
constexpr WPARAM MK_RBUTTON = 0x0002;
constexpr WPARAM MK_SHIFT = 0x0004;
constexpr WPARAM MK_CONTROL = 0x0008;
constexpr int kWheelNotch = 120;

enum class MouseButton { left, right };

// Pointer actions at a screen point; each returns the window that got the message.
HWND moveMouse(POINT screenPoint);
HWND pressMouse(MouseButton button, POINT screenPoint);
HWND releaseMouse(MouseButton button, POINT screenPoint);
// Down, up, double click, up, as Win32 reports a double click.
HWND doubleClickMouse(POINT screenPoint);
// The wheel message carries the screen point in lParam, as in Win32.
HWND turnWheel(POINT screenPoint, int delta);

// A point of `window`'s client area on the screen.
POINT screenPointOf(HWND window, POINT clientPoint);
// Moves there, presses and releases the left button.
HWND clickAt(HWND window, POINT clientPoint);
HWND clickCentre(HWND window);

// Modifier keys (VK_SHIFT, VK_CONTROL, VK_MENU) for GetAsyncKeyState and MK_ flags.
void holdKey(int virtualKey, bool down);

// Keyboard focus to the edit box, then (when `replace`) WM_CLEAR, then one
// WM_CHAR per character: one EN_CHANGE per edit, as typing gives.
void typeIntoEdit(HWND edit, const std::string& text, bool replace = true);
// Clicks the header of tab `index`, first pressing the strip's arrow button
// until it is in view when the tabs scroll; false when there is no such tab.
bool clickTab(HWND tabs, int index);
// The user picks entry `index` of a drop-down list (CBN_SELCHANGE).
bool chooseListEntry(HWND combo, int index);
// Presses on the knob, drags it to `position`'s place and releases; the
// fader ends at the position of that pixel.
bool dragFaderTo(HWND fader, int position);
// A click in the middle of the button or check box.
bool clickButton(HWND button);

}  // namespace kobal_layer
