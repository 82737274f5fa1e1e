// One numbered round handle per band, in list order so later bands lie on top.
#pragma once

#include "view/graph_axes.h"

class MuraBitmap;
struct EqBand;
struct GraphSnapshot;

struct HandleLook {
    bool filled;
    uint32_t color;
    uint32_t numberColor;
};

HandleLook handleLook(const EqBand& band, bool selected);

void drawBandHandles(MuraBitmap* bitmap, const GraphSnapshot& snapshot, const GraphAxes& axes);
