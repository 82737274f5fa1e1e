#include "tests/engine/band_cascade_test_support.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace {

double uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

int32_t pick(Random& random, int32_t count) {
    return std::uniform_int_distribution<int32_t>(0, count - 1)(random);
}

double logUniform(Random& random, double low, double high) {
    return std::exp(uniform(random, std::log(low), std::log(high)));
}

// Values a history can hold after any input: x may be anything the host sent,
// y only what survives the flush.
double historyInput(Random& random) {
    constexpr double kOdd[] = {std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(), -0.0, 0.0, 1e-310};
    return pick(random, 8) == 0 ? kOdd[pick(random, 5)] : uniform(random, -1.0, 1.0);
}

double historyOutput(Random& random) {
    return pick(random, 8) == 0 ? 0.0 : uniform(random, -2.0, 2.0);
}

void randomHistory(Random& random, BiquadHistory& history) {
    history = {historyInput(random), historyInput(random), historyOutput(random),
               historyOutput(random)};
}

uint64_t bits(double value) { return std::bit_cast<uint64_t>(value); }

}  // namespace

void PrintTo(InstructionSet set, std::ostream* out) { *out << instructionSetName(set); }

std::string instructionSetTestName(const testing::TestParamInfo<InstructionSet>& info) {
    constexpr const char* kNames[] = {"Sse2", "Avx2", "Avx512"};
    return kNames[static_cast<int32_t>(info.param)];
}

std::vector<InstructionSet> runnableInstructionSets() {
    std::vector<InstructionSet> sets;
    for (InstructionSet set : {InstructionSet::Sse2, InstructionSet::Avx2, InstructionSet::Avx512})
        if (instructionSetAvailable(set)) sets.push_back(set);
    return sets;
}

EqBand randomBand(Random& random) {
    constexpr int32_t kTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12, -2};
    EqBand* made = createDesignedBand(kTypes[pick(random, 12)], logUniform(random, 5.0, 30000.0),
                                      logUniform(random, 1e-4, 80.0), uniform(random, 0.0, 4.0),
                                      pick(random, 2) ? 44100.0 : 96000.0);
    EqBand band = *made;
    delete made;
    randomHistory(random, band.historyLeft);
    randomHistory(random, band.historyRight);
    return band;
}

EqBand wildBand(Random& random) {
    EqBand band = randomBand(random);
    band.b0 = uniform(random, -4.0, 4.0);
    band.b1 = uniform(random, -4.0, 4.0);
    band.b2 = uniform(random, -4.0, 4.0);
    band.a1 = uniform(random, -2.5, 2.5);
    band.a2 = uniform(random, -1.5, 1.5);
    return band;
}

std::vector<EqBand> randomBands(Random& random, int32_t count) {
    std::vector<EqBand> bands;
    for (int32_t i = 0; i < count; ++i)
        bands.push_back(pick(random, 6) == 0 ? wildBand(random) : randomBand(random));
    return bands;
}

std::vector<double> laced(Random& random, int32_t frames) {
    constexpr double kSpecial[] = {std::numeric_limits<double>::quiet_NaN(),
                                   std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::denorm_min(),
                                   -1e-310,
                                   0x1p-54,
                                   -0x1p-54,
                                   0x1.fffffffffffffp-55,
                                   -0.0,
                                   1e300,
                                   -std::numeric_limits<double>::max()};
    constexpr int32_t kSpecialCount = sizeof(kSpecial) / sizeof(kSpecial[0]);
    std::vector<double> samples(frames);
    for (int32_t i = 0; i < frames; ++i) {
        int32_t roll = pick(random, 64);
        samples[i] = roll == 0 ? kSpecial[pick(random, kSpecialCount)] : uniform(random, -1.0, 1.0);
    }
    if (frames > 64) {  // silence, long enough for the outputs to decay below 2^-54
        int32_t start = pick(random, frames / 2), length = pick(random, frames / 2);
        double zero = pick(random, 2) ? 0.0 : -0.0;
        for (int32_t i = start; i < start + length; ++i) samples[i] = zero;
    }
    return samples;
}

Outcome startFrom(const std::vector<EqBand>& bands, int32_t frames) {
    return {bands, std::vector<double>(frames, -3.0), std::vector<double>(frames, 7.0)};
}

std::vector<EqBand*> pointersTo(std::vector<EqBand>& bands) {
    std::vector<EqBand*> pointers;
    for (EqBand& band : bands) pointers.push_back(&band);
    return pointers;
}

void expectSameBits(const std::vector<double>& actual, const std::vector<double>& expected,
                    const char* what) {
    ASSERT_EQ(actual.size(), expected.size()) << what;
    for (size_t i = 0; i < actual.size(); ++i)
        ASSERT_EQ(bits(actual[i]), bits(expected[i]))
            << what << " sample " << i << ": " << actual[i] << " instead of " << expected[i];
}

void expectSameBand(const EqBand& actual, const EqBand& expected, int32_t index) {
    const double EqBand::*kFields[] = {
        &EqBand::a1,        &EqBand::a2,             &EqBand::b0,        &EqBand::b1,
        &EqBand::b2,        &EqBand::frequency,      &EqBand::gain,      &EqBand::bandwidth,
        &EqBand::glideGain, &EqBand::glideFrequency, &EqBand::sampleRate, &EqBand::glideBandwidth};
    for (auto field : kFields)
        ASSERT_EQ(bits(actual.*field), bits(expected.*field)) << "band " << index;
    const BiquadHistory* histories[2][2] = {{&actual.historyLeft, &expected.historyLeft},
                                            {&actual.historyRight, &expected.historyRight}};
    const double BiquadHistory::*kState[] = {&BiquadHistory::x1, &BiquadHistory::x2,
                                             &BiquadHistory::y1, &BiquadHistory::y2};
    const char* kStateNames[] = {"x1", "x2", "y1", "y2"};
    for (auto& pair : histories)
        for (int k = 0; k < 4; ++k)
            ASSERT_EQ(bits(pair[0]->*kState[k]), bits(pair[1]->*kState[k]))
                << "band " << index << " " << kStateNames[k];
    ASSERT_EQ(actual.type, expected.type) << "band " << index;
    ASSERT_EQ(actual.glideType, expected.glideType) << "band " << index;
    ASSERT_EQ(actual.primed, expected.primed) << "band " << index;
    ASSERT_EQ(actual.enabled, expected.enabled) << "band " << index;
}

void expectSameBands(const std::vector<EqBand>& actual, const std::vector<EqBand>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i)
        ASSERT_NO_FATAL_FAILURE(expectSameBand(actual[i], expected[i], static_cast<int32_t>(i)));
}

void expectSameOutcome(const Outcome& actual, const Outcome& expected) {
    ASSERT_NO_FATAL_FAILURE(expectSameBits(actual.left, expected.left, "left"));
    ASSERT_NO_FATAL_FAILURE(expectSameBits(actual.right, expected.right, "right"));
    ASSERT_NO_FATAL_FAILURE(expectSameBands(actual.bands, expected.bands));
}
