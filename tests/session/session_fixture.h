// A loaded plug-in and one open effect session, shared by the session tests;
// EditorSessionTest also opens the editor in a host window on the test clock.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "host/host_session.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/window_tree.h"

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
    // The calls the plug-in made into the host with one of these opcodes, in order.
    std::vector<HostCall> callsWith(std::initializer_list<int32_t> opcodes) const {
        std::vector<HostCall> matching;
        for (const HostCall& call : session->hostCalls())
            for (int32_t opcode : opcodes)
                if (call.opcode == opcode) matching.push_back(call);
        return matching;
    }
    std::vector<HostCall> gestureCalls() const {
        return callsWith({audioMasterAutomate, audioMasterBeginEdit, audioMasterEndEdit});
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

class EditorSessionTest : public SessionTest {
protected:
    void SetUp() override {
        SessionTest::SetUp();
        kobal_layer::resetWindowingLayer();
        kobal_layer::useTestClock(5000);
        host = kobal_layer::createHostWindow("session", RECT{20, 20, 1020, 660});
        ASSERT_TRUE(session->openEditor(host));
        kobal_layer::pumpMessages();
        ASSERT_EQ(kobal_layer::liveWindow(host)->children.size(), 1u);
        editor = kobal_layer::liveWindow(host)->children[0];
        session->clearHostCalls();
    }
    void TearDown() override {
        session->closeEditor();
        kobal_layer::resetWindowingLayer();
        kobal_layer::useRealClock();
    }

    HWND host = nullptr;
    HWND editor = nullptr;
};
