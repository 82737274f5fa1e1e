// UI fonts (HFONT) of the windowing layer: CreateFontIndirect keeps the
// LOGFONT it was given, and the raster library reads it back through
// describeUiFont to set text in that face and height.
#pragma once

#include "contracts/kobal.h"

// Fills `description` with the LOGFONT `font` was created from; false (and
// `description` untouched) for null or unknown handles.
bool describeUiFont(HFONT font, LOGFONT* description);

namespace kobal_layer {

// A handle recording a copy of `font`; null for a null record. Handles live
// until the process ends (the layer offers no DeleteObject).
HFONT CreateFontIndirect(const LOGFONT* font);

}  // namespace kobal_layer
