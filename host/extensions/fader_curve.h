// The curve of the host's faders: fader positions 0..1000 against dB.
//
// The curve is piecewise linear in dB between the points of kFaderCurve:
// -150 dB at the bottom (0), 0 dB at three quarters of the travel (750) and
// +12 dB at the top (1000), with finer resolution near the top where levels
// are set most often. Both directions clamp to the curve's ends, are strictly
// increasing in between, and are each other's inverse.
#pragma once

struct FaderPoint {
    double position;
    double db;
};

constexpr FaderPoint kFaderCurve[] = {
    {0.0, -150.0}, {120.0, -60.0}, {220.0, -40.0}, {300.0, -30.0},
    {400.0, -20.0}, {550.0, -10.0}, {750.0, 0.0},  {1000.0, 12.0},
};

constexpr double kFaderBottom = 0.0;
constexpr double kFaderTop = 1000.0;

// "DB2SLIDER": the fader position of a level in dB (a NaN level is the bottom).
double faderPositionOfDb(double db);
// "SLIDER2DB": the level in dB of a fader position (a NaN position is the bottom).
double dbOfFaderPosition(double position);
