// A loaded plug-in and one open effect session, shared by the session tests.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "host/host_session.h"

class SessionTest : public ::testing::Test {
protected:
    static PluginLibrary& library() {
        static PluginLibrary loaded;
        return loaded;
    }
    void SetUp() override {
        session = EffectSession::open(library());
        ASSERT_TRUE(session);
    }
    // The calls the plug-in made into the host with this opcode, in order.
    std::vector<HostCall> callsWith(int32_t opcode) const {
        std::vector<HostCall> matching;
        for (const HostCall& call : session->hostCalls())
            if (call.opcode == opcode) matching.push_back(call);
        return matching;
    }
    // Opcode and index of each call.
    static std::vector<std::pair<int32_t, int32_t>> opcodesOf(const std::vector<HostCall>& calls) {
        std::vector<std::pair<int32_t, int32_t>> pairs;
        for (const HostCall& call : calls) pairs.emplace_back(call.opcode, call.index);
        return pairs;
    }
    // A band-list change the plug-in announced: its first parameter and the count added.
    static void expectListChange(const HostCall& call, int first, int delta) {
        ASSERT_TRUE(call.paramListChange);
        EXPECT_EQ(call.paramListChange->first, first);
        EXPECT_EQ(call.paramListChange->delta, delta);
    }

    std::unique_ptr<EffectSession> session;
};
