// The graph's right-click menu: adding and deleting bands, enabling,
// resetting, flipping and retyping them.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

enum ContextCommand : UINT {
    kAddBandCommand = 40001,
    kDeleteBandCommand = 40002,
    kEnableBandCommand = 40003,
    kResetBandCommand = 40004,
    kFirstBandTypeCommand = 40006,  // + the band type code, up to Band (8)
    kLastBandTypeCommand = 40014,
    kResetAllBandsCommand = 40015,
    kFlipAllBandsCommand = 40016,
};

LRESULT openContextMenu(EqInstance& instance, HWND view, WPARAM wParam, LPARAM lParam);

// Carries out a menu command; fClick and aClick are the frequency and gain
// under the click, for a new band.
void runContextCommand(EqInstance& instance, HWND view, UINT command, double clickFrequency,
                       double clickAmplitude);
