// The ombro-host program as users run it: what it shows of the effect, the
// audio and state files it writes.
#include <gtest/gtest.h>

#include <filesystem>

#include "contracts/kobal_function_names.h"
#include "program_runner.h"
#include "sound_fixtures.h"

namespace {

TEST(ProgramInfo, ShowsTheIdentityAndParametersHostsSee) {
    ProgramResult result = runHostProgram({"info"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(linesStartingWith(result.out, "KOBAL API").empty()) << result.out;
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
    EXPECT_EQ(wrongVersion.exitCode, 0) << wrongVersion.err;
    std::vector<std::string> missing = linesStartingWith(wrongVersion.out, "KOBAL API not found: ");
    ASSERT_EQ(missing.size(), static_cast<size_t>(kKobalFunctionCount));
    EXPECT_EQ(missing.front(), "KOBAL API not found: lstrcpyn");
    for (const char* shown : {"unique ID:  'ombr' (0x6F6D6272)\n", "parameters: 12\n"})
        EXPECT_TRUE(hasText(wrongVersion.out, shown)) << wrongVersion.out;

    ProgramResult withheld = runHostProgram({"--without-ui-function", "TabCtrl_GetCurSel", "info"});
    EXPECT_EQ(linesStartingWith(withheld.out, "KOBAL API"),
              std::vector<std::string>{"KOBAL API not found: TabCtrl_GetCurSel"});
}

TEST(ProgramProcess, DefaultBandsKeepTheSamplesAndABandLiftsItsTone) {
    std::string flatIn = writeTone("flat_in.wav", 2, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050);
    std::string flatOut = temporaryPath("flat_out.wav");
    ASSERT_EQ(runHostProgram({"process", flatIn, flatOut, "--no-dither"}).exitCode, 0);
    EXPECT_EQ(readSound(flatOut).samples, readSound(flatIn).samples);
    EXPECT_EQ(readSound(flatOut).info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);

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
    EXPECT_TRUE(hasText(saved.out, "saved 168 bytes"));
    ProgramResult loaded = runHostProgram({"load-state", state});
    EXPECT_TRUE(hasText(loaded.out, "    7  Gain-Band 3          0.750000  9.5 dB\n")) << loaded.out;
    std::string input = writeTone("state_in.wav", 2, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100);
    std::string output = temporaryPath("state_out.wav");
    ASSERT_EQ(runHostProgram({"process", input, output, "--state", state}).exitCode, 0);
    EXPECT_NEAR(gainDbAt(readSound(input), readSound(output), 1000.0, 22050, 44100),
                decibels(3.0), 0.01);

    ASSERT_EQ(runHostProgram({"save-state", state, "--band", "low shelf,120,4.5,1", "--band",
                              "notch,6k,0,0.25,off"})
                  .exitCode,
              0);
    loaded = runHostProgram({"load-state", state});
    for (const char* expected : {"   1  Low Shelf          120.0     +4.50       1.00  yes\n",
                                 "   2  Notch             6000.0     +0.00       0.25  no\n",
                                 "    4  Gain-Notch 2 "})
        EXPECT_TRUE(hasText(loaded.out, expected)) << expected << "\n" << loaded.out;
}

TEST(ProgramDemo, RaisedBandLiftsItsToneByTwelveDecibels) {
    std::string folder = temporaryPath("demo");
    ProgramResult result = runHostProgram({"demo", "--out", folder});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(hasText(result.out, "      1000       -15.05       -15.05        -3.01     +12.04\n"))
        << result.out;
    EXPECT_TRUE(std::filesystem::is_regular_file(folder + "/test-signal-equalized.wav"));
    std::filesystem::remove_all(folder);
}

}  // namespace
