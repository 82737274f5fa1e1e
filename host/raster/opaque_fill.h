// Filling whole pixels with a fully opaque colour, written straight into the
// bitmap's pixels: the result Cairo gives for such a fill (the colour itself
// in every covered pixel, whatever was there), without the cost of a Cairo
// drawing call. Used by the integer shapes that cover whole pixels.
#pragma once

#include <cstdint>

class CanvasBitmap;

// Fills the rectangle (clipped to the bitmap) when the call's colour, alpha
// and mode make the fill fully opaque; false, with nothing drawn, otherwise.
bool fillOpaqueRect(CanvasBitmap* bitmap, int x, int y, int width, int height, uint32_t color,
                    double alpha, int mode);
