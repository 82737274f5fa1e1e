// The block callback with the fast kernels against the band loop written out
// plainly with the scalar kernel, on every instruction set this processor runs:
// random bands, glides, awkward block lengths and laced signals, bit for bit.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <random>

#include "engine/audio_processing.h"
#include "engine/band_cascade.h"
#include "engine/biquad_kernel.h"
#include "tests/engine/cookbook_reference.h"
#include "tests/engine/test_instance.h"

namespace {

struct Random : std::mt19937_64 {
    double uniform(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(*this);
    }
    int32_t pick(int32_t count) { return std::uniform_int_distribution<int32_t>(0, count - 1)(*this); }
    double logUniform(double low, double high) { return std::exp(uniform(std::log(low), std::log(high))); }
    // One value in `odds` from `special`, else noise in ±`range`.
    double laced(int odds, std::initializer_list<double> special, double range) {
        return pick(odds) ? uniform(-range, range) : special.begin()[pick(special.size())];
    }
};

// Some at unity gain, some off, some with arbitrary coefficients that may
// overflow; histories x anything a host sent, y only what survives the flush.
EqBand randomBand(Random& r) {
    constexpr int32_t kTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12, -2};
    EqBand* made = createDesignedBand(kTypes[r.pick(12)], r.logUniform(5, 30000),
                                      r.pick(4) ? r.logUniform(1e-4, 80) : 1.0, r.uniform(0, 4),
                                      r.pick(2) ? 44100.0 : 96000.0);
    EqBand band = *made;
    delete made;
    band.enabled = r.pick(8) != 0;
    for (BiquadHistory* h : {&band.historyLeft, &band.historyRight})
        *h = {r.laced(8, {NAN, INFINITY, -0.0, 1e-310}, 1), r.laced(8, {NAN, -0.0}, 1),
              r.laced(8, {0.0}, 2), r.laced(8, {0.0}, 2)};
    if (r.pick(6) == 0) {
        band.b0 = r.uniform(-4, 4);
        band.b1 = r.uniform(-4, 4);
        band.b2 = r.uniform(-4, 4);
        band.a1 = r.uniform(-2.5, 2.5);
        band.a2 = r.uniform(-1.5, 1.5);
    }
    return band;
}

// Noise laced with non-finite, denormal, tiny and huge values, and a stretch
// of silence in which histories decay.
std::vector<double> laced(Random& r, int32_t frames) {
    std::vector<double> samples(frames);
    for (double& sample : samples)
        sample = r.laced(64, {NAN, INFINITY, -INFINITY, 4.9e-324, -1e-310, 0x1p-54, -0x1p-54,
                              0x1.fffffffffffffp-55, -0.0, 1e300, -1.7e308}, 1);
    if (frames > 64) std::fill_n(samples.begin() + r.pick(frames / 2), r.pick(frames / 2), -0.0);
    return samples;
}

bool steady(const EqBand& band) {
    return band.glideFrequency == band.frequency && band.glideGain == band.gain &&
           band.glideBandwidth == band.bandwidth;
}

// The audio path's band loop: unprimed bands at unity gain (pass filters
// apart) are left out, gliding bands move and are redesigned every 8 frames.
void plainBandLoop(std::vector<EqBand>& bands, std::vector<double>& left, std::vector<double>& right) {
    const int32_t frames = static_cast<int32_t>(left.size());
    for (EqBand& band : bands) {
        bool passFilter = band.type >= LowPass && band.type <= BandPass;
        if (!band.enabled || (!band.primed && std::fabs(band.gain - 1.0) < 5e-9 && !passFilter))
            continue;
        const bool gliding = !steady(band);
        const int32_t chunk = gliding ? 8 : std::max(frames, 1);
        const double step[3] = {(band.frequency - band.glideFrequency) / frames,
                                (band.gain - band.glideGain) / frames,
                                (band.bandwidth - band.glideBandwidth) / frames};
        for (int32_t done = 0; done < frames; done += chunk) {
            const int32_t length = std::min(chunk, frames - done);
            if (gliding) {
                band.glideType = band.type;
                band.glideFrequency += step[0] * length;
                band.glideGain += step[1] * length;
                band.glideBandwidth += step[2] * length;
                if (!steady(band))
                    designBand(&band, band.type, false, band.glideFrequency, band.glideGain,
                               band.glideBandwidth);
            }
            runBandKernelScalar(band, &left[done], &right[done], &left[done], &right[done], length);
        }
        if (frames > 0 || !gliding) band.primed = 1;
    }
}

// Between blocks: new values for some bands (gliding or snapped), others switched.
void editSome(Random& r, const std::vector<EqBand*>& bands) {
    for (EqBand* band : bands) {
        int32_t roll = r.pick(10);
        double factor = r.uniform(0.7, 1.4);
        if (roll < 4)
            designBand(band, band->type, roll == 3, band->frequency * factor, band->gain / factor,
                       band->bandwidth * (roll == 2 ? factor : 1.0));
        else if (roll == 4)
            band->enabled = !band->enabled;
    }
}

std::vector<InstructionSet> runnableInstructionSets() {
    std::vector<InstructionSet> sets;
    for (InstructionSet set : {InstructionSet::Sse2, InstructionSet::Avx2, InstructionSet::Avx512})
        if (instructionSetAvailable(set)) sets.push_back(set);
    return sets;
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

}  // namespace

TEST_P(BandCascade, BlocksMatchThePlainBandLoopThroughEditsAndGlides) {
    Random random;
    constexpr int32_t kLengths[] = {0, 1, 7, 8, 9, 64, 4096, 2, 3, 100, 511, 16, 17, 23, 1000, 33};
    for (int32_t count : {1, 2, 3, 4, 5, 8, 9, 17, 40, 70}) {
        auto instance = makeTestInstance();
        std::vector<EqBand> plain;
        std::vector<EqBand*> bands, plainBands;
        for (int32_t i = 0; i < count; ++i) {
            plain.push_back(randomBand(random));
            bands.push_back(addTestBand(instance.get(), Band, 1000.0, 1.0, 1.0));
            *bands.back() = plain.back();
        }
        for (EqBand& band : plain) plainBands.push_back(&band);
        for (int32_t block = 0; block < 32; ++block) {
            const int32_t frames = kLengths[block % 16];
            SCOPED_TRACE(testing::Message() << instructionSetName(GetParam()) << ", " << count
                                            << " bands, block " << block);
            useShortRunShape(ShortRunShape(block % 2));  // one wide register or two narrow ones
            std::vector<double> left = laced(random, frames), right = laced(random, frames);
            std::vector<double> outLeft(frames, -3.0), outRight(frames, 7.0);
            double* inputs[2] = {left.data(), right.data()};
            double* outputs[2] = {outLeft.data(), outRight.data()};
            processDoubleReplacing(&instance->effect, inputs, outputs, frames);
            plainBandLoop(plain, left, right);
            ASSERT_NO_FATAL_FAILURE(expectSameSamples(outLeft, left));
            ASSERT_NO_FATAL_FAILURE(expectSameSamples(outRight, right));
            for (int32_t i = 0; i < count; ++i) {
                const EqBand &a = *bands[i], &e = plain[i];
                // Coefficients, histories, design and glide values: every double before `type`.
                ASSERT_EQ(std::memcmp(&a, &e, offsetof(EqBand, type)), 0) << "band " << i;
                ASSERT_EQ(std::tie(a.type, a.glideType, a.primed, a.enabled),
                          std::tie(e.type, e.glideType, e.primed, e.enabled)) << "band " << i;
            }
            Random twin = random;  // the same edits on both sides
            editSome(random, bands);
            editSome(twin, plainBands);
        }
    }
}

const char* const kSetNames[] = {"Sse2", "Avx2", "Avx512"};
INSTANTIATE_TEST_SUITE_P(EveryRunnableSet, BandCascade, testing::ValuesIn(runnableInstructionSets()),
                         [](const auto& info) { return kSetNames[static_cast<int>(info.param)]; });
