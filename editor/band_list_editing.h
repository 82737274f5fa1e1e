// Adding and removing bands from the user interface; the host is told that
// its parameter list changed.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// Appends a peaking band at `frequency` Hz with linear `gain` and selects it.
void addBand(EqInstance* instance, HWND editor, double frequency, double gain);
// Deletes the selected band; at least one band always remains.
void removeBand(EqInstance* instance, HWND editor);

// After any change of the band list or the bands: the band panel shows the
// selected band afresh, the graph redraws and the host hears of the change.
void showBandListChange(EqInstance* instance);
