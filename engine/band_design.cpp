// designBand: the band's design parameters to normalized biquad coefficients
// (the Audio EQ Cookbook formulas), with the substitutions and clamps that keep
// every section stable whatever the user or a saved state asks for.
#include <cmath>
#include <numbers>

#include "engine/eq_band.h"

namespace {

constexpr double kMinFrequency = 10.0;
constexpr double kMaxFrequencyRatio = 0.49;  // of the sample rate
constexpr double kMinGain = 3e-5;
constexpr double kMaxGain = 64.0;
constexpr double kShelfToFilterGain = 0.01;  // shelves below this become pass filters
constexpr double kBandToNotchGain = 0.001;
constexpr double kMinBandwidth = 0.01;  // octaves
constexpr double kMinShelfSlope = 0.01;
constexpr double kMaxShelfSlope = 1.2;

// Unnormalized coefficients of one section.
struct RawBiquad {
    double a0, a1, a2, b0, b1, b2;
};

// What the coefficient formulas need: A = sqrt(gain), cos w0 and alpha.
struct DesignPoint {
    double amplitude;
    double cosW0;
    double alpha;
};

RawBiquad lowShelf(const DesignPoint& p) {
    double A = p.amplitude, c = p.cosW0, k = 2 * std::sqrt(A) * p.alpha;
    return {(A + 1) + (A - 1) * c + k,         -2 * ((A - 1) + (A + 1) * c),
            (A + 1) + (A - 1) * c - k,         A * ((A + 1) - (A - 1) * c + k),
            2 * A * ((A - 1) - (A + 1) * c),   A * ((A + 1) - (A - 1) * c - k)};
}

RawBiquad highShelf(const DesignPoint& p) {
    double A = p.amplitude, c = p.cosW0, k = 2 * std::sqrt(A) * p.alpha;
    return {(A + 1) - (A - 1) * c + k,         2 * ((A - 1) - (A + 1) * c),
            (A + 1) - (A - 1) * c - k,         A * ((A + 1) + (A - 1) * c + k),
            -2 * A * ((A - 1) + (A + 1) * c),  A * ((A + 1) + (A - 1) * c - k)};
}

RawBiquad peaking(const DesignPoint& p) {
    double A = p.amplitude, c = p.cosW0, alpha = p.alpha;
    return {1 + alpha / A, -2 * c, 1 - alpha / A, 1 + alpha * A, -2 * c, 1 - alpha * A};
}

// The pass filters share their poles; only the numerator differs.
RawBiquad poles(const DesignPoint& p, double b0, double b1, double b2) {
    return {1 + p.alpha, -2 * p.cosW0, 1 - p.alpha, b0, b1, b2};
}

RawBiquad lowPass(const DesignPoint& p) {
    double c = p.cosW0;
    return poles(p, (1 - c) / 2, 1 - c, (1 - c) / 2);
}

RawBiquad highPass(const DesignPoint& p) {
    double c = p.cosW0;
    return poles(p, (1 + c) / 2, -(1 + c), (1 + c) / 2);
}

RawBiquad allPass(const DesignPoint& p) {
    return poles(p, 1 - p.alpha, -2 * p.cosW0, 1 + p.alpha);
}

RawBiquad notch(const DesignPoint& p) { return poles(p, 1, -2 * p.cosW0, 1); }

RawBiquad bandPass(const DesignPoint& p) { return poles(p, p.alpha, 0, -p.alpha); }

using Formula = RawBiquad (*)(const DesignPoint&);

// Indexed by BandType code.
constexpr Formula kFormulas[] = {lowShelf, highShelf, peaking,  lowPass, highPass,
                                 allPass,  notch,     bandPass, peaking, peaking};
constexpr int32_t kFormulaCount = sizeof(kFormulas) / sizeof(kFormulas[0]);

bool isShelf(int32_t type) { return type == LowShelf || type == HighShelf; }

// Near-silent shelves and bands turn into the filter they approach.
int32_t substitutedType(int32_t type, double gain) {
    if (type == LowShelf && gain < kShelfToFilterGain) return HighPass;
    if (type == HighShelf && gain < kShelfToFilterGain) return LowPass;
    if (type == Band && gain < kBandToNotchGain) return Notch;
    return type;
}

double clampedGain(double gain) {
    if (gain < kMinGain) return kMinGain;
    if (gain > kMaxGain) return kMaxGain;
    return gain;
}

double clampedFrequency(double frequency, double sampleRate) {
    if (frequency < kMinFrequency) frequency = kMinFrequency;
    if (frequency >= kMaxFrequencyRatio * sampleRate) frequency = kMaxFrequencyRatio * sampleRate;
    return frequency;
}

// The shelf bandwidth sets the slope S = 1/bw^2, kept where the shelf stays monotonic.
double shelfSlope(double bandwidth) {
    if (bandwidth < kMinBandwidth) return kMaxShelfSlope;
    double slope = 1 / (bandwidth * bandwidth);
    if (slope < kMinShelfSlope) return kMinShelfSlope;
    if (slope > kMaxShelfSlope) return kMaxShelfSlope;
    return slope;
}

double shelfAlpha(double sinW0, double amplitude, double bandwidth) {
    double slope = shelfSlope(bandwidth);
    return sinW0 / 2 * std::sqrt((amplitude + 1 / amplitude) * (1 / slope - 1) + 2);
}

// Bandwidth in octaves to alpha, with the bilinear warp of the band edges
// (limited to a quarter turn near Nyquist).
double bandwidthAlpha(double w0, double sinW0, double bandwidth) {
    double octaves = bandwidth < kMinBandwidth ? kMinBandwidth : bandwidth;
    double warp = w0 < std::numbers::pi / 2 ? w0 / sinW0 : std::numbers::pi / 2;
    return sinW0 * std::sinh(std::numbers::ln2 / 2 * octaves * warp);
}

void storeCoefficients(EqBand* band, const RawBiquad& raw) {
    band->a1 = raw.a1 / raw.a0;
    band->a2 = raw.a2 / raw.a0;
    band->b0 = raw.b0 / raw.a0;
    band->b1 = raw.b1 / raw.a0;
    band->b2 = raw.b2 / raw.a0;
}

void storePassThrough(EqBand* band) {
    band->b0 = 1;
    band->a1 = band->a2 = band->b1 = band->b2 = 0;
}

void computeCoefficients(EqBand* band, int32_t type, double frequency, double gain,
                         double bandwidth) {
    type = substitutedType(type, gain);
    if (type < 0 || type >= kFormulaCount) {
        storePassThrough(band);
        return;
    }
    double amplitude = std::sqrt(clampedGain(gain));
    double w0 = 2 * clampedFrequency(frequency, band->sampleRate) / band->sampleRate *
                std::numbers::pi;
    double sinW0 = std::sin(w0);
    double alpha = isShelf(type) ? shelfAlpha(sinW0, amplitude, bandwidth)
                                 : bandwidthAlpha(w0, sinW0, bandwidth);
    if (type == BandAlt2) alpha *= amplitude;  // keeps the poles still as the gain moves
    storeCoefficients(band, kFormulas[type]({amplitude, std::cos(w0), alpha}));
}

}  // namespace

void designBand(EqBand* band, int32_t type, bool snap, double frequency, double gain,
                double bandwidth) {
    bool keepStored = type == kKeepBandType;
    if (keepStored) {
        type = band->type;
        frequency = band->frequency;
        gain = band->gain;
        bandwidth = band->bandwidth;
    }
    if (type != band->glideType || snap) {
        band->glideType = type;
        band->glideFrequency = frequency;
        band->glideGain = gain;
        band->glideBandwidth = bandwidth;
    }
    if (!keepStored) {
        bool unchanged = type == band->type && frequency == band->frequency &&
                         gain == band->gain && bandwidth == band->bandwidth;
        if (unchanged) return;
        band->type = type;
        band->frequency = frequency;
        band->gain = gain;
        band->bandwidth = bandwidth;
    }
    computeCoefficients(band, type, frequency, gain, bandwidth);
}
