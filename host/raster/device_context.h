// The device contexts (HDC) of the stand-in host: every one draws into a
// Canvas. The windowing layer may hang its per-DC drawing state (selected
// font, text colour, ...) on `layerState`; the raster library never reads it.
#pragma once

#include "contracts/kobal.h"

class Canvas;

struct KobalDeviceContext {
    Canvas* canvas = nullptr;
    void* layerState = nullptr;
};
