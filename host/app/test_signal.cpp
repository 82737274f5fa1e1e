#include "host/app/test_signal.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kSilenceDb = -150.0;

}  // namespace

StereoBuffer makeTone(double frequency, double amplitude, double sampleRate, size_t frames) {
    StereoBuffer tone(frames);
    double step = 2.0 * std::numbers::pi * frequency / sampleRate;
    for (size_t frame = 0; frame < frames; ++frame) {
        tone.left[frame] = amplitude * std::sin(step * static_cast<double>(frame));
        tone.right[frame] = tone.left[frame];
    }
    return tone;
}

double rmsLevelDb(const StereoBuffer& buffer, size_t from) {
    double sum = 0.0;
    size_t count = 0;
    for (size_t frame = from; frame < buffer.frames(); ++frame, count += 2)
        sum += buffer.left[frame] * buffer.left[frame] + buffer.right[frame] * buffer.right[frame];
    if (count == 0 || sum <= 0.0) return kSilenceDb;
    return std::max(kSilenceDb, 10.0 * std::log10(sum / static_cast<double>(count)));
}
