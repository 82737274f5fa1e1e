// The audio thread and the host's main thread work on one instance at once:
// parameter changes, chunk loads and suspends wait for the block in progress.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

#include "engine/audio_processing.h"
#include "engine/default_bands.h"
#include "engine/state_chunk.h"
#include "plugin/dispatcher.h"
#include "plugin/parameters.h"
#include "tests/engine/test_instance.h"

namespace {

TEST(ConcurrentAccess, AudioThreadRunsWhileTheHostEditsAndReloads) {
    InstancePtr instance = makeTestInstance();
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    AEffect* effect = &instance->effect;
    std::atomic<bool> stop{false};
    std::atomic<bool> finite{true};

    std::thread audio([&] {
        std::vector<double> left(256), right(256), outLeft(256), outRight(256);
        double* inputs[2] = {left.data(), right.data()};
        double* outputs[2] = {outLeft.data(), outRight.data()};
        for (int block = 0; !stop.load(); ++block) {
            for (int i = 0; i < 256; ++i) left[i] = right[i] = std::sin(0.05 * (block * 256 + i));
            processDoubleReplacing(effect, inputs, outputs, 256);
            for (double y : outLeft)
                if (!std::isfinite(y)) finite = false;
        }
    });

    void* saved = nullptr;
    int32_t size = writeStateChunk(instance.get(), &saved);
    std::vector<uint8_t> chunk(static_cast<uint8_t*>(saved), static_cast<uint8_t*>(saved) + size);
    for (int round = 0; round < 300; ++round) {
        setParameter(effect, 7, static_cast<float>((round % 8) / 8.0));
        setParameter(effect, 6, static_cast<float>((round % 5) / 5.0));
        (void)getParameter(effect, 9);
        if (round % 50 == 0) dispatcher(effect, effSetChunk, 0, size, chunk.data(), 0.0f);
        if (round % 70 == 0) dispatcher(effect, effMainsChanged, 0, 0, nullptr, 0.0f);
        if (round % 90 == 0) dispatcher(effect, effSetSampleRate, 0, 0, nullptr, 48000.0f);
    }
    stop = true;
    audio.join();
    EXPECT_TRUE(finite);
    EXPECT_EQ(effect->numParams, 12);
}

}  // namespace
