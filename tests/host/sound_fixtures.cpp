#include "sound_fixtures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "program_runner.h"

void writeSound(const std::string& path, int channels, int format, int frames,
                const std::function<double(int frame, int channel)>& signal) {
    SF_INFO info{0, kTestSampleRate, channels, format, 0, 0};
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
    std::vector<double> samples;
    for (int frame = 0; frame < frames; ++frame)
        for (int channel = 0; channel < channels; ++channel)
            samples.push_back(signal(frame, channel));
    sf_writef_double(file, samples.data(), frames);
    sf_close(file);
}

std::string writeTone(const std::string& name, int channels, int format, int frames,
                      double frequency, double amplitude) {
    std::string path = temporaryPath(name);
    double step = 2.0 * std::numbers::pi * frequency / kTestSampleRate;
    writeSound(path, channels, format, frames,
               [&](int frame, int) { return amplitude * std::sin(step * frame); });
    return path;
}

SoundContents readSound(const std::string& path) {
    SoundContents contents;
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &contents.info);
    if (!file) return contents;
    contents.samples.resize(static_cast<size_t>(contents.info.frames * contents.info.channels));
    sf_readf_double(file, contents.samples.data(), contents.info.frames);
    sf_close(file);
    return contents;
}

std::complex<double> componentAt(const SoundContents& sound, int channel, double frequency,
                                 int from, int to) {
    std::complex<double> sum;
    double step = 2.0 * std::numbers::pi * frequency / sound.info.samplerate;
    for (int frame = from; frame < to; ++frame)
        sum += sound.samples[static_cast<size_t>(frame * sound.info.channels + channel)] *
               std::polar(1.0, -step * frame);
    return sum / static_cast<double>(to - from);
}

double gainDbAt(const SoundContents& in, const SoundContents& out, double frequency, int from,
                int to) {
    return decibels(std::abs(componentAt(out, 0, frequency, from, to)) /
                    std::abs(componentAt(in, 0, frequency, from, to)));
}

double decibels(double ratio) { return 20.0 * std::log10(ratio); }
