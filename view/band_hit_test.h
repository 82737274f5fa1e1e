// Finding the band handle under a point: a 15 by 15 pixel box around the
// point, measured in mapped frequency and amplitude, with the selected band
// first and then the bands drawn on top.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// A silent band, far below the graph: -120 dB.
constexpr double kOffGraphGain = 1.0000000000000004e-06;
// The loudest gain the graph edits to or reads out (+36.1 dB).
constexpr double kHighestBandGain = 64.0;

struct PointValues {
    double frequency;  // Hz under the point
    double amplitude;  // linear gain under the point
};

// The band index under (x, y) in the view, or -1. `values`, when given,
// receives the frequency and gain at the point; with `clampLow` a gain below
// the bottom edge reads as kOffGraphGain.
int hitTestBand(const EqInstance& instance, HWND view, int x, int y, PointValues* values,
                bool clampLow);
