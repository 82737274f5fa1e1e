// The 32-bit entry hosts call: the float output is the 64-bit path's output
// rounded to float, in place and for blocks longer than the announced size.
#include <cmath>
#include <vector>

#include "tests/bridge/bridge_fixture.h"

namespace {

constexpr int32_t kAnnouncedBlock = 64;

// Noise and a tone, float-representable so both paths see the same input.
std::vector<float> testSignal(int32_t frames, uint64_t seed) {
    std::vector<float> samples(static_cast<size_t>(frames));
    for (float& sample : samples) {
        seed = seed * 6364136223846793005ULL + 1442695040888963407ULL;
        sample = static_cast<float>(seed >> 40) / 16777216.0f - 0.5f;
    }
    for (size_t i = 0; i < samples.size(); ++i)
        samples[i] += 0.25f * static_cast<float>(std::sin(0.05 * static_cast<double>(i)));
    return samples;
}

struct StereoFloat {
    std::vector<float> left, right;
    float* channels[2];
    explicit StereoFloat(int32_t frames)
        : left(testSignal(frames, 1)), right(testSignal(frames, 2)), channels{left.data(), right.data()} {}
};

struct StereoDouble {
    std::vector<double> left, right, outLeft, outRight;
    double* inputs[2];
    double* outputs[2];
    explicit StereoDouble(const StereoFloat& source)
        : left(source.left.begin(), source.left.end()),
          right(source.right.begin(), source.right.end()),
          outLeft(left.size()),
          outRight(right.size()),
          inputs{left.data(), right.data()},
          outputs{outLeft.data(), outRight.data()} {}
};

// Two instances with the same bands, past the glide of the first block.
class BridgeFloatPathTest : public testing::Test {
protected:
    void SetUp() override {
        floatHost_ = HostedEffect::open(builtBridge(), kAnnouncedBlock);
        doubleHost_ = HostedEffect::open(builtBridge(), kAnnouncedBlock);
        ASSERT_TRUE(floatHost_ && doubleHost_);
        for (HostedEffect* hosted : {floatHost_.get(), doubleHost_.get()}) {
            hosted->setParameter(1, 0.8f);
            hosted->setParameter(7, 0.05f);
            hosted->setParameter(9, 0.9f);
            StereoFloat warmUp(kAnnouncedBlock);
            StereoDouble warmUpDouble(warmUp);
            AEffect* effect = hosted->effect();
            effect->processDoubleReplacing(effect, warmUpDouble.inputs, warmUpDouble.outputs,
                                           kAnnouncedBlock);
        }
    }
    std::unique_ptr<HostedEffect> floatHost_, doubleHost_;
};

TEST_F(BridgeFloatPathTest, InPlaceLongBlocksEqualTheDoublePathRounded) {
    for (int32_t frames : {kAnnouncedBlock, 1, 1000, 4096 + 17}) {
        StereoFloat buffer(frames);
        StereoDouble reference(buffer);
        AEffect* single = floatHost_->effect();
        single->processReplacing(single, buffer.channels, buffer.channels, frames);
        AEffect* twice = doubleHost_->effect();
        twice->processDoubleReplacing(twice, reference.inputs, reference.outputs, frames);
        int mismatches = 0;
        for (int32_t i = 0; i < frames; ++i) {
            mismatches += buffer.left[i] != static_cast<float>(reference.outLeft[i]);
            mismatches += buffer.right[i] != static_cast<float>(reference.outRight[i]);
        }
        EXPECT_EQ(mismatches, 0) << frames << " frames";
        EXPECT_NE(buffer.left[frames / 2], StereoFloat(frames).left[frames / 2]) << "the bands act";
    }
}

TEST_F(BridgeFloatPathTest, OldAccumulatingEntryAddsTheResultToTheOutput) {
    constexpr int32_t kFrames = 300;
    StereoFloat input(kFrames);
    StereoDouble reference(input);
    std::vector<float> left(kFrames, 1.0f), right(kFrames, -1.0f);
    float* outputs[2] = {left.data(), right.data()};
    AEffect* single = floatHost_->effect();
    single->process(single, input.channels, outputs, kFrames);
    AEffect* twice = doubleHost_->effect();
    twice->processDoubleReplacing(twice, reference.inputs, reference.outputs, kFrames);
    int mismatches = 0;
    for (int32_t i = 0; i < kFrames; ++i) {
        mismatches += left[i] != 1.0f + static_cast<float>(reference.outLeft[i]);
        mismatches += right[i] != -1.0f + static_cast<float>(reference.outRight[i]);
    }
    EXPECT_EQ(mismatches, 0);
}

}  // namespace
