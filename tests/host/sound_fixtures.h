// Sound files for the program tests: written, read back, measured at one frequency.
#pragma once

#include <sndfile.h>

#include <complex>
#include <functional>
#include <string>
#include <vector>

struct SoundContents {
    SF_INFO info{};
    std::vector<double> samples;  // interleaved; empty when the file cannot be read
};

constexpr int kTestSampleRate = 44100;

// Writes `frames` frames of `format`; each sample is `signal(frame, channel)`.
void writeSound(const std::string& path, int channels, int format, int frames,
                const std::function<double(int frame, int channel)>& signal);
// A fresh temporary file holding a sine of `frequency` Hz and peak `amplitude` on every channel.
std::string writeTone(const std::string& name, int channels, int format, int frames,
                      double frequency = 1000.0, double amplitude = 0.4);
SoundContents readSound(const std::string& path);

// The complex amplitude at `frequency` Hz over frames [from, to) of `channel`.
std::complex<double> componentAt(const SoundContents& sound, int channel, double frequency,
                                 int from, int to);
// The gain in dB at `frequency` from `in` to `out` over frames [from, to).
double gainDbAt(const SoundContents& in, const SoundContents& out, double frequency, int from,
                int to);
double decibels(double ratio);
