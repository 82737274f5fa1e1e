// The pointer and keyboard state that the layer reports: the cursor position
// (screen coordinates), which keys and buttons are down, and the cursor shape
// last set. Input injection (input_injection.h) is what changes them.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

// Cursor shapes, by the Win32 IDC_ numbers.
constexpr int IDC_ARROW = 32512;
constexpr int IDC_IBEAM = 32513;
constexpr int IDC_SIZENS = 32645;
constexpr int IDC_SIZEWE = 32644;
constexpr int IDC_SIZEALL = 32646;
constexpr int IDC_HAND = 32649;

BOOL GetCursorPos(POINT* point);
// Bit 15 set while the key is down.
int16_t GetAsyncKeyState(int virtualKey);
HCURSOR KOBAL_LoadCursor(int cursorId);
// Makes `cursor` current and returns the previous one.
HCURSOR KOBAL_SetCursor(HCURSOR cursor);

// For the host and tests.
void setCursorPosition(POINT screenPoint);
void setKeyDown(int virtualKey, bool down);
void releaseAllKeys();
HCURSOR currentCursor();
// The IDC_ number of a cursor handle, or 0 for null or an unknown handle.
int cursorIdOf(HCURSOR cursor);

}  // namespace kobal_layer
