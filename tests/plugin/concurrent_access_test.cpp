// The audio thread and the host's main thread work on one instance at once:
// parameter changes, chunk loads and suspends wait for the block in progress.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

#include "engine/audio_processing.h"
#include "engine/default_bands.h"
#include "plugin/dispatcher.h"
#include "plugin/parameters.h"
#include "tests/engine/test_instance.h"

TEST(ConcurrentAccess, AudioThreadRunsWhileTheHostEditsAndReloads) {
    InstancePtr instance = makeTestInstance();
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    AEffect* effect = &instance->effect;
    std::atomic<bool> stop{false}, finite{true};
    std::thread audio([&] {
        std::vector<double> in(256), left(256), right(256);  // one signal on both channels
        double* inputs[2] = {in.data(), in.data()};
        double* outputs[2] = {left.data(), right.data()};
        for (int block = 0; !stop.load(); ++block) {
            for (int i = 0; i < 256; ++i) in[i] = std::sin(0.05 * (block * 256 + i));
            processDoubleReplacing(effect, inputs, outputs, 256);
            for (double y : left) finite = finite && std::isfinite(y);
        }
    });
    std::vector<unsigned char> chunk = writtenChunk(instance.get());
    for (int round = 0; round < 300; ++round) {
        setParameter(effect, 7, static_cast<float>((round % 8) / 8.0));
        setParameter(effect, 6, static_cast<float>((round % 5) / 5.0));
        (void)getParameter(effect, 9);
        if (round % 50 == 0)
            dispatcher(effect, effSetChunk, 0, static_cast<intptr_t>(chunk.size()), chunk.data(), 0.0f);
        if (round % 70 == 0) dispatcher(effect, effMainsChanged, 0, 0, nullptr, 0.0f);
        if (round % 90 == 0) dispatcher(effect, effSetSampleRate, 0, 0, nullptr, 48000.0f);
    }
    stop = true;
    audio.join();
    EXPECT_TRUE(finite);
    EXPECT_EQ(effect->numParams, 12);
}
