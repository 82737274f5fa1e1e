// Reading the pointer for the view's handlers: the signed client coordinates
// packed into a mouse message, and the pointer's current place in the view.
#pragma once

#include <cstdint>

#include "contracts/kobal.h"

inline int signedLowWord(intptr_t value) { return static_cast<int16_t>(value & 0xffff); }
inline int signedHighWord(intptr_t value) { return static_cast<int16_t>((value >> 16) & 0xffff); }

// GetCursorPos in the view's client coordinates.
POINT pointerInView(HWND view);
