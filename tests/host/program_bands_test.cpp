// Bands as users write them on the command line (Hz, dB, octaves), and the
// response the program prints compared with the equalized audio.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <numbers>
#include <sstream>

#include "program_runner.h"
#include "sound_fixtures.h"

namespace {

// The JSON line of band 1 as info --json prints it for one --band.
std::string firstBandJson(const std::string& band, ProgramResult& result) {
    result = runHostProgram({"info", "--json", "--band", band});
    std::vector<std::string> lines = linesStartingWith(result.out, "    {\"number\": 1,");
    return lines.empty() ? std::string() : lines[0];
}

TEST(ProgramBands, TypeNamesAreMatchedAsUsersWriteThem) {
    const std::pair<const char*, const char*> spellings[] = {
        {"BELL", "Band"},         {"lowshelf", "Low Shelf"},  {"high-shelf", "High Shelf"},
        {"LOW PASS", "Low Pass"}, {"Band Pass", "Band Pass"}, {"Band-Alt-2", "Band (alt 2)"},
    };
    for (const auto& [spelling, name] : spellings) {
        ProgramResult result;
        std::string band = firstBandJson(std::string(spelling) + ",1k,6,1", result);
        EXPECT_TRUE(hasText(band, std::string("\"type\": \"") + name + "\"")) << spelling << ": " << band;
    }
}

TEST(ProgramBands, BandsReplaceTheListInOrderInUsersUnits) {
    ProgramResult result = runHostProgram({"info", "--json", "--band", "high-pass,40,0,0.5",
                                           "--band", "peak,2.5k,-3.5,1.5,off", "--output-gain",
                                           "-6"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    for (const char* expected :
         {"\"outputGainDb\": -6,",
          "{\"number\": 1, \"type\": \"High Pass\", \"frequencyHz\": 40, \"gainDb\": 0, "
          "\"bandwidthOctaves\": 0.5, \"enabled\": true}",
          "{\"number\": 2, \"type\": \"Band\", \"frequencyHz\": 2500, \"gainDb\": -3.5, "
          "\"bandwidthOctaves\": 1.5, \"enabled\": false}",
          "{\"index\": 5, \"name\": \"Q-Band 2\", \"value\": 0.375, \"display\": \"1.50\", "
          "\"label\": \"\"}"})
        EXPECT_TRUE(hasText(result.out, expected)) << expected << "\n" << result.out;
    EXPECT_FALSE(hasText(result.out, "\"number\": 3")) << result.out;
}

TEST(ProgramBands, ValuesBeyondTheEditorsLimitsAreHeldThereWithAWarning) {
    struct Case {
        std::string band;
        const char* held;  // in the band's JSON
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
        ProgramResult result;
        std::string band = firstBandJson(test.band, result);
        SCOPED_TRACE(test.band);
        EXPECT_TRUE(hasText(band, test.held)) << band;
        std::vector<std::string> warnings = linesStartingWith(result.err, "ombro-host: warning: ");
        ASSERT_EQ(warnings.size(), 1u) << result.err;
        EXPECT_TRUE(hasText(warnings[0], test.warned)) << warnings[0];
    }
    ProgramResult output = runHostProgram({"info", "--output-gain", "20"});
    EXPECT_TRUE(hasText(output.err, "--output-gain 20 dB is beyond what the editor allows; using 12 dB"))
        << output.err;
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
}

TEST(ProgramResponse, CoversTwentyHertzToHalfTheSampleRateOnALogarithmicGrid) {
    ProgramResult result = runHostProgram({"response", "--sample-rate", "48000"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    std::vector<double> grid;
    for (const std::string& row : linesStartingWith(result.out, "  ")) {
        double frequency, gain, phase;
        ASSERT_EQ(std::sscanf(row.c_str(), "%lf %lf %lf", &frequency, &gain, &phase), 3) << row;
        EXPECT_NEAR(gain, 0.0, 1e-6) << row;  // the default bands are flat
        grid.push_back(frequency);
    }
    ASSERT_GT(grid.size(), 100u) << result.out;
    EXPECT_DOUBLE_EQ(grid.front(), 20.0);
    EXPECT_DOUBLE_EQ(grid.back(), 24000.0);
    for (size_t i = 2; i < grid.size(); ++i)
        EXPECT_NEAR(grid[i] / grid[i - 1], grid[1] / grid[0], 1e-3) << grid[i];
    // The highest rate the program takes.
    EXPECT_EQ(runHostProgram({"response", "--sample-rate", "768000", "1000"}).exitCode, 0);
}

}  // namespace
