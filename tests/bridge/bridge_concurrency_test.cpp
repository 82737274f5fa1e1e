// The three threads a host calls a plug-in from, all at once: the editor
// opened and idled on one, audio on another, automation from a third, while
// the GUI thread asks for texts and chunks and adds a band. Run under the
// address and thread sanitizers in CI.
#include <atomic>
#include <chrono>
#include <cmath>
#include <thread>
#include <vector>

#include "tests/bridge/bridge_fixture.h"
#include "tests/bridge/test_display.h"

namespace {

constexpr int32_t kFrames = 256;
constexpr int kEditorIdles = 25;

void runEditor(HostedEffect& hosted, unsigned long frameWindow, std::atomic<int>& opened) {
    opened = static_cast<int>(hosted.dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(frameWindow)));
    for (int i = 0; i < kEditorIdles; ++i) {
        hosted.dispatch(effEditIdle);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    hosted.dispatch(effEditClose);
}

void runAudio(AEffect* effect, const std::atomic<bool>& stop, std::atomic<bool>& finite) {
    std::vector<float> left(kFrames), right(kFrames);
    float* channels[2] = {left.data(), right.data()};
    for (int block = 0; !stop; ++block) {
        for (int32_t i = 0; i < kFrames; ++i)
            left[i] = right[i] = 0.25f * std::sin(0.01f * static_cast<float>(block * kFrames + i));
        effect->processReplacing(effect, channels, channels, kFrames);
        if (!std::isfinite(left[0]) || !std::isfinite(right[kFrames - 1])) finite = false;
    }
}

void runAutomation(AEffect* effect, const std::atomic<bool>& stop) {
    for (int step = 0; !stop; ++step) {
        effect->setParameter(effect, step % kDefaultParameterCount, static_cast<float>(step % 100) / 100.0f);
        effect->getParameter(effect, (step + 1) % kDefaultParameterCount);
    }
}

void runGuiRequests(HostedEffect& hosted) {
    constexpr int32_t kSetBandValue = static_cast<int32_t>(0xDEADBF0F);
    int32_t firstNotch = 3;
    for (int round = 0; round < 20; ++round) {
        hosted.text(effGetParamDisplay, round % kDefaultParameterCount);
        hosted.chunk();
        if (round == 10)
            hosted.dispatch(effVendorSpecific, kSetBandValue, reinterpret_cast<intptr_t>(&firstNotch),
                            nullptr, 2000.0f);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

TEST(BridgeConcurrency, EditorAudioAutomationAndGuiRequestsRunTogether) {
    if (testDisplayName().empty()) GTEST_SKIP() << "Xvfb is not installed";
    auto hosted = HostedEffect::open(builtBridge(), kFrames);
    ASSERT_NE(hosted, nullptr);
    HostFrame frame(1020, 640);
    ASSERT_NE(frame.display(), nullptr);
    std::atomic<bool> stop{false}, finite{true};
    std::atomic<int> opened{0};
    std::thread audio(runAudio, hosted->effect(), std::cref(stop), std::ref(finite));
    std::thread automation(runAutomation, hosted->effect(), std::cref(stop));
    std::thread editor(runEditor, std::ref(*hosted), frame.window(), std::ref(opened));
    runGuiRequests(*hosted);
    editor.join();
    stop = true;
    audio.join();
    automation.join();
    EXPECT_EQ(opened.load(), 1);
    EXPECT_TRUE(finite.load());
    EXPECT_EQ(hosted->effect()->numParams, kDefaultParameterCount + 3);
    EXPECT_EQ(hosted->callsWithOpcode(audioMasterIOChanged).size(), 1u);
}

}  // namespace
