#include "host/app/test_signal.h"

#include <algorithm>
#include <cstdint>
#include <cmath>
#include <numbers>

namespace {

constexpr double kSilenceDb = -150.0;

// A uniform value in [-0.5, 0.5) from a linear congruential sequence.
double nextNoise(uint64_t& seed) {
    seed = seed * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<double>(seed >> 11) / 9007199254740992.0 - 0.5;
}

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

StereoBuffer makeNoisyTone(double sampleRate, size_t frames) {
    StereoBuffer signal = makeTone(440.0, 0.25, sampleRate, frames);
    uint64_t seed = 1;
    for (size_t frame = 0; frame < frames; ++frame) {
        signal.left[frame] += 0.1 * nextNoise(seed);
        signal.right[frame] = signal.left[frame];
    }
    return signal;
}

StereoBuffer makeNoise(double amplitude, size_t frames) {
    StereoBuffer noise(frames);
    uint64_t seed = 1;
    for (size_t frame = 0; frame < frames; ++frame) {
        noise.left[frame] = 2.0 * amplitude * nextNoise(seed);
        noise.right[frame] = noise.left[frame];
    }
    return noise;
}

StereoBuffer joinSignals(const StereoBuffer& first, const StereoBuffer& second) {
    StereoBuffer joined = first;
    joined.left.insert(joined.left.end(), second.left.begin(), second.left.end());
    joined.right.insert(joined.right.end(), second.right.begin(), second.right.end());
    return joined;
}
