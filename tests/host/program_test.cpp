// The ombro-host program as users run it: what it shows of the effect, the
// bands they write (Hz, dB, octaves), the audio and state files it writes,
// and the response it prints compared with the equalized audio.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <sstream>

#include "contracts/kobal_function_names.h"
#include "program_runner.h"
#include "sound_fixtures.h"

namespace {

TEST(ProgramInfo, ShowsTheIdentityAndParametersHostsSee) {
    ProgramResult result = runHostProgram({"info"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    for (const char* expected :
         {"name:       Ombro\nvendor:     Pellix\nproduct:    Ombro\n"
          "unique ID:  'ombr' (0x6F6D6272)\nversion:    1100\n"
          "flags:      0x1031 (editor, replacing, chunks, double-replacing)\n",
          "    2  Q-Low Shelf          0.500000  2.00\n"
          "    3  Freq-Band 2          0.289506  300.0 Hz\n",
          "    9  Freq-High Shelf      0.739351  5000.0 Hz\n"
          "   10  Gain-High Shelf      0.250000  0.0 dB\n",
          "   4  High Shelf        5000.0     +0.00       2.00  yes\noutput gain: +0.00 dB\n"})
        EXPECT_TRUE(hasText(result.out, expected)) << expected << "\n" << result.out;
}

TEST(ProgramInfo, MissingWindowingFunctionsAreEachReportedAndTheEffectStillWorks) {
    ProgramResult wrongVersion = runHostProgram({"--ui-version", "0x101", "info"});
    EXPECT_EQ(linesStartingWith(wrongVersion.out, "KOBAL API not found: ").size(),
              static_cast<size_t>(kKobalFunctionCount));
    EXPECT_TRUE(hasText(wrongVersion.out, "KOBAL API not found: lstrcpyn\n"));
    EXPECT_TRUE(hasText(wrongVersion.out, "parameters: 12\n")) << wrongVersion.out;

    ProgramResult withheld = runHostProgram({"--without-ui-function", "TabCtrl_GetCurSel", "info"});
    EXPECT_EQ(linesStartingWith(withheld.out, "KOBAL API"),
              std::vector<std::string>{"KOBAL API not found: TabCtrl_GetCurSel"});
}

TEST(ProgramProcess, DefaultBandsKeepTheSamplesAndABandLiftsItsTone) {
    std::string flatIn = writeTone("flat_in.wav", 2, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050);
    std::string flatOut = temporaryPath("flat_out.wav");
    ASSERT_EQ(runHostProgram({"process", flatIn, flatOut, "--no-dither"}).exitCode, 0);
    EXPECT_EQ(readSound(flatOut).samples, readSound(flatIn).samples);

    std::string input = writeTone("mono_in.wav", 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100);
    std::string output = temporaryPath("mono_out.wav");
    ProgramResult result = runHostProgram({"process", input, output, "--band", "peak,1k,6,1"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    SoundContents out = readSound(output);
    EXPECT_EQ(out.info.channels, 1);
    ASSERT_EQ(out.info.frames, 44100);
    EXPECT_NEAR(gainDbAt(readSound(input), out, 1000.0, 22050, 44100), 6.0, 0.01);
}

TEST(ProgramState, SavedSettingsLoadBackAndApplyToAudio) {
    std::string state = temporaryPath("state.bin");
    ProgramResult saved = runHostProgram({"save-state", state, "--set", "7=0.75"});
    ASSERT_EQ(saved.exitCode, 0) << saved.err;
    ProgramResult loaded = runHostProgram({"load-state", state});
    EXPECT_TRUE(hasText(loaded.out, "    7  Gain-Band 3          0.750000  9.5 dB\n"));
    std::string input = writeTone("state_in.wav", 2, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100);
    std::string output = temporaryPath("state_out.wav");
    ASSERT_EQ(runHostProgram({"process", input, output, "--state", state}).exitCode, 0);
    EXPECT_NEAR(gainDbAt(readSound(input), readSound(output), 1000.0, 22050, 44100),
                decibels(3.0), 0.01);
}

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
        {SF_FORMAT_WAV | SF_FORMAT_DOUBLE, "out.flac", {}, SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
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
        EXPECT_EQ(out.info.frames, 4410);
        EXPECT_EQ(test.expected == (SF_FORMAT_FLAC | SF_FORMAT_PCM_24),
                  hasText(result.err, "cannot hold 64-bit float samples; writing 24-bit PCM"))
            << result.err;
    }
}

TEST(ProgramFormats, ClippedIntegerSamplesAreCountedWithTheirOvershoot) {
    // A 0.9 tone raised by 6 dB peaks near 1.8: about 5.1 dB over full scale.
    std::string input = writeTone("loud.wav", 1, SF_FORMAT_WAV | SF_FORMAT_PCM_24, 44100, 1e3, 0.9);
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
    EXPECT_EQ(*std::max_element(samples.begin(), samples.end()), 8388607.0 / 8388608.0);
    EXPECT_EQ(*std::min_element(samples.begin(), samples.end()), -1.0);
    EXPECT_NEAR(overDb, decibels(0.9 * 2.0), 0.05);
}

TEST(ProgramBands, ValuesBeyondTheEditorsLimitsAreHeldThereWithAWarning) {
    struct Case {
        std::string band;
        const char* held;  // in the JSON
        const char* warned;
    };
    const Case cases[] = {
        {"peak,5,6,1", "\"frequencyHz\": 20,", "frequency 5 Hz"},
        {"peak,30k,6,1", "\"frequencyHz\": 24000,", "frequency 30000 Hz"},
        {"peak,1k,40,1", "\"gainDb\": 36.1235994797,", "gain 40 dB"},
        {"peak,1k,-200,1", "\"gainDb\": -150,", "gain -200 dB"},
        {"peak,1k,6,-1", "\"bandwidthOctaves\": 0,", "bandwidth -1 octaves"},
        {"peak,1k,6,5", "\"bandwidthOctaves\": 4,", "bandwidth 5 octaves"},
    };
    for (const Case& test : cases) {
        ProgramResult result = runHostProgram({"info", "--json", "--band", test.band});
        SCOPED_TRACE(test.band);
        EXPECT_TRUE(hasText(result.out, test.held)) << result.out;
        std::vector<std::string> warnings = linesStartingWith(result.err, "ombro-host: warning: ");
        ASSERT_EQ(warnings.size(), 1u) << result.err;
        EXPECT_TRUE(hasText(warnings[0], test.warned)) << warnings[0];
    }
    ProgramResult output = runHostProgram({"info", "--output-gain", "20"});
    EXPECT_TRUE(hasText(output.err, "beyond what the editor allows; using 12 dB")) << output.err;
}

// Gain and phase at each tone, from `response --csv`.
std::vector<std::pair<double, double>> printedResponse(std::vector<std::string> arguments,
                                                       const std::vector<double>& tones) {
    arguments.insert(arguments.begin(), {"response", "--csv"});
    for (double tone : tones) arguments.push_back(std::to_string(static_cast<int>(tone)));
    std::istringstream lines(runHostProgram(arguments).out);
    std::vector<std::pair<double, double>> response;
    for (std::string line; std::getline(lines, line);) {
        double frequency, gainDb, phaseDeg;
        if (std::sscanf(line.c_str(), "%lf,%lf,%lf", &frequency, &gainDb, &phaseDeg) == 3)
            response.emplace_back(gainDb, phaseDeg);
    }
    return response;
}

TEST(ProgramResponse, AgreesWithTheEqualizedAudioInGainAndPhase) {
    const std::vector<std::string> bands = {
        "--band", "high pass,50,0,1",  "--band", "low shelf,200,-4,1", "--band", "peak,1k,6,1",
        "--band", "band (alt 2),3k,-9,0.5", "--band", "high shelf,8k,3,2", "--output-gain", "-2"};
    const std::vector<double> tones = {40, 100, 250, 1000, 2500, 3000, 9000, 15000};
    // One second of the sum of the tones (whole periods), after a second to settle.
    std::string input = temporaryPath("tones.wav");
    writeSound(input, 1, SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 2 * kTestSampleRate, [&](int frame, int) {
        double sum = 0.0;
        for (double tone : tones)
            sum += 0.05 * std::sin(2.0 * std::numbers::pi * tone * frame / kTestSampleRate);
        return sum;
    });
    std::string output = temporaryPath("tones_out.wav");
    std::vector<std::string> arguments = {"process", input, output};
    arguments.insert(arguments.end(), bands.begin(), bands.end());
    ASSERT_EQ(runHostProgram(arguments).exitCode, 0);
    SoundContents in = readSound(input), out = readSound(output);

    std::vector<std::pair<double, double>> printed = printedResponse(bands, tones);
    ASSERT_EQ(printed.size(), tones.size());
    for (size_t i = 0; i < tones.size(); ++i) {
        std::complex<double> transfer =
            componentAt(out, 0, tones[i], kTestSampleRate, 2 * kTestSampleRate) /
            componentAt(in, 0, tones[i], kTestSampleRate, 2 * kTestSampleRate);
        SCOPED_TRACE(tones[i]);
        EXPECT_NEAR(printed[i].first, decibels(std::abs(transfer)), 0.001);
        EXPECT_NEAR(printed[i].second, std::arg(transfer) * 180.0 / std::numbers::pi, 0.01);
    }
    EXPECT_NEAR(printed[3].first, 6.0 - 2.0, 0.1);  // the peak, less the output gain
    // The highest rate the program takes.
    EXPECT_EQ(runHostProgram({"response", "--sample-rate", "768000", "1000"}).exitCode, 0);
}

}  // namespace
