// Several instances side by side, and many made and closed in turn: each keeps
// its own state, and closing leaves nothing behind (run under a leak checker).
#include <gtest/gtest.h>

#include "host/vst/host_callback.h"
#include "plugin_under_test.h"

namespace {

TEST(InstanceLifetime, TwoInstancesKeepTheirOwnSettingsAndCloseApart) {
    auto first = openTestSession();
    auto second = openTestSession();
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first->effect(), second->effect());
    first->setParameter(7, 1.0f);
    EXPECT_FLOAT_EQ(first->parameter(7), 1.0f);
    EXPECT_FLOAT_EQ(second->parameter(7), 0.25f);

    StereoBuffer input(512, 0.1);
    StereoBuffer output;
    second->process(input, output);
    EXPECT_EQ(output.left, input.left);

    first->close();
    first->close();  // twice is harmless
    EXPECT_FALSE(first->isOpen());
    EXPECT_EQ(first->dispatch(effIdentify), 0);  // nothing reaches a closed instance
    EXPECT_EQ(first->parameterCount(), 0);
    EXPECT_EQ(second->effectName(), "Ombro");
    second->process(input, output);
    EXPECT_EQ(output.right, input.right);
    second->close();
}

TEST(InstanceLifetime, ManyInstancesOpenWorkAndCloseCleanly) {
    StereoBuffer input(256, 0.3);
    StereoBuffer output;
    std::vector<std::unique_ptr<EffectSession>> open;
    for (int round = 0; round < 40; ++round) {
        auto session = openTestSession();
        ASSERT_NE(session, nullptr) << round;
        session->setParameter(round % 12, 0.4f);
        session->setChunk(session->chunk());
        session->process(input, output);
        if (round % 3 == 0) open.push_back(std::move(session));  // some stay open a while
    }
    for (auto& session : open) EXPECT_EQ(session->parameterCount(), 12);
    open.clear();
    auto last = openTestSession();
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->chunk().size(), 168u);
}

TEST(InstanceLifetime, HostIsToldItsSampleRateAndBlockSize) {
    SessionOptions options;
    options.sampleRate = 48000.0;
    options.blockSize = 256;
    auto session = openTestSession(options);
    ASSERT_NE(session, nullptr);
    intptr_t rate = ombroHostCallback(session->effect(), audioMasterGetSampleRate, 0, 0, nullptr,
                                      0.0f);
    intptr_t block = ombroHostCallback(session->effect(), audioMasterGetBlockSize, 0, 0, nullptr,
                                       0.0f);
    EXPECT_EQ(rate, 48000);
    EXPECT_EQ(block, 256);
    EXPECT_EQ(session->hostCalls().back().opcode, audioMasterGetBlockSize);
}

}  // namespace
