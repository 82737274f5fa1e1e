// The response is measured rather than computed from the band values: an
// impulse played through processDoubleReplacing goes through exactly the
// filters and output gain the audio gets, with every clamp and type
// substitution of the design, and the host keeps no second copy of the
// filter formulas that could drift from the effect's.
#include "host/app/effect_response.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// Silence first lets the bands glide to their settings and the output gain
// reach its value before the impulse.
constexpr size_t kSettleFrames = 8192;
// The response has died away once this many blocks in a row stay below the
// threshold relative to its peak.
constexpr int kQuietBlocksToStop = 4;
constexpr double kQuietRelativeLevel = 1e-13;
constexpr size_t kLongestResponse = size_t{1} << 21;

double peakOf(const std::vector<double>& samples) {
    double peak = 0.0;
    for (double sample : samples) peak = std::max(peak, std::fabs(sample));
    return peak;
}

}  // namespace

std::vector<double> measureImpulseResponse(EffectSession& session) {
    size_t blockSize = static_cast<size_t>(session.options().blockSize);
    StereoBuffer silence(kSettleFrames), output;
    session.process(silence, output);

    std::vector<double> response;
    StereoBuffer block(blockSize);
    block.left[0] = block.right[0] = 1.0;
    double peak = 0.0;
    for (int quietBlocks = 0; quietBlocks < kQuietBlocksToStop && response.size() < kLongestResponse;) {
        session.process(block, output);
        block.left[0] = block.right[0] = 0.0;
        response.insert(response.end(), output.left.begin(), output.left.end());
        double blockPeak = peakOf(output.left);
        peak = std::max(peak, blockPeak);
        quietBlocks = blockPeak <= peak * kQuietRelativeLevel ? quietBlocks + 1 : 0;
    }
    return response;
}

// Goertzel's recurrence: one real multiply per sample, then one complex step.
std::complex<double> transferAt(const std::vector<double>& impulse, double frequency,
                                double sampleRate) {
    double omega = 2.0 * std::numbers::pi * frequency / sampleRate;
    double coefficient = 2.0 * std::cos(omega);
    double previous = 0.0, beforePrevious = 0.0;
    for (double sample : impulse) {
        double current = sample + coefficient * previous - beforePrevious;
        beforePrevious = previous;
        previous = current;
    }
    std::complex<double> step = std::polar(1.0, -omega);
    double last = static_cast<double>(impulse.empty() ? 0 : impulse.size() - 1);
    return std::polar(1.0, -omega * last) * (previous - step * beforePrevious);
}
