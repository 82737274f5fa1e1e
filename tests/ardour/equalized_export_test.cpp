// A file equalized by Ombro in headless Ardour: the session's track plays a
// WAV through the plug-in and ardour7-export renders it; the result is
// measured against the band settings and compared with ombro-host's.
#include <cmath>
#include <fstream>
#include <numbers>

#include "tests/ardour/ardour_session_fixture.h"
#include "tests/ardour/session_file.h"
#include "tests/ardour/stereo_wav.h"

namespace {

constexpr double kToneAmplitude = 0.04;
constexpr double kSeconds = 2.0;

// Left: one tone at every band centre. Right: noise, so that the sample
// comparison covers a broadband signal too.
StereoSignal testSignal(int sampleRate, const std::vector<BandSetting>& bands) {
    StereoSignal signal;
    signal.sampleRate = sampleRate;
    uint32_t noise = 12345;
    for (int64_t i = 0; i < static_cast<int64_t>(kSeconds * sampleRate); ++i) {
        double tones = 0.0;
        for (const BandSetting& band : bands)
            tones += kToneAmplitude * std::sin(2.0 * std::numbers::pi * band.frequency *
                                               static_cast<double>(i) / sampleRate);
        noise = noise * 1664525u + 1013904223u;
        signal.left.push_back(tones);
        signal.right.push_back(0.25 * (static_cast<double>(noise) / 4294967296.0 - 0.5));
    }
    return signal;
}

bool writeBytes(const std::string& path, const std::vector<unsigned char>& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(file);
}

// Largest distance between a float32 rendering and a float64 one, in units
// of the float32 spacing at the reference value.
double largestFloatSteps(const std::vector<double>& rendered,
                         const std::vector<double>& reference) {
    double largest = 0.0;
    for (size_t i = 0; i < reference.size(); ++i) {
        float nearest = static_cast<float>(reference[i]);
        double spacing = std::nextafter(std::fabs(nearest), INFINITY) - std::fabs(nearest);
        largest = std::max(largest, std::fabs(rendered[i] - reference[i]) / spacing);
    }
    return largest;
}

}  // namespace

class ArdourExportTest : public ArdourSessionTest {
protected:
    // The session "equalized" with the input on its track and Ombro holding
    // `chunk`, rendered by ardour7-export.
    StereoSignal renderInArdour(const std::string& inputPath, int64_t frames,
                                const std::vector<unsigned char>& chunk) {
        createSession("equalized");
        SessionFile session(sessionFolder("equalized"), "equalized");
        EXPECT_TRUE(session.placeAudio(inputPath, frames, "Ombro"));
        EXPECT_TRUE(session.replacePluginChunk(chunk));
        EXPECT_TRUE(session.save());
        std::string outputPath = sandbox->path("ardour_output.wav");
        ChildResult exported = sandbox->exportSession(sessionFolder("equalized"), "equalized",
                                                      outputPath);
        EXPECT_TRUE(exported.succeeded()) << exported.output;
        return readWav(outputPath);
    }

    StereoSignal renderInStandInHost(const std::string& inputPath,
                                     const std::vector<unsigned char>& chunk) {
        std::string statePath = sandbox->path("equalized.state");
        std::string outputPath = sandbox->path("host_output.wav");
        EXPECT_TRUE(writeBytes(statePath, chunk));
        ChildResult processed = runChild(
            {OMBRO_HOST_PROGRAM, "process", inputPath, outputPath, "--state", statePath}, {}, 60);
        EXPECT_TRUE(processed.succeeded()) << processed.output;
        return readWav(outputPath);
    }
};

TEST_F(ArdourExportTest, EqualizedFileMatchesBandGainsAndStandInHostSamples) {
    StereoSignal input = testSignal(kSampleRate, kAddedBandsState);
    std::string inputPath = sandbox->path("input.wav");
    ASSERT_TRUE(writeFloatWav(inputPath, input));
    std::vector<unsigned char> chunk = stateChunk(kAddedBandsState, kStateOutputGainDb);

    StereoSignal ardour = renderInArdour(inputPath, input.frames(), chunk);
    StereoSignal host = renderInStandInHost(inputPath, chunk);
    ASSERT_EQ(ardour.frames(), input.frames());
    ASSERT_EQ(host.frames(), input.frames());

    // The last second, long after every band has settled.
    const int64_t first = input.frames() - kSampleRate;
    for (const BandSetting& band : kAddedBandsState) {
        double expectedDb = (band.enabled ? band.gainDb : 0.0) + kStateOutputGainDb;
        double in = toneAmplitude(input.left, kSampleRate, band.frequency, first, kSampleRate);
        double out = toneAmplitude(ardour.left, kSampleRate, band.frequency, first, kSampleRate);
        // The skirts of the neighbours an octave and a half away add up to 0.05 dB.
        EXPECT_NEAR(20.0 * std::log10(out / in), expectedDb, 0.1) << band.frequency << " Hz";
    }
    EXPECT_LE(largestFloatSteps(ardour.left, host.left), 0.5);
    EXPECT_LE(largestFloatSteps(ardour.right, host.right), 0.5);
}
