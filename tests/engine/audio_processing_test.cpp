// The block callback: which bands run and in what order, gliding, the flush
// rule, the output-gain ramp and the reset, against filters run in the test.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "engine/audio_processing.h"
#include "tests/engine/cookbook_reference.h"
#include "tests/engine/test_instance.h"

namespace {

// A stereo block of noise with separate output arrays.
struct StereoBlock {
    std::vector<double> in[2], out[2];

    explicit StereoBlock(int frames, uint32_t seed = 1) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> sample(-1.0, 1.0);
        for (int c = 0; c < 2; ++c) {
            for (int i = 0; i < frames; ++i) in[c].push_back(sample(random));
            out[c].assign(frames, -7.0);
        }
    }
    void process(EqInstance* instance) {
        double* inputs[2] = {in[0].data(), in[1].data()};
        double* outputs[2] = {out[0].data(), out[1].data()};
        processDoubleReplacing(&instance->effect, inputs, outputs,
                               static_cast<int32_t>(in[0].size()));
    }
};

// Direct Form I with the flush of results below 2^-54 and of non-finite ones.
struct ReferenceBiquad {
    ReferenceCoefficients k{};
    double x1 = 0, x2 = 0, y1 = 0, y2 = 0;

    double run(double x) {
        double y = k.b0 * x + k.b1 * x1 + k.b2 * x2 - k.a1 * y1 - k.a2 * y2;
        x2 = x1;
        x1 = x;
        y2 = y1;
        if (std::fabs(y) < std::ldexp(1.0, -54) || !std::isfinite(y)) y = 0.0;
        return y1 = y;
    }
    std::vector<double> filtered(const std::vector<double>& in) {
        std::vector<double> out;
        for (double x : in) out.push_back(run(x));
        return out;
    }
};

}  // namespace

// Disabled bands and unprimed bands at unity gain are left out; a band a
// thousandth off unity and pass filters at unity run, in list order.
TEST(AudioProcessing, EnabledBandsRunInSeriesInListOrder) {
    auto instance = makeTestInstance();
    addTestBand(instance.get(), Band, 500.0, 4.0, 1.0)->enabled = 0;
    addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    addTestBand(instance.get(), HighShelf, 700.0, 1.0, 1.0);
    addTestBand(instance.get(), Band, 2000.0, 1.001, 1.0);
    addTestBand(instance.get(), LowPass, 3000.0, 1.0, 0.7);
    StereoBlock io(128);
    io.process(instance.get());
    ReferenceBiquad chain[] = {{referencePeaking(44100.0, 1000.0, 4.0, 1.0)},
                               {referencePeaking(44100.0, 2000.0, 1.001, 1.0)},
                               {referenceFilter(LowPass, 44100.0, 3000.0, 0.7)}};
    std::vector<double> expected = io.in[0];
    for (ReferenceBiquad& section : chain) expected = section.filtered(expected);
    expectSameSamples(io.out[0], expected);
}

TEST(AudioProcessing, GlideRedesignsEveryEightSamples) {
    auto instance = makeTestInstance();
    EqBand* band = addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    StereoBlock warmUp(64, 3);
    warmUp.process(instance.get());
    ReferenceBiquad reference{referencePeaking(44100.0, 1000.0, 4.0, 1.0)};
    reference.filtered(warmUp.in[0]);

    designBand(band, Band, false, 2000.0, 4.0, 1.0);
    StereoBlock glide(64, 4);
    glide.process(instance.get());
    std::vector<double> expected;
    for (int chunk = 0; chunk < 8; ++chunk) {
        reference.k = referencePeaking(44100.0, 1125.0 + 125.0 * chunk, 4.0, 1.0);
        for (int i = chunk * 8; i < chunk * 8 + 8; ++i) expected.push_back(reference.run(glide.in[0][i]));
    }
    expectSameSamples(glide.out[0], expected);
    EXPECT_EQ(band->glideFrequency, 2000.0);

    StereoBlock steady(40, 5);
    steady.process(instance.get());
    expectSameSamples(steady.out[0], reference.filtered(steady.in[0]));
}

TEST(AudioProcessing, TinyAndNonFiniteResultsAreFlushedToZero) {
    auto instance = makeTestInstance();
    EqBand* band = addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    band->b0 = 1.0;  // a plain wire, so the flush rule alone decides
    band->b1 = band->b2 = band->a1 = band->a2 = 0.0;
    const double limit = std::ldexp(1.0, -54), nan = std::numeric_limits<double>::quiet_NaN();
    StereoBlock io(8);
    io.in[0] = {limit, std::nextafter(limit, 0.0), -limit, 1e-310, -1e-300, 1.0, nan,
                -std::numeric_limits<double>::infinity()};
    io.process(instance.get());
    expectSameSamples(io.out[0], {limit, 0.0, -limit, 0.0, 0.0, 1.0, 0.0, 0.0});
}

TEST(AudioProcessing, OutputGainRampsToItsTargetAndHoldsIt) {
    auto instance = makeTestInstance();
    instance->outputGain = 0.5;
    StereoBlock ramp(64);
    ramp.process(instance.get());
    EXPECT_EQ(ramp.out[1][0], ramp.in[1][0] * (1.0 - 0.5 / 64));
    EXPECT_NEAR(ramp.out[0][63], ramp.in[0][63] * 0.5, 1e-14);
    StereoBlock steady(64, 2);
    steady.process(instance.get());
    for (int i = 0; i < 64; ++i) ASSERT_EQ(steady.out[0][i], steady.in[0][i] * 0.5);

    instance->outputGain = 1.0;  // unity is never ramped
    StereoBlock back(64);
    back.process(instance.get());
    expectSameSamples(back.out[0], back.in[0]);

    // Steady gains down to 1e-6 scale; -90 dB is still heard, below 1e-6 is silence.
    for (double gain : {3.2e-5, 1e-7}) {
        instance->outputGain = instance->currentOutputGain = gain;
        StereoBlock quiet(16);
        quiet.process(instance.get());
        EXPECT_EQ(quiet.out[1][5], gain > 1e-6 ? quiet.in[1][5] * gain : 0.0) << gain;
    }
}

// A band back at unity runs on while its history decays; a reset (here at a
// new rate) redesigns without glide and forgets that the band ran.
TEST(AudioProcessing, ResetRedesignsForTheNewRateAndForgetsWhatRan) {
    auto instance = makeTestInstance();
    EqBand* band = addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    StereoBlock(64).process(instance.get());
    designBand(band, Band, true, 1000.0, 1.0, 1.0);
    StereoBlock silence(64);
    silence.in[0].assign(64, 0.0);
    silence.process(instance.get());
    EXPECT_NE(silence.out[0][0], 0.0);

    designBand(band, Band, false, 500.0, 1.0, 2.0);  // a pending glide
    instance->outputGain = 0.7;
    instance->sampleRate = 48000.0;
    resetBandStates(instance.get());
    EXPECT_EQ(band->glideFrequency, 500.0);
    expectCoefficients(*band, referencePeaking(48000.0, 500.0, 1.0, 2.0));
    EXPECT_EQ(instance->currentOutputGain, 0.7);
    instance->outputGain = 1.0;
    StereoBlock after(64, 9);
    after.process(instance.get());
    expectSameSamples(after.out[0], after.in[0]);
}
