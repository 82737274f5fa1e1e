// The box beside the pointer that names the band under it (or being
// dragged): number, type and values, drawn into the view's bitmap.
#pragma once

#include <cstddef>

#include "contracts/kobal.h"

class MuraBitmap;
struct EqBand;
struct GraphSnapshot;

// "Band 2: 3.0dB 1000.0Hz 1.00 oct", with "DISABLED:" in front of a band that is off.
void formatReadout(char* text, size_t size, const EqBand& band, int index);

// Where a box of textWidth by textHeight goes for a pointer at `pointer`,
// inside a client area `client`: the text rectangle.
RECT placeReadout(POINT pointer, const RECT& client, int textWidth, int textHeight);

// Paint step for the hovered band.
void drawHoverReadout(MuraBitmap* bitmap, const GraphSnapshot& snapshot, HWND view);
