// The grid behind the curves: frequency lines with labels along the bottom
// and gain lines labelled on the left with dB and on the right with the
// spectrum's level scale.
#pragma once

#include "view/graph_axes.h"

class MuraBitmap;

void drawGraphGrid(MuraBitmap* bitmap, const GraphAxes& axes);
