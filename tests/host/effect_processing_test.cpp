// Audio through a whole session: the flat default set, the unused 32-bit
// entry, empty blocks and an audible band change.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "plugin_under_test.h"

namespace {

StereoBuffer noise(size_t frames, unsigned seed) {
    std::mt19937 generator(seed);
    std::uniform_real_distribution<double> sample(-1.0, 1.0);
    StereoBuffer buffer(frames);
    for (size_t i = 0; i < frames; ++i) {
        buffer.left[i] = sample(generator);
        buffer.right[i] = sample(generator) * 0.5;
    }
    return buffer;
}

StereoBuffer tone(double frequency, double sampleRate, size_t frames) {
    StereoBuffer buffer(frames);
    for (size_t i = 0; i < frames; ++i)
        buffer.left[i] = buffer.right[i] =
            0.25 * std::sin(2.0 * std::numbers::pi * frequency * i / sampleRate);
    return buffer;
}

double rms(const std::vector<double>& samples, size_t from) {
    double sum = 0.0;
    for (size_t i = from; i < samples.size(); ++i) sum += samples[i] * samples[i];
    return std::sqrt(sum / static_cast<double>(samples.size() - from));
}

class Processing : public SingleInstanceTest {
protected:
    // Processes in host-sized blocks, as a host would.
    StereoBuffer processInBlocks(const StereoBuffer& input, size_t blockSize = 512) {
        StereoBuffer output(input.frames());
        for (size_t start = 0; start < input.frames(); start += blockSize) {
            size_t frames = std::min(blockSize, input.frames() - start);
            double* inputs[2] = {const_cast<double*>(&input.left[start]),
                                 const_cast<double*>(&input.right[start])};
            double* outputs[2] = {&output.left[start], &output.right[start]};
            session_->processFrames(inputs, outputs, static_cast<int32_t>(frames));
        }
        return output;
    }
};

TEST_F(Processing, DefaultBandsPassTheSignalBitForBitAtAnySampleRate) {
    StereoBuffer input = noise(4096, 1);
    StereoBuffer output;
    for (int block = 0; block < 4; ++block) {
        if (block == 3) session_->setSampleRate(96000.0);
        session_->process(input, output);
        EXPECT_EQ(output.left, input.left) << "block " << block;
        EXPECT_EQ(output.right, input.right) << "block " << block;
    }
    StereoBuffer buffer = noise(1000, 2);  // in place
    StereoBuffer original = buffer;
    auto channels = buffer.channels();
    session_->processFrames(channels.data(), channels.data(), 1000);
    EXPECT_EQ(buffer.left, original.left);
    EXPECT_EQ(buffer.right, original.right);
}

TEST_F(Processing, SinglePrecisionAndOldAccumulatingEntriesWriteNothing) {
    std::vector<float> inLeft(256, 0.5f), inRight(256, -0.5f);
    std::vector<float> outLeft(256, 7.0f), outRight(256, -7.0f);
    float* inputs[2] = {inLeft.data(), inRight.data()};
    float* outputs[2] = {outLeft.data(), outRight.data()};
    session_->processSinglePrecision(inputs, outputs, 256);
    session_->effect()->process(session_->effect(), inputs, outputs, 64);
    EXPECT_EQ(outLeft, std::vector<float>(256, 7.0f));
    EXPECT_EQ(outRight, std::vector<float>(256, -7.0f));
}

TEST_F(Processing, EmptyBlocksWriteNothingAndLeaveTheFilterReady) {
    StereoBuffer input(8, 0.5);
    StereoBuffer output(8, 9.0);
    auto inputs = input.channels();
    auto outputs = output.channels();
    session_->processFrames(inputs.data(), outputs.data(), 0);
    EXPECT_EQ(output.left, std::vector<double>(8, 9.0));
    EXPECT_EQ(output.right, std::vector<double>(8, 9.0));
    session_->processFrames(inputs.data(), outputs.data(), 8);
    EXPECT_EQ(output.left, input.left);
}

TEST_F(Processing, RaisedPeakingBandBoostsItsCentreFrequencyByItsGain) {
    const double rate = 44100.0;
    session_->setParameter(7, 1.0f);  // band 3 (1 kHz): gain 4.0, that is +12.04 dB
    StereoBuffer centre = tone(1000.0, rate, 44100);
    StereoBuffer output = processInBlocks(centre);
    double gainDb = 20.0 * std::log10(rms(output.left, 22050) / rms(centre.left, 22050));
    EXPECT_NEAR(gainDb, 20.0 * std::log10(4.0), 0.05);

    StereoBuffer far = tone(20.0, rate, 88200);  // almost six octaves below the peak
    output = processInBlocks(far);
    double farGainDb = 20.0 * std::log10(rms(output.left, 44100) / rms(far.left, 44100));
    EXPECT_NEAR(farGainDb, 0.0, 0.3);
}

}  // namespace
