// The ombro-host program as users run it: its output, exit codes and files.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <sstream>

#include "contracts/kobal_function_names.h"
#include "program_runner.h"

namespace {

const std::string kMissingUiPrefix = "KOBAL API not found: ";

// A sound file (WAV unless `container` says otherwise) of `channels` channels:
// a 1 kHz tone on the first channel and half of it on the second.
std::string writeToneWav(const std::string& name, int channels, int format, int frames,
                         int container = SF_FORMAT_WAV) {
    std::string path = temporaryPath(name);
    SF_INFO info{};
    info.samplerate = 44100;
    info.channels = channels;
    info.format = container | format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    EXPECT_NE(file, nullptr) << sf_strerror(nullptr);
    std::vector<double> samples;
    for (int frame = 0; frame < frames; ++frame) {
        double value = 0.4 * std::sin(2.0 * std::numbers::pi * 1000.0 * frame / 44100.0);
        samples.push_back(value);
        if (channels == 2) samples.push_back(value * 0.5);
    }
    sf_writef_double(file, samples.data(), frames);
    sf_close(file);
    return path;
}

struct WavContents {
    SF_INFO info{};
    std::vector<double> samples;  // interleaved
};

WavContents readWav(const std::string& path) {
    WavContents contents;
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &contents.info);
    if (!file) return contents;
    contents.samples.resize(static_cast<size_t>(contents.info.frames * contents.info.channels));
    sf_readf_double(file, contents.samples.data(), contents.info.frames);
    sf_close(file);
    return contents;
}

double rmsOfChannel(const WavContents& wav, int channel, size_t fromFrame) {
    double sum = 0.0;
    size_t count = 0;
    size_t step = static_cast<size_t>(wav.info.channels);
    for (size_t i = fromFrame * step + channel; i < wav.samples.size(); i += step, ++count)
        sum += wav.samples[i] * wav.samples[i];
    return std::sqrt(sum / static_cast<double>(count));
}

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
          "Gain-Band 2", "Q-Band 3", "Freq-High Shelf", "1000.0 Hz"})
        EXPECT_TRUE(contains(result.out, expected)) << expected << "\n" << result.out;
}

TEST(ProgramInfo, RefusedInstanceIsAnErrorNamingTheCause) {
    ProgramResult result = runHostProgram({"--without-extension", "MURA_Arc", "info"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(contains(result.err, "refused")) << result.err;
    EXPECT_TRUE(result.out.empty()) << result.out;
}

TEST(ProgramDemo, RaisedBandLiftsItsToneByTwelveDecibels) {
    ProgramResult result = runHostProgram({"demo"});
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
}

TEST(ProgramProcess, DefaultSettingsGiveBackTheSameSamples) {
    std::string input = writeToneWav("flat_in.wav", 2, SF_FORMAT_PCM_16, 22050);
    std::string output = temporaryPath("flat_out.wav");
    ProgramResult result = runHostProgram({"process", input, output});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    WavContents in = readWav(input);
    WavContents out = readWav(output);
    EXPECT_EQ(out.info.channels, 2);
    EXPECT_EQ(out.info.samplerate, 44100);
    EXPECT_EQ(out.info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    EXPECT_EQ(out.samples, in.samples);
}

TEST(ProgramProcess, MonoInputIsEqualizedOnBothChannels) {
    std::string input = writeToneWav("mono_in.wav", 1, SF_FORMAT_DOUBLE, 44100);
    std::string output = temporaryPath("mono_out.wav");
    ProgramResult result = runHostProgram({"process", input, output, "--set", "7=1.0"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    WavContents in = readWav(input);
    WavContents out = readWav(output);
    ASSERT_EQ(out.info.channels, 2);
    ASSERT_EQ(out.info.frames, in.info.frames);
    double gainDb = 20.0 * std::log10(rmsOfChannel(out, 0, 22050) / rmsOfChannel(in, 0, 22050));
    EXPECT_NEAR(gainDb, 12.04, 0.1);
    EXPECT_EQ(rmsOfChannel(out, 0, 0), rmsOfChannel(out, 1, 0));
}

TEST(ProgramProcess, BadInputFilesFailWithAMessageAndInputsAreNeverOverwritten) {
    std::string output = temporaryPath("never.wav");
    ProgramResult missing = runHostProgram({"process", temporaryPath("absent.wav"), output});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(contains(missing.err, "cannot read")) << missing.err;

    std::string text = temporaryPath("text.wav");
    std::ofstream(text) << "these are not samples\n";
    ProgramResult notSound = runHostProgram({"process", text, output});
    EXPECT_EQ(notSound.exitCode, 1);
    EXPECT_TRUE(contains(notSound.err, "not a WAV")) << notSound.err;

    std::string aiff = writeToneWav("tone.aiff", 1, SF_FORMAT_PCM_16, 100, SF_FORMAT_AIFF);
    ProgramResult otherFormat = runHostProgram({"process", aiff, output});
    EXPECT_EQ(otherFormat.exitCode, 1);
    EXPECT_TRUE(contains(otherFormat.err, "not a WAV")) << otherFormat.err;

    ProgramResult noState = runHostProgram({"load-state", temporaryPath("absent.bin")});
    EXPECT_EQ(noState.exitCode, 1);
    EXPECT_TRUE(contains(noState.err, "cannot read state file")) << noState.err;

    std::string self = writeToneWav("self.wav", 1, SF_FORMAT_PCM_16, 100);
    EXPECT_EQ(runHostProgram({"process", self, self}).exitCode, 2);  // never over its input
    EXPECT_EQ(readWav(self).info.frames, 100);
}

TEST(ProgramSettings, MalformedSettingsUnknownCommandsAndOptionsAreUsageErrors) {
    std::vector<std::vector<std::string>> usageErrors = {
        {}, {"equalize"}, {"info", "--louder"}, {"process", "only-one.wav"},
        {"info", "--ui-version"}};
    for (const char* setting : {"7", "=0.5", "7=", "x=0.5", "7=abc", "7=1.5", "-1=0.5", "12=0.5"})
        usageErrors.push_back({"info", "--set", setting});
    for (const std::vector<std::string>& arguments : usageErrors) {
        ProgramResult result = runHostProgram(arguments);
        SCOPED_TRACE(arguments.empty() ? std::string("(none)") : arguments.back());
        EXPECT_EQ(result.exitCode, 2);
        if (arguments.size() == 3 && arguments[1] == "--set")
            EXPECT_TRUE(contains(result.err, "usage:")) << result.err;
    }
    ProgramResult help = runHostProgram({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(contains(help.out, "process IN.wav OUT.wav"));
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

    std::string input = writeToneWav("state_in.wav", 2, SF_FORMAT_FLOAT, 44100);
    std::string output = temporaryPath("state_out.wav");
    ASSERT_EQ(runHostProgram({"process", input, output, "--state", state}).exitCode, 0);
    double gainDb = 20.0 * std::log10(rmsOfChannel(readWav(output), 0, 22050) /
                                      rmsOfChannel(readWav(input), 0, 22050));
    EXPECT_NEAR(gainDb, 20.0 * std::log10(3.0), 0.1);
}

}  // namespace
