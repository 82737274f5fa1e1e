// System colours of the layer, answered as 0x00RRGGBB (the raster library's
// pixel order, so a caller can use them as pixels once it adds alpha).
// Indexes follow Win32 (COLOR_WINDOW 5, COLOR_BTNFACE 15, ...) except that
// 8 and 9 are the pale readout background and its text colour.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr int COLOR_SCROLLBAR = 0;
constexpr int COLOR_BACKGROUND = 1;
constexpr int COLOR_MENU = 4;
constexpr int COLOR_WINDOW = 5;
constexpr int COLOR_WINDOWFRAME = 6;
constexpr int COLOR_MENUTEXT = 7;
constexpr int COLOR_READOUT_BACKGROUND = 8;
constexpr int COLOR_READOUT_TEXT = 9;
constexpr int COLOR_HIGHLIGHT = 13;
constexpr int COLOR_HIGHLIGHTTEXT = 14;
constexpr int COLOR_BTNFACE = 15;
constexpr int COLOR_BTNSHADOW = 16;
constexpr int COLOR_GRAYTEXT = 17;
constexpr int COLOR_BTNTEXT = 18;
constexpr int COLOR_BTNHIGHLIGHT = 20;

// Unknown indexes answer 0 (black).
DWORD GetSysColor(int index);
// The same colour as an opaque 0xAARRGGBB pixel.
uint32_t systemPixel(int index);

}  // namespace kobal_layer
