// The block callback: band order and skipping, gliding, the flush rule, the
// output-gain ramp and the reset, checked against filters run in the test.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "engine/audio_processing.h"
#include "engine/band_list.h"
#include "engine/default_bands.h"
#include "tests/engine/cookbook_reference.h"
#include "tests/engine/test_instance.h"

namespace {

// A stereo block with separate input and output arrays.
struct StereoBlock {
    std::vector<double> in[2], out[2];
    double* inputs[2];
    double* outputs[2];

    explicit StereoBlock(int frames, uint32_t seed = 1) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> sample(-1.0, 1.0);
        for (int c = 0; c < 2; ++c) {
            in[c].resize(frames);
            for (double& s : in[c]) s = sample(random);
            out[c].assign(frames, -7.0);
            inputs[c] = in[c].data();
            outputs[c] = out[c].data();
        }
    }
    void process(EqInstance* instance) {
        processDoubleReplacing(&instance->effect, inputs, outputs,
                               static_cast<int32_t>(in[0].size()));
    }
};

// Direct Form I with the denormal flush, as the product defines it.
struct ReferenceBiquad {
    ReferenceCoefficients k{};
    double x1 = 0, x2 = 0, y1 = 0, y2 = 0;

    double run(double x) {
        double y = k.b0 * x + k.b1 * x1 + k.b2 * x2 - k.a1 * y1 - k.a2 * y2;
        x2 = x1;
        x1 = x;
        y2 = y1;
        if (std::fabs(y) < std::ldexp(1.0, -54) || !std::isfinite(y)) y = 0.0;
        y1 = y;
        return y;
    }
};

// The reference run over a whole channel.
std::vector<double> filtered(ReferenceBiquad& reference, const std::vector<double>& in) {
    std::vector<double> out;
    for (double x : in) out.push_back(reference.run(x));
    return out;
}

uint64_t bits(double value) { return std::bit_cast<uint64_t>(value); }

void expectSameSamples(const std::vector<double>& actual, const std::vector<double>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i)
        ASSERT_EQ(bits(actual[i]), bits(expected[i])) << "sample " << i;
}

void expectPassThrough(const StereoBlock& io) {
    expectSameSamples(io.out[0], io.in[0]);
    expectSameSamples(io.out[1], io.in[1]);
}

HWND fakeEditorWindow() { return reinterpret_cast<HWND>(static_cast<uintptr_t>(0x1000)); }

}  // namespace

TEST(AudioProcessing, DefaultAndDisabledBandsPassTheInputThroughExactly) {
    auto instance = makeTestInstance();
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    for (int block = 0; block < 3; ++block) {
        StereoBlock io(256, block + 1);
        io.process(instance.get());
        expectPassThrough(io);
    }
    auto disabled = makeTestInstance();
    addTestBand(disabled.get(), Band, 1000.0, 4.0, 1.0)->enabled = 0;
    StereoBlock io(64);
    io.process(disabled.get());
    expectPassThrough(io);
}

TEST(AudioProcessing, BandsRunInSeriesInListOrder) {
    auto instance = makeTestInstance();
    addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    addTestBand(instance.get(), LowPass, 3000.0, 1.0, 0.7);
    StereoBlock io(128);
    io.process(instance.get());

    ReferenceBiquad first{referencePeaking(44100.0, 1000.0, 4.0, 1.0)};
    ReferenceBiquad second{referenceFilter(LowPass, 44100.0, 3000.0, 0.7)};
    expectSameSamples(io.out[0], filtered(second, filtered(first, io.in[0])));
}

TEST(AudioProcessing, InPlaceBuffersGiveTheSameResult) {
    auto separate = makeTestInstance();
    auto inPlace = makeTestInstance();
    for (auto* instance : {separate.get(), inPlace.get()}) {
        addTestBand(instance, Band, 1000.0, 4.0, 1.0);
        addTestBand(instance, HighShelf, 5000.0, 0.5, 1.0);
    }
    StereoBlock io(100);
    io.process(separate.get());
    std::vector<double> left = io.in[0], right = io.in[1];
    double* buffers[2] = {left.data(), right.data()};
    processDoubleReplacing(&inPlace->effect, buffers, buffers, 100);
    expectSameSamples(left, io.out[0]);
    expectSameSamples(right, io.out[1]);
}

TEST(AudioProcessing, GlideRedesignsEveryEightSamples) {
    auto instance = makeTestInstance();
    EqBand* band = addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    StereoBlock warmUp(64, 3);
    warmUp.process(instance.get());

    ReferenceBiquad reference{referencePeaking(44100.0, 1000.0, 4.0, 1.0)};
    filtered(reference, warmUp.in[0]);

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
    EXPECT_EQ(band->frequency, 2000.0);

    StereoBlock steady(40, 5);
    steady.process(instance.get());
    expectSameSamples(steady.out[0], filtered(reference, steady.in[0]));
}

TEST(AudioProcessing, ShortBlocksFinishTheGlideInOneBlock) {
    auto instance = makeTestInstance();
    EqBand* band = addTestBand(instance.get(), Band, 1000.0, 2.0, 1.0);
    designBand(band, Band, false, 1000.0, 4.0, 2.0);
    StereoBlock io(5);  // one chunk of 5 frames
    io.process(instance.get());
    ReferenceBiquad reference{referencePeaking(44100.0, 1000.0, 4.0, 2.0)};
    expectSameSamples(io.out[0], filtered(reference, io.in[0]));
    EXPECT_EQ(band->glideGain, 4.0);
    EXPECT_EQ(band->glideBandwidth, 2.0);
}

TEST(AudioProcessing, NonFiniteInputSilencesThreeSamples) {
    for (double bad : {std::numeric_limits<double>::quiet_NaN(),
                       std::numeric_limits<double>::infinity()}) {
        auto instance = makeTestInstance();
        addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
        StereoBlock io(32);
        io.in[0][10] = bad;
        io.process(instance.get());
        for (int i = 10; i < 13; ++i) EXPECT_EQ(bits(io.out[0][i]), bits(0.0)) << i;
        for (int i = 13; i < 32; ++i) EXPECT_TRUE(std::isfinite(io.out[0][i]) && io.out[0][i] != 0.0);
        EXPECT_NE(io.out[1][10], 0.0);  // the other channel is untouched
    }
}

TEST(AudioProcessing, TinyResultsAreFlushedToZero) {
    auto instance = makeTestInstance();
    EqBand* band = addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    band->b0 = 1.0;  // a plain wire, so the flush rule alone decides
    band->b1 = band->b2 = band->a1 = band->a2 = 0.0;
    double limit = std::ldexp(1.0, -54);
    std::vector<double> left = {limit, std::nextafter(limit, 0.0), -limit, 1e-310, -1e-300, 1.0};
    std::vector<double> right(left.size(), 0.25);
    std::vector<double> outLeft(left.size()), outRight(left.size());
    double* inputs[2] = {left.data(), right.data()};
    double* outputs[2] = {outLeft.data(), outRight.data()};
    processDoubleReplacing(&instance->effect, inputs, outputs, 6);
    expectSameSamples(outLeft, {limit, 0.0, -limit, 0.0, 0.0, 1.0});
}

TEST(AudioProcessing, UnityBandsRunOnceTheyHaveRun) {
    auto instance = makeTestInstance();
    EqBand* band = addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    StereoBlock loud(64);
    loud.process(instance.get());
    EXPECT_EQ(band->primed, 1);
    designBand(band, Band, true, 1000.0, 1.0, 1.0);

    StereoBlock silence(64);
    silence.in[0].assign(64, 0.0);
    silence.in[1].assign(64, 0.0);
    silence.process(instance.get());
    EXPECT_NE(silence.out[0][0], 0.0);  // the history of the loud block decays

    resetBandStates(instance.get());
    StereoBlock after(64, 9);
    after.process(instance.get());
    expectSameSamples(after.out[0], after.in[0]);
}

TEST(AudioProcessing, PassFiltersRunEvenAtUnityGain) {
    auto instance = makeTestInstance();
    addTestBand(instance.get(), Notch, 1000.0, 1.0, 1.0);
    StereoBlock io(32);
    io.process(instance.get());
    ReferenceBiquad reference{referenceFilter(Notch, 44100.0, 1000.0, 1.0)};
    expectSameSamples(io.out[0], filtered(reference, io.in[0]));
}

TEST(AudioProcessing, OutputGainRampsToANewValue) {
    auto instance = makeTestInstance();
    instance->outputGain = 0.5;
    const int n = 64;
    StereoBlock ramp(n);
    ramp.process(instance.get());
    EXPECT_EQ(ramp.out[0][0], ramp.in[0][0] * (1.0 - 0.5 / n));
    EXPECT_EQ(ramp.out[1][0], ramp.in[1][0] * (1.0 - 0.5 / n));
    EXPECT_NEAR(ramp.out[0][n - 1], ramp.in[0][n - 1] * 0.5, 1e-14);
    EXPECT_EQ(instance->currentOutputGain, 0.5);

    StereoBlock steady(n, 2);
    steady.process(instance.get());
    for (int i = 0; i < n; ++i) ASSERT_EQ(steady.out[0][i], steady.in[0][i] * 0.5);
}

TEST(AudioProcessing, UnityOutputGainIsNeverRampedAndNearZeroMutes) {
    auto instance = makeTestInstance();
    instance->outputGain = 0.5;
    instance->currentOutputGain = 0.5;
    StereoBlock back(64);
    instance->outputGain = 1.0;
    back.process(instance.get());
    expectSameSamples(back.out[0], back.in[0]);
    EXPECT_EQ(instance->currentOutputGain, 1.0);

    instance->outputGain = 0.8;
    StereoBlock ramp(10);
    ramp.process(instance.get());
    EXPECT_EQ(ramp.out[1][0], ramp.in[1][0] * (1.0 + (0.8 - 1.0) / 10));

    instance->outputGain = instance->currentOutputGain = 1e-7;  // near zero mutes
    StereoBlock muted(64);
    muted.process(instance.get());
    for (int c = 0; c < 2; ++c)
        for (double s : muted.out[c]) ASSERT_EQ(s, 0.0);
}

TEST(AudioProcessing, ZeroFrameBlocksOnlyStampTheTick) {
    auto instance = makeTestInstance();
    addTestBand(instance.get(), Band, 1000.0, 4.0, 1.0);
    instance->editorWindow = fakeEditorWindow();
    fakeTickNow = 4321;
    double sentinel[2] = {-3.0, -3.0};
    double* outputs[2] = {&sentinel[0], &sentinel[1]};
    double input[2] = {1.0, 1.0};
    double* inputs[2] = {&input[0], &input[1]};
    processDoubleReplacing(&instance->effect, inputs, outputs, 0);
    EXPECT_EQ(sentinel[0], -3.0);
    EXPECT_EQ(sentinel[1], -3.0);
    EXPECT_EQ(instance->spectrumTick, 4321u);
    EXPECT_EQ(instance->inputAnalyzer.hasNewData, 0);
    EXPECT_EQ(instance->outputAnalyzer.writeIndex, 0);
    EXPECT_EQ(instance->band(0)->historyLeft.x1, 0.0);
}

TEST(AudioProcessing, OnlyAnOpenEditorCapturesInputAndOutput) {
    auto instance = makeTestInstance();
    instance->outputGain = 0.5;
    instance->currentOutputGain = 0.5;
    instance->editorWindow = fakeEditorWindow();
    fakeTickNow = 77;
    StereoBlock io(16);
    io.process(instance.get());
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(instance->inputAnalyzer.samples[i], (io.in[0][i] + io.in[1][i]) * 0.5);
        EXPECT_EQ(instance->outputAnalyzer.samples[i], (io.out[0][i] + io.out[1][i]) * 0.5);
    }
    EXPECT_EQ(instance->inputAnalyzer.writeIndex, 16);
    EXPECT_EQ(instance->outputAnalyzer.hasNewData, 1);
    EXPECT_EQ(instance->spectrumTick, 77u);

    auto closed = makeTestInstance();  // no editor: nothing captured, no tick
    fakeTickNow = 99;
    io.process(closed.get());
    EXPECT_EQ(closed->inputAnalyzer.writeIndex, 0);
    EXPECT_EQ(closed->outputAnalyzer.hasNewData, 0);
    EXPECT_EQ(closed->spectrumTick, 0u);
}

TEST(AudioProcessing, ResetAtANewSampleRateRedesignsWithoutGlide) {
    auto instance = makeTestInstance();
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    EqBand* bell = instance->band(1);
    designBand(bell, Band, false, 400.0, 2.0, 1.5);  // pending glide
    StereoBlock io(16);
    io.process(instance.get());
    designBand(bell, Band, false, 500.0, 3.0, 1.0);
    instance->outputGain = 0.7;
    instance->gestureParam = 5;

    instance->sampleRate = 48000.0;
    resetBandStates(instance.get());
    for (int32_t i = 0; i < instance->bandCount(); ++i) {
        EqBand* band = instance->band(i);
        EXPECT_EQ(band->sampleRate, 48000.0);
        EXPECT_EQ(band->glideFrequency, band->frequency);
        EXPECT_EQ(band->glideGain, band->gain);
        EXPECT_EQ(band->glideBandwidth, band->bandwidth);
        EXPECT_EQ(band->primed, 0);
        EXPECT_EQ(band->historyLeft.y1, 0.0);
        EXPECT_EQ(band->historyRight.x1, 0.0);
    }
    expectCoefficients(*bell, referencePeaking(48000.0, 500.0, 3.0, 1.0));
    expectCoefficients(*instance->band(0), referenceLowShelf(48000.0, 100.0, 1.0, 0.25));
    EXPECT_EQ(instance->currentOutputGain, 0.7);
    EXPECT_EQ(instance->gestureParam, -1);
}

TEST(AudioProcessing, SinglePrecisionAndInstanceLessCallsWriteNothing) {
    auto instance = makeTestInstance();
    float in[4] = {1, 2, 3, 4}, outLeft[4] = {9, 9, 9, 9}, outRight[4] = {9, 9, 9, 9};
    float* inputs[2] = {in, in};
    float* outputs[2] = {outLeft, outRight};
    processSinglePrecision(&instance->effect, inputs, outputs, 4);
    EXPECT_EQ(outLeft[3], 9.0f);
    EXPECT_EQ(outRight[0], 9.0f);

    AEffect effect{};
    StereoBlock io(8);
    processDoubleReplacing(&effect, io.inputs, io.outputs, 8);
    EXPECT_EQ(io.out[0][0], -7.0);
}
