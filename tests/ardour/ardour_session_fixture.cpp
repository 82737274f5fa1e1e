#include "tests/ardour/ardour_session_fixture.h"

#include <cmath>
#include <cstdio>
#include <sstream>

#include "tests/engine/chunk_bytes.h"

namespace {

constexpr int32_t kBandRecordSize = 33;

// "parameter I VALUE" lines in the order of I; `count` from "parameters N".
std::vector<float> parseParameters(const std::string& output, int& count) {
    std::vector<float> values;
    std::istringstream lines(output);
    std::string line;
    count = -1;
    while (std::getline(lines, line)) {
        size_t index = 0;
        float value = 0;
        if (std::sscanf(line.c_str(), "parameters %d", &count) == 1) continue;
        if (std::sscanf(line.c_str(), "parameter %zu %f", &index, &value) == 2 &&
            index == values.size())
            values.push_back(value);
    }
    return values;
}

float normalizedFrequency(double hz) {
    return static_cast<float>(std::log((hz - 20.0) * 4.170141784820684e-5 * 400.0 + 1.0) *
                              0.16683457378359495);
}

}  // namespace

double linearGain(double db) { return std::pow(10.0, db / 20.0); }

std::vector<unsigned char> stateChunk(const std::vector<BandSetting>& bands, double outputGainDb) {
    ChunkBytes chunk;
    chunk.put(kBandRecordSize).put(static_cast<int32_t>(bands.size()));
    for (const BandSetting& band : bands)
        chunk.band(band.type, band.enabled, band.frequency, linearGain(band.gainDb), band.bandwidth)
            .put(static_cast<uint8_t>(1));
    const int32_t showGrid = 1, showTabs = 1, viewFlags = 0, editorWidth = 0, editorHeight = 0;
    chunk.put(showGrid).put(showTabs).put(linearGain(outputGainDb)).put(viewFlags)
        .put(editorWidth).put(editorHeight);
    return chunk.bytes;
}

std::vector<float> normalizedParameters(const std::vector<BandSetting>& bands) {
    std::vector<float> values;
    for (const BandSetting& band : bands) {
        values.push_back(normalizedFrequency(band.frequency));
        values.push_back(static_cast<float>(0.25 * linearGain(band.gainDb)));
        values.push_back(static_cast<float>(0.25 * band.bandwidth));
    }
    return values;
}

void ArdourSessionTest::SetUp() {
    sandbox = std::make_unique<ArdourSandbox>();
    ASSERT_TRUE(sandbox->ready()) << "installing and scanning Ombro failed:\n"
                                  << sandbox->setUpLog();
}

void ArdourSessionTest::createSession(const std::string& name,
                                      const std::vector<std::string>& settings) {
    std::vector<std::string> arguments = {sessionFolder(name), name, "Ombro"};
    arguments.insert(arguments.end(), settings.begin(), settings.end());
    ChildResult created = sandbox->runLua("create_session.lua", arguments);
    ASSERT_TRUE(created.succeeded()) << created.output;
}

std::vector<float> ArdourSessionTest::reopenSession(const std::string& name,
                                                    const std::string& snapshot,
                                                    const std::string& saveAs) {
    std::vector<std::string> arguments = {sessionFolder(name), snapshot};
    if (!saveAs.empty()) arguments.push_back(saveAs);
    ChildResult opened = sandbox->runLua("read_session.lua", arguments);
    EXPECT_TRUE(opened.succeeded()) << opened.output;
    int count = 0;
    std::vector<float> values = parseParameters(opened.output, count);
    EXPECT_EQ(static_cast<int>(values.size()), count) << opened.output;
    return values;
}
