// Stereo WAV files for the Ardour tests: the input written as 32-bit float,
// the results read back as double, and the level of a tone in a channel.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct StereoSignal {
    int sampleRate = 0;
    std::vector<double> left;
    std::vector<double> right;

    int64_t frames() const { return static_cast<int64_t>(left.size()); }
};

bool writeFloatWav(const std::string& path, const StereoSignal& signal);
// An empty signal when the file cannot be read or is not stereo.
StereoSignal readWav(const std::string& path);

// Amplitude of the sinusoid at `frequency` (a whole number of cycles in the
// window) within samples [first, first + count), by a single DFT bin.
double toneAmplitude(const std::vector<double>& samples, int sampleRate, double frequency,
                     int64_t first, int64_t count);
