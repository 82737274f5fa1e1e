// Bands as users write them on the command line (Hz, dB, octaves), what
// info and load-state show of them, and the response the program prints
// compared with the equalized audio.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <numbers>
#include <sstream>

#include "program_runner.h"
#include "sound_fixtures.h"

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The JSON line of band 1 as info --json prints it.
std::string firstBandJson(const std::vector<std::string>& arguments, ProgramResult& result) {
    std::vector<std::string> words = {"info", "--json"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    result = runHostProgram(words);
    std::vector<std::string> lines = linesStartingWith(result.out, "    {\"number\": 1,");
    return lines.empty() ? std::string() : lines[0];
}

TEST(ProgramBands, TypeNamesAreMatchedAsUsersWriteThem) {
    const std::pair<const char*, const char*> spellings[] = {
        {"band", "Band"},           {"Peak", "Band"},          {"BELL", "Band"},
        {"Low Shelf", "Low Shelf"}, {"lowshelf", "Low Shelf"}, {"high-shelf", "High Shelf"},
        {"LOW PASS", "Low Pass"},   {"high-pass", "High Pass"}, {"allpass", "All Pass"},
        {"notch", "Notch"},         {"Band Pass", "Band Pass"}, {"band (alt)", "Band (alt)"},
        {"Band-Alt-2", "Band (alt 2)"},
    };
    for (const auto& [spelling, name] : spellings) {
        ProgramResult result;
        std::string band = firstBandJson({"--band", std::string(spelling) + ",1k,6,1"}, result);
        EXPECT_EQ(result.exitCode, 0) << spelling << ": " << result.err;
        EXPECT_TRUE(contains(band, std::string("\"type\": \"") + name + "\"")) << spelling << ": " << band;
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
        EXPECT_TRUE(contains(result.out, expected)) << expected << "\n" << result.out;
    EXPECT_FALSE(contains(result.out, "\"number\": 3")) << result.out;
    EXPECT_FALSE(contains(result.out, "\"index\": 6")) << result.out;
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
        std::string band = firstBandJson({"--band", test.band}, result);
        SCOPED_TRACE(test.band);
        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_TRUE(contains(band, test.held)) << band;
        std::vector<std::string> warnings = linesStartingWith(result.err, "ombro-host: warning: ");
        ASSERT_EQ(warnings.size(), 1u) << result.err;
        EXPECT_TRUE(contains(warnings[0], test.warned)) << warnings[0];
    }
    ProgramResult output = runHostProgram({"info", "--output-gain", "20"});
    EXPECT_TRUE(contains(output.err, "--output-gain 20 dB is beyond what the editor allows; using 12 dB"))
        << output.err;
}

TEST(ProgramBands, SavedBandsLoadBackInUsersUnits) {
    std::string state = temporaryPath("bands.state");
    ASSERT_EQ(runHostProgram({"save-state", state, "--band", "low shelf,120,4.5,1",
                              "--band", "notch,6k,0,0.25,off"})
                  .exitCode,
              0);
    ProgramResult loaded = runHostProgram({"load-state", state});
    ASSERT_EQ(loaded.exitCode, 0) << loaded.err;
    for (const char* expected :
         {"   1  Low Shelf          120.0     +4.50       1.00  yes\n",
          "   2  Notch             6000.0     +0.00       0.25  no\n",
          "    4  Gain-Notch 2 ", "parameters:\n"})
        EXPECT_TRUE(contains(loaded.out, expected)) << expected << "\n" << loaded.out;
    ProgramResult json = runHostProgram({"load-state", state, "--json"});
    EXPECT_TRUE(contains(json.out, "\"type\": \"Notch\", \"frequencyHz\": 6000")) << json.out;
    EXPECT_FALSE(contains(json.out, "\"vendor\"")) << json.out;
}

// Gain and phase at each tone, from `response --csv`.
std::vector<std::pair<double, double>> printedResponse(const std::vector<std::string>& bands,
                                                       const std::vector<double>& tones) {
    std::vector<std::string> arguments = {"response", "--csv"};
    arguments.insert(arguments.end(), bands.begin(), bands.end());
    for (double tone : tones) arguments.push_back(std::to_string(static_cast<int>(tone)));
    ProgramResult result = runHostProgram(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    std::vector<std::pair<double, double>> response;
    std::istringstream lines(result.out);
    std::string line;
    while (std::getline(lines, line)) {
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
    writeSound(input, 1, SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 2 * kTestSampleRate,
               [&](int frame, int) {
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
        std::complex<double> transfer = componentAt(out, 0, tones[i], kTestSampleRate, 2 * kTestSampleRate) /
                                        componentAt(in, 0, tones[i], kTestSampleRate, 2 * kTestSampleRate);
        SCOPED_TRACE(tones[i]);
        EXPECT_NEAR(printed[i].first, decibels(std::abs(transfer)), 0.001);
        EXPECT_NEAR(printed[i].second, std::arg(transfer) * 180.0 / std::numbers::pi, 0.01);
    }
    EXPECT_NEAR(printed[3].first, 6.0 - 2.0, 0.1);  // the peak, less the output gain
}

TEST(ProgramResponse, CoversTwentyHertzToTwentyFourKilohertzOnALogarithmicGrid) {
    ProgramResult result = runHostProgram({"response", "--sample-rate", "48000"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    std::vector<std::string> rows = linesStartingWith(result.out, "  ");
    ASSERT_GT(rows.size(), 100u) << result.out;
    double first = 0, last = 0, previous = 0, gain = 0, phase = 0, ratio = 0;
    for (const std::string& row : rows) {
        double frequency;
        ASSERT_EQ(std::sscanf(row.c_str(), "%lf %lf %lf", &frequency, &gain, &phase), 3) << row;
        if (previous > 0) {
            if (ratio > 0) {
                EXPECT_NEAR(frequency / previous, ratio, 1e-3) << row;
            }
            ratio = frequency / previous;
        } else {
            first = frequency;
        }
        EXPECT_NEAR(gain, 0.0, 1e-6) << row;  // the default bands are flat
        previous = last = frequency;
    }
    EXPECT_DOUBLE_EQ(first, 20.0);
    EXPECT_DOUBLE_EQ(last, 24000.0);
}

}  // namespace
