// The graph's right-click menu: adding and deleting bands, enabling,
// resetting, flipping and retyping them.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// The menu's command ids.
constexpr UINT kAddBandCommand = 40001;
constexpr UINT kDeleteBandCommand = 40002;
constexpr UINT kEnableBandCommand = 40003;
constexpr UINT kResetBandCommand = 40004;
constexpr UINT kFirstBandTypeCommand = 40006;  // + the band type code, up to Band (8)
constexpr UINT kLastBandTypeCommand = 40014;
constexpr UINT kResetAllBandsCommand = 40015;
constexpr UINT kFlipAllBandsCommand = 40016;

LRESULT openContextMenu(EqInstance& instance, HWND view, WPARAM wParam, LPARAM lParam);

// Carries out a menu command; fClick and aClick are the frequency and gain
// under the click, for a new band.
void runContextCommand(EqInstance& instance, HWND view, UINT command, double clickFrequency,
                       double clickAmplitude);
