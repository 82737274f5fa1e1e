#include "editor/band_fader_scale.h"

#include <climits>
#include <cmath>

#include "plugin/parameters.h"

namespace {
constexpr double kFrequencyPositionsPerLogUnit = 166.83457378359495;  // 1000 / ln 401
constexpr double kBandwidthPositionsPerOctave = 1000.0;
}  // namespace

int truncatedPosition(double position) {
    if (std::isnan(position)) return 0;
    if (position >= static_cast<double>(INT_MAX)) return INT_MAX;
    if (position <= static_cast<double>(INT_MIN)) return INT_MIN;
    return static_cast<int>(position);
}

double frequencyOfFaderPosition(int position) {
    return (std::exp(position / kFrequencyPositionsPerLogUnit) - 1.0) * 23980.0 * 0.0025 + 20.0;
}

int frequencyFaderPosition(double frequency) {
    const double axis = std::log((frequency - 20.0) * kInverseFrequencySpan * 400.0 + 1.0);
    return truncatedPosition(axis * kInverseLn401 * 1000.0);
}

double bandwidthOfFaderPosition(int position) {
    return position / kBandwidthPositionsPerOctave;
}

int bandwidthFaderPosition(double bandwidth) {
    return truncatedPosition(kBandwidthPositionsPerOctave * bandwidth);
}
