// The 32-bit entries: the 64-bit path's output rounded to float.
#include <algorithm>
#include <vector>

#include "tests/bridge/plain_host.h"

namespace {

// Left then right, noise in float so that both paths see the same input.
std::vector<float> testSignal(int32_t frames) {
    std::vector<float> samples(2 * static_cast<size_t>(frames));
    uint64_t seed = 1;
    for (float& sample : samples) {
        seed = seed * 6364136223846793005ULL + 1442695040888963407ULL;
        sample = static_cast<float>(seed >> 40) / 16777216.0f - 0.5f;
    }
    return samples;
}

// Two instances with the same bands, one for each path.
class BridgeFloatPathTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(single_.effect && twice_.effect);
        for (HostedEffect* hosted : {&single_, &twice_})
            for (auto [index, value] : {std::pair{1, 0.8f}, {7, 0.05f}, {9, 0.9f}}) hosted->setParameter(index, value);
    }
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

// The ringing a loud block leaves in a silent one after these requests.
float ringingAfter(HostedEffect& hosted, std::initializer_list<intptr_t> mainsChanges) {
    std::vector<float> left(256, 0.5f), right(left);
    float* channels[2] = {left.data(), right.data()};
    hosted.effect->processReplacing(hosted.effect, channels, channels, 256);
    for (intptr_t on : mainsChanges) hosted.dispatch(effMainsChanged, 0, on);
    left.assign(256, 0.0f);
    hosted.effect->processReplacing(hosted.effect, channels, channels, 256);
    return left[0];
}

TEST_F(BridgeInstanceTest, SwitchingOffClearsTheFilterHistoriesAndSwitchingOnKeepsThem) {
    hosted_->setParameter(1, 1.0f);
    EXPECT_NE(ringingAfter(*hosted_, {1}), 0.0f);
    EXPECT_EQ(ringingAfter(*hosted_, {0, 1}), 0.0f);
}

}  // namespace
