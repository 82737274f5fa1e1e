// "process" keeps the input's shape or writes the one asked for, says when
// integer samples clip, and dithers 16-bit output unless told not to.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "program_runner.h"
#include "sound_fixtures.h"

namespace {

TEST(ProgramFormats, ContainerFollowsTheExtensionAndSamplesTheInputOrFormat) {
    struct Case {
        int inputFormat;
        const char* outputName;
        std::vector<std::string> options;
        int expected;
    };
    const Case cases[] = {
        {SF_FORMAT_WAV | SF_FORMAT_PCM_24, "out.wav", {}, SF_FORMAT_WAV | SF_FORMAT_PCM_24},
        {SF_FORMAT_WAV | SF_FORMAT_FLOAT, "out.aiff", {}, SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
        {SF_FORMAT_AIFF | SF_FORMAT_PCM_16, "out.FLAC", {}, SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
        {SF_FORMAT_WAV | SF_FORMAT_DOUBLE, "out.flac", {}, SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
        {SF_FORMAT_WAV | SF_FORMAT_PCM_16, "out.wav", {"--format", "pcm32"}, SF_FORMAT_WAV | SF_FORMAT_PCM_32},
        {SF_FORMAT_WAV | SF_FORMAT_PCM_16, "out.aif", {"--format", "float"}, SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
        {SF_FORMAT_FLAC | SF_FORMAT_PCM_24, "out.wav", {"--format", "double"}, SF_FORMAT_WAV | SF_FORMAT_DOUBLE},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.outputName);
        std::string source = writeTone("source.wav", 2, test.inputFormat, 4410);
        std::string output = temporaryPath(test.outputName);
        std::vector<std::string> arguments = {"process", source, output, "--band", "peak,1k,6,1"};
        arguments.insert(arguments.end(), test.options.begin(), test.options.end());
        ProgramResult result = runHostProgram(arguments);
        ASSERT_EQ(result.exitCode, 0) << result.err;
        SoundContents out = readSound(output);
        EXPECT_EQ(out.info.format, test.expected);
        EXPECT_EQ(out.info.channels, 2);
        EXPECT_EQ(out.info.frames, 4410);
        EXPECT_EQ(test.expected == (SF_FORMAT_FLAC | SF_FORMAT_PCM_24),
                  hasText(result.err, "cannot hold 64-bit float samples; writing 24-bit PCM"))
            << result.err;
    }
}

TEST(ProgramFormats, ClippedIntegerSamplesAreCountedWithTheirOvershoot) {
    // A 0.9 tone raised by 6 dB peaks near 1.8: about 5.1 dB over full scale.
    std::string input = writeTone("loud.wav", 1, SF_FORMAT_WAV | SF_FORMAT_PCM_24, 44100, 1000.0, 0.9);
    std::string clipped = temporaryPath("clipped.wav");
    ProgramResult result =
        runHostProgram({"process", input, clipped, "--band", "peak,1k,6,1", "--format", "pcm24"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    long long count = 0;
    double overDb = 0.0;
    ASSERT_EQ(std::sscanf(result.err.c_str(),
                          "ombro-host: warning: %lld samples clipped, the loudest %lf dB", &count,
                          &overDb),
              2)
        << result.err;
    std::vector<double> samples = readSound(clipped).samples;
    EXPECT_EQ(count, std::count_if(samples.begin(), samples.end(), [](double sample) {
                  return std::fabs(sample) >= 8388607.0 / 8388608.0;
              }));
    EXPECT_GT(count, 10000);
    EXPECT_EQ(*std::max_element(samples.begin(), samples.end()), 8388607.0 / 8388608.0);
    EXPECT_EQ(*std::min_element(samples.begin(), samples.end()), -1.0);
    EXPECT_NEAR(overDb, decibels(0.9 * 2.0), 0.05);

    // Floats hold the overshoot: their loudest sample is the one reported.
    std::string floats = temporaryPath("floats.wav");
    ProgramResult unclipped =
        runHostProgram({"process", input, floats, "--band", "peak,1k,6,1", "--format", "float"});
    ASSERT_EQ(unclipped.exitCode, 0) << unclipped.err;
    EXPECT_TRUE(unclipped.err.empty()) << unclipped.err;
    double peak = 0.0;
    for (double sample : readSound(floats).samples) peak = std::max(peak, std::fabs(sample));
    EXPECT_NEAR(overDb, decibels(peak), 0.005);
}

TEST(ProgramFormats, SixteenBitOutputIsDitheredWithinOneStepUnlessAskedNot) {
    std::string input = writeTone("quiet.wav", 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1000.0, 0.01);
    SoundContents in = readSound(input);
    for (bool dither : {true, false}) {
        SCOPED_TRACE(dither);
        std::string output = temporaryPath("dithered.wav");
        std::vector<std::string> arguments = {"process", input, output};
        if (!dither) arguments.push_back("--no-dither");
        ASSERT_EQ(runHostProgram(arguments).exitCode, 0);
        SoundContents out = readSound(output);
        ASSERT_EQ(out.samples.size(), in.samples.size());
        int changed = 0;
        double sum = 0.0;
        for (size_t i = 0; i < in.samples.size(); ++i) {
            double steps = (out.samples[i] - in.samples[i]) * 32768.0;
            ASSERT_LE(std::fabs(steps), 1.0) << i;
            changed += steps != 0.0;
            sum += steps;
        }
        // Triangular noise of one step either way rounds to ±1 a quarter of the time.
        if (dither)
            EXPECT_NEAR(changed, 11025, 600);
        else
            EXPECT_EQ(changed, 0);
        EXPECT_NEAR(sum / static_cast<double>(in.samples.size()), 0.0, 0.02);
    }
}

}  // namespace
