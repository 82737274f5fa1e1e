// A WAV equalized by ardour7-export as by ombro-host.
#include <sndfile.h>

#include <cmath>
#include <fstream>
#include <numbers>

#include "tests/ardour/ardour_sandbox.h"

namespace {

constexpr int kSampleRate = 48000;
constexpr int64_t kFrames = 2 * kSampleRate;

// Interleaved stereo frames of a WAV file: 32-bit float written, double read.
bool writeWav(const std::string& path, const std::vector<float>& frames) {
    SF_INFO info{0, kSampleRate, 2, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0, 0};
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    return file && sf_writef_float(file, frames.data(), kFrames) == kFrames && sf_close(file) == 0;
}

std::vector<double> readWav(const std::string& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    std::vector<double> frames(file && info.channels == 2 ? 2 * info.frames : 0);
    if (file) frames.resize(2 * static_cast<size_t>(sf_readf_double(file, frames.data(), info.frames)));
    if (file) sf_close(file);
    return frames;
}

}  // namespace

// Left: one tone at every band centre. Right: noise.
TEST_F(ArdourSessionTest, EqualizedFileMatchesStandInHostSamples) {
    std::vector<float> input;
    uint32_t noise = 12345;
    for (int64_t i = 0; i < kFrames; ++i) {
        double tones = 0.0;
        for (const BandSetting& band : kAddedBands)
            tones += 0.04 * std::sin(2.0 * std::numbers::pi * band.frequency * static_cast<double>(i) / kSampleRate);
        noise = noise * 1664525u + 1013904223u;
        input.push_back(static_cast<float>(tones));
        input.push_back(static_cast<float>(0.25 * (noise / 4294967296.0 - 0.5)));
    }
    ASSERT_TRUE(writeWav(path("input.wav"), input));
    const std::vector<unsigned char> chunk = addedBandsChunk();
    SessionFile session = createSession("equalized");
    ASSERT_TRUE(session.placeAudio(path("input.wav"), kFrames));
    ASSERT_TRUE(session.replacePluginChunk(chunk));
    ASSERT_TRUE(session.save());
    // ardour7-export now and then hangs once it has written the file.
    const std::vector<std::string> exportCommand = {OMBRO_ARDOUR_EXPORT, "--bitdepth", "float", "--output",
                                                    path("ardour.wav"), path("equalized"), "equalized"};
    ChildResult exported = runChild(exportCommand, 30);
    if (exported.exitCode == -1) exported = runChild(exportCommand, 30);
    EXPECT_EQ(exported.exitCode, 0) << exported.output;
    std::ofstream(path("state"), std::ios::binary) << std::string(chunk.begin(), chunk.end());
    ChildResult processed = runChild(
        {OMBRO_HOST_PROGRAM, "process", path("input.wav"), path("host.wav"), "--state", path("state")});
    EXPECT_EQ(processed.exitCode, 0) << processed.output;
    std::vector<double> ardour = readWav(path("ardour.wav")), host = readWav(path("host.wav"));
    ASSERT_EQ(ardour.size(), input.size());
    ASSERT_EQ(host.size(), input.size());

    // Ardour renders in float, ombro-host in double: at most half a float step apart.
    for (size_t i = 0; i < host.size(); ++i) {
        const float nearest = static_cast<float>(host[i]);
        const double step = std::nextafter(std::fabs(nearest), INFINITY) - std::fabs(nearest);
        ASSERT_LE(std::fabs(ardour[i] - host[i]), 0.5 * step) << "sample " << i / 2 << ", channel " << i % 2;
    }
}
