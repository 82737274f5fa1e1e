// One numbered round handle per band, in list order so later bands lie on top.
#pragma once

#include "view/graph_axes.h"

class MuraBitmap;
struct EqInstance;
struct EqBand;

struct HandleLook {
    bool filled;
    uint32_t color;
    uint32_t numberColor;
};

HandleLook handleLook(const EqBand& band, bool selected);

// The caller holds the instance mutex.
void drawBandHandles(MuraBitmap* bitmap, const EqInstance& instance, const GraphAxes& axes);
