// One equalizer band: a biquad section with its design parameters, its
// normalized coefficients, the history of both channels and the values the
// audio path has glided to.
#pragma once

#include <cstdint>

enum BandType : int32_t {
    LowShelf = 0,
    HighShelf = 1,
    BandAlt2 = 2,
    LowPass = 3,
    HighPass = 4,
    AllPass = 5,
    Notch = 6,
    BandPass = 7,
    Band = 8,
    BandAlt = 9,
};

constexpr int32_t kKeepBandType = -1;  // designBand: recompute from the stored values

// Filter history of one channel, in the order the kernel shifts it.
struct BiquadHistory {
    double x1, x2, y1, y2;
};

struct EqBand {
    double a1, a2, b0, b1, b2;  // normalized by a0
    BiquadHistory historyLeft;
    BiquadHistory historyRight;
    double sampleRate;
    double frequency;  // Hz, as set by the user (unclamped)
    double gain;       // linear amplitude, as set (unclamped)
    double bandwidth;  // octaves, as set (unclamped)
    double glideFrequency;
    double glideGain;
    double glideBandwidth;
    int32_t type;
    int32_t enabled;
    uint8_t logScaleAutomation;
    int32_t glideType;
    uint8_t primed;
};

// Types whose design ignores the gain (it matters only to the shelf and
// peaking substitutions): LowPass, HighPass, AllPass, Notch, BandPass.
constexpr bool ignoresGain(int32_t type) { return type >= LowPass && type <= BandPass; }

// A fresh record with the defaults every creator starts from (coefficients
// zero), allocated with new; null when out of memory. The owner deletes it.
EqBand* newEqBand();

// Sets the band's design (unless type is kKeepBandType) and computes its
// coefficients; `snap` makes the glide values jump to the design.
void designBand(EqBand* band, int32_t type, bool snap, double frequency, double gain,
                double bandwidth);

// Creates a band designed for `sampleRate` the way every creator does: fresh
// defaults, a snapped design, then the sample-rate take-over. Null when out of memory.
EqBand* createDesignedBand(int32_t type, double frequency, double gain, double bandwidth,
                           double sampleRate);

// Moves the band to `sampleRate`, redesigning it from its stored values with
// the glide snapped, unless it is designed for that rate already.
void adoptSampleRate(EqBand* band, double sampleRate);

// Clears both histories and `primed` and ends any glide (glide values = design).
void restartBand(EqBand* band);

const char* bandTypeName(int32_t type);  // "" for unknown codes
