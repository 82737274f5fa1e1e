// Audio, automation, the editor and GUI requests (texts, chunks, a band
// added) on four threads at once; CI runs it under the sanitizers.
#include <atomic>
#include <chrono>
#include <cmath>
#include <thread>

#include "tests/bridge/plain_host.h"
#include "tests/bridge/test_display.h"

TEST(BridgeConcurrency, EditorAudioAutomationAndGuiRequestsRunTogether) {
    if (testDisplayName().empty()) GTEST_SKIP() << "Xvfb is not installed";
    HostedEffect hosted(builtBridge());
    AEffect* effect = hosted.effect;
    ASSERT_NE(effect, nullptr);
    HostFrame frame(1020, 640);
    std::atomic<bool> stop{false}, finite{true};
    std::atomic<intptr_t> opened{0};
    std::thread audio([&] {
        std::vector<float> left(HostedEffect::kBlockSize), right(HostedEffect::kBlockSize);
        float* channels[2] = {left.data(), right.data()};
        for (int block = 0; !stop; ++block) {
            for (size_t i = 0; i < left.size(); ++i) left[i] = right[i] = 0.25f * std::sin(0.01f * (block * 256 + i));
            effect->processReplacing(effect, channels, channels, HostedEffect::kBlockSize);
            if (!std::isfinite(left[0]) || !std::isfinite(right.back())) finite = false;
        }
    });
    std::thread automation([&] {
        for (int step = 0; !stop; ++step) {
            effect->setParameter(effect, step % kDefaultParameterCount, (step % 100) / 100.0f);
            effect->getParameter(effect, (step + 1) % kDefaultParameterCount);
        }
    });
    std::thread editor([&] {
        opened = hosted.dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(frame.window));
        for (int i = 0; i < 25; ++i, std::this_thread::sleep_for(std::chrono::milliseconds(10)))
            hosted.dispatch(effEditIdle);
        hosted.dispatch(effEditClose);
    });
    for (int round = 0; round < 20; ++round, std::this_thread::sleep_for(std::chrono::milliseconds(5))) {
        hosted.text(effGetParamDisplay, round % kDefaultParameterCount);
        hosted.chunk();
        if (round == 10) addNotchBand(hosted);
    }
    editor.join();
    stop = true;
    audio.join();
    automation.join();
    EXPECT_EQ(opened.load(), 1);
    EXPECT_TRUE(finite.load());
    EXPECT_EQ(effect->numParams, kDefaultParameterCount + 3);
    EXPECT_EQ(hosted.calls(audioMasterIOChanged).size(), 1u);
}
