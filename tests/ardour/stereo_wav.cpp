#include "tests/ardour/stereo_wav.h"

#include <sndfile.h>

#include <cmath>
#include <complex>
#include <numbers>

bool writeFloatWav(const std::string& path, const StereoSignal& signal) {
    SF_INFO info{};
    info.samplerate = signal.sampleRate;
    info.channels = 2;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) return false;
    std::vector<float> frames;
    for (int64_t i = 0; i < signal.frames(); ++i) {
        frames.push_back(static_cast<float>(signal.left[i]));
        frames.push_back(static_cast<float>(signal.right[i]));
    }
    sf_count_t written = sf_writef_float(file, frames.data(), signal.frames());
    return sf_close(file) == 0 && written == signal.frames();
}

StereoSignal readWav(const std::string& path) {
    StereoSignal signal;
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file) return signal;
    if (info.channels == 2) {
        std::vector<double> frames(static_cast<size_t>(info.frames) * 2);
        sf_count_t read = sf_readf_double(file, frames.data(), info.frames);
        signal.sampleRate = info.samplerate;
        for (sf_count_t i = 0; i < read; ++i) {
            signal.left.push_back(frames[2 * i]);
            signal.right.push_back(frames[2 * i + 1]);
        }
    }
    sf_close(file);
    return signal;
}

double toneAmplitude(const std::vector<double>& samples, int sampleRate, double frequency,
                     int64_t first, int64_t count) {
    std::complex<double> sum = 0.0;
    double step = 2.0 * std::numbers::pi * frequency / sampleRate;
    for (int64_t i = 0; i < count; ++i)
        sum += samples[first + i] * std::polar(1.0, -step * static_cast<double>(i));
    return 2.0 * std::abs(sum) / static_cast<double>(count);
}
