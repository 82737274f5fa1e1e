// The band panel's value texts, written into its edit boxes and onto its faders.
#pragma once

#include "contracts/kobal.h"

struct BandValues {
    double frequency;  // Hz
    double gain;       // linear
    double bandwidth;  // octaves
};

enum class GainTextCeiling { shown, ignored };

// Writes the three texts and the note name; the edit box `keptBox` keeps
// what the user typed. With the ceiling shown, gains from 64 up read as the
// dB of 64, the largest gain a band is designed with.
void showBandTexts(HWND panel, const BandValues& values, LPARAM keptBox,
                   GainTextCeiling ceiling);
