// Selecting a band from the graph: the band panel and the tab strip follow.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// selectedBand = index, the editor's tab `index` becomes current, and the
// view and band panel are marked for refresh.
void selectBand(EqInstance& instance, HWND view, int index);
