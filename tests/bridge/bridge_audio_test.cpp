// The 32-bit entries hosts call: the float output is the 64-bit path's output
// rounded to float, in place and for blocks longer than the announced size;
// the old accumulating entry adds it to what the output held.
#include <cmath>
#include <vector>

#include "tests/bridge/plain_host.h"

namespace {

// Noise and a tone, float-representable so that both paths see the same input.
std::vector<float> testSignal(int32_t frames, uint64_t seed) {
    std::vector<float> samples(static_cast<size_t>(frames));
    for (size_t i = 0; i < samples.size(); ++i) {
        seed = seed * 6364136223846793005ULL + 1442695040888963407ULL;
        samples[i] = static_cast<float>(seed >> 40) / 16777216.0f - 0.5f +
                     0.25f * static_cast<float>(std::sin(0.05 * static_cast<double>(i)));
    }
    return samples;
}

// Two instances with the same bands, one driven through a float entry, the
// other through the double one.
class BridgeFloatPathTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(single_.effect && twice_.effect);
        for (HostedEffect* hosted : {&single_, &twice_}) {
            hosted->setParameter(1, 0.8f);
            hosted->setParameter(7, 0.05f);
            hosted->setParameter(9, 0.9f);
        }
    }
    // The double path's output for the test signal of `frames`, left then
    // right, rounded to float.
    std::vector<float> doublePath(int32_t frames) {
        std::vector<float> leftIn = testSignal(frames, 1), rightIn = testSignal(frames, 2);
        std::vector<double> left(leftIn.begin(), leftIn.end()), right(rightIn.begin(), rightIn.end());
        std::vector<double> out(2 * left.size());
        double* inputs[2] = {left.data(), right.data()};
        double* outputs[2] = {out.data(), out.data() + frames};
        twice_.effect->processDoubleReplacing(twice_.effect, inputs, outputs, frames);
        std::vector<float> rounded;
        for (double sample : out) rounded.push_back(static_cast<float>(sample));
        return rounded;
    }
    HostedEffect single_{builtBridge()}, twice_{builtBridge()};
};

TEST_F(BridgeFloatPathTest, InPlaceAndAccumulatingEntriesEqualTheDoublePathRounded) {
    for (int32_t frames : {HostedEffect::kBlockSize, 1, 1000, 4096 + 17}) {
        std::vector<float> signal = testSignal(frames, 1), right = testSignal(frames, 2);
        float* channels[2] = {signal.data(), right.data()};
        single_.effect->processReplacing(single_.effect, channels, channels, frames);
        EXPECT_NE(signal[frames / 2], testSignal(frames, 1)[frames / 2]) << "the bands act";
        signal.insert(signal.end(), right.begin(), right.end());
        EXPECT_EQ(signal, doublePath(frames)) << frames << " frames";
    }
    constexpr int32_t kFrames = 300;
    std::vector<float> left = testSignal(kFrames, 1), right = testSignal(kFrames, 2);
    float* inputs[2] = {left.data(), right.data()};
    std::vector<float> output(2 * kFrames, 1.0f);
    float* outputs[2] = {output.data(), output.data() + kFrames};
    single_.effect->process(single_.effect, inputs, outputs, kFrames);
    std::vector<float> expected = doublePath(kFrames);
    for (float& sample : expected) sample += 1.0f;
    EXPECT_EQ(output, expected);
}

}  // namespace
