// The ombro-host program as users run it: its output, exit codes and files.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <sstream>

#include "contracts/kobal_function_names.h"
#include "program_runner.h"
#include "sound_fixtures.h"

namespace {

const std::string kMissingUiPrefix = "KOBAL API not found: ";

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(ProgramWindowingLayer, WrongInterfaceVersionReportsEveryFunctionInTableOrder) {
    ProgramResult result = runHostProgram({"--ui-version", "0x101", "info"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    std::vector<std::string> missing = linesStartingWith(result.out, kMissingUiPrefix);
    ASSERT_EQ(missing.size(), static_cast<size_t>(kKobalFunctionCount));
    for (int i = 0; i < kKobalFunctionCount; ++i)
        EXPECT_EQ(missing[i], kMissingUiPrefix + kKobalFunctionNames[i]) << i;
    // The instance works without the layer (its texts, copied by the layer, stay empty).
    EXPECT_TRUE(contains(result.out, "unique ID:  'ombr'")) << result.out;
    EXPECT_TRUE(contains(result.out, "parameters: 12")) << result.out;
}

TEST(ProgramWindowingLayer, OneWithheldFunctionIsReportedAlone) {
    ProgramResult result = runHostProgram({"--without-ui-function", "TabCtrl_GetCurSel", "info"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    std::vector<std::string> missing = linesStartingWith(result.out, kMissingUiPrefix);
    ASSERT_EQ(missing.size(), 1u);
    EXPECT_EQ(missing[0], "KOBAL API not found: TabCtrl_GetCurSel");
}

TEST(ProgramInfo, PrintsIdentityAndEveryParameterWithNothingMissing) {
    ProgramResult result = runHostProgram({"info"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(linesStartingWith(result.out, kMissingUiPrefix).empty());
    for (const char* expected :
         {"name:       Ombro\n", "vendor:     Pellix\n", "unique ID:  'ombr' (0x6F6D6272)\n",
          "version:    1100\n", "flags:      0x1031 (", "parameters: 12\n", "Freq-Low Shelf",
          "Gain-Band 2", "Q-Band 3", "Freq-High Shelf", "1000.0 Hz",
          "   3  Band              1000.0     +0.00       2.00  yes\n",
          "   4  High Shelf        5000.0     +0.00       2.00  yes\n", "output gain: +0.00 dB\n"})
        EXPECT_TRUE(contains(result.out, expected)) << expected << "\n" << result.out;
}

TEST(ProgramInfo, RefusedInstanceIsAnErrorNamingTheCause) {
    ProgramResult result = runHostProgram({"--without-extension", "MURA_Arc", "info"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(contains(result.err, "refused")) << result.err;
    EXPECT_TRUE(result.out.empty()) << result.out;
}

TEST(ProgramDemo, RaisedBandLiftsItsToneByTwelveDecibelsAndTheFilesShowIt) {
    std::string folder = temporaryPath("demo");
    ProgramResult result = runHostProgram({"demo", "--out", folder});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(contains(result.out, "name:       Ombro"));
    EXPECT_TRUE(contains(result.out, "(Gain-Band 3)"));
    std::istringstream lines(result.out);
    std::string line;
    int rowsSeen = 0;
    while (std::getline(lines, line)) {
        double tone, input, before, after, change;
        if (std::sscanf(line.c_str(), "%lf %lf %lf %lf %lf", &tone, &input, &before, &after,
                        &change) != 5)
            continue;
        ++rowsSeen;
        EXPECT_NEAR(before, input, 0.01) << line;  // the default set is flat
        if (tone == 1000.0) {
            EXPECT_NEAR(change, 12.04, 0.1) << line;
        }
        if (tone == 100.0) {
            EXPECT_LT(std::fabs(change), 1.0) << line;
        }
    }
    EXPECT_EQ(rowsSeen, 3);
    // The signal's second second is the 1 kHz tone; the equalized file has it 12 dB louder.
    SoundContents signal = readSound(folder + "/test-signal.wav");
    SoundContents equalized = readSound(folder + "/test-signal-equalized.wav");
    ASSERT_EQ(equalized.info.frames, signal.info.frames);
    ASSERT_GT(signal.info.frames, 2 * kTestSampleRate);
    double gain = std::abs(componentAt(equalized, 0, 1000.0, 66150, 88200)) /
                  std::abs(componentAt(signal, 0, 1000.0, 66150, 88200));
    EXPECT_NEAR(decibels(gain), 12.04, 0.05);
    for (const char* file : {"/test-signal.wav", "/test-signal-equalized.wav", "/editor.png"})
        EXPECT_TRUE(contains(result.out, folder + file)) << result.out;
    EXPECT_TRUE(std::filesystem::is_regular_file(folder + "/editor.png"));
    std::filesystem::remove_all(folder);
}

TEST(ProgramProcess, DefaultSettingsGiveBackTheSameSamples) {
    std::string input = writeTone("flat_in.wav", 2, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050);
    std::string output = temporaryPath("flat_out.wav");
    ProgramResult result = runHostProgram({"process", input, output, "--no-dither"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    SoundContents in = readSound(input);
    SoundContents out = readSound(output);
    EXPECT_EQ(out.info.channels, 2);
    EXPECT_EQ(out.info.samplerate, 44100);
    EXPECT_EQ(out.info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    EXPECT_EQ(out.samples, in.samples);
}

TEST(ProgramProcess, SixteenBitMonoComesBackSixteenBitMonoWithTheBandsApplied) {
    std::string input = writeTone("mono_in.wav", 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100);
    std::string output = temporaryPath("mono_out.wav");
    ProgramResult result = runHostProgram({"process", input, output, "--band", "peak,1k,6,1"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    SoundContents in = readSound(input);
    SoundContents out = readSound(output);
    EXPECT_EQ(out.info.channels, 1);
    EXPECT_EQ(out.info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    ASSERT_EQ(out.info.frames, in.info.frames);
    double gain = std::abs(componentAt(out, 0, 1000.0, 22050, 44100)) /
                  std::abs(componentAt(in, 0, 1000.0, 22050, 44100));
    EXPECT_NEAR(decibels(gain), 6.0, 0.01);
}

TEST(ProgramSettings, UsageErrorsSayWhatIsWrongInOneLineAndPointAtHelp) {
    struct Case {
        std::vector<std::string> arguments;
        const char* named;  // in the message
    };
    const Case cases[] = {
        {{}, "no command"},
        {{"equalize"}, "'equalize'"},
        {{"info", "--louder"}, "--louder"},
        {{"process", "only-one.wav"}, "process expects IN OUT"},
        {{"info", "--ui-version"}, "--ui-version needs a value"},
        {{"info", "--set", "7"}, "INDEX=VALUE"},
        {{"info", "--set", "x=0.5"}, "'x'"},
        {{"info", "--set", "7=1.5"}, "0..1"},
        {{"info", "--set", "12=0.5"}, "no parameter 12"},
        {{"response", "--band", "peak,1k,6"}, "TYPE,FREQ,GAIN,BANDWIDTH"},
        {{"response", "--band", "shelf,1k,6,1"}, "unknown band type 'shelf'"},
        {{"response", "--band", "peak,1k,6,1,of"}, "'of'"},
        {{"response", "--band", "peak,,6,1"}, "frequency is not a number: ''"},
        {{"response", "--band", "peak,1k,nan,1"}, "gain is not a number: 'nan'"},
        {{"response", "--band", "peak,1k,6,inf"}, "bandwidth is not a number: 'inf'"},
        {{"response", "--band", "peak,2.5kk,6,1"}, "'2.5kk'"},
        {{"response", "--output-gain", ""}, "--output-gain is not a number"},
        {{"response", "--sample-rate", "0"}, "sample rate"},
        {{"response", "--sample-rate", "768001"}, "sample rate"},
        {{"response", "30000"}, "half the sample rate"},
        {{"process", "a.wav", "b.xyz"}, "b.xyz"},
        {{"process", "a.wav", "b.flac", "--format", "double"}, "cannot hold 64-bit float"},
        {{"process", "a.wav", "b.wav", "--format", "pcm12"}, "pcm12"},
        {{"render-editor", "x.png", "--at", "-1"}, "--at"},
        {{"render-editor", "x.png", "--at", "2"}, "--at needs --audio"},
    };
    for (const Case& test : cases) {
        ProgramResult result = runHostProgram(test.arguments);
        SCOPED_TRACE(test.named);
        EXPECT_EQ(result.exitCode, 2);
        std::vector<std::string> lines = linesStartingWith(result.err, "");
        ASSERT_EQ(lines.size(), 2u) << result.err;
        EXPECT_TRUE(contains(lines[0], test.named)) << lines[0];
        EXPECT_EQ(lines[1], "Try 'ombro-host --help' for more information.");
        EXPECT_TRUE(result.out.empty()) << result.out;
    }
    ProgramResult help = runHostProgram({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(contains(help.out, "--band TYPE,FREQ,GAIN,BANDWIDTH[,off]"));
}

TEST(ProgramState, SavedStateLoadsBackWithItsSettings) {
    std::string state = temporaryPath("state.bin");
    ProgramResult saved = runHostProgram({"save-state", state, "--set", "7=0.75"});
    ASSERT_EQ(saved.exitCode, 0) << saved.err;
    EXPECT_TRUE(contains(saved.out, "saved 168 bytes"));

    ProgramResult loaded = runHostProgram({"load-state", state});
    ASSERT_EQ(loaded.exitCode, 0) << loaded.err;
    std::vector<std::string> gainLine = linesStartingWith(loaded.out, "    7  Gain-Band 3");
    ASSERT_EQ(gainLine.size(), 1u) << loaded.out;
    EXPECT_TRUE(contains(gainLine[0], "0.750000  9.5 dB")) << gainLine[0];

    std::string input = writeTone("state_in.wav", 2, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100);
    std::string output = temporaryPath("state_out.wav");
    ASSERT_EQ(runHostProgram({"process", input, output, "--state", state}).exitCode, 0);
    double gain = std::abs(componentAt(readSound(output), 0, 1000.0, 22050, 44100)) /
                  std::abs(componentAt(readSound(input), 0, 1000.0, 22050, 44100));
    EXPECT_NEAR(decibels(gain), decibels(3.0), 0.01);
}

}  // namespace
