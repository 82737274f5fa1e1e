// Creators of control classes that the layer does not know itself (the
// equalizer's graph registers one for "OmbroWindow"). When a dialog asks for
// an unknown class, the creators are asked in registration order and the
// first window answered wins.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

void KOBAL_RegisterCustomControlCreator(CustomControlCreator creator);
void KOBAL_UnregisterCustomControlCreator(CustomControlCreator creator);

// The first creator's window for `className`, or null when none knows it.
HWND createCustomControl(HWND parent, const char* text, int id, const char* className, int style,
                         const RECT& rect);

}  // namespace kobal_layer
