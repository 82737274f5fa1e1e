#include "tests/engine/band_cascade_test_support.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

double uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

int32_t pick(Random& random, int32_t count) {
    return std::uniform_int_distribution<int32_t>(0, count - 1)(random);
}

double logUniform(Random& random, double low, double high) {
    return std::exp(uniform(random, std::log(low), std::log(high)));
}

// x may hold anything the host sent, y only what survives the flush.
void randomHistory(Random& random, BiquadHistory& history) {
    constexpr double kOdd[] = {kNan, kInf, -0.0, 0.0, 1e-310};
    auto input = [&] { return pick(random, 8) ? uniform(random, -1.0, 1.0) : kOdd[pick(random, 5)]; };
    auto output = [&] { return pick(random, 8) ? uniform(random, -2.0, 2.0) : 0.0; };
    history = {input(), input(), output(), output()};
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
    if (pick(random, 6) == 0) {
        band.b0 = uniform(random, -4.0, 4.0);
        band.b1 = uniform(random, -4.0, 4.0);
        band.b2 = uniform(random, -4.0, 4.0);
        band.a1 = uniform(random, -2.5, 2.5);
        band.a2 = uniform(random, -1.5, 1.5);
    }
    return band;
}

}  // namespace

std::vector<InstructionSet> runnableInstructionSets() {
    std::vector<InstructionSet> sets;
    for (InstructionSet set : {InstructionSet::Sse2, InstructionSet::Avx2, InstructionSet::Avx512})
        if (instructionSetAvailable(set)) sets.push_back(set);
    return sets;
}

std::string instructionSetTestName(const testing::TestParamInfo<InstructionSet>& info) {
    constexpr const char* kNames[] = {"Sse2", "Avx2", "Avx512"};
    return kNames[static_cast<int32_t>(info.param)];
}

std::vector<EqBand> randomBands(Random& random, int32_t count) {
    std::vector<EqBand> bands;
    for (int32_t i = 0; i < count; ++i) bands.push_back(randomBand(random));
    return bands;
}

std::vector<double> laced(Random& random, int32_t frames) {
    constexpr double kSpecial[] = {kNan,     kInf,     -kInf, 4.9e-324, -1e-310, 0x1p-54,
                                   -0x1p-54, 0x1.fffffffffffffp-55, -0.0, 1e300, -1.7e308};
    std::vector<double> samples(frames);
    for (double& sample : samples)
        sample = pick(random, 64) ? uniform(random, -1.0, 1.0) : kSpecial[pick(random, 11)];
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
        ASSERT_EQ(std::bit_cast<uint64_t>(actual[i]), std::bit_cast<uint64_t>(expected[i]))
            << what << " sample " << i << ": " << actual[i] << " instead of " << expected[i];
}

void expectSameBands(const std::vector<EqBand>& actual, const std::vector<EqBand>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i) {
        const EqBand &a = actual[i], &e = expected[i];
        // Every double of the record comes before `type`.
        ASSERT_EQ(std::memcmp(&a, &e, offsetof(EqBand, type)), 0) << "band " << i;
        ASSERT_EQ(a.type, e.type) << "band " << i;
        ASSERT_EQ(a.glideType, e.glideType) << "band " << i;
        ASSERT_EQ(a.primed, e.primed) << "band " << i;
        ASSERT_EQ(a.enabled, e.enabled) << "band " << i;
    }
}

void expectSameOutcome(const Outcome& actual, const Outcome& expected) {
    ASSERT_NO_FATAL_FAILURE(expectSameBits(actual.left, expected.left, "left"));
    ASSERT_NO_FATAL_FAILURE(expectSameBits(actual.right, expected.right, "right"));
    ASSERT_NO_FATAL_FAILURE(expectSameBands(actual.bands, expected.bands));
}
