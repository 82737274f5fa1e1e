// User input for tests and host programs, delivered the Win32 way: mouse
// messages go to the window holding the capture, else to the deepest shown
// window under the pointer, with the point in that window's client
// coordinates in lParam and the MK_ flags of the buttons and modifier keys
// in wParam. Before each mouse message without capture the window under the
// pointer gets WM_SETCURSOR. The pointer position (GetCursorPos) and the key
// state (GetAsyncKeyState) follow the injected input. Messages are sent at
// once; what the handlers post waits for pumpMessages().
#pragma once

#include <cstdint>
#include <string>

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr WPARAM MK_LBUTTON = 0x0001;
constexpr WPARAM MK_RBUTTON = 0x0002;
constexpr WPARAM MK_SHIFT = 0x0004;
constexpr WPARAM MK_CONTROL = 0x0008;
constexpr int kWheelNotch = 120;

enum class MouseButton { left, right };

// Keys that do more than type a character, by their Win32 virtual-key codes.
constexpr int VK_BACK = 0x08;
constexpr int VK_TAB = 0x09;
constexpr int VK_RETURN = 0x0D;
constexpr int VK_ESCAPE = 0x1B;
constexpr int VK_END = 0x23;
constexpr int VK_HOME = 0x24;
constexpr int VK_LEFT = 0x25;
constexpr int VK_UP = 0x26;
constexpr int VK_RIGHT = 0x27;
constexpr int VK_DOWN = 0x28;
constexpr int VK_DELETE = 0x2E;
// Two presses of a button closer than this in time and space make a double click.
constexpr uint32_t kDoubleClickMs = 500;
constexpr int kDoubleClickDistance = 2;  // pixels either way

// Pointer actions at a screen point; each returns the window that got the message.
HWND moveMouse(POINT screenPoint);
HWND pressMouse(MouseButton button, POINT screenPoint);
HWND releaseMouse(MouseButton button, POINT screenPoint);
// The second left press of a double click: WM_LBUTTONDBLCLK in place of
// WM_LBUTTONDOWN.
HWND pressLeftAgain(POINT screenPoint);
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

// A key as the keyboard gives it to the window with the keyboard focus:
// WM_KEYDOWN, then WM_CHAR when the key types `typed` (0: types nothing);
// WM_KEYUP on release. Answer the window that got them, null without focus.
HWND pressKey(int virtualKey, char typed);
HWND releaseKey(int virtualKey);

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
