// The block callback with the fast kernels against the band loop done the
// plain way in the test: the scalar kernel band after band, gliding chunk
// after chunk. Random band sets of every type (unknown codes, unstable
// coefficients and odd histories too), edits between blocks that start
// glides, disabled and unprimed bands, blocks of every awkward length and
// signals full of non-finite and tiny values, on every instruction set this
// processor runs and both shapes of short runs; outputs and every band
// record compared bit for bit.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <random>

#include "engine/audio_processing.h"
#include "engine/band_cascade.h"
#include "engine/biquad_kernel.h"
#include "tests/engine/test_instance.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct Random : std::mt19937_64 {
    using std::mt19937_64::mt19937_64;
    double uniform(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(*this);
    }
    int32_t pick(int32_t count) { return std::uniform_int_distribution<int32_t>(0, count - 1)(*this); }
    double logUniform(double low, double high) {
        return std::exp(uniform(std::log(low), std::log(high)));
    }
};

// x may hold anything the host sent, y only what survives the flush.
BiquadHistory randomHistory(Random& random) {
    constexpr double kOdd[] = {kNan, kInf, -0.0, 0.0, 1e-310};
    auto input = [&] { return random.pick(8) ? random.uniform(-1, 1) : kOdd[random.pick(5)]; };
    auto output = [&] { return random.pick(8) ? random.uniform(-2, 2) : 0.0; };
    return {input(), input(), output(), output()};
}

// A quarter at unity gain (left out until they have run), one in eight disabled,
// one in six with arbitrary coefficients whose output may overflow.
EqBand randomBand(Random& random) {
    constexpr int32_t kTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12, -2};
    EqBand* made = createDesignedBand(kTypes[random.pick(12)], random.logUniform(5, 30000),
                                      random.pick(4) ? random.logUniform(1e-4, 80) : 1.0,
                                      random.uniform(0, 4), random.pick(2) ? 44100.0 : 96000.0);
    EqBand band = *made;
    delete made;
    band.enabled = random.pick(8) != 0;
    band.historyLeft = randomHistory(random);
    band.historyRight = randomHistory(random);
    if (random.pick(6) == 0) {
        band.b0 = random.uniform(-4, 4);
        band.b1 = random.uniform(-4, 4);
        band.b2 = random.uniform(-4, 4);
        band.a1 = random.uniform(-2.5, 2.5);
        band.a2 = random.uniform(-1.5, 1.5);
    }
    return band;
}

// Noise laced with NaNs, infinities, denormals, values around 2^-54, signed
// zeros and huge values, with a stretch of silence in which histories decay.
std::vector<double> laced(Random& random, int32_t frames) {
    constexpr double kSpecial[] = {kNan,     kInf,     -kInf, 4.9e-324, -1e-310, 0x1p-54,
                                   -0x1p-54, 0x1.fffffffffffffp-55, -0.0, 1e300, -1.7e308};
    std::vector<double> samples(frames);
    for (double& sample : samples)
        sample = random.pick(64) ? random.uniform(-1, 1) : kSpecial[random.pick(11)];
    if (frames > 64) {
        int32_t start = random.pick(frames / 2), length = random.pick(frames / 2);
        std::fill_n(samples.begin() + start, length, random.pick(2) ? 0.0 : -0.0);
    }
    return samples;
}

bool steady(const EqBand& band) {
    return band.glideFrequency == band.frequency && band.glideGain == band.gain &&
           band.glideBandwidth == band.bandwidth;
}

// The audio path's band loop, written out plainly: unprimed bands at unity
// gain (pass filters apart) are left out, gliding bands step every 8 frames.
void plainBandLoop(std::vector<EqBand>& bands, std::vector<double>& left,
                   std::vector<double>& right) {
    const int32_t frames = static_cast<int32_t>(left.size());
    for (EqBand& band : bands) {
        bool passFilter = band.type >= LowPass && band.type <= BandPass;
        if (!band.enabled || (!band.primed && std::fabs(band.gain - 1.0) < 5e-9 && !passFilter))
            continue;
        const bool gliding = !steady(band);
        const int32_t chunk = gliding ? 8 : std::max(frames, 1);
        double step[3] = {(band.frequency - band.glideFrequency) / frames,
                          (band.gain - band.glideGain) / frames,
                          (band.bandwidth - band.glideBandwidth) / frames};
        for (int32_t done = 0; done < frames; done += chunk) {
            int32_t length = std::min(chunk, frames - done);
            if (gliding) {
                band.glideType = band.type;
                band.glideFrequency += step[0] * length;
                band.glideGain += step[1] * length;
                band.glideBandwidth += step[2] * length;
                if (!steady(band))
                    designBand(&band, band.type, false, band.glideFrequency, band.glideGain,
                               band.glideBandwidth);
            }
            runBandKernelScalar(band, left.data() + done, right.data() + done,
                                left.data() + done, right.data() + done, length);
        }
        if (frames > 0 || !gliding) band.primed = 1;
    }
}

// Between blocks: a few bands get new values (they glide in the next block),
// now and then one is switched on or off or jumps without a glide.
void editSome(Random& random, const std::vector<EqBand*>& bands) {
    for (EqBand* band : bands) {
        int32_t roll = random.pick(10);
        double factor = random.uniform(0.7, 1.4);
        if (roll < 3)
            designBand(band, band->type, false, band->frequency * factor, band->gain / factor,
                       band->bandwidth);
        else if (roll == 3)
            designBand(band, band->type, false, band->frequency, band->gain,
                       band->bandwidth * factor);
        else if (roll == 4)
            band->enabled = !band->enabled;
        else if (roll == 5)
            designBand(band, band->type, true, band->frequency * factor, band->gain,
                       band->bandwidth);
    }
}

void expectSameBits(const std::vector<double>& actual, const std::vector<double>& expected) {
    for (size_t i = 0; i < actual.size(); ++i)
        ASSERT_EQ(std::bit_cast<uint64_t>(actual[i]), std::bit_cast<uint64_t>(expected[i]))
            << "sample " << i << ": " << actual[i] << " instead of " << expected[i];
}

void expectSameBand(const EqBand& actual, const EqBand& expected) {
    // Coefficients, histories, design and glide values: every double before `type`.
    ASSERT_EQ(std::memcmp(&actual, &expected, offsetof(EqBand, type)), 0);
    ASSERT_EQ(actual.type, expected.type);
    ASSERT_EQ(actual.glideType, expected.glideType);
    ASSERT_EQ(actual.primed, expected.primed);
    ASSERT_EQ(actual.enabled, expected.enabled);
}

class BandCascade : public testing::TestWithParam<InstructionSet> {
protected:
    void SetUp() override { ASSERT_TRUE(useInstructionSet(GetParam())); }
    void TearDown() override {
        useInstructionSet(fastestInstructionSet());
        useShortRunShape(shape);
    }
    const ShortRunShape shape = shortRunShape();
};

std::string setName(const testing::TestParamInfo<InstructionSet>& info) {
    constexpr const char* kNames[] = {"Sse2", "Avx2", "Avx512"};
    return kNames[static_cast<int32_t>(info.param)];
}

std::vector<InstructionSet> runnableInstructionSets() {
    std::vector<InstructionSet> sets;
    for (InstructionSet set : {InstructionSet::Sse2, InstructionSet::Avx2, InstructionSet::Avx512})
        if (instructionSetAvailable(set)) sets.push_back(set);
    return sets;
}

}  // namespace

TEST_P(BandCascade, BlocksMatchThePlainBandLoopThroughEditsAndGlides) {
    Random random(31);
    constexpr int32_t kLengths[] = {0, 1, 7, 8, 9, 64, 4096, 2, 3, 100, 511, 16, 17, 23, 1000, 33};
    for (int32_t count : {1, 2, 3, 4, 5, 8, 9, 17, 40, 70}) {
        auto instance = makeTestInstance();
        std::vector<EqBand> plain;
        std::vector<EqBand*> bands;
        for (int32_t i = 0; i < count; ++i) {
            plain.push_back(randomBand(random));
            bands.push_back(addTestBand(instance.get(), Band, 1000.0, 1.0, 1.0));
            *bands.back() = plain.back();
        }
        for (int32_t block = 0; block < 32; ++block) {
            const int32_t frames = kLengths[block % 16];
            SCOPED_TRACE(testing::Message()
                         << count << " bands, block " << block << " of " << frames << " frames");
            useShortRunShape(block % 2 ? ShortRunShape::OneWideRegister
                                       : ShortRunShape::TwoNarrowRegisters);
            std::vector<double> left = laced(random, frames), right = laced(random, frames);
            std::vector<double> outLeft(frames, -3.0), outRight(frames, 7.0);
            double* inputs[2] = {left.data(), right.data()};
            double* outputs[2] = {outLeft.data(), outRight.data()};
            processDoubleReplacing(&instance->effect, inputs, outputs, frames);
            plainBandLoop(plain, left, right);
            ASSERT_NO_FATAL_FAILURE(expectSameBits(outLeft, left));
            ASSERT_NO_FATAL_FAILURE(expectSameBits(outRight, right));
            for (int32_t i = 0; i < count; ++i) {
                SCOPED_TRACE(testing::Message() << "band " << i);
                ASSERT_NO_FATAL_FAILURE(expectSameBand(*bands[i], plain[i]));
            }
            Random twin = random;  // the same edits on both sides
            editSome(random, bands);
            std::vector<EqBand*> plainBands;
            for (EqBand& band : plain) plainBands.push_back(&band);
            editSome(twin, plainBands);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryRunnableSet, BandCascade,
                         testing::ValuesIn(runnableInstructionSets()), setName);
