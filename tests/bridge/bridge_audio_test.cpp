// The 32-bit entries hosts call: the float output is the 64-bit path's output
// rounded to float, in place and for blocks longer than the announced size;
// the old accumulating entry adds it to what the output held.
#include <algorithm>
#include <cmath>
#include <vector>

#include "tests/bridge/plain_host.h"

namespace {

// Left then right, noise and a tone, float-representable so that both paths
// see the same input.
std::vector<float> testSignal(int32_t frames) {
    std::vector<float> samples(2 * static_cast<size_t>(frames));
    uint64_t seed = 1;
    for (size_t i = 0; i < samples.size(); ++i) {
        seed = seed * 6364136223846793005ULL + 1442695040888963407ULL;
        samples[i] = static_cast<float>(seed >> 40) / 16777216.0f - 0.5f +
                     0.25f * static_cast<float>(std::sin(0.05 * static_cast<double>(i % frames)));
    }
    return samples;
}

// Two instances with the same bands: the float entries of one against the
// double entry of the other, block for block.
class BridgeFloatPathTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(single_.effect && twice_.effect);
        for (HostedEffect* hosted : {&single_, &twice_})
            for (auto [index, value] : {std::pair{1, 0.8f}, {7, 0.05f}, {9, 0.9f}}) hosted->setParameter(index, value);
    }
    // The double path's output for the test signal, rounded to float.
    std::vector<float> doublePath(int32_t frames) {
        std::vector<float> signal = testSignal(frames);
        std::vector<double> input(signal.begin(), signal.end()), output(input.size());
        double* inputs[2] = {input.data(), input.data() + frames};
        double* outputs[2] = {output.data(), output.data() + frames};
        twice_.effect->processDoubleReplacing(twice_.effect, inputs, outputs, frames);
        return {output.begin(), output.end()};
    }
    HostedEffect single_{builtBridge()}, twice_{builtBridge()};
};

TEST_F(BridgeFloatPathTest, InPlaceAndAccumulatingEntriesEqualTheDoublePathRounded) {
    for (int32_t frames : {HostedEffect::kBlockSize, 1, 1000, 4096 + 17}) {
        std::vector<float> buffer = testSignal(frames);
        float* channels[2] = {buffer.data(), buffer.data() + frames};
        single_.effect->processReplacing(single_.effect, channels, channels, frames);
        EXPECT_NE(buffer[frames / 2], testSignal(frames)[frames / 2]) << "the bands act";
        EXPECT_EQ(buffer, doublePath(frames)) << frames << " frames";
    }
    std::vector<float> input = testSignal(300), output(600, 1.0f), expected = doublePath(300);
    float* inputs[2] = {input.data(), input.data() + 300};
    float* outputs[2] = {output.data(), output.data() + 300};
    single_.effect->process(single_.effect, inputs, outputs, 300);
    for (float& sample : expected) sample += 1.0f;
    EXPECT_EQ(output, expected);
}

// The ringing of the bands a loud block leaves, in the first sample of a
// silent block after these effMainsChanged requests.
float ringingAfter(HostedEffect& hosted, std::initializer_list<intptr_t> mainsChanges) {
    std::vector<float> left(256, 0.5f), right(256, 0.5f);
    float* channels[2] = {left.data(), right.data()};
    hosted.effect->processReplacing(hosted.effect, channels, channels, 256);
    for (intptr_t on : mainsChanges) hosted.dispatch(effMainsChanged, 0, on);
    std::fill(left.begin(), left.end(), 0.0f);
    std::fill(right.begin(), right.end(), 0.0f);
    hosted.effect->processReplacing(hosted.effect, channels, channels, 256);
    return left[0];
}

// Switching off clears the filter histories; a host's repeated switching on
// leaves them, as it leaves the sound.
TEST_F(BridgeInstanceTest, SwitchingOffClearsTheFilterHistoriesAndSwitchingOnKeepsThem) {
    hosted_->setParameter(1, 1.0f);
    EXPECT_NE(ringingAfter(*hosted_, {1}), 0.0f);
    EXPECT_EQ(ringingAfter(*hosted_, {0, 1}), 0.0f);
}

}  // namespace
